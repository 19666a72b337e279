# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The commands ./play and ./check, and the scripts that they use."""

import json
import os
import pty
import re
import select
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from PIL import Image

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["MEROVINSKA_BUILD"])

THEME = "\n".join(["0.5 0.5 0.5"] * 4 + ["1"] * 10 + ["{texture} a comment", "1"]) + "\n"


def run(*command, **options):
    return subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                          timeout=60, **options)


class Scripts(unittest.TestCase):
    """Each test uses its own copy of the scripts, whose files it can change."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for name in ["play", "check", "packages.txt"]:
            shutil.copy(ROOT / name, self.root)
        shutil.copytree(ROOT / "scripts", self.root / "scripts")
        self.environment = dict(os.environ)
        self.commands = self.root / "commands"
        self.commands.mkdir()
        self.environment["PATH"] = f"{self.commands}:{os.environ['PATH']}"

    def run_script(self, text):
        """Runs lines of a script that can call the functions of scripts/common.sh."""
        return run("bash", "-c", f"set -euo pipefail; . scripts/common.sh; {text}",
                   cwd=self.root, env=self.environment)

    def command(self, *words):
        return run(*words, cwd=self.root, env=self.environment)

    def write_command(self, name, text, folder=None):
        """Replaces a command of the system, or the program in a folder, by a shell script."""
        path = (folder or self.commands) / name
        path.unlink(missing_ok=True)  # the previous one may be running
        path.write_text(f"#!/bin/sh\n{text}\n")
        path.chmod(0o755)

    def write_data(self):
        data = self.root / "data"
        data.mkdir()
        (data / "my.gui.debug").write_text(
            "// the game's widgets\nCONF toolkit.conf\nTHEM default NULL\nTHEM paper.theme NULL\n"
            "CADD Label farmerslab NULL 0 0 Farmers\n")
        (data / "toolkit.conf").write_text("serif.ttf the font\nignored\n0 0 1 1\n")
        for name in ["default", "messagebox", "tabwin_button", "combo_button", "paper"]:
            (data / f"{name}.theme").write_text(THEME.format(texture="gui.tga"))
        (data / "combo_button.theme").write_text(THEME.format(texture="NULL"))
        (data / "paper.theme").write_text("// parchment\n" + THEME.format(texture="paper.tga"))
        for name in ["gui.tga", "paper.tga", "serif.ttf"]:
            (data / name).touch()
        return data

    # The texts of the scripts

    def test_shellcheck_finds_no_mistake(self):
        scripts = [path for path in [*ROOT.iterdir(), *ROOT.glob("[.a-z]*/*")]
                   if path.is_file() and re.match(rb"#!.*bash|(?s:.*)\n# shellcheck shell=bash",
                                                  path.read_bytes())]
        self.assertLessEqual({"play", "check", "run", "common.sh", "tidy"},
                             {path.name for path in scripts})
        result = run("shellcheck", "-x", *map(str, scripts), cwd=ROOT)
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    # Arguments

    def test_unknown_option_of_play_is_an_error_in_one_line(self):
        result = self.command("./play", "--loud")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr, "play: unknown option --loud; "
                         "usage: ./play [--set NAME] [--scale N] "
                         "[--screenshot FILE [--seconds N]]\n")

    def test_option_of_play_without_its_value_is_an_error(self):
        result = self.command("./play", "--screenshot")
        self.assertEqual(result.returncode, 1)
        self.assertIn("--screenshot needs a value", result.stderr)

    def test_seconds_that_are_not_a_whole_number_from_1_are_an_error(self):
        for seconds in ["0", "-1", "soon", "1.5", ""]:
            result = self.command("./play", "--screenshot", "x.png", "--seconds", seconds)
            self.assertEqual(result.returncode, 1)
            self.assertIn("--seconds takes a whole number from 1", result.stderr)

    def test_missing_set_is_an_error_that_lists_the_sets(self):
        (self.root / "data/sets").mkdir(parents=True)
        for name, known in [("loud", "none"), ("loud", "calm quiet")]:
            for folder in known.split() if known != "none" else []:
                (self.root / "data/sets" / folder).mkdir()
            result = self.command("./play", "--set", name)
            self.assertEqual((result.returncode, result.stdout, result.stderr),
                             (1, "", f'play: there is no set "{name}"; the sets are: {known}\n'))

    def test_path_is_not_the_name_of_a_set(self):
        (self.root / "data/sets/quiet").mkdir(parents=True)
        for name in ["", ".", "..", "../sets", "quiet/", "/tmp", "quiet/../quiet"]:
            result = self.command("./play", "--set", name)
            self.assertEqual((result.returncode, result.stderr),
                             (1, f'play: there is no set "{name}"; the sets are: quiet\n'))

    def test_scale_that_is_not_a_number_from_1_to_10_is_an_error(self):
        for scale in ["0", "0.5", "-1", "10", "1,5", "1.", "large", ""]:
            result = self.command("./play", "--scale", scale)
            self.assertEqual((result.returncode, result.stdout), (1, ""))
            self.assertEqual(len(result.stderr.splitlines()), 1)
            self.assertIn("play: --scale takes a number from 1 to below 10", result.stderr)

    def test_unknown_preset_of_check_is_an_error_in_one_line(self):
        result = self.command("./check", "--preset", "fast")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr, "check: there is no preset fast; "
                         "usage: ./check [--all | --preset release|debug|clang|sanitize|tidy]\n")

    def test_check_cannot_do_all_with_another_preset(self):
        result = self.command("./check", "--all", "--preset", "debug")
        self.assertEqual(result.returncode, 1)
        self.assertIn("check: --all does the release build, without --preset; usage: ",
                      result.stderr)

    # Measuring

    def test_measure_names_its_arguments_and_a_missing_program_in_one_line(self):
        for words in (["--help"], ["0"], ["many"], ["3", "4"]):
            with self.subTest(words):
                result = self.command("scripts/measure", *words)
                self.assertEqual((result.returncode, result.stdout, result.stderr),
                                 (1, "", "usage: scripts/measure [RUNS]\n"))
        missing = self.root / "build/release/bench/emptywindow"
        result = self.command("scripts/measure", "3")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (1, "", f"measure: {missing.resolve()} is missing: "
                                 "cmake --build --preset release\n"))

    # clang-tidy

    def prepare_tidy(self):
        """A tree with two sources. Its name contains characters that have a meaning in regular
        expressions."""
        self.write_command("clang-tidy", 'for file; do :; done; [ "$file" = - ] || '
                                         'echo "file $file"; ! grep -q wrong "$file"')
        tree = self.root / "c++ [x]"
        shutil.copytree(ROOT / "scripts", tree / "scripts")
        for name in ("app/main.cpp", "tests/app/app_test.cpp"):
            (tree / name).parent.mkdir(parents=True)
            (tree / name).write_text("right\n")
        (tree / "build/release").mkdir(parents=True)
        return tree

    def tidy(self, tree, *words):
        """The status, the checked files and the errors."""
        result = run("scripts/tidy", *words, cwd=tree, env=self.environment)
        checked = re.findall(r"^file (.*)$", result.stdout, re.M)
        files = sorted(os.path.relpath(file, tree) for file in checked)
        return result.returncode, files, result.stderr

    def write_compile_commands(self, tree):
        (tree / "build/release/compile_commands.json").write_text(json.dumps(
            [{"directory": str(tree), "command": "g++", "file": str(tree / name)}
             for name in ("app/main.cpp", "tests/app/app_test.cpp")], indent=0))

    def test_tidy_checks_the_game_or_everything_or_the_named_files(self):
        tree = self.prepare_tidy()
        self.write_compile_commands(tree)
        game, test = "app/main.cpp", "tests/app/app_test.cpp"
        for words, files in (([], [game]), (["--all"], [game, test]), ([test], [test]),
                             ([str(tree / test)], [test])):
            with self.subTest(words):
                self.assertEqual(self.tidy(tree, *words), (0, files, ""))

    def test_tidy_fails_when_clang_tidy_fails_for_one_file(self):
        tree = self.prepare_tidy()
        self.write_compile_commands(tree)
        (tree / "app/main.cpp").write_text("wrong\n")
        self.assertEqual(self.tidy(tree, "--all")[:2],
                         (1, ["app/main.cpp", "tests/app/app_test.cpp"]))
        self.assertEqual(self.tidy(tree, "tests/app/app_test.cpp")[0], 0)

    def test_tidy_fails_when_there_is_nothing_to_check(self):
        tree = self.prepare_tidy()
        self.assertEqual(self.tidy(tree), (1, [], "tidy: build/release is missing: "
                                                  "cmake --preset release\n"))
        (tree / "build/release/compile_commands.json").write_text("[]")
        for words, missing in (([], "the game"), (["--all"], "anything")):
            self.assertEqual(self.tidy(tree, *words),
                             (1, [], f"tidy: build/release does not compile {missing}\n"))
        self.write_compile_commands(tree)
        self.assertEqual(self.tidy(tree, "app/main.cpp", "app/none.cpp"),
                         (1, [], "tidy: build/release does not compile app/none.cpp\n"))

    # Packages

    def test_packages_are_listed_by_section(self):
        (self.root / "packages.txt").write_text(
            "# a list\n[play]\nbash  runs\n\n[check]\nsed  edits\n# comment\ngrep  finds\n")
        self.assertEqual(self.run_script("packages play").stdout, "bash\n")
        self.assertEqual(self.run_script("packages play check").stdout, "bash\nsed\ngrep\n")

    def test_only_packages_that_are_not_installed_are_missing(self):
        (self.root / "packages.txt").write_text(
            "[play]\nbash  runs\nno-such-package-one  a\n[check]\nno-such-package-two  b\n")
        self.assertEqual(self.run_script("missing_packages play").stdout, "no-such-package-one\n")

    def test_nothing_is_printed_or_installed_if_no_package_is_missing(self):
        (self.root / "packages.txt").write_text("[play]\nbash  runs\n")
        self.write_command("apt-get", "echo called")
        self.write_command("sudo", "echo called")
        result = self.run_script("install_missing play")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_missing_packages_are_named_and_installed_without_questions(self):
        (self.root / "packages.txt").write_text("[play]\nbash  runs\nno-such-package  is missing\n")
        self.write_command("apt-get", 'echo "$DEBIAN_FRONTEND: $*"')
        self.write_command("sudo", '"$@"')
        lines = self.run_script("install_missing play").stdout.splitlines()
        self.assertEqual(lines[0], "Installing: no-such-package")
        self.assertRegex(lines[1], "^noninteractive: .* update$")
        self.assertRegex(lines[2], "^noninteractive: .* install -y --no-install-recommends "
                         "no-such-package$")

    def test_failed_installation_ends_the_command(self):
        (self.root / "packages.txt").write_text("[play]\nno-such-package  is missing\n")
        self.write_command("apt-get", "exit 100")
        self.write_command("sudo", '"$@"')
        self.assertEqual(self.run_script("install_missing play; echo went on").stdout,
                         "Installing: no-such-package\n")

    # Data

    def test_in_complete_data_no_file_is_unreadable(self):
        self.write_data()
        self.assertEqual(self.run_script("unreadable_data data").stdout, "")

    def test_each_missing_file_that_the_game_reads_is_named(self):
        data = self.write_data()
        for path in sorted(data.iterdir()):
            content = path.read_bytes()
            path.unlink()
            with self.subTest(missing=path.name):
                self.assertEqual(self.run_script("unreadable_data data").stdout,
                                 f"data/{path.name}\n")
            path.write_bytes(content)

    def test_several_missing_files_are_named_in_one_line(self):
        data = self.write_data()
        (data / "paper.theme").unlink()
        (data / "default.theme").unlink()
        self.assertEqual(self.run_script("unreadable_data data").stdout,
                         "data/default.theme data/paper.theme\n")

    def test_folder_with_the_name_of_a_file_is_unreadable(self):
        data = self.write_data()
        (data / "gui.tga").unlink()
        (data / "gui.tga").mkdir()
        self.assertEqual(self.run_script("unreadable_data data").stdout, "data/gui.tga\n")

    def test_theme_with_special_characters_in_its_name_is_read(self):
        data = self.write_data()
        layout = data / "my.gui.debug"
        text = layout.read_text()
        (data / "paper.tga").unlink()
        for name in ("x=y.theme", "-f.theme", "*.theme"):
            with self.subTest(name):
                layout.write_text(text.replace("paper.theme", name))
                shutil.copy(data / "paper.theme", data / name)
                self.assertEqual(self.run_script("unreadable_data data").stdout, "data/paper.tga\n")

    def test_pipe_in_place_of_a_file_is_unreadable_and_not_waited_for(self):
        data = self.write_data()
        for name in ("my.gui.debug", "paper.theme", "toolkit.conf"):
            with self.subTest(name):
                content = (data / name).read_bytes()
                (data / name).unlink()
                os.mkfifo(data / name)
                self.assertEqual(self.run_script("unreadable_data data").stdout, f"data/{name}\n")
                (data / name).unlink()
                (data / name).write_bytes(content)

    def test_files_with_the_line_ends_of_windows_are_read(self):
        data = self.write_data()
        for path in data.iterdir():
            path.write_bytes(path.read_bytes().replace(b"\n", b"\r\n"))
        self.assertEqual(self.run_script("unreadable_data data").stdout, "")
        (data / "paper.tga").unlink()
        self.assertEqual(self.run_script("unreadable_data data").stdout, "data/paper.tga\n")

    def test_missing_data_directory_is_named(self):
        self.assertEqual(self.run_script("unreadable_data data").stdout, "data\n")

    def test_data_of_the_game_is_complete(self):
        (self.root / "data").symlink_to(ROOT / "data")
        self.assertEqual(self.run_script("unreadable_data data").stdout, "")

    # The virtual display

    def test_virtual_display_ends_with_its_script(self):
        result = self.run_script("start_display 640x480; xdotool getdisplaygeometry; "
                                 "echo $display_pid")
        geometry, server = result.stdout.splitlines()
        self.assertEqual(geometry, "640 480")
        self.assertFalse(Path(f"/proc/{server}").exists())

    def test_virtual_display_ends_with_a_script_that_fails(self):
        result = self.run_script("start_display 640x480; echo $display_pid; false")
        self.assertEqual(result.returncode, 1)
        self.assertFalse(Path(f"/proc/{result.stdout.strip()}").exists())

    def test_two_virtual_displays_have_different_numbers(self):
        result = self.run_script("start_display 640x480; echo $DISPLAY; first=$display_pid;"
                                 "start_display 640x480; echo $DISPLAY; kill $first")
        first, second = result.stdout.splitlines()
        self.assertNotEqual(first, second)

    def test_virtual_display_has_the_size_and_the_log_that_ondisplay_is_told(self):
        result = self.command("scripts/ondisplay", "--size", "640x480", "--log", "logs/display",
                              "xdotool", "getdisplaygeometry")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "640 480\n", ""))
        self.assertTrue((self.root / "logs/display").exists())

    def test_ondisplay_ends_with_the_status_of_its_command(self):
        self.assertEqual(self.command("scripts/ondisplay", "sh", "-c", "exit 3").returncode, 3)

    def test_wrong_arguments_of_ondisplay_are_an_error_in_one_line(self):
        for words in ([], ["--size"], ["--size", "large", "true"], ["--loud", "true"]):
            with self.subTest(words):
                result = self.command("scripts/ondisplay", *words)
                self.assertEqual((result.returncode, result.stdout), (1, ""))
                self.assertRegex(result.stderr, r"\Aondisplay: .*; usage: .*\n\Z")

    def test_virtual_display_ends_when_the_python_process_that_started_it_is_killed(self):
        python = subprocess.Popen(
            ["/usr/bin/python3", "-c", "import time, virtualdisplay\n"
             "display = virtualdisplay.VirtualDisplay()\n"
             "print(display.name, flush=True)\n"
             "time.sleep(60)"], cwd=self.root / "scripts", stdout=subprocess.PIPE, text=True)
        number = python.stdout.readline().strip().removeprefix(":")
        socket = Path(f"/tmp/.X11-unix/X{number}")
        self.assertTrue(socket.exists())
        python.kill()
        python.wait()
        python.stdout.close()
        deadline = time.monotonic() + 30
        while socket.exists():
            self.assertLess(time.monotonic(), deadline)
            time.sleep(0.02)

    # Tools

    CMAKE = 'echo "cmake $*" >>calls'

    def configure(self, *lines):
        """What scripts/tools and ./play tell CMake if its cache has these lines."""
        cache = self.root / "build/release/CMakeCache.txt"
        cache.parent.mkdir(parents=True, exist_ok=True)
        cache.write_text("".join(f"{line}\n" for line in lines))
        (self.root / "packages.txt").write_text("[play]\nbash  runs\n[tools]\nsed  edits\n")
        self.write_command("cmake", self.CMAKE)
        calls = {}
        for command in ("scripts/tools", "./play"):
            (self.root / "calls").unlink(missing_ok=True)
            self.command(command)
            calls[command] = (self.root / "calls").read_text().splitlines()
        return calls

    def test_tools_are_configured_and_built_without_the_tests(self):
        calls = self.configure("BUILD_TESTING:BOOL=OFF", "MEROVINSKA_TOOLS:BOOL=OFF")
        self.assertEqual(calls["scripts/tools"], [
            "cmake --preset release --log-level=WARNING -DBUILD_TESTING=OFF -DMEROVINSKA_TOOLS=ON",
            "cmake --build --preset release --target guiview countrysim guiart"])
        self.assertEqual(calls["./play"][:2], [
            "cmake --preset release --log-level=WARNING -DBUILD_TESTING=OFF -DMEROVINSKA_TOOLS=OFF",
            "cmake --build --preset release --target merovinska"])

    def test_play_keeps_the_tools_that_are_configured(self):
        calls = self.configure("BUILD_TESTING:BOOL=OFF", "MEROVINSKA_TOOLS:BOOL=ON")
        self.assertTrue(calls["./play"][0].endswith("-DBUILD_TESTING=OFF -DMEROVINSKA_TOOLS=ON"))

    def test_tools_and_play_keep_the_tests_that_are_configured(self):
        for call in self.configure("BUILD_TESTING:BOOL=ON", "MEROVINSKA_TOOLS:BOOL=ON").values():
            self.assertTrue(call[0].endswith("-DBUILD_TESTING=ON -DMEROVINSKA_TOOLS=ON"))

    def test_tools_install_the_packages_of_the_game_and_their_own(self):
        (self.root / "packages.txt").write_text(
            "[play]\nno-such-package-one  a\n[tools]\nno-such-package-two  b\n"
            "[check]\nno-such-package-three  c\n")
        self.write_command("apt-get", "exit 100")
        self.write_command("sudo", '"$@"')
        self.write_command("cmake", self.CMAKE)
        result = self.command("scripts/tools")
        self.assertEqual((result.returncode, result.stdout), (
            100, "Installing: no-such-package-one no-such-package-two\n"))
        self.assertFalse((self.root / "calls").exists())

    def test_tools_take_no_arguments(self):
        result = self.command("scripts/tools", "--fast")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (1, "", "usage: scripts/tools\n"))

    # ./play as a whole, with a game that is already built

    def prepare_play(self, game):
        """Makes `game` the built game: the path of a program, or the text of a shell script."""
        self.write_command("cmake", "exit 0")
        binary = self.root / "build/release/merovinska"
        binary.parent.mkdir(parents=True)
        if isinstance(game, Path):
            binary.symlink_to(game)
            (self.root / "data").symlink_to(ROOT / "data")
        else:
            self.write_command("merovinska", game, binary.parent)
            self.write_data()

    def test_play_saves_a_picture_of_the_game_if_there_is_no_display(self):
        self.prepare_play(BUILD / "merovinska")
        self.environment.pop("DISPLAY", None)
        result = self.command("./play")
        self.assertEqual(result.returncode, 0, result.stderr)
        picture = self.root / "build/screenshot.png"
        self.assertEqual(result.stdout.splitlines(), [
            "There is no display: the game runs for 10 seconds and leaves a picture in "
            "build/screenshot.png.", f"The picture is in {picture}"])
        size_and_colours = run("identify", "-format", "%w %h %k", str(picture)).stdout.split()
        self.assertEqual(size_and_colours[:2], ["800", "600"])
        self.assertGreater(int(size_and_colours[2]), 16)

    def test_play_takes_the_picture_on_a_virtual_display(self):
        self.prepare_play("echo $DISPLAY; exec sleep 60")
        (self.root / "elsewhere").mkdir()
        result = run("../play", "--screenshot", "new/x.png", "--seconds", "1",
                     cwd=self.root / "elsewhere", env={**self.environment, "DISPLAY": ":12345"})
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertTrue((self.root / "elsewhere/new/x.png").exists())
        self.assertNotEqual((self.root / "build/play.log").read_text(), ":12345\n")

    def test_play_starts_the_game_in_its_data_directory(self):
        self.prepare_play("pwd; echo to the other stream >&2")
        self.environment["DISPLAY"] = ":12345"
        result = self.command("./play")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (0, f"{self.root}/data\n", "to the other stream\n"))

    def test_play_finds_its_tree_when_started_by_a_link_or_with_cdpath_set(self):
        self.prepare_play("pwd")
        (self.root / "a link").symlink_to("play")
        self.environment.update(DISPLAY=":12345", CDPATH=f"{self.root.parent}:{self.root}")
        for word, folder in (("./play", self.root), ("./a link", self.root),
                             (f"{self.root.name}/play", self.root.parent)):
            with self.subTest(word):
                result = run(word, cwd=folder, env=self.environment)
                self.assertEqual((result.returncode, result.stdout, result.stderr),
                                 (0, f"{self.root}/data\n", ""))

    def test_play_with_a_set_links_its_files_in_place_of_those_of_the_data(self):
        self.prepare_play("pwd; cat paper.theme; cmp gui.tga ../../../data/gui.tga; "
                          "find . -type f; ls")
        self.environment["DISPLAY"] = ":12345"
        quiet = self.root / "data/sets/quiet"
        quiet.mkdir(parents=True)
        (quiet / "paper.theme").write_text(THEME.format(texture="quiet.tga"))
        (quiet / "quiet.tga").touch()
        stale = self.root / "build/sets/quiet/stale.theme"
        stale.parent.mkdir(parents=True)
        stale.touch()
        result = self.command("./play", "--set", "quiet")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        lines = result.stdout.splitlines()
        self.assertEqual(lines[0], f"{self.root}/build/sets/quiet")
        self.assertIn("quiet.tga a comment", lines)
        self.assertFalse([line for line in lines if line.startswith("./")], "copies, not links")
        self.assertIn("serif.ttf", lines)
        self.assertNotIn("stale.theme", lines)

    def test_second_play_with_the_same_set_does_not_disturb_the_first(self):
        self.prepare_play("echo started; read line <../../../go; cat paper.theme")
        (self.root / "data/sets/quiet").mkdir(parents=True)
        self.environment["DISPLAY"] = ":12345"
        os.mkfifo(self.root / "go")
        first = subprocess.Popen(["./play", "--set", "quiet"], cwd=self.root, text=True,
                                 env=self.environment, stdout=subprocess.PIPE)
        self.assertEqual(first.stdout.readline(), "started\n")
        self.write_command("merovinska", "echo second", self.root / "build/release")
        self.assertEqual(self.command("./play", "--set", "quiet").stdout, "second\n")
        (self.root / "go").write_text("on\n")
        said = first.stdout.read()
        first.stdout.close()
        self.assertEqual(first.wait(timeout=60), 0)
        self.assertEqual(said, (self.root / "data/paper.theme").read_text())

    def test_play_names_a_file_that_a_set_needs_and_does_not_have(self):
        self.prepare_play("echo started")
        self.environment["DISPLAY"] = ":12345"
        (self.root / "data/sets/quiet").mkdir(parents=True)
        (self.root / "data/sets/quiet/paper.theme").write_text(THEME.format(texture="no.tga"))
        result = self.command("./play", "--set", "quiet")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (1, "", "play: cannot read build/sets/quiet/no.tga\n"))

    def test_every_set_of_the_game_is_complete(self):
        self.prepare_play(BUILD / "merovinska")
        for folder in sorted((ROOT / "data/sets").iterdir()):
            with self.subTest(set=folder.name):
                result = self.run_script(f'lay_over "$PWD/data" laid; '
                                     f'lay_over "$PWD/data/sets/{folder.name}" laid; '
                                     "unreadable_data laid; rm -r laid")
                self.assertEqual((result.stdout, result.stderr), ("", ""))

    def test_play_scales_the_window_with_sdl12_compat(self):
        self.prepare_play(BUILD / "merovinska")
        picture = self.root / "large.png"
        result = self.command("./play", "--scale", "1.5", "--screenshot", str(picture),
                              "--seconds", "3")
        self.assertEqual(result.returncode, 0, result.stderr)
        size = run("identify", "-format", "%w %h", str(picture)).stdout
        self.assertEqual(size, "1200 900")
        # The part of the screen that a window of the usual size would not cover is not empty.
        corner = run("convert", str(picture), "-crop", "380x280+810+610", "-format", "%k", "info:")
        self.assertGreater(int(corner.stdout), 16)

    def test_whole_scale_draws_each_pixel_as_a_square(self):
        self.prepare_play(BUILD / "merovinska")
        file = self.root / "sharp.png"
        for method, sharp in (("", True), ("linear", False)):
            with self.subTest(method):
                if method:
                    self.environment["SDL12COMPAT_SCALE_METHOD"] = method
                result = self.command("./play", "--scale", "2", "--screenshot", str(file),
                                      "--seconds", "3")
                self.assertEqual(result.returncode, 0, result.stderr)
                with Image.open(file) as picture:
                    drawn = picture.convert("RGB")
                self.assertEqual(drawn.size, (1600, 1200))
                self.assertGreater(len(set(drawn.getdata())), 100)
                squares = drawn.resize((800, 600), Image.Resampling.NEAREST)
                self.assertEqual(squares.resize(drawn.size, Image.Resampling.NEAREST).tobytes()
                                 == drawn.tobytes(), sharp)

    def test_play_passes_the_scale_to_sdl12_compat_if_the_game_uses_it_already(self):
        self.prepare_play('echo "$SDL12COMPAT_WINDOW_SCALING ${LD_LIBRARY_PATH:-none} '
                          '${SDL12COMPAT_SCALE_METHOD:-usual}"')
        self.environment["DISPLAY"] = ":12345"
        self.environment.pop("LD_LIBRARY_PATH", None)
        library = self.root / "libSDL-1.2.so.0"
        library.write_text("SDL12COMPAT_WINDOW_SCALING")
        self.write_command("ldd", f"echo '\tlibSDL-1.2.so.0 => {library} (0x0)'")
        self.environment.pop("SDL12COMPAT_SCALE_METHOD", None)
        self.assertEqual(self.command("./play", "--scale", "2").stdout, "2 none nearest\n")
        self.assertEqual(self.command("./play", "--scale", "1.5").stdout, "1.5 none usual\n")

    def test_play_names_the_package_sdl12_compat_if_it_is_missing(self):
        self.prepare_play("echo started")
        self.environment["DISPLAY"] = ":12345"
        library = self.root / "libSDL-1.2.so.0"
        library.touch()
        self.write_command("ldd", f"echo '\tlibSDL-1.2.so.0 => {library} (0x0)'")
        result = self.command("./play", "--scale", "2")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (1, "", "play: --scale needs the package libsdl1.2-compat, "
                                 "which is not installed\n"))

    def test_play_names_an_unreadable_file_and_does_not_start_the_game(self):
        self.prepare_play("echo started")
        self.environment["DISPLAY"] = ":12345"
        (self.root / "data/gui.tga").unlink()
        result = self.command("./play")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (1, "", "play: cannot read data/gui.tga\n"))

    def test_play_fails_if_the_game_cannot_start(self):
        self.prepare_play("echo 'Error sending openwindow event' >&2; exit 0")
        self.environment["DISPLAY"] = ":12345"
        result = self.command("./play")
        self.assertEqual(result.returncode, 1)
        self.assertIn("play: the game could not continue, see ", result.stderr)

    def test_play_ends_with_the_status_of_the_game(self):
        self.prepare_play("exit 3")
        self.environment["DISPLAY"] = ":12345"
        self.assertEqual(self.command("./play").returncode, 3)

    def test_signal_to_play_ends_the_game(self):
        self.prepare_play("echo $$; exec sleep 60")
        self.environment["DISPLAY"] = ":12345"
        for name in ("SIGTERM", "SIGHUP"):
            with self.subTest(name):
                # A shell cannot catch a signal that was already ignored when it started.
                play = subprocess.Popen(["env", "--default-signal", "./play"], cwd=self.root,
                                        env=self.environment, text=True, stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL)
                game = int(play.stdout.readline())
                play.send_signal(getattr(signal, name))
                self.assertEqual(play.wait(timeout=30), 128 + getattr(signal, name))
                # The stream ends only when the game has ended.
                self.assertEqual(play.stdout.read(), "")
                play.stdout.close()
                self.assertRaises(ProcessLookupError, os.kill, game, 0)
                self.assertEqual(list((self.root / "build").glob("play.*/")), [])

    def test_play_can_be_stopped_and_continued_from_the_terminal(self):
        self.prepare_play("echo game $$; exec sleep 60")
        self.environment["DISPLAY"] = ":12345"
        shell, terminal = pty.fork()
        if shell == 0:
            os.chdir(self.root)
            os.execvpe("env", ["env", "--default-signal", "bash", "--norc", "-i"], self.environment)
        self.addCleanup(os.waitpid, shell, 0)
        self.addCleanup(os.close, terminal)
        self.addCleanup(os.kill, shell, signal.SIGKILL)
        said = ""

        def type_and_wait(keys, pattern):
            nonlocal said
            said = ""
            os.write(terminal, keys)
            deadline = time.monotonic() + 30
            while not re.search(pattern, said):
                self.assertLess(time.monotonic(), deadline, said)
                if select.select([terminal], [], [], 0.1)[0]:
                    said += os.read(terminal, 4096).decode()

        def wait_for_state(states):
            deadline = time.monotonic() + 30
            while Path(f"/proc/{game}/stat").read_text().split()[2] not in states:
                self.assertLess(time.monotonic(), deadline)
                time.sleep(0.01)

        type_and_wait(b"./play\n", r"game \d+\r\n")
        game = re.search(r"game (\d+)", said)[1]
        type_and_wait(b"\x1a", "Stopped")  # Ctrl+Z
        wait_for_state("T")
        type_and_wait(b"fg\n", r"\./play\r\n")
        wait_for_state("SR")
        type_and_wait(b"\x03", r"[$#] $")  # Ctrl+C, and the prompt of the shell
        self.assertFalse(Path(f"/proc/{game}").exists())

    def test_play_fails_if_the_game_ends_before_its_picture_is_taken(self):
        self.prepare_play("echo 'Assert failed on here'; exit 0")
        result = self.command("./play", "--screenshot", "x.png", "--seconds", "30")
        self.assertEqual(result.returncode, 1)
        self.assertIn("Assert failed on here\nplay: the game ended before the picture was taken",
                      result.stderr)
