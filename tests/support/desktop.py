"""A desktop of a test's own: a display, a session bus and, where wanted, what runs on them."""

import contextlib
import json
import os
import subprocess
import tempfile
import time
from pathlib import Path


def wait_until(condition, seconds=60, what="something"):
    """Polls what no event tells, such as another program's readiness; returns the first true answer."""
    end = time.monotonic() + seconds
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.02)


class Desktop:
    """Xvfb and dbus-daemon; all of it ends with the context."""

    def __init__(self, notifications=False, window_manager=False, accessibility=False):
        self._wanted = (notifications, window_manager, accessibility)
        self._stack = contextlib.ExitStack()
        self.environment = dict(os.environ)

    def __enter__(self):
        with self._stack:  # where something does not start, nothing stays behind
            self._start_all()
            self._stack = self._stack.pop_all()
        return self

    def _start_all(self):
        notifications, window_manager, accessibility = self._wanted
        home = self._stack.enter_context(tempfile.TemporaryDirectory())
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"):
            self.environment[name] = home
        os.chmod(home, 0o700)
        for name in ("WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_CURRENT_DESKTOP"):
            self.environment.pop(name, None)
        self._start_display()
        self._start_bus(home)
        if window_manager:
            self.start(["openbox"])
            wait_until(lambda: "window id" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                       what="the window manager")
        if notifications:
            # Configured by nothing but this, whoever's machine it is.
            config = Path(home) / "dunstrc"
            config.write_text("[global]\nhistory_length = 20\n")
            self.start(["dunst", "-config", os.fspath(config)])
            name = "org.freedesktop.Notifications"
            wait_until(lambda: "true" in self._call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                    "org.freedesktop.DBus.NameHasOwner", name), what=name)
        if accessibility:
            self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
            self._call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress")

    def __exit__(self, *_):
        self._stack.close()

    def start(self, command, **keywords):
        """Starts a program on the desktop; it ends with the desktop at the latest."""
        keywords.setdefault("stdout", subprocess.DEVNULL)
        keywords.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen(command, env=self.environment, **keywords)
        self._stack.callback(self.end, process)
        return process

    def run(self, *command, **keywords):
        """What a program prints that runs on the desktop to its end."""
        return subprocess.run(command, env=self.environment, check=True, stdout=subprocess.PIPE, timeout=60,
                              **keywords).stdout.decode()

    def windows(self, title):
        """The ids of those that show."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"], env=self.environment,
                               stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return found.stdout.decode().split()

    def notifications(self):
        """Those shown so far, the latest first."""
        self.run("dunstctl", "close-all")
        return json.loads(self.run("dunstctl", "history"))["data"][0]

    @staticmethod
    def end(process):
        process.terminate()
        try:
            process.wait(10)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()

    def _start_display(self):
        read_end, write_end = os.pipe()
        self.start(["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1400x1000x24", "-nolisten", "tcp",
                    "-noreset"],
                   pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as answer:
            self.environment["DISPLAY"] = ":" + answer.readline().strip()

    def _start_bus(self, home):
        bus = self.start(["dbus-daemon", "--session", "--nofork", "--print-address", f"--address=unix:dir={home}"],
                         stdout=subprocess.PIPE)
        self._stack.callback(bus.stdout.close)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().decode().strip()

    def _call(self, name, path, method, *arguments):
        return self.run("gdbus", "call", "--session", "--dest", name, "--object-path", path, "--method", method,
                        *arguments)


def make_clip(path, seconds=1, options=()):
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", f"color=gray:s=320x180:r=25:d={seconds}",
                    "-c:v", "mpeg4", *options, path], check=True)
