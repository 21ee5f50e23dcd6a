"""Writes what a benchmark printed into docs/performance.md, in place of what stands there from the last time.

    report.py PERFORMANCE.md NAME < TEXT     the block between <!-- NAME --> and <!-- end of NAME -->
    report.py PERFORMANCE.md --machine       the block "machine"
"""

import os
import platform
import re
import subprocess
import sys
import time
from pathlib import Path


def first_line(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, text=True).stdout.split("\n", 1)[0]


def machine():
    cpu = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text())
    system = re.search(r'PRETTY_NAME="(.*)"', Path("/etc/os-release").read_text())
    version = " ".join(first_line("ffmpeg", "-version").split()[:3])
    return (f"{time.strftime('%Y-%m-%d')}; {os.cpu_count()} processors ({cpu[1] if cpu else platform.machine()}), "
            f"{system[1]}, {version}; load average at the beginning {os.getloadavg()[0]:.1f}.\n")


def replaced(document, name, text):
    pattern = rf"(<!-- {name} -->\n).*?(<!-- end of {name} -->)"
    changed, count = re.subn(pattern, lambda match: match[1] + text + match[2], document, flags=re.DOTALL)
    assert count == 1, name
    return changed


def main(path, name):
    document = Path(path)
    if name == "--machine":
        name, text = "machine", machine()
    else:
        text = sys.stdin.read()
        if not text.startswith("|"):
            text = f"```\n{text}```\n"
    document.write_text(replaced(document.read_text(), name, text))


main(*sys.argv[1:3])
