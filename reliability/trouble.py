"""A machine in trouble: what surrounds the program is missing, broken or hostile. Each run still ends as it should."""

import os
import resource
import shutil
import signal
import subprocess
import sys
from datetime import datetime, timedelta, timezone
from functools import partial
from pathlib import Path

from harness import WINDOW_PROGRAM, Workplace, attempt, attempt_all, check, enter_mount_namespace, in_a_workplace, report

sys.path.insert(0, os.fspath(Path(__file__).parent.parent / "tests/support"))
from desktop import PATIENCE, Desktop, wait_until  # noqa: E402


def proxy_of_one_clip(place, arguments=(), **keywords):
    folder = place.clip_folder({"a.mov": "short.mov"})
    status, output = place.run(*arguments, folder, **keywords)
    check(status == 0, f"status {status}: {output}")
    place.judge(folder, {"a.mov": 10})
    return folder, output


def proxy_through_the_window(place, extra):
    """"Go", and the window is closed when the clip is done."""
    folder = place.clip_folder({"a.mov": "short.mov"})
    with Desktop(window_manager=True) as desktop:
        on_desktop = {name: desktop.environment[name] for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS")}
        process = place.start(folder, extra={**on_desktop, **extra})
        window = desktop.wait_for_window("Marrowcut", process)
        proxies = folder / "marrowcut_proxies"
        desktop.press_key(window, "Return", process, proxies.is_dir, "run")
        manifest = proxies / "manifest.csv"
        wait_until(lambda: manifest.exists() and ",done," in manifest.read_text(), "manifest", process)
        desktop.close_window(window, process)
        process.communicate(timeout=PATIENCE)
    check(process.returncode == 0, f"the window's exit status {process.returncode}")
    place.check_no_children()
    place.judge(folder, {"a.mov": 10})


# What surrounds the program: each makes its trouble in the place and returns what the environment says of it.

def no_bus(place):
    return {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"}


def no_home(place):
    for name in ("HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"):
        place.environment.pop(name, None)
    return {}


def read_only_configuration(place):
    config = place.folder / "config"
    config.mkdir()
    subprocess.run(["mount", "-t", "tmpfs", "-o", "ro", "tmpfs", config], check=True)
    return {}


def garbage_preferences(place):
    settings = place.folder / "config/marrowcut/marrowcut.ini"
    settings.parent.mkdir(parents=True)
    settings.write_bytes(b"\xff\x00[[[General]\nqualityPreset=\x00tiny\n=\n" + os.urandom(4096))
    settings.chmod(0o444)
    return {}


def decimal_comma(place):
    locales = place.folder / "locales"
    locales.mkdir()
    subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8", locales / "de_DE.UTF-8"], check=True,
                   stderr=subprocess.DEVNULL)
    german = {"LC_ALL": "de_DE.UTF-8", "LANG": "de_DE.UTF-8", "LOCPATH": os.fspath(locales)}
    said = subprocess.run(["locale", "decimal_point"], env=dict(os.environ, **german), stdout=subprocess.PIPE)
    check(said.stdout == b",\n", "the locale does not work")
    return german


SURROUNDINGS = [no_bus, no_home, read_only_configuration, garbage_preferences, decimal_comma]


def in_surroundings(make):
    """The command line, and the window where there is one, do their work and leave what they find."""
    def run(place):
        extra = make(place)
        settings = place.folder / "config/marrowcut/marrowcut.ini"
        found = settings.read_bytes() if settings.exists() else None
        folder, _ = proxy_of_one_clip(place, ["--notify", "--quality", "tiny"], extra=extra)
        check(",0.4,0," in (folder / "marrowcut_proxies/manifest.csv").read_text(), "the manifest's number")
        check(found is None or settings.read_bytes() == found, "the preference file was changed")
        if WINDOW_PROGRAM.exists():
            with Workplace(WINDOW_PROGRAM) as other:
                proxy_through_the_window(other, make(other))
    run.__name__ = make.__name__
    return run


def no_notification_server(place):
    bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address", f"--address=unix:dir={place.folder}"],
                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                           env={"PATH": os.environ["PATH"], "XDG_DATA_DIRS": "/nonexistent", "HOME": "/nonexistent"})
    try:
        address = bus.stdout.readline().decode().strip()
        proxy_of_one_clip(place, ["--notify"], extra={"DBUS_SESSION_BUS_ADDRESS": address})
    finally:
        bus.terminate()
        bus.communicate()


def clock_jumps_back(place):
    offset = place.folder / "offset"
    offset.write_text("+0")
    library = "/usr/lib/x86_64-linux-gnu/faketime/libfaketimeMT.so.1"
    extra = {"LD_PRELOAD": library, "FAKETIME_TIMESTAMP_FILE": os.fspath(offset), "FAKETIME_NO_CACHE": "1"}
    folder, _ = proxy_of_one_clip(place, fault=f'[ $tool = ffmpeg ] && echo -30d >"{offset}"; unset LD_PRELOAD', extra=extra)
    written = (folder / "marrowcut_proxies/manifest.csv").read_text().rstrip().rpartition(",")[2]
    back = datetime.now(timezone.utc) - datetime.fromisoformat(written)
    check(timedelta(days=29) < back < timedelta(days=31), f"the clock did not jump: {written}")


def taken_descriptors(count):
    """Open and inherited, from the lowest number on."""
    resource.setrlimit(resource.RLIMIT_NOFILE, (8000, resource.getrlimit(resource.RLIMIT_NOFILE)[1]))
    taken = [os.open("/dev/null", os.O_RDONLY) for _ in range(count)]
    for descriptor in taken:
        os.set_inheritable(descriptor, True)
    return taken


def open_file_limit(place):
    """With few descriptors left the run works or fails plainly, and ends. With none for an event loop the system's
    library ends the program and says why; the files are as whole as after a kill."""
    folder = place.clip_folder({"a.mov": "short.mov"})
    outcomes = set()
    for limit in range(4000 - 40, 4000 - 4, 3):
        taken = taken_descriptors(limit - 3)
        try:
            process = place.start("--quiet", folder, close_fds=False,
                                  preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_NOFILE, (4000, 4000)))
        finally:
            for descriptor in taken:
                os.close(descriptor)
        errors = process.communicate(timeout=PATIENCE)[1]
        place.check_no_children()
        outcomes.add(process.returncode)
        check(process.returncode >= 0 or b"Too many open files" in errors, f"ended without a message: {errors!r}")
        place.judge(folder, {"a.mov": 10} if process.returncode == 0 else {})
        shutil.rmtree(folder / "marrowcut_proxies", ignore_errors=True)
    check(outcomes <= {0, 1, 3, -signal.SIGTRAP, -signal.SIGABRT}, f"exit statuses {outcomes}")
    check(len(outcomes) > 1, "no run was short of descriptors")


def flood_of_messages(place):
    """From every tool, at every step: 100 MB in lines, then 10 MB without a line break; twice as much as a probe's answer."""
    lines, endless = place.folder / "lines", place.folder / "endless"
    with lines.open("wb") as file:  # in small pieces: our own memory would count as a child's until its exec
        file.writelines([b"x" * 200 + b"\n"] * 500_000)
    endless.write_bytes(b"y" * 10_000_000)
    folder = place.clip_folder({"a.mov": "short.mov", "b.mov": "long.mov"})
    (folder / "broken.mov").write_bytes(b"\0nothing")
    flood = f"cat '{lines}' '{endless}'"
    status, output = place.run(folder, fault=f"""case "$tool $*" in
        *broken.mov*) {flood}; {flood}; exit;;
        ffmpeg*|*format=duration*|*-show_format*) {flood} >&2;;
        esac""")
    check(status == 1 and "2 of 3 done" in output, f"status {status}: {output[-300:]}")
    check(len(output) < 100000, f"{len(output)} characters are printed")
    place.judge(folder, {"a.mov": 10, "b.mov": 91})
    mebibytes = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss / 1024
    check(mebibytes < 200, f"{mebibytes:.0f} MiB")


INDEPENDENT = [*map(in_surroundings, SURROUNDINGS), no_notification_server, clock_jumps_back]
ALONE = [open_file_limit, flood_of_messages]  # they change or measure this process


def main():
    can_mount = enter_mount_namespace()
    possible = [run for run in INDEPENDENT if can_mount or run.__name__ != read_only_configuration.__name__]
    failures = attempt_all([(run.__name__, partial(in_a_workplace, run)) for run in possible])
    failures += sum((attempt(run.__name__, partial(in_a_workplace, run)) for run in ALONE), [])
    report("trouble", len(possible) + len(ALONE), failures, impossible=len(INDEPENDENT) - len(possible))


main()
