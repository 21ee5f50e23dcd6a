"""How many processes at once pay: the same 24 clips, from SD to 4K, with 1, 2 and 4 processes of the command line on
one folder. Then what one clip asks of the storage: bytes read and written, and the program's own calls that name a
file, in a folder of 24 clips and in one of 2,000."""

import os
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

SIZES = ("720x576", "1280x720", "1920x1080", "3840x2160")
CODECS = {  # extension and options: what cameras record, and a mezzanine codec
    "h264": ("mp4", ("-c:v", "libx264", "-preset", "ultrafast", "-b:v", "20M")),
    "dnxhr": ("mxf", ("-c:v", "dnxhd", "-profile:v", "dnxhr_sq", "-pix_fmt", "yuv422p")),
}
COPIES = 3  # of each size and codec: 24 clips
SECONDS = 4
PROCESSES = (1, 2, 4)
ROUNDS = 2
NAMING = "open,openat,stat,lstat,newfstatat,statx,access,faccessat2,mkdir,unlink,rename,renameat2,readlink,getdents64,rmdir"


def make_clips(folder):
    for codec, (extension, options) in CODECS.items():
        for size in SIZES:
            first = folder / f"{codec}-{size}-1.{extension}"
            subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i",
                            f"testsrc2=s={size}:r=25:d={SECONDS}", "-f", "lavfi", "-i", f"sine=440:d={SECONDS}",
                            *options, "-c:a", "pcm_s16le" if extension == "mxf" else "aac", "-ar", "48000",
                            "-timecode", "01:00:00:00", first], check=True)
            for number in range(2, COPIES + 1):
                shutil.copy(first, first.with_name(f"{codec}-{size}-{number}.{extension}"))


def run(program, clips, count):
    """Wall and processor seconds. The clips are dealt out, so that each process gets some of every kind."""
    shutil.rmtree(clips[0].parent / "marrowcut_proxies", ignore_errors=True)
    before = os.times()
    begin = time.monotonic()
    started = [subprocess.Popen([program, "--quiet", "--encoder", "libx264", *clips[number::count]])
               for number in range(count)]
    assert [process.wait() for process in started] == [0] * count
    wall = time.monotonic() - begin
    after = os.times()
    assert len(list(clips[0].parent.glob("marrowcut_proxies/*_proxy.mp4"))) == len(clips)
    return wall, after.children_user + after.children_system - before.children_user - before.children_system


def measure_processes(program, clips):
    figures = {count: [] for count in PROCESSES}
    for _ in range(ROUNDS):
        for count in PROCESSES:
            figures[count].append(run(program, clips, count))
    alone = figures[1]
    for count in PROCESSES[1:]:
        throughput = statistics.median(one[0] / other[0] for one, other in zip(alone, figures[count]))
        processor = statistics.median(other[1] / one[1] for one, other in zip(alone, figures[count]))
        print(f"{count} processes on {os.cpu_count()} processors: {throughput:.2f} times the throughput of one, "
              f"{processor:.2f} times its processor time")
    per_clip = statistics.median(wall for wall, _ in alone) / len(clips)
    read = sum(clip.stat().st_size for clip in clips) / len(clips)
    proxies = list((clips[0].parent / "marrowcut_proxies").glob("*_proxy.mp4"))
    written = sum(proxy.stat().st_size for proxy in proxies) / len(proxies)
    print(f"a clip of {SECONDS} seconds: {per_clip:.1f} s for one process, {read / 1e6:.1f} MB read, "
          f"{written / 1e6:.2f} MB of proxy")


def without_tools(lines):
    """The lines of the program's own threads: not those of the tools and of the threads that these start."""
    tools = set()
    for line in lines:
        thread = line.split()[0]
        if re.search(r'execve\(".*/ff(mpeg|probe)"', line):
            tools.add(thread)
        started = re.search(r"(?:clone3?|v?fork)\(.* = (\d+)$|(?:clone3?|v?fork) resumed.* = (\d+)$", line)
        if thread in tools and started:
            tools.add(started[1] or started[2])
    return [line for line in lines if line.split()[0] not in tools]


def calls_for_one_clip(program, clip):
    """The program's own calls on paths beside the clip; the tools' are not counted."""
    proxies = clip.parent / "marrowcut_proxies"
    shutil.rmtree(proxies, ignore_errors=True)
    proxies.mkdir()
    with tempfile.NamedTemporaryFile() as log:
        subprocess.run(["strace", "-f", "-y", "-e", f"trace=execve,clone,clone3,fork,vfork,{NAMING}", "-o", log.name, program, "--quiet",
                        "--encoder", "libx264", clip], check=True)
        lines = Path(log.name).read_text(errors="replace").splitlines()
    own_lines = without_tools(lines)
    named = [line for line in own_lines if f'"{clip.parent}' in line and " execve(" not in line]
    listings = [line for line in own_lines if "getdents64" in line and os.fspath(clip.parent) in line]
    return len(named), len(listings)


def measure_calls(program, clips):
    few = calls_for_one_clip(program, clips[0])
    for number in range(2000 - len(clips)):
        (clips[0].parent / f"other{number:04}.mxf").touch()
    many = calls_for_one_clip(program, clips[0])
    print(f"the program's own calls that name a file beside a clip: {few[0]} in a folder of {len(clips)} clips, "
          f"{many[0]} in one of 2,000; listings of a folder: {few[1]} and {many[1]}")


def main(program):
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        make_clips(folder)
        clips = sorted(folder.iterdir())
        measure_processes(program, clips)
        measure_calls(program, clips)


main(os.path.abspath(sys.argv[1]))
