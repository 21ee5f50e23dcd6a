"""The real application on a desktop of its own: a real drag from another process, a run, the proxies on disk, the
notification, the clipboard."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, os.fspath(Path(__file__).parent.parent / "support"))
from desktop import PATIENCE, Desktop, make_clip, printed_by, wait_until  # noqa: E402

PROGRAM = sys.argv.pop(1)
SUPPORT = Path(__file__).parent.parent / "support"


class WindowTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(notifications=True, window_manager=True, accessibility=True)
        cls.desktop.__enter__()
        cls.addClassCleanup(cls.desktop.__exit__)
        os.environ.update(cls.desktop.environment)
        import accessible
        cls.accessible = accessible

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.proxies = self.folder / "marrowcut_proxies"

    def open_window(self, *arguments):
        self.program = self.desktop.start([PROGRAM, *arguments])
        self.addCleanup(self.end_program)
        self.app = self.accessible.Application("marrowcut", self.program)
        self.window = self.desktop.wait_for_window("Marrowcut", self.program)

    def end_program(self):
        if self.program.poll() is None:
            self.program.terminate()
        self.program.wait(PATIENCE)
        wait_until(lambda: not self.desktop.windows("Marrowcut"), "end of the window")
        self.assertEqual(printed_by(self.program), "")

    def xdotool(self, *arguments):
        return self.desktop.run("xdotool", *map(str, arguments))

    def drag_onto_window(self, path, *names):
        """With the mouse, from a window of another process to the middle of ours, which then lists the names. Not while
        Shift is held: the source offers nothing but to move then, and may delete what was moved."""
        source = self.desktop.start(["/usr/bin/python3", SUPPORT / "drag_source.py", path])
        other = self.desktop.wait_for_window("drag source", source)
        self.xdotool("windowmove", "--sync", other, 20, 20)
        self.xdotool("windowmove", "--sync", self.window, 500, 200)
        self.xdotool("windowraise", other)
        self.begin_drag(other, "keydown", "shift")
        self.move_over_window()
        self.xdotool("mouseup", 1, "keyup", "shift")
        refused = wait_until(lambda: printed_by(source), "end of the drag", source)
        self.assertEqual(refused, "dropped: []\n")
        plain = self.edge_colour()
        self.begin_drag(other)
        wait_until(lambda: self.move_over_window() and self.edge_colour() != plain, "highlight", self.program)
        self.xdotool("mouseup", 1)
        wait_until(lambda: self.edge_colour() == plain, "end of the highlight", self.program)
        for name in names:
            self.row(f"{name}, Queued")
        wait_until(lambda: printed_by(source) == refused + "dropped: ['copy']\n", "copy", source)
        self.desktop.end(source)

    def begin_drag(self, other, *keys):
        self.xdotool("mousemove", "--sync", "--window", other, 75, 50, *keys, "mousedown", 1)
        for x, y in [(90, 60), (120, 80), (140, 90)]:
            self.xdotool("mousemove", "--sync", "--window", other, x, y)

    def move_over_window(self):
        """A source tells its target of a drag only as the pointer moves."""
        for y in (200, 210, 220):
            self.xdotool("mousemove", "--sync", "--window", self.window, 240, y)
        return True

    def edge_colour(self):
        """Where the outline is drawn while a drag is over the window that it would take."""
        return self.desktop.run("import", "-window", self.window, "-crop", "1x1+1+200", "-depth", "8", "txt:-")

    def row(self, name):
        return self.app.wait_for("list item", name)

    def choose(self, menu, item):
        self.app.press(menu, "menu item")
        self.app.press(item, "menu item")

    def test_drag_run_and_clear(self):
        make_clip(self.folder / "a #1.mov")
        shutil.copytree(Path(__file__).parents[2] / "samples", self.folder / "samples",
                        ignore=shutil.ignore_patterns("Interview*", "make", "marrowcut_proxies"))
        self.open_window()
        drop_text = "Drop a large video file"
        self.app.wait_for(None, drop_text)

        self.drag_onto_window(self.folder / "a #1.mov", "a #1.mov")
        self.drag_onto_window(self.folder / "samples", "A001C001.mxf", "A002C001.mov")
        self.app.wait_for(None, drop_text, gone=True)

        self.app.press("Go")
        for name in ("a #1.mov", "A001C001.mxf", "A002C001.mov"):
            self.row(f"{name}, Done")
        self.app.wait_for(None, "3 of 3 done")

        self.assertTrue((self.proxies / "a #1_proxy.mp4").stat().st_size > 0)
        lines = (self.folder / "samples/marrowcut_proxies/manifest.csv").read_text().splitlines()
        self.assertEqual(len(lines), 3)
        tag = subprocess.check_output(["ffprobe", "-v", "error", "-select_streams", "v:0", "-show_entries",
                                       "stream_tags=timecode", "-of", "csv=p=0",
                                       self.folder / "samples/marrowcut_proxies/A001C001_proxy.mp4"])
        self.assertEqual(tag.decode().strip(), "01:02:03:04")

        shown = wait_until(self.desktop.notifications, "notification", self.program)
        self.assertEqual((shown[0]["summary"]["data"], shown[0]["body"]["data"]), ("Marrowcut", "3 files done."))

        self.app.press("Clear Completed")
        self.app.wait_for(None, drop_text)

    def test_report_reaches_the_clipboard(self):
        (self.folder / "broken.mov").write_bytes(b"\0nothing")
        self.open_window(self.folder / "broken.mov")
        self.app.press("Go")
        self.row("broken.mov, Failed: could not read metadata")
        self.choose("Help", "Report a Problem")
        self.app.press("Copy to Clipboard")
        self.app.wait_for("push button", "Copied")
        report = self.desktop.run("xclip", "-selection", "clipboard", "-o")
        self.assertTrue(report.startswith("Marrowcut diagnostic report\nGenerated: "))
        self.assertRegex(report, r"\nffmpeg: ffmpeg version ")
        self.assertIn("\nFailed files (1):\n\n- broken.mov\n  Failed: could not read metadata\n  ---\n", report)
        self.app.press("Close")
        self.app.wait_for("push button", "Copied", gone=True)

    def test_a_signal_does_not_ask(self):
        make_clip(self.folder / "long.mov", seconds=89)
        self.open_window(self.folder / "long.mov")
        self.app.press("Go")
        self.row("long.mov, Encoding")
        self.program.terminate()
        self.assertEqual(self.program.wait(PATIENCE), 130)
        self.assertFalse((self.proxies / "long_proxy.mp4").exists())

    def test_without_a_display(self):
        for display in ({}, {"DISPLAY": ":98765"}, {"WAYLAND_DISPLAY": "none"}):
            result = subprocess.run([PROGRAM], env={"XDG_RUNTIME_DIR": str(self.folder), **display}, stderr=subprocess.PIPE)
            self.assertEqual(result.returncode, 1)
            self.assertRegex(result.stderr.decode(), r"\A[^\n]*display[^\n]*marrowcut-cli[^\n]*\n\Z")

    def test_messages_cannot_control_the_terminal(self):
        result = subprocess.run([PROGRAM, "--\x1b[2J\x9b.mov"], stderr=subprocess.PIPE)
        self.assertEqual(result.returncode, 2)
        self.assertIn(rb"\x1B[2J\x9B.mov'", result.stderr)


unittest.main(verbosity=1)
