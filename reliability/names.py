"""Names that nobody would choose, as clip and as folder: queued, probed, encoded in one pass and in pieces, drawn as
they are and listed byte for byte. --every N takes each Nth name only."""

import os
import random
import subprocess
from functools import partial

from harness import argument, attempt_all, check, in_a_workplace, report

TOKENS = ["'", "''", ":", "\\", "\\\\", "\\'", "%", "%%", "%{pts}", "%{n}%", "%d", "[", "]", "[v]", ",", ";", "=", '"',
          "\n", "\t", "\r", "\x01", "\x7f", "-", "--help", " ", "  ", "🎬", "👩‍👩‍👧", "שלום", "مرحبا 5%", "e\u0301", "日本語",
          "\ufeff", "\u2028", "\u200f", "\ufffd", "#", "?", "&", "*", "~", "$HOME", "`id`", "|", "<>", "(x)", "{}", "@", "!",
          "pipe:", "file:", "concat:", "http://x", ".", "..x", "marrowcut_proxies", "a,b", "+"]


def corpus():
    """(folder, stem) pairs; one of the two is hostile, or both."""
    pairs = []
    for token in TOKENS:
        safe = token.replace("/", "_")
        pairs += [("plain", f"a{safe}b"), ("plain", f"{safe}b"), ("plain", f"a{safe}"), (f"Shoot {safe}3", "A001")]
        pairs.append((f"{safe}x", f"x{safe}"))
    pairs += [("Shoot #3", "A001"), ("what?", "A001"), ("plain", "n" * 236), ("f" * 250, "A001"), ("plain", "é" * 118)]
    chooser = random.Random(7)
    while len(pairs) < 340:
        pairs.append(("plain", "".join(chooser.choices(TOKENS, k=4)).replace("/", "_")[:60]))
    return pairs


def calls_of(file):
    return [call.split("\0") for call in file.read_bytes().decode().split("END\0") if call]


def gray_frame(graph, source):
    return subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-i", source, "-filter_complex", graph, "-map", "[v]",
                           "-frames:v", "1", "-pix_fmt", "gray", "-f", "rawvideo", "-"], check=True,
                          stdout=subprocess.PIPE).stdout


def check_drawn(graph, name, source, folder):
    """The program's own graph against one in which the name is read from a file."""
    text = folder / "text"
    text.write_bytes(name)
    begin = graph.index(":text='")
    end = graph.index("':x=", begin) + 1  # a colon within the text has a backslash before it
    reference = f"{graph[:begin]}:textfile='{text}':expansion=none{graph[end:]}"
    check(gray_frame(graph, source) == gray_frame(reference, source), "drawn differently")


def check_name(place, folder_name, stem):
    name = stem + ".mov"
    folder = place.clip_folder({name: "short.mov"}, "footage/" + folder_name)
    place.clip_folder({name: "long.mov"}, f"footage/{folder_name}/long")
    calls = place.folder / "calls"
    status, output = place.run("--quiet", "--", folder / name, folder / "long" / name, calls=calls)
    check(status == 0, f"status {status}: {output}")
    place.judge(folder, {name: 10})
    place.judge(folder / "long", {name: 91})
    manifest = (folder / "marrowcut_proxies/manifest.csv").read_bytes()
    listed = b"\n" + os.fsencode(name) + b"," + os.fsencode(stem) + b"_proxy.mp4,00:00:00:00,25/1,"
    check(listed in manifest, "not listed byte for byte")
    graph = next(call[call.index("-filter_complex") + 1] for call in calls_of(calls) if "-filter_complex" in call)
    check_drawn(graph, os.fsencode(name), place.clips["short.mov"], place.folder)


def check_no_text(place):
    """A name that is no text is refused with a reason, and not taken for the one that it would be shown as."""
    folder = place.clip_folder({os.fsdecode(b"bad\xff.mov"): "short.mov", "bad\ufffd.mov": "long.mov"})
    status, output = place.run(folder)
    check(status == 1 and "bad\\xFF.mov: the name is not valid UTF-8" in output, output)
    place.judge(folder, {"bad\ufffd.mov": 91})
    check(len(os.listdir(folder / "marrowcut_proxies")) == 2, "more than the one proxy")


def check_too_long(place):
    """What the hidden temporary name has no room for is a plain failure; one byte less is none."""
    folder = place.clip_folder({"n" * length + ".mov": "short.mov" for length in (240, 241, 246)})
    status, output = place.run(folder)
    check(status == 1 and "File name too long" in output and "1 of 3 done, 2 failed" in output, output)
    place.judge(folder, {"n" * 240 + ".mov": 10})


def main():
    chosen = corpus()[::argument("--every", 1)]
    checks = [(f"{pair!r}", lambda place, pair=pair: check_name(place, *pair)) for pair in chosen]
    checks += [("no text", check_no_text), ("too long", check_too_long)]
    report("names", len(checks), attempt_all([(label, partial(in_a_workplace, run)) for label, run in checks]))


main()
