"""The program ended by signals at many moments of a chunked run: no child outlives it, nothing unfinished stands under
a final name, and the next run finishes everything. --moments N sets how many."""

import shutil
import time

from harness import SIGNALS, Failure, Workplace, argument, check, report


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


def kill_at(place, number, name, moment):
    folder = prepare(place, number)
    process = place.start(folder)
    time.sleep(moment)
    process.send_signal(SIGNALS[name])
    process.communicate(timeout=60)
    place.check_no_children()
    place.judge(folder, {})
    status, output = place.run(folder)
    check(status == 0, f"the next run: {output}")
    place.judge(folder, {"a.mov": 91, "b.mov": 10})


def main():
    moments = argument("--moments", 50)
    names = list(SIGNALS)
    failures = []
    with Workplace() as place:
        duration = whole_run(place)
        for number in range(moments):
            name = names[number % len(names)]
            moment = duration * number / moments
            try:
                kill_at(place, number, name, moment)
            except Failure as problem:
                failures.append(f"{name} after {moment:.2f} s: {problem}")
    report("kills", moments, failures)


main()
