"""What the reliability checks share: a copy of the program whose tools pass through a script, tiny clips, and
a judgement of everything that a run leaves behind."""

import atexit
import functools
import hashlib
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

PROGRAM = Path(os.path.abspath(sys.argv[1]))
WINDOW_PROGRAM = PROGRAM.with_name("marrowcut")  # may be missing
HEADER = ("source_filename,proxy_filename,source_timecode,frame_rate,duration_seconds,audio_channels,file_date,"
          "status,processed_at")

# Runs before the real tool; FAULT is a piece of shell that may look at $tool, $* and $output. What ffprobe replies about
# a copy of one of our clips is kept from the first time: most of the time would go to its starts.
WRAPPER = """#!/bin/bash
tool={tool}; real={real}; output="${{@: -1}}"
[ -n "$CALLS" ] && printf '%s\\0' "$tool" "$@" END >>"$CALLS"
eval "$FAULT"
if [ $tool = ffprobe ]; then
    for clip in {clips}/*.mov; do
        cmp -s -- "$output" "$clip" || continue
        kept="$clip ${{*%"$output"}}"
        [ -f "$kept" ] || {{ "$real" "$@" >"$kept.$$" && mv "$kept.$$" "$kept" || exit; }}
        exec cat "$kept"
    done
fi
exec "$real" "$@"
"""


class Failure(Exception):
    pass


def check(held, what):
    if not held:
        raise Failure(what)


def make_clip(path, source):
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", source, "-c:v", "mpeg4", path], check=True)
    return path


@functools.cache
def clips():
    """short.mov: 10 frames, a single pass; long.mov: 91 frames, one a second, two pieces. Made once."""
    folder = tempfile.TemporaryDirectory(prefix="marrowcut-clips-")
    atexit.register(folder.cleanup)
    sources = {"short.mov": "color=gray:s=64x36:r=25:d=0.4", "long.mov": "color=gray:s=64x36:r=1:d=91"}
    return {name: make_clip(Path(folder.name, name), source) for name, source in sources.items()}


class Workplace:
    """A folder for one check, the program installed in it, and the clips."""

    def __init__(self, program=PROGRAM):
        self.folder = Path(tempfile.mkdtemp(prefix="marrowcut-"))
        self.tools = self.folder / "installed/share/marrowcut"
        self.tools.mkdir(parents=True)
        (self.folder / "installed/bin").mkdir()
        self.program = Path(shutil.copy(program, self.folder / "installed/bin"))
        self.clips = clips()
        for tool in ("ffmpeg", "ffprobe"):
            wrapper = self.tools / tool
            wrapper.write_text(WRAPPER.format(tool=tool, real=shutil.which(tool), clips=self.clips["short.mov"].parent))
            wrapper.chmod(0o755)
        self.environment = dict(os.environ, MARROWCUT_MARK=self.folder.name, CALLS="", FAULT="",
                                XDG_CONFIG_HOME=os.fspath(self.folder / "config"))
        self.frames = {}  # of further clips, by their size

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.folder, ignore_errors=True)

    def clip_folder(self, clips, name="clips"):
        """A folder with copies: name of the clip -> which of ours."""
        folder = self.folder / name
        folder.mkdir(parents=True)
        for clip, kind in clips.items():
            shutil.copy(self.clips[kind], folder / clip)
        return folder

    def start(self, *arguments, fault="", calls="", **keywords):
        environment = dict(self.environment, FAULT=fault, CALLS=os.fspath(calls), **keywords.pop("extra", {}))
        return subprocess.Popen([os.fsencode(self.program), *map(os.fsencode, arguments)], env=environment,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, stdin=subprocess.DEVNULL, **keywords)

    def run(self, *arguments, limit=300, **keywords):
        """Exit status and output; a run that does not end is a failure."""
        process = self.start(*arguments, **keywords)
        try:
            output, errors = process.communicate(timeout=limit)
        except subprocess.TimeoutExpired:
            process.kill()
            raise Failure("the run did not end") from None
        self.check_no_children()
        return process.returncode, (output + errors).decode(errors="replace")

    def children(self):
        """Processes that the program started and that still live."""
        mark = b"MARROWCUT_MARK=" + os.fsencode(self.folder.name)
        found = []
        for process in Path("/proc").glob("[0-9]*"):
            try:
                if mark in (process / "environ").read_bytes() and int(process.name) != os.getpid():
                    found.append((process / "cmdline").read_bytes())
            except OSError:  # it has just ended
                pass
        return found

    def check_no_children(self):
        end = time.monotonic() + 60
        while self.children():
            check(time.monotonic() < end, f"left running: {self.children()}")
            time.sleep(0.01)

    def judge(self, folder, whole):
        """Every proxy in the folder is whole, every manifest line too; whole: clip -> number of frames, of those
        that must have a proxy."""
        proxies = os.fsencode(folder / "marrowcut_proxies")
        wanted = {os.fsencode(clip).rpartition(b".")[0] + b"_proxy.mp4": frames for clip, frames in whole.items()}
        names = [name for name in (os.listdir(proxies) if os.path.isdir(proxies) else [])
                 if name.endswith(b"_proxy.mp4") and (name in wanted or not name.startswith(b"."))
                 and os.path.isfile(proxies + b"/" + name)]
        with ThreadPoolExecutor(os.cpu_count()) as pool:
            counts = dict(zip(names, pool.map(frame_count, [proxies + b"/" + name for name in names])))
        for name, count in counts.items():
            frames = self.frames_of_source(os.fsencode(folder), name.removesuffix(b"_proxy.mp4"))
            check(count in frames, f"{name} is not whole")
        for name, frames in wanted.items():
            check(counts.get(name) == frames, f"{name} has {counts.get(name)} frames")
        manifest = proxies + b"/manifest.csv"
        if os.path.exists(manifest):
            with open(manifest, "rb") as file:
                content = file.read()
            check(content.startswith(HEADER.encode() + b"\n"), "the manifest's header")
            check(content.endswith(b"\n"), "the manifest's last line is torn")

    def frames_of_source(self, folder, base):
        """How many a whole proxy of the clip in the folder may have; a clip that is not one of ours has either."""
        sizes = {self.clips["short.mov"].stat().st_size: 10, self.clips["long.mov"].stat().st_size: 91, **self.frames}
        sources = [folder + b"/" + name for name in os.listdir(folder) if name.rpartition(b".")[0] == base]
        return {sizes.get(os.stat(source).st_size) for source in sources} - {None} or set(sizes.values())


def check_manifest_lines(folder):
    """Nine fields each, for clips with plain names; the clips' outcomes."""
    path = folder / "marrowcut_proxies/manifest.csv"
    lines = path.read_text().splitlines()[1:] if path.is_file() else []
    found = {}
    for line in lines:
        fields = line.split(",")
        check(len(fields) == 9 and re.fullmatch(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", fields[8]), f"manifest: {line!r}")
        found[fields[0]] = fields[7]
    check(len(lines) == len(found), f"manifest: a clip twice: {lines}")
    return found


@functools.cache
def known_frame_counts():
    """Of the proxies judged so far, by their bytes' digest: most are alike."""
    return {}


def frame_count(path):
    with open(path, "rb") as file:
        digest = hashlib.sha256(file.read()).digest()
    known = known_frame_counts()
    if digest not in known:
        known[digest] = counted_frames(path)
    return known[digest]


def counted_frames(path):
    result = subprocess.run(["ffprobe", "-v", "error", "-count_frames", "-select_streams", "v:0", "-show_entries",
                             "stream=nb_read_frames", "-of", "csv=p=0", path], stdout=subprocess.PIPE)
    return int(result.stdout) if result.returncode == 0 and result.stdout.strip().isdigit() else -1


def in_a_workplace(run, *arguments):
    with Workplace() as place:
        run(place, *arguments)


def attempt(name, run):
    """The problem of one check, in a list; nothing where it held."""
    try:
        run()
    except Exception as problem:  # noqa: BLE001 - whatever it is, the other checks go on
        return [f"{name}: {problem!r}"]
    return []


def attempt_all(checks):
    """The problems of (name, function) pairs that don't depend on each other, tried on all processors."""
    clips()  # made before the workers ask for them
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        return sum(pool.map(lambda one: attempt(*one), checks), [])


def argument(name, default):
    return int(sys.argv[sys.argv.index(name) + 1]) if name in sys.argv else default


def report(kind, tried, failures, impossible=0):
    """One line that the record is made of; the program's exit status tells the same. impossible: not to be tried on this
    system."""
    for failure in failures:
        print(f"  {failure}")
    print(f"{kind}: {tried} tried, {tried - len(failures)} held" + (f", {impossible} not possible here" if impossible else ""))
    sys.exit(1 if failures else 0)


def enter_mount_namespace():
    """Goes where small disks can be mounted without being root. False where the system does not allow it."""
    if os.environ.get("MARROWCUT_IN_NAMESPACE"):
        return True
    if subprocess.run(["unshare", "-rm", "true"], stderr=subprocess.DEVNULL).returncode != 0:
        return False
    os.environ["MARROWCUT_IN_NAMESPACE"] = "1"
    os.execvp("unshare", ["unshare", "-rm", sys.executable, *sys.argv])


SIGNALS = {"SIGKILL": signal.SIGKILL, "SIGTERM": signal.SIGTERM, "SIGINT": signal.SIGINT, "SIGHUP": signal.SIGHUP}
