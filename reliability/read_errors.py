"""A disk that fails: from some byte of a clip on, ffmpeg's read() returns an input/output error. No clip becomes a proxy
of its first part: it has failed, the next run makes it. --offsets N takes N places in each clip."""

import os
import shutil
import subprocess
from functools import partial
from pathlib import Path

from harness import Workplace, argument, attempt_all, check, check_manifest_lines, report

LIBRARY = r"""
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

ssize_t read(int descriptor, void *bytes, size_t count)
{
    char link[64], path[4096];
    snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    ssize_t length = readlink(link, path, sizeof path - 1);
    path[length > 0 ? length : 0] = 0;
    off_t position = lseek(descriptor, 0, SEEK_CUR), end = atoll(getenv("FAIL_FROM"));
    if (strcmp(path, getenv("FAIL_CLIP")) == 0 && position + (off_t)count > end) {
        if (position >= end) {
            errno = EIO;
            return -1;
        }
        count = end - position;
    }
    ssize_t (*original)(int, void *, size_t) = dlsym(RTLD_NEXT, "read");
    return original(descriptor, bytes, count);
}
"""

# Large frames, so that a clip takes many reads; the index comes first where the format has one.
NOISE = ["-f", "lavfi", "-i"]
CLIPS = {
    "single.mov": [*NOISE, "testsrc2=s=320x180:r=25:d=4,noise=alls=60", "-c:v", "mjpeg", "-q:v", "2", "-movflags", "+faststart"],
    "single.mxf": [*NOISE, "testsrc2=s=320x180:r=25:d=4,noise=alls=60", "-c:v", "mpeg2video", "-q:v", "2"],
    "pieces.mov": [*NOISE, "testsrc2=s=320x180:r=1:d=181,noise=alls=60", "-c:v", "mjpeg", "-q:v", "2", "-movflags", "+faststart"],
}
FRAMES = {"single.mov": 100, "single.mxf": 100, "pieces.mov": 181}


def prepare(folder):
    """The library and the clips."""
    (folder / "fail.c").write_text(LIBRARY)
    subprocess.run(["cc", "-shared", "-fPIC", "-O1", "-o", folder / "fail.so", folder / "fail.c", "-ldl"], check=True)
    for name, options in CLIPS.items():
        subprocess.run(["ffmpeg", "-nostdin", "-v", "error", *options, folder / name], check=True)


def fails_from(made, name, byte):
    with Workplace() as place:
        folder = place.clip_folder({"sound.mov": "short.mov"})
        clip = Path(shutil.copy(made / name, folder))
        place.frames = {clip.stat().st_size: FRAMES[name]}
        fault = f'[ $tool = ffmpeg ] && export LD_PRELOAD="{made}/fail.so" FAIL_CLIP="{clip}" FAIL_FROM={byte}'
        status, output = place.run("--encoder", "libx264", folder, fault=fault)
        check(status == 1 and f"{name}: Failed: encode error" in output, f"status {status}: {output}")
        proxies = sorted(os.listdir(folder / "marrowcut_proxies"))
        check([file for file in proxies if file.endswith(".mp4") and not file.startswith(".")] == ["sound_proxy.mp4"],
              f"published: {proxies}")
        check(check_manifest_lines(folder) == {name: "failed: encode error", "sound.mov": "done"}, "manifest")
        status, output = place.run(clip)
        check(status == 0, f"the next run: {output}")
        place.judge(folder, {name: FRAMES[name], "sound.mov": 10})


def main():
    offsets = argument("--offsets", 20)
    with Workplace() as made:
        prepare(made.folder)
        places = [(name, (made.folder / name).stat().st_size * (2 * number + 1) // (2 * offsets))
                  for name in CLIPS for number in range(offsets)]
        checks = [(f"{name} from byte {byte}", partial(fails_from, made.folder, name, byte)) for name, byte in places]
        report("read errors", len(checks), attempt_all(checks))


main()
