"""The command line over folders whose clips are done already: what a clip costs in a short and in a long queue, in each
way of showing the run."""

import os
import pty
import statistics
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

SHORT, LONG = 1_000, 20_000
ROUNDS = 5
LIMIT = 1.3


def make_folder(folder, clips):
    proxies = folder / "marrowcut_proxies"
    proxies.mkdir(parents=True)
    for number in range(clips):
        (folder / f"A{number:05}.mxf").touch()
        (proxies / f"A{number:05}_proxy.mp4").touch()


def discard(descriptor):
    try:
        while os.read(descriptor, 1 << 16):
            pass
    except OSError:  # the terminal's other end is closed
        pass


def seconds(command, on_terminal):
    """Until the program ends, its output read as it comes."""
    reading, writing = pty.openpty() if on_terminal else os.pipe()
    begin = time.monotonic()
    process = subprocess.Popen(command, stdout=writing, env=dict(os.environ, TERM="xterm"))
    os.close(writing)
    reader = threading.Thread(target=discard, args=[reading])
    reader.start()
    status = process.wait()
    taken = time.monotonic() - begin
    reader.join()
    os.close(reading)
    assert status == 0, command
    return taken


def main(program):
    with tempfile.TemporaryDirectory() as name:
        folders = {clips: Path(name, str(clips)) for clips in (SHORT, LONG)}
        for clips, folder in folders.items():
            make_folder(folder, clips)
        print(f"clips that are done already; time per clip in a run over {LONG}, and against that of {SHORT}:")
        for mode, options, on_terminal in [("on a terminal", [], True), ("into a pipe", [], False),
                                           ("as JSON", ["--json"], False)]:
            rounds = [{clips: seconds([program, *options, folder], on_terminal) / clips
                       for clips, folder in folders.items()} for _ in range(ROUNDS + 1)][1:]  # the first warms caches
            ratio = statistics.median(taken[LONG] / taken[SHORT] for taken in rounds)
            print(f"  {mode:14} {statistics.median(taken[LONG] for taken in rounds) * 1e6:6.1f} us  x {ratio:.2f}; "
                  f"limit {LIMIT}: {'held' if ratio <= LIMIT else 'NOT held'}")


main(os.path.abspath(sys.argv[1]))
