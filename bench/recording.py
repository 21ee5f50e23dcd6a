"""The commands that the program issues, written down by small scripts that stand between it and the tools."""

import shlex
import shutil
import subprocess
from pathlib import Path

WRITE_DOWN = """#!/bin/bash
printf '%q ' {tool} "$@" >>{log}
echo >>{log}
{then}
"""


def program_with_tools(program, place, provide):
    """A copy of the program whose tools are what provide(name, path) puts there."""
    (place / "bin").mkdir(parents=True)
    (place / "share/marrowcut").mkdir(parents=True)
    shutil.copy(program, place / "bin")
    for tool in ("ffmpeg", "ffprobe"):
        provide(tool, place / "share/marrowcut" / tool)
    return place / "bin" / Path(program).name


def recorded_commands(program, place, *arguments, encoding=True):
    """The lines of a shell script. Without encoding every clip fails, after its encoder was asked for."""
    log = place / "log"

    def write_down(tool, path):
        then = f'exec {shutil.which(tool)} "$@"' if encoding or tool == "ffprobe" else "exit 1"
        path.write_text(WRITE_DOWN.format(tool=shutil.which(tool), log=log, then=then))
        path.chmod(0o755)

    copy = program_with_tools(program, place, write_down)
    result = subprocess.run([copy, "--quiet", "--encoder", "libx264", *arguments], stderr=subprocess.PIPE)
    assert result.returncode == (0 if encoding else 1), result.stderr.decode()
    return log.read_text().splitlines()


def words(command):
    """The arguments of one recorded line."""
    return shlex.split(command)
