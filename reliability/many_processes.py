"""Many Marrowcuts in one folder under GNU parallel, as docs/many-machines.md has it: names by NUL, one process for each
clip, results as JSON, a job log; then only what failed or was killed again. And eight processes with many clips each,
started at random offsets, one of them killed in every other round, and two with the same clips.

    many_processes.py MARROWCUT-CLI [--rounds N] [--clips N]
"""

import json
import os
import random
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

from harness import HEADER, Workplace, argument, check, check_manifest_lines, make_clip, report

NAMES = [f"A001C{number:03}.MXF" for number in range(12)] + ["it's 100%.mov", "two\nlines.mov", "-dash.mp4", "\\$HOME `x`.mov"]
BROKEN = "broken.mov"
FIND = ["-name", "marrowcut_proxies", "-prune", "-o", "-type", "f", "(", "-iname", "*.mxf", "-o", "-iname", "*.mov", "-o",
        "-iname", "*.mp4", ")", "-print0"]


class Night:
    """A card in a workplace, and what was started for it."""

    def __init__(self, place):
        self.place = place
        self.card = place.folder / "card"
        self.proxies = self.card / "marrowcut_proxies"
        self.card.mkdir()
        for name in NAMES:
            shutil.copy(place.clips["short.mov"], self.card / name)
        (self.card / BROKEN).write_text("nothing")
        (place.folder / "clips.list").write_bytes(subprocess.check_output(["find", self.card, *FIND]))

    def start(self, *options):
        with open(self.place.folder / "night.jsonl", "ab") as results:
            return subprocess.Popen(
                ["parallel", "--will-cite", "--null", "--arg-file", self.place.folder / "clips.list", "--jobs", "4",
                 "--joblog", self.place.folder / "night.log", *options, self.place.program, "--json", "{}"],
                env=self.place.environment, cwd="/", stdin=subprocess.DEVNULL, stdout=results,
                stderr=subprocess.DEVNULL, start_new_session=True)

    def run(self, *options):
        return self.start(*options).wait(timeout=300)

    def results(self):
        """Clip -> how often it was done and failed."""
        events = [json.loads(line) for line in (self.place.folder / "night.jsonl").read_text().splitlines()]
        return {name: [sum(event["event"] == kind and os.path.basename(event["clip"]) == name for event in events)
                       for kind in ("done", "failed")] for name in [*NAMES, BROKEN]}

    def logged_statuses(self):
        return [line.split("\t")[6] for line in (self.place.folder / "night.log").read_text().split("\n")[1:]
                if line.count("\t") >= 8]

    def mend_broken(self):
        shutil.copy(self.place.clips["short.mov"], self.card / BROKEN)

    def check_whole(self, fewest_lines=1):
        self.place.check_no_children()
        self.place.judge(self.card, {name: 10 for name in [*NAMES, BROKEN]})
        check(not [name for name in os.listdir(self.proxies) if name.startswith(".")], "leftovers")
        manifest = (self.proxies / "manifest.csv").read_text()
        check(manifest.count(HEADER) == 1, "the manifest's header")
        for name in NAMES:
            lines = manifest.count(f"\n{name},")
            check(fewest_lines <= lines <= 1, f"{name!r} has {lines} lines in the manifest")


def undisturbed(place):
    night = Night(place)
    check(night.run() == 1, "exit status with one broken clip")
    check(sorted(night.logged_statuses()) == ["0"] * len(NAMES) + ["1"], "statuses in the job log")
    check(night.results() == dict.fromkeys(NAMES, [1, 0]) | {BROKEN: [0, 1]}, "results")
    night.mend_broken()
    check(night.run("--resume-failed") == 0, "exit status of the second run")
    check(len(night.logged_statuses()) == len(NAMES) + 2, "the second run took more than what had failed")
    night.check_whole()


def killed(place, delay):
    """The whole session gets SIGTERM and, after a grace time, SIGKILL, as schedulers do."""
    night = Night(place)
    process = night.start()
    while len(list(night.proxies.glob("*_proxy.mp4"))) < 3:
        time.sleep(0.01)
    time.sleep(delay)
    os.killpg(process.pid, signal.SIGTERM)
    time.sleep(delay)
    os.killpg(process.pid, signal.SIGKILL)
    process.wait()
    place.check_no_children()
    night.mend_broken()
    check(night.run("--resume-failed") == 0, "exit status of the second run")
    night.check_whole(fewest_lines=0)  # one may have been killed between its proxy and its line


def scheduled(place, number):
    if number % 4 == 0:
        undisturbed(place)
    else:
        killed(place, number % 5 * 0.1)


# The clips of one process are copies of one: what ffprobe reports of the first serves for the others.
REMEMBERED_PROBES = """
if [ $tool = ffprobe ]; then
    clip="${output##*/}"; arguments="${*:1:$#-1}"; answer="$ANSWERS/${clip%%C*}${arguments//[^a-z0-9_]/.}"
    [ -e "$answer" ] || { "$real" "$@" >"$answer.$$" && mv "$answer.$$" "$answer"; }
    exec cat "$answer"
fi
"""


def side_by_side(place, seed):
    """One folder, different clips: the same proxies and lines as of one process."""
    chance = random.Random(seed)
    answers = place.folder / "answers"
    answers.mkdir()
    card = place.folder / "card"
    card.mkdir()
    shares, frames = [], {}
    for process in range(8):
        clip = make_clip(place.folder / f"{process}.mov", f"color=gray:s=64x36:r=25:d={(process + 5) / 25}")
        place.frames[clip.stat().st_size] = process + 5
        shares.append([card / f"P{process}C{number:03}.mov" for number in range(argument("--clips", 50))])
        for name in shares[-1]:
            shutil.copy(clip, name)
            frames[name.name] = process + 5

    def start(share):
        return place.start("--quiet", *share, fault=REMEMBERED_PROBES, extra={"ANSWERS": os.fspath(answers)})

    processes = []
    for share in shares:
        processes.append(start(share))
        time.sleep(chance.uniform(0, 0.2))
    has_kill = seed % 2
    if has_kill:
        time.sleep(chance.uniform(0, len(shares[0]) * 0.5))
        victim = chance.randrange(len(processes))
        processes[victim].kill()
        processes[victim].communicate()
        processes[victim] = start(shares[victim])
    for process in processes:
        output, errors = process.communicate(timeout=600)
        check((process.returncode, output + errors) == (0, b""), f"status {process.returncode}: {errors}")
    place.check_no_children()
    place.judge(card, frames)
    found = check_manifest_lines(card)  # as many lines as clips, each once
    check(set(found.values()) == {"done"} and found.keys() <= frames.keys(), f"outcomes: {set(found.values())}")
    # The kill can fall between a proxy and its line.
    check(len(found) >= len(frames) - has_kill, f"{len(found)} lines in the manifest")


def same_clips(place, seed):
    """Two processes given one folder: each clip is encoded once."""
    card = place.folder / "card"
    card.mkdir()
    names = [f"{number}.mov" for number in range(argument("--clips", 50) // 4 + 1)]
    for name in names:
        shutil.copy(place.clips["short.mov"], card / name)
    calls = place.folder / "calls"
    processes = []
    for _ in range(2):
        processes.append(place.start("--encoder", "libx264", "--quiet", card, calls=calls))
        time.sleep(random.Random(seed).uniform(0, 1))
    for process in processes:
        output, errors = process.communicate(timeout=600)
        problems = [line for line in errors.splitlines() if b": waiting for another Marrowcut" not in line]
        check((process.returncode, output, problems) == (0, b"", []), f"status {process.returncode}: {errors}")
    place.check_no_children()
    place.judge(card, dict.fromkeys(names, 10))
    check(check_manifest_lines(card) == dict.fromkeys(names, "done"), "the manifest")
    check(calls.read_bytes().count(b"ffmpeg\0-y\0") == len(names), "a clip was encoded twice")


def main():
    rounds = argument("--rounds", 20)
    failures = []
    for number in range(rounds):
        for attack in (scheduled, side_by_side, same_clips):
            with Workplace() as place:
                try:
                    attack(place, number)
                except Exception as failure:  # noqa: BLE001
                    failures.append(f"{attack.__name__}, round {number}: {failure!r}")
    report("many", 3 * rounds, failures)


main()
