"""Crafted footage and planted files: nothing is read or written where nobody asked, and nothing costs much memory."""

import os
import shutil
import struct
import subprocess
import time
from functools import partial
from pathlib import Path

from harness import attempt_all, check, check_manifest_lines, in_a_workplace, report

MEMORY_LIMIT = 100  # MiB
NOBODY = 65534
PUBLIC = 0o755

HLS = b"#EXTM3U\n#EXT-X-TARGETDURATION:4\n#EXTINF:4,\nsecret.mov\n#EXT-X-ENDLIST\n"
CONCAT = b"ffconcat version 1.0\nfile secret.mov\n"
DASH = (b'<MPD xmlns="urn:mpeg:dash:schema:mpd:2011" type="static" mediaPresentationDuration="PT4S" '
        b'profiles="urn:mpeg:dash:profile:isoff-on-demand:2011"><Period><AdaptationSet mimeType="video/mp4">'
        b'<Representation id="0" bandwidth="1" width="64" height="36"><BaseURL>secret.mov</BaseURL></Representation>'
        b"</AdaptationSet></Period></MPD>")
TEXTS = {
    "hls": HLS, "concat": CONCAT, "dash": DASH,
    # Not text as a whole, but still what the tools take for a playlist.
    "hls latin": HLS.replace(b"\n", b"\n# \xe9\n", 1), "hls nul": HLS.replace(b"\n", b"\n\0\n", 1),
    "concat latin": CONCAT.replace(b"\n", b"\n# \xe9\n", 1), "concat nul": CONCAT.replace(b"\n", b"\0\n", 1),
    "dash latin": b'<?xml version="1.0" encoding="ISO-8859-1"?><!-- \xe9 -->' + DASH,
}


def video(path, frames):
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", "color=red:s=64x36:r=25", "-frames:v",
                    str(frames), "-c:v", "mpeg4", path], check=True)
    return path


def run_measured(place, *arguments, **keywords):
    """Exit status and output of a run that stays small."""
    process = place.start(*arguments, **keywords)
    peak = 0
    while process.poll() is None:
        try:
            lines = Path(f"/proc/{process.pid}/status").read_text().splitlines()
            peak = max([peak, *(int(line.split()[1]) for line in lines if line.startswith("VmHWM"))])
        except OSError:  # it has just ended
            pass
        time.sleep(0.01)
    output, errors = process.communicate()
    place.check_no_children()
    check(peak < MEMORY_LIMIT * 1024, f"{peak / 1024:.0f} MiB")
    return process.returncode, (output + errors).decode(errors="replace")


def texts(place):
    """Refused before any tool is started, whatever the extension and the padding."""
    folder = place.clip_folder({})
    names = []
    for kind, text in TEXTS.items():
        for extension in ("mov", "mp4", "mxf"):
            for padding in ("", "padded"):
                names.append(f"{kind} {padding}.{extension}")
                (folder / names[-1]).write_bytes(text + (b"\0" * 100000 if padding else b""))
    video(folder / "secret.mov", 33)
    place.frames = {(folder / "secret.mov").stat().st_size: 33}
    calls = place.folder / "calls"
    status, output = run_measured(place, *(folder / name for name in names), calls=calls)
    check(status == 1, f"status {status}")
    not_refused = [name for name in names if f"{name}: Failed: could not read metadata\n" not in output]
    check(not not_refused, f"not refused: {not_refused}")
    check(not calls.exists() or folder.name.encode() not in calls.read_bytes(), "a tool was started")
    check(set(check_manifest_lines(folder).values()) == {"failed: metadata"}, "manifest")
    check(os.listdir(folder / "marrowcut_proxies") == ["manifest.csv"], "a proxy")


def box(kind, content):
    return struct.pack(">I", len(content) + 8) + kind + content


def alias(target):
    """The record of an older Mac for a file: its name and its absolute path."""
    name = target.name.encode()
    path = os.fsencode(target)
    record = bytes(10) + bytes([1]) + b"v".ljust(27, b"\0") + bytes(12) + bytes([len(name)]) + name.ljust(63, b"\0")
    record += bytes(16) + struct.pack(">hh", 1, 1) + bytes(16)
    for kind, value in ((2, path), (18, path)):
        record += struct.pack(">HH", kind, len(value)) + value + bytes(len(value) % 2)
    return record + struct.pack(">HH", 0xFFFF, 0)


def with_reference(content, target):
    """A movie's index whose media is said to be in the target. The boxes around the reference grow with it."""
    old = box(b"url ", bytes([0, 0, 0, 1]))
    at = content.index(old)
    new = box(b"alis", bytes(4) + alias(target))
    for kind in (b"moov", b"trak", b"mdia", b"minf", b"dinf", b"dref"):
        begin = content.rindex(kind, 0, at) - 4
        size = struct.unpack(">I", content[begin:begin + 4])[0]
        content = content[:begin] + struct.pack(">I", size + len(new) - len(old)) + content[begin + 4:]
    return content.replace(old, new, 1)


def reference_movies(place):
    """They name other files as the place of their media. Those are not read, so nothing can be encoded."""
    folder = place.clip_folder({})
    secret = video(folder / "secret.mov", 33)
    content = secret.read_bytes()
    index = content[content.index(b"moov") - 4:]
    start = content[:content.index(b"mdat") - 4]
    (folder / "alias.mov").write_bytes(start + with_reference(index, secret))
    (folder / "alias.mp4").write_bytes(start + with_reference(index, Path("secret.mov")))
    reference = b"url " + struct.pack(">I", 11) + b"secret.mov\0"
    (folder / "list.mov").write_bytes(box(b"moov", box(b"rmra", box(b"rmda", box(b"rdrf", bytes(4) + reference)))))
    names = ["alias.mov", "alias.mp4", "list.mov"]
    status, output = run_measured(place, *(folder / name for name in names))
    check(status == 1 and output.count(": Failed: ") >= len(names), f"status {status}: {output}")
    check(not list((folder / "marrowcut_proxies").glob("*.mp4")), "a proxy")


def huge_tag(place):
    folder = place.clip_folder({})
    tags = place.folder / "tags"
    tags.write_text(";FFMETADATA1\ntimecode=" + "9" * 30_000_000 + "\nmodification_date=" + "8" * 30_000_000 + "\n")
    clip = folder / "tagged.mov"
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-i", place.clips["short.mov"], "-i", tags, "-map_metadata", "1",
                    "-c", "copy", "-movflags", "use_metadata_tags", clip], check=True)
    check(clip.stat().st_size > 60_000_000, "the tags are not in the clip")
    place.frames = {clip.stat().st_size: 10}
    status, output = run_measured(place, clip)
    check(status == 0, f"status {status}: {output[-1000:]}")
    place.judge(folder, {"tagged.mov": 10})
    check((folder / "marrowcut_proxies/manifest.csv").stat().st_size < 1000, "the manifest holds a tag")


def planted_manifest(place):
    """A link and a named pipe in its place: not followed, not waited for."""
    for kind in ("link", "dangling link", "pipe"):
        folder = place.clip_folder({"a.mov": "short.mov"}, kind)
        (folder / "marrowcut_proxies").mkdir()
        victim, manifest = folder / "victim", folder / "marrowcut_proxies/manifest.csv"
        if kind == "pipe":
            os.mkfifo(manifest)
        else:
            manifest.symlink_to(victim)
        if kind == "link":
            victim.write_text("precious")
        status, output = run_measured(place, folder)
        check(status == 0, f"{kind}: status {status}: {output}")
        check((victim.read_text() if victim.exists() else None) == ("precious" if kind == "link" else None), f"{kind}: written")
        check((folder / "marrowcut_proxies/a_proxy.mp4").is_file(), f"{kind}: no proxy")


PLANT = 'mkdir -p "$(dirname "{at}")"; rm -rf "{at}"; ln -s "{to}" "{at}"'


def planted_links(place):
    """Under the names of the temporary file, the work folder and what is in it: before the run, while a tool runs and
    when it has ended."""
    foreign = video(place.folder / "foreign.mp4", 33)
    before = foreign.read_bytes()
    outside = place.folder / "outside"
    outside.mkdir()
    shutil.copy(foreign, outside / "part_0000.mp4")
    for clip, name, target in [("short.mov", ".tmp_a_proxy.mp4", foreign), ("long.mov", ".tmp_a_proxy.mp4", foreign),
                               ("long.mov", ".chunks_a", outside)]:
        for moment in ("before", "at the start", "at the end"):
            folder = place.clip_folder({"a.mov": clip}, f"{clip} {name} {moment}")
            proxies = folder / "marrowcut_proxies"
            proxies.mkdir()
            plant = PLANT.format(at=proxies / name, to=target)
            if moment == "before":
                subprocess.run(plant, shell=True, check=True)
            fault = {"before": "", "at the start": f"[[ $* == *creation_time* ]] && {{ {plant}; }}",
                     "at the end": f'[[ $tool == ffmpeg && $output == */{name} ]] && {{ "$real" "$@"; {plant}; exit 0; }}'}
            status, output = run_measured(place, folder, fault=fault[moment])
            what = f"{folder.name}: status {status}: {output}"
            check(foreign.read_bytes() == before, f"written through: {what}")
            check([*map(lambda path: path.read_bytes() == before, outside.iterdir())] == [True], f"outside: {what}")
            proxy = proxies / "a_proxy.mp4"
            check(not proxy.is_symlink() and proxy.exists() == (status == 0), f"published: {what}")
            check(status == 0 or moment != "before", f"what an earlier run can leave was not removed: {what}")
            place.judge(folder, {"a.mov": 10 if clip == "short.mov" else 91} if status == 0 else {})


def foreign_work_folder(place):
    """Of another user in a shared folder: it cannot be emptied, and is not used."""
    folder = place.clip_folder({"a.mov": "long.mov"})
    proxies = folder / "marrowcut_proxies"
    victim = place.folder / "victim.mp4"
    victim.write_text("precious")
    (proxies / ".chunks_a").mkdir(parents=True)
    for number in range(2):
        (proxies / f".chunks_a/part_{number:04}.mp4").symlink_to(victim)
    for path in (place.folder, folder):
        path.chmod(PUBLIC)
    (proxies / ".chunks_a").chmod(0o777 | 0o1000)
    proxies.chmod(0o1777)
    victim.chmod(0o666)
    status, output = run_measured(place, folder, user=NOBODY, group=NOBODY, extra_groups=[],
                                  extra={"HOME": "/nonexistent"})
    check(status == 1 and "a.mov: Failed: encode error" in output, f"status {status}: {output}")
    check("could not be replaced" in output, f"no reason: {output}")
    check(victim.read_text() == "precious", "written through")
    check(not (proxies / "a_proxy.mp4").exists(), "published")


CHECKS = [texts, reference_movies, huge_tag, planted_manifest, planted_links]


def main():
    is_root = os.geteuid() == 0
    checks = CHECKS + [foreign_work_folder] * is_root
    failures = attempt_all([(run.__name__, partial(in_a_workplace, run)) for run in checks])
    report("footage", len(checks), failures, impossible=0 if is_root else 1)


main()
