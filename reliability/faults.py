"""Every step of a run fails once, for one of two clips: the run ends, the other clip is done, nothing stands under a
final name unless it is whole, the manifest holds whole lines, the status says what happened, no child is left."""

import os
import shutil
import subprocess
from functools import partial

from harness import attempt_all, check, check_manifest_lines, enter_mount_namespace, in_a_workplace, report

SINGLE, LONG = "short.mov", "long.mov"
ENCODE_ERROR, METADATA = "encode error", "could not read metadata"

# name, kind of the faulty clip, what its tools do, status (None: done)
STEPS = [
    ("probe exits with 1", SINGLE, '[ $tool = ffprobe ] && exit 1', METADATA),
    ("probe crashes", SINGLE, '[ $tool = ffprobe ] && kill -SEGV $$', METADATA),
    ("probe is not to be started", SINGLE, None, METADATA),
    ("encoder is not to be started", SINGLE, None, ENCODE_ERROR),
    ("encoder is a folder", SINGLE, None, ENCODE_ERROR),
    ("encode exits with 255, truncated", SINGLE, '[ $tool = ffmpeg ] && { echo x >"$output"; exit 255; }', ENCODE_ERROR),
    ("encode crashes", SINGLE, '[ $tool = ffmpeg ] && { echo x >"$output"; kill -SEGV $$; }', ENCODE_ERROR),
    ("encode writes no file", SINGLE, '[ $tool = ffmpeg ] && exit 0', ENCODE_ERROR),
    ("encode succeeds without frames", SINGLE,
     '[ $tool = ffmpeg ] && { "$real" "${@:1:$#-1}" -frames:v 0 -y "$output"; exit $?; }', ENCODE_ERROR),
    ("move fails", SINGLE, '[ $tool = ffmpeg ] && { "$real" "$@"; mkdir -p "{final}/x"; exit 0; }', ENCODE_ERROR),
    ("source gone before the encode", SINGLE, '[[ $* == *creation_time* ]] && rm "{source}"', ENCODE_ERROR),
    ("source gone before the probe", SINGLE, 'rm -f "{source}"', METADATA),
    ("first piece exits with 1", LONG, '[[ $output == *part_0000* ]] && exit 1', ENCODE_ERROR),
    ("second piece crashes", LONG, '[[ $output == *part_0001* ]] && kill -SEGV $$', ENCODE_ERROR),
    ("part file missing", LONG, '[[ $output == *part_0001* ]] && { "$real" "$@"; rm "$output"; exit 0; }', ENCODE_ERROR),
    ("first part gone before the join", LONG, '[[ $* == *concat* ]] && rm "$(dirname "$output")"/.chunks_*/part_0000.mp4',
     ENCODE_ERROR),
    ("second part gone before the join", LONG,
     '[[ $* == *concat* ]] && rm "$(dirname "$output")"/.chunks_*/part_0001.mp4', ENCODE_ERROR),
    ("second part truncated", LONG, '[[ $output == *part_0001* ]] && { "$real" "$@"; truncate -s -1 "$output"; exit 0; }',
     ENCODE_ERROR),
    ("join list gone", LONG, '[[ $* == *concat* ]] && rm "$(dirname "$output")"/.chunks_*/concat.txt', ENCODE_ERROR),
    ("join truncated", LONG, '[[ $* == *concat* ]] && { "$real" "$@"; truncate -s -1 "$output"; exit 0; }', ENCODE_ERROR),
    ("join exits with 1", LONG, '[[ $* == *concat* ]] && exit 1', ENCODE_ERROR),
    ("move after the join fails", LONG, '[[ $* == *concat* ]] && { "$real" "$@"; mkdir -p "{final}/x"; exit 0; }', ENCODE_ERROR),
]

# The same on a small disk of its own, which needs a mount namespace.
FILL = 'dd if=/dev/zero of="$(dirname "$output")/fill" bs=1k status=none 2>/dev/null'
# One page less than the finished file takes.
ALMOST_FILL = ('{ "$real" "$@"; pages=$(( ($(stat -c %s "$output") + 4095) / 4096 - 1 )); rm "$output"; ' + FILL
               + '; truncate -s -$((pages * 4096)) "$(dirname "$output")/fill"; }')
DISKS = [
    ("disk full during the encode", SINGLE, False, f'[ $tool = ffmpeg ] && {FILL}', ENCODE_ERROR),
    ("disk full during a piece", LONG, False, f'[[ $output == *part_0001* ]] && {FILL}', ENCODE_ERROR),
    ("disk full during the join", LONG, False, f'[[ $* == *concat* ]] && {FILL}', ENCODE_ERROR),
    ("disk full for the last byte", SINGLE, False, f'[ $tool = ffmpeg ] && {ALMOST_FILL}', ENCODE_ERROR),
    ("disk full for the last byte of a piece", LONG, False, f'[[ $output == *part_0001* ]] && {ALMOST_FILL}', ENCODE_ERROR),
    ("disk full for the last byte of the join", LONG, False, f'[[ $* == *concat* ]] && {ALMOST_FILL}', ENCODE_ERROR),
    ("disk full during the manifest's line", SINGLE, False,
     f'[ $tool = ffmpeg ] && {{ "$real" "$@"; status=$?; {FILL}; exit $status; }}', None),
    ("read-only folder", SINGLE, True, "", ENCODE_ERROR),
]

def break_tool(place, name):
    """Makes the tools unusable for the second clip, at the end of the first."""
    tool = "ffprobe" if "probe" in name else "ffmpeg"
    replace = f'mkdir "{place.tools}/{tool}"' if "folder" in name else "true"
    return f'[[ $tool == ffmpeg && $* == */sound.mov* ]] && {{ mv "{place.tools}/{tool}" "{place.tools}/away"; {replace}; }}'


def check_manifest(folder, outcomes, may_miss_line=False):
    """One whole line for each clip, of nine fields, with its outcome."""
    found = check_manifest_lines(folder)
    check(found == outcomes or (may_miss_line and not found), f"manifest: {found}")


def run_both(place, folder, kind, fault, status, sound_first=False, may_miss_line=False):
    """One clip is sound, the other one, c, meets the fault in a folder of its own."""
    sound = place.clip_folder({"sound.mov": SINGLE}, "sound")
    source = folder / "c.mov"
    fault = fault.replace("{source}", os.fspath(source)).replace("{final}", f"{folder}/marrowcut_proxies/c_proxy.mp4")
    if not sound_first:  # what is broken for the second clip is broken earlier on, everything else at its own calls
        fault = f'if [[ "$*" == *"{folder}"* ]]; then {fault or "true"}; fi'
    clips = [source, sound / "sound.mov"]
    code, output = place.run("--quality", "tiny", *(reversed(clips) if sound_first else clips), fault=fault)

    expected = "Done" if status is None else f"Failed: {status}"
    check(f"c.mov: {expected}\n" in output, f"status is not {expected!r}: {output}")
    check(code == (0 if status is None else 1), f"exit status {code}")
    place.judge(sound, {"sound.mov": 10})
    check_manifest(sound, {"sound.mov": "done"})
    outcome = {METADATA: "failed: metadata", ENCODE_ERROR: "failed: encode error", None: "done"}[status]
    check_manifest(folder, {"c.mov": outcome}, may_miss_line)
    place.judge(folder, {} if status else {"c.mov": 10 if kind == SINGLE else 91})


def check_step(place, name, kind, fault, status):
    folder = place.clip_folder({"c.mov": kind}, "faulty")
    if fault is None:
        run_both(place, folder, kind, break_tool(place, name), status, sound_first=True)
    else:
        run_both(place, folder, kind, fault, status)


def check_no_folder(place):
    folder = place.clip_folder({"c.mov": SINGLE}, "faulty")
    (folder / "marrowcut_proxies").write_text("a file in its place")
    run_both(place, folder, SINGLE, "", ENCODE_ERROR, may_miss_line=True)
    check((folder / "marrowcut_proxies").read_text() == "a file in its place", "the user's file")


def check_disk(place, kind, read_only, fault, status):
    folder = place.clip_folder({}, "faulty")
    subprocess.run(["mount", "-t", "tmpfs", "-o", "size=600k", "tmpfs", folder], check=True)
    try:
        shutil.copy(place.clips[kind], folder / "c.mov")
        if read_only:
            subprocess.run(["mount", "-o", "remount,ro", folder], check=True)
        run_both(place, folder, kind, fault, status, may_miss_line=True)
        check(status or not check_manifest_lines(folder), "the disk was not full")
    finally:
        subprocess.run(["umount", "-l", folder], check=True)


def main():
    checks = [(step[0], partial(in_a_workplace, check_step, *step)) for step in STEPS]
    checks.append(("output folder not creatable", partial(in_a_workplace, check_no_folder)))
    has_disks = enter_mount_namespace()
    if has_disks:
        checks += [(disk[0], partial(in_a_workplace, check_disk, *disk[1:])) for disk in DISKS]
    report("faults", len(checks), attempt_all(checks), impossible=0 if has_disks else len(DISKS))


main()
