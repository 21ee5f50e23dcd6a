"""From the start of the process to a window on the screen, and to a version on standard output, each against the
least that a program of its kind does."""

import os
import statistics
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, os.fspath(Path(__file__).parent.parent / "tests/support"))
from desktop import Desktop  # noqa: E402

WINDOW_ROUNDS, COMMAND_ROUNDS = 10, 60
WINDOW_LIMIT, COMMAND_LIMIT = 1.3, 2.5


class WindowList:
    """The window manager's list of windows, told at each of its changes; asking again and again would be too coarse."""

    def __init__(self, desktop):
        self._spy = desktop.start(["xprop", "-root", "-spy", "_NET_CLIENT_LIST"], stdout=subprocess.PIPE)
        self.wait_until(filled=False)

    def wait_until(self, filled):
        while (b"0x" in self._spy.stdout.readline()) != filled:
            pass


def seconds_to_window(desktop, windows, *command):
    begin = time.monotonic()
    process = desktop.start(command)
    windows.wait_until(filled=True)
    taken = time.monotonic() - begin
    process.terminate()
    process.wait()
    windows.wait_until(filled=False)
    return taken


def seconds_to_end(*command):
    begin = time.monotonic()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return time.monotonic() - begin


def report(what, ours, least, pairs, limit=None):
    one, other = (statistics.median(column) * 1000 for column in zip(*pairs))
    ratio = statistics.median(mine / its for mine, its in pairs)
    verdict = f"; limit {limit}: {'held' if ratio <= limit else 'NOT held'}" if limit else ""
    print(f"{what}: {ours} {one:.1f} ms, {least} {other:.1f} ms, median ratio {ratio:.2f}{verdict}")


def main(programs):
    with Desktop(window_manager=True) as desktop:
        windows = WindowList(desktop)
        rounds = [(seconds_to_window(desktop, windows, f"{programs}/marrowcut"),
                   seconds_to_window(desktop, windows, f"{programs}/bench-empty-window"),
                   seconds_to_window(desktop, windows, f"{programs}/bench-empty-window", "software"))
                  for _ in range(WINDOW_ROUNDS + 1)][1:]  # the first warms the caches
    report("start to window", "marrowcut", "an empty window", [taken[:2] for taken in rounds], WINDOW_LIMIT)
    report("start to window", "marrowcut", "an empty window without OpenGL", [taken[::2] for taken in rounds])
    pairs = [(seconds_to_end(f"{programs}/marrowcut-cli", "--version"), seconds_to_end(f"{programs}/bench-empty-core"))
             for _ in range(COMMAND_ROUNDS + 1)][1:]
    report("start to version", "marrowcut-cli --version", "an empty program", pairs, COMMAND_LIMIT)


main(os.path.abspath(sys.argv[1]))
