"""marrowcut-cli as a user meets it: real clips, a real terminal, signals, exit statuses, a notification."""

import json
import os
import pty
import re
import resource
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import termios
import unittest
from pathlib import Path

import jsonschema

sys.path.insert(0, os.fspath(Path(__file__).parent.parent / "support"))
from desktop import PATIENCE, Desktop, make_clip, wait_until  # noqa: E402

PROGRAM, STAND_IN = sys.argv[1:3]
SCHEMA = json.loads((Path(__file__).parents[2] / "docs/json-events.schema.json").read_text())
del sys.argv[1:3]  # the classes to run are left


# What a stand-in for ffprobe replies of a clip; the encoder's part of the script follows.
PROBED = "when avg_frame_rate\nout 25/1\\n\nend\nwhen ffprobe\nexit 0\nend\n"


class CliCase(unittest.TestCase):
    FAILURE = r"^broken\.mxf: Failed: could not read metadata\n(    .*\n)+    What to do: .*clip.*\n$"

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.environment = dict(os.environ, XDG_CONFIG_HOME=os.fspath(self.folder / "config"), LC_ALL="C.UTF-8")
        self.proxies = self.folder / "marrowcut_proxies"

    def run_cli(self, *arguments, program=(PROGRAM,), **keywords):
        keywords.setdefault("env", self.environment)
        return subprocess.run([*program, *arguments], capture_output=True, cwd=self.folder, **keywords)

    def start_cli(self, *arguments, program=(PROGRAM,), **keywords):
        keywords = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "env": self.environment, **keywords}
        process = subprocess.Popen([*program, *arguments], cwd=self.folder, **keywords)
        self.addCleanup(process.kill)
        return process

    def with_stand_ins(self, script, tools=("ffmpeg", "ffprobe")):
        """The command of a copy of the program whose tools follow a script."""
        installed = self.folder / "installed"
        (installed / "bin").mkdir(parents=True)
        (installed / "share/marrowcut").mkdir(parents=True)
        shutil.copy(PROGRAM, installed / "bin")
        for tool in tools:
            (installed / "share/marrowcut" / tool).symlink_to(STAND_IN)
        (self.folder / "script").write_text(script)
        self.environment["MARROWCUT_STAND_IN_SCRIPT"] = os.fspath(self.folder / "script")
        return [installed / "bin/marrowcut-cli", "--encoder", "libx264"]  # whatever this machine has

    def with_hanging_encoder(self):
        (self.folder / "a.mov").touch()
        self.pid = self.folder / "pid.part"
        return self.with_stand_ins(PROBED + "ignore-term\nwrite-output\nerr frame=1 time=00:00:01.00 speed=1x\\r\n"
                                   f"pid {self.pid}\nwait-for {self.folder}/never\n")

    def encoder(self, program):
        """The place of its process, once the program has begun it."""
        return Path("/proc", wait_until(lambda: self.pid.exists() and self.pid.read_text(), "encoder", program))

    def await_end(self, encoder):
        wait_until(lambda: not (encoder / "exe").exists(), "the end of the encoder")

    @staticmethod
    def events(output):
        """All of them, and what happened to which clip; each as the schema has it, without a field more."""
        events = [json.loads(line) for line in output.decode().splitlines()]
        for event in events:
            jsonschema.validate(event, SCHEMA)
            for fields, what in ((event.keys() - {"v", "event"}, event["event"]), ((event.get("probe") or {}).keys(), "probe")):
                assert fields <= SCHEMA["$defs"][what]["properties"].keys(), event
        return events, [(event["event"], os.path.basename(event.get("clip", event.get("item", ""))))
                        for event in events if event["event"] != "progress"]


class Proxies(CliCase):
    def test_makes_proxies_and_says_where(self):
        make_clip(self.folder / "a.mov")
        make_clip(self.folder / "it's 100%.mp4")
        (self.folder / "broken.mxf").write_bytes(b"\0nothing")
        result = self.run_cli(".", "--quality", "tiny")
        lines = result.stdout.decode().splitlines()
        self.assertEqual(result.returncode, 1)
        a = [line for line in lines if line.startswith("a.mov")]
        self.assertEqual(a, ["a.mov: Reading metadata…", "a.mov: Encoding…", "a.mov: Done",
                             f"a.mov → {self.proxies}/a_proxy.mp4"])
        self.assertEqual(lines[-3:], ["broken.mxf → no proxy (could not read metadata)",
                                      "SOURCE TC starts at 00:00:00:00 for 2 clips: their container has no timecode tag",
                                      "2 of 3 done, 1 failed"])
        self.assertRegex(result.stderr.decode(), self.FAILURE)
        self.assertTrue((self.proxies / "it's 100%_proxy.mp4").stat().st_size > 0)
        self.assertEqual(len((self.proxies / "manifest.csv").read_text().splitlines()), 4)

        again = self.run_cli("a.mov")
        self.assertEqual(again.returncode, 0)
        self.assertIn("a.mov: Already done", again.stdout.decode())

        shutil.rmtree(self.proxies)
        (self.folder / "notes.txt").touch()
        quiet = self.run_cli("--quiet", "a.mov", "broken.mxf", "notes.txt")
        self.assertEqual((quiet.returncode, quiet.stdout), (1, b""))
        self.assertRegex(quiet.stderr.decode(), self.FAILURE)

    def test_remembered_quality_is_read_and_never_changed(self):
        make_clip(self.folder / "a.mov")
        make_clip(self.folder / "b.mov")
        settings = self.folder / "config/marrowcut/marrowcut.ini"
        settings.parent.mkdir(parents=True)
        settings.write_text("[General]\nqualityPreset=tiny\n")
        self.assertEqual(self.run_cli("a.mov", "gone.mov").returncode, 1)
        self.assertEqual(self.run_cli("b.mov", "--quality", "smaller", "--no-burn-in").returncode, 0)
        widths = [subprocess.check_output(["ffprobe", "-v", "error", "-select_streams", "v:0", "-show_entries",
                                           "stream=width", "-of", "csv=p=0", self.proxies / name]).decode().strip()
                  for name in ("a_proxy.mp4", "b_proxy.mp4")]
        self.assertEqual(widths, ["480", "720"])
        self.assertEqual(settings.read_text(), "[General]\nqualityPreset=tiny\n")

    def test_long_closing_list_names_failures_only(self):
        self.proxies.mkdir()
        for number in range(21):
            (self.folder / f"{number:02}.mov").touch()
            (self.proxies / f"{number:02}_proxy.mp4").touch()
        (self.folder / "broken.mxf").write_bytes(b"\0nothing")
        for folder, count in ((".", 22), ("broken.mxf", 1)):
            closing = [line for line in self.run_cli(folder).stdout.decode().splitlines() if "→" in line]
            self.assertEqual(closing, ["broken.mxf → no proxy (could not read metadata)"], count)


class ForPrograms(CliCase):
    def test_json_tells_every_event(self):
        make_clip(self.folder / "a,\n\".mxf", options=["-c:v", "mpeg2video", "-timecode", "10:11:12:13"])
        make_clip(self.folder / "b.mov")
        unsafe = "\x1b[2J\x7f\x9b\u202e\U000e0041.mov"
        self.proxies.mkdir()
        (self.proxies / "b_proxy.mp4").touch()
        (self.folder / "broken.mxf").write_bytes(b"\0nothing")
        result = self.run_cli("--json", "--no-burn-in", unsafe, "notes.txt", "a,\n\".mxf", "b.mov", "broken.mxf")
        events, order = self.events(result.stdout)
        self.assertEqual(result.returncode, 1)
        gone, notes, failure = result.stderr.decode().split("\n", 2)
        self.assertEqual(gone, f"marrowcut-cli: {self.folder}/\\x1B[2J\\x7F\\x9B\\u202E\\U000E0041.mov: "
                               "no such file or folder")
        self.assertIn(rb"\u001b[2J\u007f\u009b\u202e\udb40\udc41.mov", result.stdout)
        self.assertRegex(failure, self.FAILURE)
        self.assertEqual(order, [
            ("refused", unsafe), ("refused", "notes.txt"),
            ("queued", "a,\n\".mxf"), ("queued", "b.mov"), ("queued", "broken.mxf"),
            ("status", "a,\n\".mxf"), ("status", "a,\n\".mxf"), ("done", "a,\n\".mxf"), ("done", "b.mov"),
            ("status", "broken.mxf"), ("failed", "broken.mxf"), ("summary", "")])
        self.assertEqual((events[0]["reason"], events[0]["failure"]), ("noSuchPath", True))
        self.assertEqual((events[2]["burnIn"], events[2]["proxy"]), (False, f"{self.proxies}/a,\n\"_proxy.mp4"))
        done, skipped = [event for event in events if event["event"] == "done"]
        self.assertEqual((done["encoded"], skipped["encoded"], skipped["manifest"]), (True, False, None))
        self.assertTrue(os.path.exists(done["proxy"]))
        self.assertEqual(done["probe"], {"timecode": "10:11:12:13", "frameRate": "25/1", "durationSeconds": 1,
                                         "audioStreams": 0, "fileDate": None})
        failed, summary = events[-2:]
        self.assertEqual((skipped["probe"], failed["probe"]), (None, None))
        self.assertEqual(failed["message"], "could not read metadata")
        self.assertIn("broken.mxf", failed["detail"])
        self.assertIn("cannot decode", failed["advice"])
        self.assertEqual((self.proxies / "manifest.csv").read_text().split("\n", 1)[1],
                         done["manifest"] + "\n" + failed["manifest"] + "\n")
        self.assertEqual({key: summary[key] for key in ("clips", "done", "failed", "refused")},
                         {"clips": 3, "done": 2, "failed": 1, "refused": 2})

    def test_json_progress_without_a_speed(self):
        for name in ("a.mov", "b.mov"):
            (self.folder / name).touch()
        program = self.with_stand_ins("when format=duration\nout 50\\n\nend\n" + PROBED +
                                      "err frame=1 time=00:00:10.00 speed=N/A\\r\n"
                                      f"wait-for {self.folder}/never\n")
        process = self.start_cli("--json", ".", program=program)
        event = {}
        while not event.get("progress"):
            event = json.loads(process.stdout.readline())
        self.assertEqual((event["progress"], event["overall"], event["remainingSeconds"]), (0.2, 0.1, None))
        process.terminate()
        process.communicate(timeout=PATIENCE)

    def test_wait_for_another_marrowcut_is_reported(self):
        program = self.with_hanging_encoder()
        first = self.start_cli("a.mov", program=program)
        encoder = self.encoder(first)
        second = self.start_cli("--json", "a.mov", program=program)
        self.assertEqual(self.events(second.stdout.readline() + second.stdout.readline())[1],
                         [("queued", "a.mov"), ("waiting", "a.mov")])
        self.assertEqual(second.stderr.readline(),
                         b"marrowcut-cli: a.mov: waiting for another Marrowcut that is processing this clip\n")
        self.pid.unlink()
        first.kill()
        self.await_end(encoder)
        self.assertEqual(self.events(second.stdout.readline())[1], [("status", "a.mov")])
        self.encoder(second)
        second.terminate()
        for process in (first, second):
            process.communicate(timeout=PATIENCE)

    def test_names_from_a_list(self):
        names = ["a\n.mov", "--quiet.mov", "b.mov"]
        for name in names:
            (self.folder / name).write_bytes(b"\0nothing")
        listed = b"a\n.mov\0\0--quiet.mov\0bad\xff.mov"
        (self.folder / "list").write_bytes(listed)
        for source, given in [("-", listed), ("list", b"")]:
            with self.subTest(source=source):
                result = self.run_cli("--json", "--files-from", source, "b.mov", input=given)
                order = self.events(result.stdout)[1]
                self.assertEqual(result.returncode, 1)
                self.assertEqual(order[0], ("refused", "bad\\xFF.mov"))
                self.assertEqual(sorted(name for event, name in order if event == "queued"), sorted(names))


class Refusals(CliCase):
    def test_wrong_usage_and_nothing_to_do(self):
        (self.folder / "notes.txt").touch()
        (self.folder / "empty").mkdir()
        (self.folder / "-there").touch()
        (self.folder / "lines").write_text("a.mov\nb.mov\n")
        for arguments, status, message in [
            ([], 2, "No clip or folder was named."),
            (["--files-from", "-"], 0, "No names in standard input, so there is nothing to do."),
            (["--files-from", "."], 2, "Cannot read names from ."),
            (["--files-from", "gone"], 2, "Cannot read names from gone: No such file"),
            (["--files-from", "lines"], 2, "The names in lines end in line feeds. Each has to end in a NUL character"),
            (["--nonsense", "x"], 2, "Unknown option '--nonsense'.\n"),
            (["--qualty=tiny", "x"], 2, "Unknown option '--qualty=tiny'. Did you mean '--quality'?\n"),
            (["-clip.MOV"], 2, "Unknown option '-clip.MOV'. For a file of that name, write './-clip.MOV'.\n"),
            (["-there"], 2, "write './-there'"),
            ([b"--\x1b[2J\xc2\x9b\xf3\xa0\x81\x81"], 2, "'--\\x1B[2J\\x9B\\U000E0041'"),
            (["--quality", "Tiny", "x"], 2, "Unknown quality 'Tiny'"),
            (["--encoder", "h265", "x"], 2, "Unknown encoder 'h265'"),
            (["--verbose", "x"], 2, "--verbose works with --version only."),
            (["--json", "--quiet", "x"], 2, "--json and --quiet cannot be used together."),
            (["gone.mov"], 1, f"{self.folder}/gone.mov: no such file or folder"),
            (["notes.txt"], 2, "not an MXF, MOV or MP4 file"),
            (["empty"], 2, "no MXF, MOV or MP4 files in this folder\n"),
            ([b"bad\xff.mov"], 1, "bad\\xFF.mov: the name is not valid UTF-8"),
            (["--files-from", b"\xff", "notes.txt"], 2, "Cannot read names from \ufffd\\xFF: No such file"),
        ]:
            with self.subTest(arguments=arguments):
                result = self.run_cli(*arguments, input=b"\0")
                self.assertEqual((result.returncode, result.stdout), (status, b""))
                self.assertIn(message, result.stderr.decode())

    def test_subfolders(self):
        for name in ("card/a/b/one.mov", "card/two.mxf", "card/a/marrowcut_proxies/three.mp4", "elsewhere/four.mov"):
            (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
            (self.folder / name).write_bytes(b"\0nothing")
        (self.folder / "card/link").symlink_to("../elsewhere")
        (self.folder / "card/back").symlink_to("..")
        (self.folder / "named").symlink_to("card")

        def queued(*arguments):
            result = self.run_cli("--json", *arguments)
            return [os.path.relpath(event["clip"], self.folder) for event in self.events(result.stdout)[0]
                    if event["event"] == "queued"], result.stderr.decode()

        self.assertEqual(queued("card")[0], ["card/two.mxf"])
        self.assertEqual(queued("--recursive", "card")[0], ["card/two.mxf", "card/a/b/one.mov"])
        self.assertEqual(queued("--recursive", "named")[0], ["named/two.mxf", "named/a/b/one.mov"])
        self.assertIn("card/a: no MXF, MOV or MP4 files in this folder, but in subfolders; use --recursive",
                      queued("card/a")[1])
        shutil.rmtree(self.folder / "card/a/b")
        self.assertIn("card/a: no MXF, MOV or MP4 files in this folder\n", queued("card/a")[1])

    def test_lost_output_counts_as_failed(self):
        make_clip(self.folder / "a.mov")
        for arguments in (["--version"], ["a.mov"], ["--json", "a.mov"]):
            with self.subTest(arguments=arguments), open("/dev/full", "w") as full:
                process = self.start_cli(*arguments, stdout=full)
                self.assertIn(b"could not be written", process.communicate(timeout=PATIENCE)[1])
                self.assertEqual(process.returncode, 1)
        self.assertTrue((self.proxies / "a_proxy.mp4").exists())

    def test_help_and_version(self):
        help_text = self.run_cli("--help").stdout.decode()
        self.assertEqual(self.run_cli("-h").stdout.decode(), help_text)
        self.assertLessEqual(max(map(len, help_text.splitlines())), 80)
        for option in ("--version", "-V"):
            self.assertRegex(self.run_cli(option).stdout.decode(), r"^marrowcut-cli \d+\.\d+ \(\d+\)\n$")

    def test_missing_tool(self):
        (self.folder / "a.mov").touch()
        program = self.with_stand_ins("", tools=["ffprobe"])
        result = self.run_cli("a.mov", program=program)
        self.assertEqual(result.returncode, 3)
        expected = f"marrowcut-cli: ffmpeg is missing: it was expected at {program[0].parents[1]}/share/marrowcut/ffmpeg.\n"
        self.assertEqual(result.stderr.decode(), expected)
        self.assertFalse(self.proxies.exists())

    def test_named_encoder_is_tested_first(self):
        (self.folder / "a.mov").touch()
        program = self.with_stand_ins("when -count_frames\nout 10\\n\nend\n" + PROBED +
                                      "when h264_nvenc\nwrite-output\nend\n"
                                      "when h264_qsv\nerr no such card\\n\nexit 1\nend\n")[0]

        def run(*arguments):
            result = self.run_cli(*arguments, program=[program])
            return result.returncode, result.stdout.decode(), result.stderr.decode()

        message = "marrowcut-cli: h264_qsv does not work here:\n    no such card\n"
        self.assertEqual(run("--encoder", "h264_qsv", "a.mov"), (3, "", message))
        self.assertFalse(self.proxies.exists())
        version = subprocess.check_output([program, "--version"], text=True)
        self.assertEqual(run("--version", "--verbose", "--encoder", "h264_qsv"), (3, version, message))
        self.assertEqual(run("--version", "--verbose", "--encoder", "h264_nvenc"),
                         (0, version + "encoder: h264_nvenc\n", ""))
        self.assertEqual(run("--encoder", "h264_nvenc", "a.mov")[0], 0)
        self.assertEqual(os.listdir(self.proxies).count("a_proxy.mp4"), 1)


class Endings(CliCase):
    def interrupt(self, process, number):
        """What it prints; it has to take the encoder along."""
        encoder = self.encoder(process)
        process.send_signal(number)
        output = process.communicate(timeout=PATIENCE)
        self.assertEqual(process.returncode, 130)
        self.await_end(encoder)
        self.pid.unlink()
        return output

    def test_signals_end_the_encoder_and_leave_the_files(self):
        program = self.with_hanging_encoder()
        for number, arguments in [(signal.SIGINT, ["--json"]), (signal.SIGTERM, []), (signal.SIGHUP, [])]:
            with self.subTest(signal=number):
                process = self.start_cli(*arguments, "a.mov", program=program)
                while arguments and json.loads(process.stdout.readline())["event"] != "progress":
                    pass  # each line comes at once
                output, errors = self.interrupt(process, number)
                self.assertEqual(errors, b"Interrupted.\n")
                self.assertNotIn(b"Interrupted.", output)
                if arguments:
                    self.assertEqual(self.events(output)[1], [("interrupted", "")])
                self.assertEqual(os.listdir(self.proxies), [".tmp_a_proxy.mp4"])

    def test_hang_up_stays_ignored(self):
        process = self.start_cli("a.mov", program=self.with_hanging_encoder(),
                                 preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN))
        self.encoder(process)
        ignored = re.search(r"SigIgn:\t(\w+)", Path("/proc", str(process.pid), "status").read_text())[1]
        self.assertTrue(int(ignored, 16) & 1 << signal.SIGHUP - 1)
        self.interrupt(process, signal.SIGTERM)

    def test_notification(self):
        (self.folder / "broken.mov").write_bytes(b"\0nothing")
        with Desktop(notifications=True) as desktop:
            self.assertEqual(self.run_cli("--notify", "broken.mov", env=desktop.environment).returncode, 1)
            shown = desktop.notifications()
        self.assertEqual([[note[key]["data"] for key in ("appname", "summary", "body")] for note in shown],
                         [["Marrowcut", "Marrowcut", "0 done, 1 failed."]])

    def test_signal_ends_an_encoder_test(self):
        program = self.with_hanging_encoder()[:1]
        temporary = self.folder / "temporary"
        temporary.mkdir()
        for arguments in (["a.mov"], ["--version", "--verbose"]):
            with self.subTest(arguments=arguments):
                process = self.start_cli("--encoder", "h264_nvenc", *arguments, program=program,
                                         env=dict(self.environment, TMPDIR=temporary))
                self.interrupt(process, signal.SIGINT)
                self.assertFalse(self.proxies.exists() or os.listdir(temporary))

    @unittest.skipIf(b"__tsan_init" in Path(PROGRAM).read_bytes(), "the thread sanitizer needs the usual stack limit")
    @unittest.skipIf(resource.getrlimit(resource.RLIMIT_STACK)[1] != resource.RLIM_INFINITY,
                     "the stack limit cannot be raised here")
    def test_without_threads_nothing_is_called_done(self):
        (self.folder / "a.mov").touch()

        def allow_no_thread():  # its stack, as large as the limit for the first one, has no place
            resource.setrlimit(resource.RLIMIT_STACK, (1 << 47, resource.RLIM_INFINITY))

        for arguments in (["a.mov"], ["--version", "--verbose"]):
            with self.subTest(arguments=arguments):
                result = self.run_cli(*arguments, preexec_fn=allow_no_thread)
                self.assertEqual(result.returncode, 1)
                self.assertIn(b"cannot start another thread", result.stderr)
        self.assertFalse(self.proxies.exists())


class Terminal(CliCase):
    def on_terminal(self, program, typed=b"", columns=80, shown=None, then=None):
        """Exit status and what is shown. Once it matches an expression, something may be done."""
        terminal, other_end = pty.openpty()
        termios.tcsetwinsize(other_end, (24, columns))
        process = self.start_cli(".", program=program, stdin=other_end, stdout=other_end, stderr=other_end,
                                 env=dict(self.environment, TERM="xterm"), start_new_session=True)
        os.close(other_end)
        os.write(terminal, typed)
        output = b""
        while True:
            if not select.select([terminal], [], [], PATIENCE)[0]:
                process.kill()
                self.fail(f"nothing more after {output!r}")
            try:
                output += os.read(terminal, 65536)
            except OSError:  # the other end is closed
                return process.wait(), output.decode()
            if then and re.search(shown, output.decode(errors="ignore")):
                then = then(terminal)

    def test_live_lines(self):
        make_clip(self.folder / "a.mov", seconds=8)
        (self.folder / "b\x1b[2J.mov").write_bytes(b"\0nothing")
        status, output = self.on_terminal([PROGRAM])
        self.assertEqual(status, 1)
        self.assertRegex(output, r"a\.mov +█*░*  +\d+%")
        self.assertRegex(output, r"\d of 2 done +█*░*  +\d+%")
        self.assertRegex(output, r"a\.mov +Done\r\n")
        self.assertEqual(len(re.findall(r"b\\x1B\[2J\.mov: Failed: could not read metadata\r\n    ", output)), 1)
        # Nothing but moving up, and clearing what was drawn there, ever reaches the terminal.
        self.assertEqual(set(re.findall(r"\x1b[^A-Za-z]*[A-Za-z]", output)) - {"\x1b[2A", "\x1b[J"}, set())
        self.assertTrue(output.endswith("1 of 2 done, 1 failed\r\n"))

    def test_live_lines_use_the_width_there_is(self):
        name = "A001C002_" + "long_" * 16 + "name.mov"
        go_on = self.folder / "go_on"
        program = self.with_stand_ins("when format=duration\nout 50\\n\nend\n" + PROBED +
                                      "err frame=1 time=00:00:10.00 speed=0.001x\\r\n"
                                      f"wait-for {go_on}\nwrite-output\n")
        (self.folder / name).touch()
        for columns, bar, named in [(200, 24, "A001C002_.*_name.mov"), (40, 8, "A001C0.*….*name.mov"), (20, 0, "A.*….*v"),
                                    (9, 0, "")]:
            with self.subTest(columns=columns):
                output = self.on_terminal(program, columns=columns, shown="20%", then=lambda _: go_on.touch())[1]
                drawn = [line for line in re.split(r"[\r\n]+|\x1b\[[0-9]*[A-Z]", output) if line.endswith("%")
                         or line.endswith("left")]
                self.assertLess(max(map(len, drawn)), columns)
                self.assertTrue(any(re.search(rf"^{named} *[^█]*█{{{bar // 5}}}░{{{bar - bar // 5}}} *20%", line)
                                    for line in drawn), drawn)
                self.assertIn(name, output)  # the line that stays
                go_on.unlink()
                shutil.rmtree(self.proxies)

        def narrow(terminal):
            termios.tcsetwinsize(terminal, (24, 40))
            go_on.touch()

        self.assertIn("\x1b[4A\x1b[J", self.on_terminal(program, shown="20%", then=narrow)[1])  # both lines wrap

    def test_typed_keys_do_not_reach_the_encoder(self):
        (self.folder / "a.mov").touch()
        program = self.with_stand_ins(PROBED + "err keys:\nstdin\nerr \\n\nexit 1\n")
        self.assertRegex(self.on_terminal(program, typed=b"q\n\x04")[1], r"    keys:\r\n")


unittest.main(verbosity=1)
