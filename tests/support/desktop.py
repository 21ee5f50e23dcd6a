"""A desktop of a test's own: a display, a session bus and, where wanted, what runs on them."""

import contextlib
import json
import os
import subprocess
import tempfile
import time
from pathlib import Path


PATIENCE = 300  # seconds, for what takes a moment on an idle machine


def wait_until(condition, what="something", program=None):
    """Polls what no event reports, such as another program's readiness; returns the first true result. Fails early
    when the program, on which it depends, has ended."""
    end = time.monotonic() + PATIENCE
    while True:
        status = program.poll() if program else None
        result = condition()
        if result:
            return result
        if status is not None:
            raise AssertionError(f"no {what}: the program ended with status {status} and printed "
                                 f"{printed_by(program)!r}")
        if time.monotonic() > end:
            if program:
                program.kill()
                what += f"; killed, the program had printed {printed_by(program)!r}"
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.02)


def printed_by(program):
    """By a program that has ended, to its log or to pipes that nobody has read."""
    if log := getattr(program, "log", None):
        log.seek(0)
        return log.read().decode(errors="replace")
    return "".join(text.decode(errors="replace") for text in program.communicate() if text)


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
            # It announces itself before it takes windows; one that comes between is never shown.
            started = Path(home) / "started"
            manager = self.start(["openbox", "--startup", f"touch {started}"])
            wait_until(started.exists, "window manager", manager)
        if notifications:
            # Configured by nothing but this, whoever's machine it is.
            config = Path(home) / "dunstrc"
            config.write_text("[global]\nhistory_length = 20\n")
            server = self.start(["dunst", "-config", os.fspath(config)])
            name = "org.freedesktop.Notifications"
            wait_until(lambda: "true" in self._call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                    "org.freedesktop.DBus.NameHasOwner", name), name, server)
            self.run("dunstctl", "history")  # and replies
        if accessibility:
            self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
            self._call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress")

    def __exit__(self, *_):
        self._stack.close()

    def start(self, command, **keywords):
        """Starts a program on the desktop; it ends with the desktop at the latest. What it prints goes to its log."""
        log = self._stack.enter_context(tempfile.TemporaryFile())
        keywords = {"stdout": log, "stderr": log, **keywords}
        process = subprocess.Popen(command, env=self.environment, **keywords)
        process.log = log
        self._stack.callback(self.end, process)
        return process

    def run(self, *command, **keywords):
        """What a program prints that runs on the desktop to its end."""
        return subprocess.run(command, env=self.environment, check=True, stdout=subprocess.PIPE, timeout=PATIENCE,
                              **keywords).stdout.decode()

    def windows(self, title):
        """The ids of those that show."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"], env=self.environment,
                               stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return found.stdout.decode().split()

    def wait_for_window(self, title, program):
        """Its id."""
        return wait_until(lambda: self.windows(title), f"window {title!r}", program)[0]

    def press_key(self, window, key, program, effect, what):
        """When the window has the keyboard; again until effect() is true, since it may not be ready for the key yet."""
        def has_effect():
            if not effect() and self._takes_focus(window):
                self.run("xdotool", "key", key)
            return effect()
        wait_until(has_effect, what, program)

    def close_window(self, window, program, answer=lambda: False):
        """Until the program has ended. answer() presses a button of the question that comes during a run, and tells
        whether there was one; without an answer the window closes when the run has ended."""
        def has_ended():
            if program.poll() is None and not answer() and self._takes_focus(window):
                self.run("xdotool", "key", "alt+F4")
            return program.poll() is not None
        wait_until(has_ended, "end of the program", program)

    def _takes_focus(self, window):
        subprocess.run(["xdotool", "windowactivate", window], env=self.environment, stderr=subprocess.DEVNULL)
        focused = subprocess.run(["xdotool", "getwindowfocus"], env=self.environment, stdout=subprocess.PIPE,
                                 stderr=subprocess.DEVNULL)
        return focused.stdout.decode().strip() == window

    def notifications(self):
        """Those shown so far, the latest first."""
        self.run("dunstctl", "close-all")
        return json.loads(self.run("dunstctl", "history"))["data"][0]

    @staticmethod
    def end(process):
        process.terminate()
        try:
            process.wait(PATIENCE)
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
