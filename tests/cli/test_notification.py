"""The notification at the end of a run, shown by a real server on a bus of its own."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, os.fspath(Path(__file__).parent.parent / "support"))
from desktop import Desktop  # noqa: E402

PROGRAM = sys.argv.pop(1)


class NotificationTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        (self.folder / "broken.mov").write_text("nothing")

    def run_cli(self, environment):
        return subprocess.run([PROGRAM, "--notify", "broken.mov"], cwd=self.folder, env=environment,
                              capture_output=True, timeout=60).returncode

    def test_shown_by_the_server(self):
        with Desktop(notifications=True) as desktop:
            self.assertEqual(self.run_cli(desktop.environment), 1)
            shown = desktop.notifications()
        self.assertEqual(len(shown), 1)
        self.assertEqual(shown[0]["summary"]["data"], "Marrowcut")
        self.assertEqual(shown[0]["body"]["data"], "0 done, 1 failed.")
        self.assertEqual(shown[0]["appname"]["data"], "Marrowcut")

    def test_without_a_server(self):
        with Desktop(notifications=False) as desktop:
            self.assertEqual(self.run_cli(desktop.environment), 1)

    def test_without_a_bus(self):
        environment = dict(os.environ, DBUS_SESSION_BUS_ADDRESS="unix:path=/nonexistent")
        self.assertEqual(self.run_cli(environment), 1)


unittest.main(verbosity=1)
