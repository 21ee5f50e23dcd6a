"""The program's own cost: a run over short clips against a shell script that issues the very same commands.

The commands are recorded from a first run, in which small scripts stand between the program and the tools.
"""

import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

CLIPS = 20
ROUNDS = 6

RECORDER = """#!/bin/bash
printf '%q ' {tool} "$@" >>{log}
echo >>{log}
exec {tool} "$@"
"""


def make_clips(folder):
    for number in range(CLIPS):
        subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i",
                        "testsrc2=s=640x360:r=25:d=2", "-f", "lavfi", "-i", "sine=440:d=2", "-c:v", "mpeg2video",
                        "-b:v", "8M", "-c:a", "pcm_s16le", "-ar", "48000", "-timecode", "01:00:00:00",
                        folder / f"A001C{number:03}.mxf"], check=True)


def copy_of_program(program, place, tools):
    (place / "bin").mkdir(parents=True)
    (place / "share/marrowcut").mkdir(parents=True)
    shutil.copy(program, place / "bin")
    for tool in ("ffmpeg", "ffprobe"):
        tools(tool, place / "share/marrowcut" / tool)
    return place / "bin" / Path(program).name


def record_commands(program, place, clips):
    log = place / "log"

    def recorder(tool, path):
        path.write_text(RECORDER.format(tool=shutil.which(tool), log=log))
        path.chmod(0o755)

    subprocess.run([copy_of_program(program, place, recorder), "--quiet", clips], check=True)
    shutil.rmtree(clips / "marrowcut_proxies")
    return log.read_text().splitlines()


def as_shell_script(commands, clips):
    """The same commands, their output taken as the program takes it, and the same moves."""
    lines = ["#!/bin/bash", "exec </dev/null", f"mkdir {clips}/marrowcut_proxies"]
    for command in commands:
        if "/ffprobe " in command:
            lines.append(f"answer=$({command})")
        else:
            temporary = command.split()[-1]
            lines += [f"{command} 2>&1 >/dev/null | cat >/dev/null",
                      f"mv {temporary} {temporary.replace('/.tmp_', '/')}"]
    return "\n".join(lines) + "\n"


def seconds(command, clips):
    begin = time.monotonic()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    taken = time.monotonic() - begin
    shutil.rmtree(clips / "marrowcut_proxies")
    return taken


def main(program):
    with tempfile.TemporaryDirectory() as name:
        work = Path(name)
        clips = work / "clips"
        clips.mkdir()
        make_clips(clips)
        script = work / "same-commands"
        script.write_text(as_shell_script(record_commands(program, work / "recording", clips), clips))
        ratios = []
        commands = {"shell": ["/bin/bash", script], "ours": [program, clips]}
        for number in range(ROUNDS):
            order = ("shell", "ours") if number % 2 else ("ours", "shell")  # neither always finds warm caches
            taken = {name: seconds(commands[name], clips) for name in order}
            ours, shell = taken["ours"], taken["shell"]
            ratios.append(ours / shell)
            print(f"program {ours:.2f} s, same commands by a shell {shell:.2f} s, ratio {ours / shell:.3f}", flush=True)
        print(f"overhead: median ratio {statistics.median(ratios):.3f} over {CLIPS} clips, {ROUNDS} rounds")


main(os.path.abspath(sys.argv[1]))
