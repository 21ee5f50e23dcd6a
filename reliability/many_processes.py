"""Many Marrowcuts in one folder under GNU parallel, as docs/many-machines.md has it: names by NUL, one process for each
clip, results as JSON, a job log; then only what failed or was killed again. And eight processes with many clips each,
started at random offsets, one of them killed in every other round, and two with the same clips.

    many_processes.py MARROWCUT-CLI [--rounds N] [--clips N]
"""

import hashlib
import json
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import time
from functools import partial
from pathlib import Path

from harness import HEADER, Workplace, argument, attempt_all, check, check_manifest_lines, frame_count, in_a_workplace, report

sys.path.insert(0, os.fspath(Path(__file__).parent.parent / "tests/support"))
from desktop import PATIENCE, wait_until  # noqa: E402

CLIPS = argument("--clips", 24)
NAMES = [f"A001C{number:03}.MXF" for number in range(min(CLIPS, 12))]
NAMES += ["it's 100%.mov", "two\nlines.mov", "-dash.mp4", "\\$HOME `x`.mov"]
BROKEN = "broken.mov"
JOBS = 4
ENCODE = ["--encoder", "libx264", "--quality", "tiny", "--quiet"]
FIND = ["-name", "marrowcut_proxies", "-prune", "-o", "-type", "f", "(", "-iname", "*.mxf", "-o", "-iname", "*.mov", "-o",
        "-iname", "*.mp4", ")", "-print0"]


class Night:
    """A card in a workplace, and what was started for it."""

    def __init__(self, place):
        self.place = place
        self.card = place.clip_folder(dict.fromkeys(NAMES, "short.mov"))
        self.proxies = self.card / "marrowcut_proxies"
        (self.card / BROKEN).write_text("nothing")
        (place.folder / "clips.list").write_bytes(subprocess.check_output(["find", self.card, *FIND]))

    def start(self, *options):
        with open(self.place.folder / "night.jsonl", "ab") as results:
            return subprocess.Popen(
                ["parallel", "--will-cite", "--null", "--arg-file", self.place.folder / "clips.list", "--jobs", str(JOBS),
                 "--joblog", self.place.folder / "night.log", *options, self.place.program, "--quality", "tiny", "--json", "{}"],
                env=self.place.environment, cwd="/", stdin=subprocess.DEVNULL, stdout=results,
                stderr=subprocess.DEVNULL, start_new_session=True)

    def run(self, *options):
        process = self.start(*options)
        try:
            return process.wait(timeout=PATIENCE)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            raise

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

    def check_whole(self, may_miss=0):
        self.place.check_no_children()
        self.place.judge(self.card, {name: 10 for name in [*NAMES, BROKEN]})
        check(not [name for name in os.listdir(self.proxies) if name.startswith(".")], "leftovers")
        manifest = (self.proxies / "manifest.csv").read_text()
        check(manifest.count(HEADER) == 1, "the manifest's header")
        lines = {name: manifest.count(f"\n{name},") for name in NAMES}
        check(max(lines.values()) == 1 and list(lines.values()).count(0) <= may_miss, f"lines in the manifest: {lines}")


def undisturbed(place):
    night = Night(place)
    check(night.run() == 1, "exit status with one broken clip")
    check(sorted(night.logged_statuses()) == ["0"] * len(NAMES) + ["1"], "statuses in the job log")
    check(night.results() == dict.fromkeys(NAMES, [1, 0]) | {BROKEN: [0, 1]}, "results")
    night.mend_broken()
    check(night.run("--resume-failed") == 0, "exit status of the second run")
    check(len(night.logged_statuses()) == len(NAMES) + 2, "the second run took more than what had failed")
    night.check_whole()


def killed(place, delay, in_time):
    """The whole session gets SIGTERM and, after a grace time, SIGKILL, as schedulers do."""
    night = Night(place)
    process = night.start()
    wait_until(lambda: len(list(night.proxies.glob("*_proxy.mp4"))) >= 3, "three proxies", process)
    time.sleep(delay)
    os.killpg(process.pid, signal.SIGTERM)
    time.sleep(delay)
    os.killpg(process.pid, signal.SIGKILL)
    process.wait()
    place.check_no_children()
    in_time.append(len(list(night.proxies.glob("*_proxy.mp4"))) < len(NAMES))
    night.mend_broken()
    check(night.run("--resume-failed") == 0, "exit status of the second run")
    night.check_whole(may_miss=JOBS)  # each may have been killed between its proxy and its line


def scheduled(in_time, place, number):
    if number % 4 == 0:
        undisturbed(place)
    else:
        killed(place, number % 5 * 0.1, in_time)


PROCESSES = 8

# In ffprobe's place: its reply to the same query about the same source, kept from the first time.
KEPT_REPLIES = """#!/bin/sh
for clip; do :; done
query="$*"; source=${{clip##*/P}}
kept="{kept}/${{source%%C*}} ${{query%"$clip"}}"
[ -f "$kept" ] || {{ {real} "$@" >"$kept.$$" && mv "$kept.$$" "$kept" || exit; }}
exec cat "$kept"
"""

# In ffmpeg's place: the proxy that it made for one process, in two steps between which a kill can come.
KEPT_PROXIES = """#!/bin/sh
for output; do :; done
kept="{kept}/${{output##*/.tmp_}}"
head -c 1000 "$kept" >"$output"; sleep 0.05; tail -c +1001 "$kept" >>"$output"
"""


class Share:
    """What eight processes are given, and what one process makes of it."""

    def __init__(self, place):
        self.kept = place.clip_folder({}, "kept")
        self.card = place.clip_folder({})
        for process in range(PROCESSES):
            first, *others = (self.card / name for name in self.names(process))
            subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", "testsrc2=s=64x48:r=25", "-frames:v",
                            str(3 + process), "-timecode", f"0{process}:00:00:00", "-c:v", "mpeg4", first], check=True)
            for clip in others:
                os.link(first, clip)
        self.keep_replies(place)
        status, output = place.run(*ENCODE, *sorted(self.card.iterdir()), limit=1200)
        check(status == 0, output)
        for process in range(PROCESSES):
            proxy = self.card / f"marrowcut_proxies/P{process}C000_proxy.mp4"
            check(frame_count(proxy) == 3 + process, f"frames of {proxy.name}")
        self.proxies, self.lines = self.made(self.card)
        check(len(self.lines) == len(set(self.proxies.values())) == PROCESSES * CLIPS, "proxies that don't differ")

    def names(self, process):
        return [f"P{process}C{number:03}.mov" for number in range(CLIPS)]

    def keep_proxies(self, place):
        (place.tools / "ffmpeg").write_text(KEPT_PROXIES.format(kept=self.card / "marrowcut_proxies"))

    def keep_replies(self, place):
        (place.tools / "ffprobe").write_text(KEPT_REPLIES.format(kept=self.kept, real=shutil.which("ffprobe")))

    def made(self, card):
        """Proxy -> its bytes' digest; the manifest's lines but for the time at their end."""
        folder = card / "marrowcut_proxies"
        header, *lines = (folder / "manifest.csv").read_text().split("\n")
        check(header == HEADER and lines.pop() == "", "the manifest's header or end")
        check(all(re.search(r",\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$", line) for line in lines), "a torn line")
        digests = {path.name: hashlib.sha256(path.read_bytes()).digest() for path in folder.iterdir()
                   if path.name != "manifest.csv"}
        return digests, sorted(line.rpartition(",")[0] for line in lines)


def end_and_resume(process, start, folder, number, sent, after, in_time):
    """The signal comes when so many of the process's proxies are there."""
    while process.poll() is None and len(list(folder.glob(f"P{number}*_proxy.mp4"))) < after:
        time.sleep(0.01)
    process.send_signal(sent)
    process.communicate(timeout=PATIENCE)
    check(process.returncode in (0, 130 if sent == signal.SIGTERM else -sent), f"status {process.returncode} when ended")
    in_time.append(process.returncode != 0)
    return start(number)


def side_by_side(share, in_time, place, seed):
    """One folder, different clips: the same proxies and lines as of one process, which alone encoded them. One that was
    killed between a proxy and its line leaves the line out."""
    chance = random.Random(seed)
    card = place.clip_folder({})
    share.keep_replies(place)
    share.keep_proxies(place)
    for clip in share.card.glob("*.mov"):
        os.link(clip, card / clip.name)

    def start(number):
        return place.start(*ENCODE, *(card / name for name in share.names(number)))

    processes = []
    for number in range(PROCESSES):
        processes.append(start(number))
        time.sleep(chance.uniform(0, 0.2))
    may_miss = 0
    if seed % 2:
        victim, sent = chance.randrange(PROCESSES), signal.SIGKILL if seed % 4 == 1 else signal.SIGTERM
        may_miss = int(sent == signal.SIGKILL)
        processes[victim] = end_and_resume(processes[victim], start, card / "marrowcut_proxies", victim, sent,
                                           chance.randrange(CLIPS), in_time)
    for process in processes:
        output, errors = process.communicate(timeout=600)
        check((process.returncode, output + errors) == (0, b""), f"status {process.returncode}: {errors}")
    place.check_no_children()
    proxies, lines = share.made(card)
    check(proxies == share.proxies, f"not as of one process: {sorted(name for name, _ in proxies.items() ^ share.proxies.items())}")
    missing = [line for line in share.lines if line not in lines]
    check(len(lines) + len(missing) == len(share.lines) and len(missing) <= may_miss, f"{len(lines)} lines, without {missing}")


def same_clips(place, seed):
    """Two processes given one folder: each clip is encoded once."""
    names = [f"{number}.mov" for number in range(CLIPS // 4 + 1)]
    card = place.clip_folder(dict.fromkeys(names, "short.mov"))
    calls = place.folder / "calls"
    first = place.start(*ENCODE, card, calls=calls)
    time.sleep(random.Random(seed).uniform(0, 1))
    for process in (first, place.start(*ENCODE, card, calls=calls)):
        output, errors = process.communicate(timeout=600)
        others = [line for line in errors.splitlines() if not line.endswith(b"that is processing this clip")]
        check((process.returncode, output, others) == (0, b"", []), f"status {process.returncode}: {errors}")
    place.check_no_children()
    place.judge(card, dict.fromkeys(names, 10))
    check(check_manifest_lines(card) == dict.fromkeys(names, "done"), "the manifest")
    check(calls.read_bytes().count(b"ffmpeg\0-y\0") == len(names), "a clip was encoded twice")


def main():
    rounds = argument("--rounds", 20)
    in_time = []  # for each process that was to be ended, whether it still ran
    with Workplace() as place:
        share = Share(place)
        attacks = [("scheduled", partial(scheduled, in_time)), ("same_clips", same_clips),
                   ("side_by_side", partial(side_by_side, share, in_time))]
        failures = attempt_all([(f"{name}, round {number}", partial(in_a_workplace, attack, number))
                                for number in range(rounds) for name, attack in attacks])
    if not any(in_time):
        failures.append("no process was ended before its own end")
    report("many", 3 * rounds, failures)


main()
