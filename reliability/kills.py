"""The program ended at many moments of a chunked run, by signals and by closing its window: no child outlives it,
nothing unfinished stands under a final name, and the next run finishes everything. --moments N sets how many."""

import itertools
import os
import signal
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from functools import partial
from pathlib import Path

from harness import (SIGNALS, WINDOW_PROGRAM, Workplace, argument, attempt, attempt_all, check, check_manifest_lines,
                     report)

sys.path.insert(0, os.fspath(Path(__file__).parent.parent / "tests/support"))
from desktop import PATIENCE, Desktop  # noqa: E402

CLOSED = "closed window"


def prepare(place):
    return place.clip_folder({"a.mov": "long.mov", "b.mov": "short.mov"})


def whole_run(_):
    """How long it takes."""
    with Workplace() as place:
        folder = prepare(place)
        begin = time.monotonic()
        status, output = place.run(folder)
        check(status == 0, output)
        return time.monotonic() - begin


def kill_at(name, place, folder, moment):
    process = place.start(folder)
    time.sleep(moment)
    process.send_signal(SIGNALS[name])
    process.communicate(timeout=PATIENCE)
    check(process.returncode in (0, 130, -SIGNALS[name]), f"exit status {process.returncode}")
    place.check_no_children()


def close_at(desktop, _, folder, moment):
    """In the window: "Go", and at the moment the window is closed; "Quit" answers its question. Meanwhile no further
    tool begins, so that the run does not end first."""
    from accessible import Application  # reads the environment
    with Workplace(WINDOW_PROGRAM) as place:
        hold = place.folder / "hold"
        process = place.start(folder, fault=f'while [ -e "{hold}" ]; do sleep 0.01; done')
        window = desktop.wait_for_window("Marrowcut", process)
        desktop.press_key(window, "Return", process, (folder / "marrowcut_proxies").is_dir, "run")
        time.sleep(moment)
        hold.touch()
        app = Application("marrowcut", process)
        desktop.close_window(window, process, partial(app.press_if_shown, "Quit"))
        process.communicate(timeout=PATIENCE)
        check(process.returncode == 0, f"exit status {process.returncode}")
        place.check_no_children()


def end_at(end, ended_early, name, moment):
    with Workplace() as place:
        folder = prepare(place)
        end(place, folder, moment)
        place.judge(folder, {})
        if len(check_manifest_lines(folder)) < 2:
            ended_early.add(name)
        status, output = place.run(folder)
        check(status == 0, f"the next run: {output}")
        place.judge(folder, {"a.mov": 91, "b.mov": 10})
        lines = check_manifest_lines(folder)
        lost = {} if name == "SIGKILL" else {"a.mov", "b.mov"} - lines.keys()  # SIGKILL can come just before a line
        check(set(lines.values()) <= {"done"} and not lost, f"the manifest after the next run: {lines}")


def main():
    moments = argument("--moments", 50)
    for name in ("SIGINT", "SIGHUP"):  # ignored where this was started in the background or with nohup
        signal.signal(SIGNALS[name], signal.SIG_DFL)
    names = [*SIGNALS, CLOSED] if WINDOW_PROGRAM.exists() else list(SIGNALS)
    whole_run(None)  # from now on ffprobe's replies are kept
    with ThreadPoolExecutor(os.cpu_count()) as pool:  # as many at once as when they are ended
        duration = max(pool.map(whole_run, range(os.cpu_count())))
    ended_early = set()
    with Desktop(window_manager=True, accessibility=True) as desktop:
        os.environ.update(desktop.environment)
        ends = {name: partial(close_at, desktop) if name == CLOSED else partial(kill_at, name) for name in names}

        def end_of_run(name, moment):
            return f"{name} after {moment:.2f} s", partial(end_at, ends[name], ended_early, name, moment)

        planned = [(names[number % len(names)], duration * (number + 0.5) / moments) for number in range(moments)]
        failures = attempt_all([end_of_run(*one) for one in planned if one[0] != CLOSED])
        for one in planned:
            if one[0] == CLOSED:  # one at a time: the desktop is looked at for a window by its title
                failures += attempt(*end_of_run(*one))
        # The machine may have become faster since the run was timed.
        for name, part in itertools.product(names, (4, 16, 64)):
            if name not in ended_early:
                planned.append((name, duration / part))
                failures += attempt(*end_of_run(*planned[-1]))
    failures += [f"{name}: never before the run's own end" for name in names if name not in ended_early]
    report("kills", len(planned), failures)


main()
