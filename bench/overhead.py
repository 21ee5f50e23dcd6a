"""The program's own cost: a run over 20 short and 2 long clips against a shell script with the very same commands.

The commands are recorded from a first run. In all further runs a small recorder stands before each tool, in the
program's runs and in the script's alike, and tells when the tool ran: what is left is the time of nobody but the
program (or the shell), exact where the wall time of a whole run wobbles.
"""

import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from recording import program_with_tools, recorded_commands

SHORT_CLIPS, LONG_CLIPS = 20, 2
SHORT_SECONDS, LONG_SECONDS = 2, 92  # a long one is cut into two pieces and joined
QUALITY = ("--quality", "tiny")  # the less there is to encode, the more the rest weighs
ROUNDS = 8
OWN_LIMIT = 0.01


def make_clip(path, seconds):
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", f"testsrc2=s=640x360:r=25:d={seconds}",
                    "-f", "lavfi", "-i", f"sine=440:d={seconds}", "-c:v", "mpeg2video", "-b:v", "8M", "-c:a",
                    "pcm_s16le", "-ar", "48000", "-timecode", "01:00:00:00", path], check=True)


def as_shell_script(commands, clips, tools):
    """The same commands, their output taken as the program takes it, the same moves and a line in the manifest."""
    proxies = f"{clips}/marrowcut_proxies"
    lines = ["#!/bin/bash", "exec </dev/null", f"mkdir {proxies}"]
    parts = []
    for command in commands:
        tool, rest = command.split(" ", 1)
        command = f"{tools}/{Path(tool).name} {rest}"
        output = rest.split()[-1]
        publish = [f"mv {output} {output.replace('/.tmp_', '/')}", f"echo {output} >>{proxies}/manifest.csv"]
        if tool.endswith("ffprobe"):
            lines.append(f"answer=$({command})")
        elif "/part_" in output:
            lines += [f"mkdir -p {Path(output).parent}", f"{command} 2>&1 >/dev/null | cat >/dev/null"]
            parts.append(output)
        elif parts:
            folder = Path(parts[0]).parent
            names = " ".join(Path(part).name for part in parts)
            lines += [f"printf \"file '%s'\\n\" {names} >{folder}/concat.txt", f"said=$({command} 2>&1)", *publish,
                      f"rm -r {folder}"]
            parts = []
        else:
            lines += [f"{command} 2>&1 >/dev/null | cat >/dev/null", *publish]
    return "\n".join(lines) + "\n"


def measure(command, clips, log):
    """Wall time, time in which no tool ran, processor time of all, processor time of the tools; in seconds."""
    log.unlink(missing_ok=True)
    begin = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, env=dict(os.environ, MARROWCUT_BENCH_LOG=log))
    _, status, usage = os.wait4(process.pid, 0)
    wall = time.monotonic() - begin
    process.returncode = os.waitstatus_to_exitcode(status)
    assert process.returncode == 0, command
    assert len(list(clips.glob("marrowcut_proxies/*_proxy.mp4"))) == SHORT_CLIPS + LONG_CLIPS
    shutil.rmtree(clips / "marrowcut_proxies")
    runs = [tuple(map(float, line.split())) for line in log.read_text().splitlines()]
    busy = sum(end - start for start, end, _ in runs)  # one after another: nothing overlaps
    return wall, wall - busy, usage.ru_utime + usage.ru_stime, sum(cpu for _, _, cpu in runs)


def report(ours, shell):
    """Both are lists of what measure() gave, one for each round."""
    def ratios(column):
        return [one[column] / other[column] for one, other in zip(ours, shell)]

    own = [[wall_and_own[1] / wall_and_own[0] for wall_and_own in runs] for runs in (ours, shell)]
    extra = statistics.median((one[1] - other[1]) / other[0] for one, other in zip(ours, shell))
    print(f"wall time: median ratio {statistics.median(ratios(0)):.3f} over {len(ours)} rounds "
          f"({min(ratios(0)):.3f} to {max(ratios(0)):.3f})")
    print(f"no tool was running: {statistics.median(own[0]):.2%} of the program's wall time, "
          f"{statistics.median(own[1]):.2%} of the shell's; the difference is {extra:+.2%} of a run; "
          f"limit {OWN_LIMIT:+.0%}: {'held' if extra <= OWN_LIMIT else 'NOT held'}")
    print(f"processor time: median ratio {statistics.median(ratios(2)):.3f}; besides the tools, recorders included, "
          f"{statistics.median(run[2] - run[3] for run in ours):.2f} s for the program, "
          f"{statistics.median(run[2] - run[3] for run in shell):.2f} s for the shell")


def main(program, recorder):
    with tempfile.TemporaryDirectory() as name:
        work = Path(name)
        clips = work / "clips"
        clips.mkdir()
        for number in range(SHORT_CLIPS + LONG_CLIPS):
            make_clip(clips / f"A001C{number:03}.mxf", SHORT_SECONDS if number < SHORT_CLIPS else LONG_SECONDS)
        commands = recorded_commands(program, work / "recording", *QUALITY, clips)
        shutil.rmtree(clips / "marrowcut_proxies")
        timed = program_with_tools(program, work / "timed", lambda _, path: shutil.copy(recorder, path))
        script = work / "same-commands"
        script.write_text(as_shell_script(commands, clips, work / "timed/share/marrowcut"))
        runs = {"ours": [timed, *QUALITY, clips], "shell": ["/bin/bash", script]}
        figures = {"ours": [], "shell": []}
        for number in range(ROUNDS):
            for which in sorted(runs, reverse=number % 2 == 1):  # neither always finds warm caches
                figures[which].append(measure(runs[which], clips, work / "tool-times"))
        report(figures["ours"], figures["shell"])


main(*map(os.path.abspath, sys.argv[1:3]))
