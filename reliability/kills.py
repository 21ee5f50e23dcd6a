"""The program ended at many moments of a chunked run, by signals and by closing its window: no child outlives it,
nothing unfinished stands under a final name, and the next run finishes everything. --moments N sets how many."""

import os
import shutil
import subprocess
import sys
import time
from pathlib import Path

from harness import SIGNALS, WINDOW_PROGRAM, Failure, Workplace, argument, check, check_manifest_lines, report

sys.path.insert(0, os.fspath(Path(__file__).parent.parent / "tests/support"))
from desktop import PATIENCE, Desktop, wait_until  # noqa: E402

CLOSED = "closed window"


def prepare(place, number):
    folder = place.folder / f"moment {number}"
    folder.mkdir()
    shutil.copy(place.clips["long.mov"], folder / "a.mov")
    shutil.copy(place.clips["short.mov"], folder / "b.mov")
    return folder


def whole_run(place):
    begin = time.monotonic()
    status, output = place.run(prepare(place, "measured"))
    check(status == 0, output)
    return time.monotonic() - begin


def kill_at(place, folder, name, moment):
    process = place.start(folder)
    time.sleep(moment)
    process.send_signal(SIGNALS[name])
    process.communicate(timeout=PATIENCE)
    place.check_no_children()


def close_at(desktop, folder, moment):
    """In the window: "Go", and at the moment the window is closed, again where the first time only asks."""
    with Workplace(WINDOW_PROGRAM) as place:
        process = place.start(folder, extra=desktop.environment)
        window = desktop.wait_for_window("Marrowcut", process)
        desktop.press_key(window, "Return", process)
        wait_until((folder / "marrowcut_proxies").is_dir, "run", process)
        time.sleep(moment)
        desktop.close_window(window, process)
        process.communicate(timeout=PATIENCE)
        check(process.returncode == 0, f"exit status {process.returncode}")
        place.check_no_children()


def end_at(place, desktop, number, name, moment):
    folder = prepare(place, number)
    if name == CLOSED:
        close_at(desktop, folder, moment)
    else:
        kill_at(place, folder, name, moment)
    place.judge(folder, {})
    check_manifest_lines(folder)
    status, output = place.run(folder)
    check(status == 0, f"the next run: {output}")
    place.judge(folder, {"a.mov": 91, "b.mov": 10})
    check(set(check_manifest_lines(folder).values()) <= {"done"}, "the manifest after the next run")


def try_all(desktop, moments):
    failures = []
    names = [*SIGNALS, CLOSED] if WINDOW_PROGRAM.exists() else list(SIGNALS)
    with Workplace() as place:
        duration = whole_run(place)
        for number in range(moments):
            name = names[number % len(names)]
            moment = duration * number / moments
            try:
                end_at(place, desktop, number, name, moment)
            except (Failure, AssertionError, subprocess.SubprocessError) as problem:
                failures.append(f"{name} after {moment:.2f} s: {problem}")
    return failures


def main():
    moments = argument("--moments", 50)
    with Desktop(window_manager=True) as desktop:
        failures = try_all(desktop, moments)
    report("kills", moments, failures)


main()
