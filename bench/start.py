"""From the start of the process to a window on the screen: the application against an empty Qt Quick window."""

import os
import statistics
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, os.fspath(Path(__file__).parent.parent / "tests/support"))
from desktop import Desktop  # noqa: E402

ROUNDS = 10


def seconds_to_window(desktop, program, title):
    begin = time.monotonic()
    process = desktop.start([program])
    desktop.run("xdotool", "search", "--sync", "--onlyvisible", "--name", f"^{title}$")
    taken = time.monotonic() - begin
    process.terminate()
    process.wait()
    return taken


def main(programs):
    with Desktop(window_manager=True) as desktop:
        pairs = [(seconds_to_window(desktop, f"{programs}/marrowcut", "Marrowcut"),
                  seconds_to_window(desktop, f"{programs}/bench-empty-window", "Empty")) for _ in range(ROUNDS + 1)][1:]
    ours, empty = (statistics.median(column) for column in zip(*pairs))
    ratio = statistics.median(one / other for one, other in pairs)
    print(f"start to window: {ours * 1000:.0f} ms, an empty window {empty * 1000:.0f} ms, median ratio {ratio:.2f}")


main(os.path.abspath(sys.argv[1]))
