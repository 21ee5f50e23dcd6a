"""The program ended at many moments of a chunked run, by signals and by closing its window: no child outlives it,
nothing unfinished stands under a final name, and the next run finishes everything. --moments N sets how many."""

import os
import sys
import threading
import time
from functools import partial
from pathlib import Path

from harness import SIGNALS, WINDOW_PROGRAM, Workplace, argument, attempt_all, check, check_manifest_lines, report

sys.path.insert(0, os.fspath(Path(__file__).parent.parent / "tests/support"))
from desktop import PATIENCE, Desktop, wait_until  # noqa: E402

CLOSED = "closed window"
ONE_WINDOW = threading.Lock()  # the desktop is looked at for a window by its title


def prepare(place):
    return place.clip_folder({"a.mov": "long.mov", "b.mov": "short.mov"})


def whole_run(place):
    begin = time.monotonic()
    status, output = place.run(prepare(place))
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


def end_at(desktop, name, moment):
    with Workplace() as place:
        folder = prepare(place)
        if name == CLOSED:
            with ONE_WINDOW:
                close_at(desktop, folder, moment)
        else:
            kill_at(place, folder, name, moment)
        place.judge(folder, {})
        check_manifest_lines(folder)
        status, output = place.run(folder)
        check(status == 0, f"the next run: {output}")
        place.judge(folder, {"a.mov": 91, "b.mov": 10})
        check(set(check_manifest_lines(folder).values()) <= {"done"}, "the manifest after the next run")


def main():
    moments = argument("--moments", 50)
    names = [*SIGNALS, CLOSED] if WINDOW_PROGRAM.exists() else list(SIGNALS)
    with Desktop(window_manager=True) as desktop:
        with Workplace() as place:
            duration = whole_run(place)
        ends = [(names[number % len(names)], duration * number / moments) for number in range(moments)]
        failures = attempt_all([(f"{name} after {moment:.2f} s", partial(end_at, desktop, name, moment))
                                for name, moment in ends])
    report("kills", moments, failures)


main()
