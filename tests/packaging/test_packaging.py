"""What is installed beside the programs: that it fits them, that it can be read, that it lies where it belongs."""

import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PACKAGING, BUILD, CLI = map(Path, sys.argv[1:4])
del sys.argv[1:]


def options(text):
    return set(re.findall(r"--[a-z][a-z-]+", text))


def completions(words):
    """What bash offers for the last of the words."""
    script = ('. /usr/share/bash-completion/bash_completion; . "$1"; shift\n'
              'COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); COMP_LINE="$*"; COMP_POINT=${#COMP_LINE}; compopt() { :; }\n'
              '_marrowcut_cli && printf "%s\\n" "${COMPREPLY[@]}"')
    result = subprocess.run(["bash", "-c", script, "bash", PACKAGING / "completions/marrowcut-cli.bash", *words],
                            capture_output=True, text=True)
    return set(result.stdout.split("\n")) - {""}


class PackagingTest(unittest.TestCase):
    def test_every_option_is_in_manual_and_completion(self):
        known = options(subprocess.check_output([CLI, "--help"], text=True))
        self.assertGreater(len(known), 5)
        manual = (PACKAGING / "man/marrowcut-cli.1").read_text().replace("Fl Fl ", "--")
        self.assertEqual(known - options(manual), set())
        self.assertEqual(options((PACKAGING / "completions/_marrowcut-cli").read_text()), known)
        fish = (PACKAGING / "completions/marrowcut-cli.fish").read_text()
        self.assertEqual({"--" + name for name in re.findall(r" -l ([a-z-]+)", fish)}, known)
        self.assertEqual(completions(["marrowcut-cli", "--"]), known)

    def test_every_quality_and_encoder_is_in_help_manual_and_completion(self):
        texts = [subprocess.check_output([CLI, "--help"], text=True), (PACKAGING / "man/marrowcut-cli.1").read_text(),
                 *(path.read_text() for path in PACKAGING.glob("completions/*marrowcut-cli*"))]
        self.assertEqual(len(texts), 5)
        for option, alike in (("--quality", "standard"), ("--encoder", r"auto|libx264|h264_\w+")):
            message = subprocess.run([CLI, option, "none", "x"], stderr=subprocess.PIPE, text=True).stderr
            names = set(re.findall(r"\w+", message.partition(" Use ")[2].partition(".")[0])) - {"or"}
            self.assertGreater(len(names), 2)
            self.assertEqual(completions(["marrowcut-cli", option, ""]), names)
            for text in texts:
                self.assertEqual(set(re.findall(rf"\b(?:{'|'.join(names)}|{alike})\b", text)), names)

    def test_bash_completes_names_and_clips(self):
        self.assertEqual(completions(["marrowcut-cli", "--quality", "t"]), {"tiny"})
        self.assertEqual(completions(["marrowcut-cli", "--quality", "="]), set())
        with tempfile.TemporaryDirectory() as folder:
            for name in ("a b.mxf", "A.MOV", "notes.txt"):
                Path(folder, name).touch()
            Path(folder, "card").mkdir()
            self.assertEqual({os.path.basename(path) for path in completions(["marrowcut-cli", folder + "/"])},
                             {"a b.mxf", "A.MOV", "card"})

    def test_manuals_are_sound(self):
        for page in sorted((PACKAGING / "man").iterdir()):
            with self.subTest(page=page.name):
                result = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", page], capture_output=True, text=True,
                                        env=dict(os.environ, LC_ALL="C.UTF-8", MANWIDTH="80"))
                self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_nothing_installed_points_into_the_build(self):
        with tempfile.TemporaryDirectory() as root:
            subprocess.run(["cmake", "--install", BUILD, "--prefix", "/usr"], check=True, stdout=subprocess.DEVNULL,
                           env=dict(os.environ, DESTDIR=root))
            files = [Path(folder, name) for folder, _, names in os.walk(root) for name in names]
            self.assertTrue(Path(root, "usr/share/marrowcut/version.ini").is_file())
            links = {link.name: link for link in files if link.is_symlink()}
            self.assertEqual(links.keys(), {"ffmpeg", "ffprobe"})
            for link in links.values():
                target = os.path.normpath(Path("/", link.relative_to(root)).parent / os.readlink(link))
                self.assertTrue(os.access(target, os.X_OK) and not target.startswith(os.fspath(BUILD)), target)
            for file in files:
                self.assertTrue(file.relative_to(root).parts[0] == "usr", file)
                if "share" in file.parts and not file.is_symlink():
                    self.assertNotIn(os.fsencode(BUILD), file.read_bytes(), file)


unittest.main(verbosity=1)
