# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The installed launcher. A shell script takes the place of the game."""

import configparser
import os
import pty
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["MEROVINSKA_BUILD"])

# The launcher recognises sdl12-compat by this name of a setting in the library.
SDL12, SDL12_COMPAT = "SDL 1.2", "SDL12COMPAT_SYNC_TO_VBLANK"


class Launcher(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.installed = Path(folder.name) / "usr"
        subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.installed], check=True,
                       stdout=subprocess.DEVNULL)

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()
        self.prefix = self.folder / "usr"
        shutil.copytree(self.installed, self.prefix, symlinks=True)
        self.launcher = self.prefix / "games/merovinska"
        self.programs = self.prefix / "libexec/merovinska"
        self.tools = self.prefix / "bin"
        self.data = self.prefix / "share/games/merovinska"
        self.home = self.folder / "home"
        self.player_data = self.home / ".local/share/merovinska"
        self.choices = self.home / ".config/merovinska/choices"
        self.runtime = self.folder / "runtime"
        for path in (self.home, self.runtime, self.folder / "commands"):
            path.mkdir()
        self.environment = {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.runtime),
                            "PATH": f"{self.folder / 'commands'}:/usr/bin:/bin",
                            "DISPLAY": ":12345"}
        # No real message window may open, even if one of these commands is installed.
        for name in ("zenity", "kdialog", "xmessage"):
            self.write_command(name, f'echo "{name}: $*" >>"{self.folder}/windows"')
        self.write_command("xdg-open", "exit 3")
        self.game_is('echo "in $PWD"')
        self.sdl_is(SDL12)

    def write_command(self, name, text, folder=None):
        path = (folder or self.folder / "commands") / name
        path.write_text(f"#!/bin/sh\n{text}\n")
        path.chmod(0o755)

    def game_is(self, text):
        """Makes a shell script of this text the game."""
        self.write_command("merovinska", text, self.programs)

    def sdl_is(self, kind):
        """Makes ldd report that the game would load this library. Returns its folder."""
        library = self.folder / "lib/libSDL-1.2.so.0"
        library.parent.mkdir(exist_ok=True)
        library.write_text(kind)
        self.write_command("ldd", f'echo "\tlibSDL-1.2.so.0 => {library} (0x0)"')
        return library.parent

    def run_launcher(self, *words, **options):
        options = {"cwd": self.folder, "env": self.environment, **options}
        return subprocess.run([self.launcher, *words], stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=60, **options)

    def windows(self):
        path = self.folder / "windows"
        return path.read_text() if path.exists() else ""

    def assertStartsIn(self, folder, *words):
        result = self.run_launcher(*words)
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (0, f"in {folder}\n", ""))

    def assertFailure(self, message, *words):
        result = self.run_launcher(*words)
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (1, "", f"merovinska: {message}\n"))

    # Data

    def test_system_data_is_used_if_the_player_has_none(self):
        self.assertStartsIn(self.data)

    def test_player_data_is_used_if_it_contains_a_layout(self):
        shutil.copytree(self.data, self.player_data)
        self.assertStartsIn(self.player_data)

    def test_player_data_is_found_in_xdg_data_home(self):
        self.environment["XDG_DATA_HOME"] = str(self.folder / "share")
        shutil.copytree(self.data, self.folder / "share/merovinska")
        self.assertStartsIn(self.folder / "share/merovinska")

    def test_relative_path_in_xdg_data_home_is_ignored(self):
        shutil.copytree(self.data, self.folder / "share/merovinska")
        shutil.copytree(self.data, self.player_data)
        self.environment["XDG_DATA_HOME"] = "share"
        self.assertStartsIn(self.player_data)

    def test_player_data_without_a_layout_is_not_used(self):
        shutil.copytree(self.data, self.player_data)
        (self.player_data / "my.gui.debug").unlink()
        self.assertStartsIn(self.data)

    def test_option_data_names_the_folder(self):
        shutil.copytree(self.data, self.folder / "my data")
        self.assertStartsIn(self.folder / "my data", "--data", "my data")

    def test_missing_folder_is_an_error(self):
        self.assertFailure("there is no folder nowhere.", "--data", "nowhere")

    def test_launcher_can_be_started_by_a_link(self):
        link = self.folder / "link"
        link.symlink_to(self.launcher)
        self.launcher = link
        self.assertStartsIn(self.data)

    # Sets

    def write_set(self, data, name, files):
        folder = data / "sets" / name
        folder.mkdir(parents=True, exist_ok=True)
        for file, text in files.items():
            (folder / file).write_text(text)

    def test_files_of_a_set_replace_those_of_the_data(self):
        self.write_set(self.data, "quiet", {"desk.theme": "of the set\n", "more": "only in the set\n"})
        self.game_is("cat desk.theme more; cmp button.theme "
                     f"'{self.data}/button.theme' && cmp font.ttf '{self.data}/font.ttf'; "
                     "find . -type f")
        result = self.run_launcher("--set", "quiet")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (0, "of the set\nonly in the set\n", ""))
        self.assertNotEqual((self.data / "desk.theme").read_text(), "of the set\n")

    def test_set_of_the_player_can_be_used_with_the_system_data(self):
        self.write_set(self.player_data, "mine", {"desk.theme": "mine\n"})
        self.game_is("cat desk.theme")
        self.assertEqual(self.run_launcher("--set", "mine").stdout, "mine\n")

    def test_set_in_the_named_folder_comes_before_that_of_the_system(self):
        shutil.copytree(self.data, self.folder / "other")
        self.write_set(self.folder / "other", "quiet", {"desk.theme": "other\n"})
        self.write_set(self.data, "quiet", {"desk.theme": "system\n"})
        self.game_is("cat desk.theme")
        self.assertEqual(self.run_launcher("--data", "other", "--set", "quiet").stdout, "other\n")

    def test_missing_set_is_an_error_that_lists_the_sets(self):
        shutil.rmtree(self.data / "sets", ignore_errors=True)
        self.assertFailure("there is no set loud; the sets are: none.", "--set", "loud")
        self.write_set(self.data, "quiet", {})
        self.write_set(self.player_data, "mine", {})
        self.assertFailure("there is no set loud; the sets are: mine quiet.", "--set", "loud")

    def test_path_is_not_the_name_of_a_set(self):
        shutil.rmtree(self.data / "sets", ignore_errors=True)
        (self.data / "sets").mkdir()
        for name in ("..", ".", "../sets", "/tmp"):
            with self.subTest(name):
                self.assertFailure(f"there is no set {name}; the sets are: none.", "--set", name)

    def test_folder_of_links_is_removed_when_the_game_ends(self):
        self.write_set(self.data, "quiet", {"desk.theme": "quiet\n"})
        self.game_is('echo "$PWD"')
        result = self.run_launcher("--set", "quiet")
        self.assertTrue(result.stdout.startswith(f"{self.runtime}/merovinska."), result.stdout)
        self.assertEqual(list(self.runtime.iterdir()), [])

    def test_links_are_in_the_cache_folder_if_there_is_no_runtime_folder(self):
        self.write_set(self.data, "quiet", {"desk.theme": "quiet\n"})
        self.game_is('echo "$PWD"')
        del self.environment["XDG_RUNTIME_DIR"]
        result = self.run_launcher("--set", "quiet")
        self.assertTrue(result.stdout.startswith(f"{self.home}/.cache/merovinska."), result.stdout)
        self.assertEqual(list((self.home / ".cache").iterdir()), [])

    def test_links_are_in_the_temporary_folder_if_the_player_has_no_writable_folder(self):
        self.game_is('echo "$PWD"')
        temporary = self.folder / "temporary"
        temporary.mkdir()
        # Not even root can write in /proc. The relative path is ignored.
        self.environment.update(HOME="/proc/home", XDG_RUNTIME_DIR="runtime",
                                TMPDIR=str(temporary))
        result = self.run_launcher("--set", "large")
        self.assertTrue(result.stdout.startswith(f"{temporary}/merovinska."), result.stderr)
        self.assertEqual(list(temporary.iterdir()), [])
        self.environment["TMPDIR"] = "/proc/temporary"
        self.assertFailure("there is no folder to write to: set XDG_RUNTIME_DIR or "
                           "XDG_CACHE_HOME.")

    def test_two_games_with_different_sets_can_run_at_the_same_time(self):
        self.game_is('cp desk.theme copy; echo "$PWD"; sleep 0.5; cat copy')
        for name in ("loud", "quiet"):
            self.write_set(self.data, name, {"desk.theme": f"{name}\n"})
        games = [subprocess.Popen([self.launcher, "--set", name], env=self.environment, text=True,
                                  stdout=subprocess.PIPE) for name in ("loud", "quiet")]
        said = [game.communicate(timeout=60)[0].splitlines() for game in games]
        self.assertEqual([lines[1] for lines in said], ["loud", "quiet"])
        self.assertNotEqual(said[0][0], said[1][0])
        self.assertEqual(list(self.runtime.iterdir()), [])

    # The picture

    def test_pictures_are_synchronised_with_the_screen(self):
        self.game_is('echo "$SDL12COMPAT_SYNC_TO_VBLANK"')
        self.assertEqual(self.run_launcher().stdout, "1\n")

    def test_setting_of_the_player_for_synchronisation_is_kept(self):
        self.game_is('echo "<$SDL12COMPAT_SYNC_TO_VBLANK>"')
        for chosen in ("0", ""):
            self.environment["SDL12COMPAT_SYNC_TO_VBLANK"] = chosen
            self.assertEqual(self.run_launcher().stdout, f"<{chosen}>\n")

    def test_window_class_is_that_of_the_menu_entry(self):
        self.game_is('echo "$SDL_VIDEO_X11_WMCLASS"')
        entry = (self.prefix / "share/applications/merovinska.desktop").read_text()
        self.assertIn(f"\nStartupWMClass={self.run_launcher().stdout}", entry)

    def test_scale_is_passed_to_sdl12_compat(self):
        self.sdl_is(SDL12_COMPAT)
        self.game_is('echo "$SDL12COMPAT_WINDOW_SCALING $LD_LIBRARY_PATH"')
        self.assertEqual(self.run_launcher("--scale", "1.5").stdout, "1.5 \n")

    def test_whole_scale_is_drawn_with_sharp_edges(self):
        self.sdl_is(SDL12_COMPAT)
        self.game_is('echo "<$SDL12COMPAT_SCALE_METHOD>"')
        for scale, method in (("2", "nearest"), ("3", "nearest"), ("2.0", "nearest"),
                              ("1.5", ""), ("2.5", ""), ("1", "")):
            with self.subTest(scale):
                self.assertEqual(self.run_launcher("--scale", scale).stdout, f"<{method}>\n")

    def test_scaling_method_of_the_player_is_kept(self):
        self.sdl_is(SDL12_COMPAT)
        self.game_is('echo "<$SDL12COMPAT_SCALE_METHOD>"')
        self.environment["SDL12COMPAT_SCALE_METHOD"] = "linear"
        self.assertEqual(self.run_launcher("--scale", "2").stdout, "<linear>\n")

    def test_scale_of_1_needs_no_sdl12_compat(self):
        self.game_is('echo "<$SDL12COMPAT_WINDOW_SCALING>"')
        for scale in ("1", "1.0"):
            result = self.run_launcher("--scale", scale)
            self.assertEqual((result.stdout, result.stderr), ("<>\n", ""))

    def test_scale_uses_sdl12_compat_instead_of_sdl12(self):
        compat = self.sdl_is(SDL12) / "sdl12-compat"
        compat.mkdir()
        (compat / "libSDL-1.2.so.0").write_text(SDL12_COMPAT)
        self.game_is('echo "$SDL12COMPAT_WINDOW_SCALING $LD_LIBRARY_PATH"')
        self.assertEqual(self.run_launcher("--scale", "2").stdout, f"2 {compat}\n")
        self.environment["LD_LIBRARY_PATH"] = "/mine"
        self.assertEqual(self.run_launcher("--scale", "2").stdout, f"2 {compat}:/mine\n")

    def test_scale_without_sdl12_compat_is_an_error_that_names_its_package(self):
        self.assertFailure("--scale needs the package libsdl1.2-compat, which is not installed.",
                           "--scale", "2")

    def test_without_the_option_nothing_is_scaled(self):
        self.sdl_is(SDL12_COMPAT)
        self.game_is('echo "<$SDL12COMPAT_WINDOW_SCALING>"')
        self.assertEqual(self.run_launcher().stdout, "<>\n")

    def test_scale_that_is_not_a_number_from_1_to_10_is_an_error(self):
        for scale in ("0", "0.5", "10", "-1", "2x", "two", "1.", ".5"):
            with self.subTest(scale):
                self.assertFailure("--scale takes a number from 1 to below 10, such as 1.5, and "
                                   f'not "{scale}".', "--scale", scale)

    # Choices that are kept

    def say_choices(self):
        """Makes the game say which set and scale it was started with."""
        self.sdl_is(SDL12_COMPAT)
        for name in ("loud", "quiet"):
            self.write_set(self.data, name, {"name": name})
        self.game_is('echo "$(cat name 2>/dev/null || echo none) '
                     '${SDL12COMPAT_WINDOW_SCALING:-1}"')

    def assertStartsWith(self, choices, *words, fault=None):
        result = self.run_launcher(*words)
        said = f"merovinska: {self.choices}: {fault}\n" if fault else ""
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (0, f"{choices}\n", said))

    def write_choices(self, text):
        self.choices.parent.mkdir(parents=True, exist_ok=True)
        self.choices.write_bytes(text if isinstance(text, bytes) else text.encode())

    def test_last_set_and_scale_are_used_in_the_next_game(self):
        self.say_choices()
        self.assertStartsWith("quiet 1", "--set", "quiet")
        self.assertStartsWith("quiet 1")
        self.assertStartsWith("loud 1", "--set", "loud")
        self.assertStartsWith("loud 2", "--scale", "2")
        self.assertStartsWith("loud 2")
        self.assertStartsWith("quiet 1.5", "--scale", "1.5", "--set", "quiet")
        self.assertStartsWith("quiet 1.5")
        self.assertEqual(self.choices.read_text(), "set=quiet\nscale=1.5\n")

    def test_choices_can_be_taken_back(self):
        self.say_choices()
        self.assertStartsWith("quiet 2", "--set", "quiet", "--scale", "2")
        self.assertStartsWith("none 2", "--set", "default")
        self.assertStartsWith("none 2")
        self.assertStartsWith("none 1", "--scale", "1")
        self.assertStartsWith("none 1")
        # Nothing is left of the file.
        self.assertEqual([*(self.home / ".config").iterdir()], [])

    def test_other_files_beside_the_choices_are_kept_when_they_are_taken_back(self):
        self.say_choices()
        self.write_choices("set=quiet\n")
        (self.choices.parent / "other").touch()
        self.assertStartsWith("none 1", "--set", "default")
        self.assertEqual([*self.choices.parent.iterdir()], [self.choices.parent / "other"])

    def test_choices_are_in_xdg_config_home(self):
        self.say_choices()
        self.environment["XDG_CONFIG_HOME"] = str(self.folder / "settings")
        self.assertStartsWith("quiet 1", "--set", "quiet")
        self.assertEqual((self.folder / "settings/merovinska/choices").read_text(), "set=quiet\n")
        self.assertEqual((self.folder / "settings").stat().st_mode & 0o777, 0o700)
        self.assertEqual([*self.home.iterdir()], [])
        self.assertStartsWith("quiet 1")

    def test_relative_path_in_xdg_config_home_is_ignored(self):
        self.say_choices()
        self.environment["XDG_CONFIG_HOME"] = "settings"
        self.assertStartsWith("quiet 1", "--set", "quiet")
        self.assertTrue(self.choices.exists())
        self.assertFalse((self.folder / "settings").exists())

    def test_nothing_is_written_if_no_choice_changes(self):
        self.say_choices()
        for words in ([], ["--set", "default"], ["--scale", "1"], ["--scale", "1.0"]):
            self.assertStartsWith("none 1", *words)
            self.assertEqual([*self.home.iterdir()], [])
        text = "# mine\nscale=2\n\nset=quiet\n"
        self.write_choices(text)
        before = self.choices.stat()
        for words in ([], ["--set", "quiet"], ["--scale", "2", "--set", "quiet"]):
            self.assertStartsWith("quiet 2", *words)
            after = self.choices.stat()
            self.assertEqual((after.st_ino, after.st_mtime_ns), (before.st_ino, before.st_mtime_ns))
        self.assertEqual(self.choices.read_text(), text)

    def test_choices_are_not_kept_if_the_game_cannot_be_started_with_them(self):
        self.sdl_is(SDL12)
        self.run_launcher("--set", "large", "--scale", "2")
        self.run_launcher("--set", "loud")
        self.run_launcher("--set", "large", "--check-data")
        del self.environment["DISPLAY"]
        self.run_launcher("--set", "large")
        self.assertEqual([*self.home.iterdir()], [])

    def test_choices_are_neither_used_nor_changed_with_a_named_folder(self):
        self.say_choices()
        self.write_choices("set=quiet\nscale=2\n")
        self.assertStartsWith("none 1", "--data", str(self.data))
        self.assertStartsWith("loud 1.5", "--data", str(self.data), "--set", "loud",
                              "--scale", "1.5")
        self.assertEqual(self.choices.read_text(), "set=quiet\nscale=2\n")

    def test_damaged_line_of_the_choices_is_named_and_the_game_starts(self):
        self.say_choices()
        for line, shown in (("sets=quiet", "sets=quiet"), ("set=", "set="), ("scale=0", "scale=0"),
                            ("scale=large", "scale=large"), ("\x1b[31mred", "?[31mred"),
                            ("scale=2; reboot", "scale=2; reboot"), ("x" * 50, "x" * 40 + "..."),
                            (b"\xff\xfe", "??")):
            with self.subTest(line):
                line = line if isinstance(line, bytes) else line.encode()
                self.write_choices(b"scale=3\n" + line + b"\nset=quiet\nand more\n")
                self.assertStartsWith(
                    "quiet 3", fault=f'line 2, "{shown}", is neither set=NAME nor scale=N.')

    def test_path_in_the_choices_is_not_the_name_of_a_set(self):
        self.say_choices()
        (self.data / "name").write_text("none")
        for name in ("..", ".", "../../sets/quiet", "/tmp", "quiet/../quiet"):
            with self.subTest(name):
                self.write_choices(f"set={name}\n")
                self.assertStartsWith(
                    "none 1", fault=f'line 1, "set={name}", is neither set=NAME nor scale=N.')

    def test_kept_set_that_is_missing_is_named_and_the_game_starts(self):
        self.say_choices()
        self.write_choices("set=gone\nscale=2\n")
        self.assertStartsWith("none 2",
                              fault='there is no set "gone"; the game starts without a set.')
        self.assertStartsWith("quiet 2", "--set", "quiet")

    def test_kept_scale_without_sdl12_compat_is_named_and_the_game_starts(self):
        self.say_choices()
        self.sdl_is(SDL12)
        self.write_choices("set=quiet\nscale=2\n")
        self.assertStartsWith("quiet 1", fault="the scale 2 needs the package libsdl1.2-compat, "
                                               "which is not installed.")
        self.assertStartsWith("quiet 1", "--scale", "1")
        self.assertEqual(self.choices.read_text(), "set=quiet\n")

    def test_unreadable_choices_are_named_and_the_game_starts(self):
        self.say_choices()
        self.choices.parent.mkdir(parents=True)
        fault = "cannot be read; the game starts without it."
        makers = {"folder": self.choices.mkdir, "pipe": lambda: os.mkfifo(self.choices),
                  "link": lambda: self.choices.symlink_to("nowhere")}
        for name, make in makers.items():
            with self.subTest(name):
                make()
                self.assertStartsWith("none 1", fault=fault)
            self.choices.rmdir() if name == "folder" else self.choices.unlink()

    def test_choice_repairs_a_damaged_file(self):
        self.say_choices()
        for word, text in (("quiet", "set=quiet\n"), ("default", None)):
            self.write_choices("nonsense\n")
            self.run_launcher("--set", word)
            self.assertEqual(self.choices.read_text() if self.choices.exists() else None, text)

    def test_long_file_of_choices_does_not_stop_the_game(self):
        self.say_choices()
        self.write_choices(b"set=quiet\n" + b"\0" * 10_000_000 + b"\nscale=2\n")
        self.assertStartsWith("quiet 1")

    def test_choices_that_cannot_be_written_are_named_and_the_game_starts(self):
        self.say_choices()
        fault = "cannot be written; the next game starts without this choice."
        (self.home / ".config").touch()
        self.assertStartsWith("quiet 2", "--set", "quiet", "--scale", "2", fault=fault)
        (self.home / ".config").unlink()
        # The file is replaced as a whole, so a folder of its name is the obstacle.
        self.choices.mkdir(parents=True)
        (self.choices / "inner").touch()
        result = self.run_launcher("--set", "quiet")
        self.assertEqual((result.returncode, result.stdout), (0, "quiet 1\n"))
        self.assertEqual(result.stderr, f"merovinska: {self.choices}: cannot be read; the game "
                                        f"starts without it.\nmerovinska: {self.choices}: {fault}\n")
        self.assertEqual([*self.choices.parent.iterdir()], [self.choices])

    def test_link_to_the_choices_stays_a_link(self):
        self.say_choices()
        kept = self.folder / "kept"
        kept.write_text("set=quiet\n")
        self.choices.parent.mkdir(parents=True)
        self.choices.symlink_to(kept)
        self.assertStartsWith("loud 1", "--set", "loud")
        self.assertTrue(self.choices.is_symlink())
        self.assertEqual(kept.read_text(), "set=loud\n")

    # The menu entry

    def menu_actions(self):
        """The words that the menu entry and its actions start the launcher with, by their names."""
        entry = configparser.ConfigParser(interpolation=None)
        entry.optionxform = str
        entry.read(self.prefix / "share/applications/merovinska.desktop")
        main = entry["Desktop Entry"]
        listed = main["Actions"].strip(";").split(";")
        self.assertEqual({f"Desktop Action {name}" for name in listed} | {"Desktop Entry"},
                         set(entry.sections()))
        sections = [main, *(entry[f"Desktop Action {name}"] for name in listed)]
        actions = {section["Name"]: section["Exec"].split() for section in sections}
        self.assertEqual({words[0] for words in actions.values()}, {"merovinska"})
        return {name: words[1:] for name, words in actions.items()}

    def test_actions_of_the_menu_entry_choose_for_the_next_games_too(self):
        self.say_choices()
        for name in ("large", "high-contrast"):
            self.write_set(self.data, name, {"name": name})
        actions = self.menu_actions()
        for name, choices in (("Large letters", "large 1"), ("Twice as large", "large 2"),
                              ("High contrast", "high-contrast 2"),
                              ("Usual letters and size", "none 1")):
            with self.subTest(name):
                self.assertStartsWith(choices, *actions[name])
                self.assertStartsWith(choices, *actions["Merovinska"])

    def test_manual_page_explains_every_action_of_the_menu_entry(self):
        manual = (ROOT / "packaging/merovinska.6").read_text()
        for name in self.menu_actions():
            self.assertIn(name, manual)

    # Options

    def test_unknown_option_is_an_error(self):
        self.assertFailure("unknown option --loud; usage: merovinska [--data DIR] [--set NAME] "
                           "[--scale N] [--check-data]", "--loud")

    def test_option_without_its_value_is_an_error(self):
        for option in ("--data", "--set", "--scale"):
            for words in ([option], [option, ""]):
                self.assertIn(f"merovinska: {option} needs a value; usage: ",
                              self.run_launcher(*words).stderr)

    def test_version_is_that_of_the_project(self):
        version = re.search(r"project\(merovinska VERSION (\S+)",
                            (ROOT / "CMakeLists.txt").read_text())[1]
        self.assertEqual(self.run_launcher("--version").stdout, f"merovinska {version}\n")

    def test_help_and_manual_page_list_the_same_options(self):
        listed = set(re.findall(r"--[a-z-]+", self.run_launcher("--help").stdout))
        accepted = set(re.findall(r"--(?:data|set|scale|check-data|manual|help|version)(?= \||\))",
                               self.launcher.read_text()))
        manual = (ROOT / "packaging/merovinska.6").read_text().replace("\\-", "-")
        documented = set(re.findall(r"^\.BI? (--[a-z-]+)", manual, re.M))
        self.assertEqual(len(listed), 7)
        self.assertEqual(listed, accepted)
        self.assertEqual(listed, documented)

    def test_help_names_the_folders_of_the_data(self):
        said = self.run_launcher("--help").stdout
        self.assertIn(str(self.player_data), said)
        self.assertIn(str(self.data), said)

    # Checking the data without starting the game

    def test_complete_data_passes_the_check(self):
        self.environment.pop("DISPLAY")
        result = self.run_launcher("--check-data")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (0, f"Every file that the game reads from {self.data} is there.\n", ""))

    def test_missing_file_of_the_system_data_is_named(self):
        (self.data / "gui.tga").unlink()
        self.assertFailure(f"cannot read {self.data}/gui.tga. The package merovinska or one "
                           "that it needs is damaged: install it again.", "--check-data")

    def test_missing_file_of_the_player_data_is_named(self):
        shutil.copytree(self.data, self.player_data)
        (self.player_data / "desk.theme").unlink()
        self.assertFailure(f"cannot read {self.player_data}/desk.theme. The folder "
                           f"{self.player_data} is not complete; without it the game uses the "
                           "system's data.", "--check-data")

    def test_file_of_the_set_is_not_missing(self):
        self.write_set(self.data, "quiet", {})
        (self.data / "desk.theme").rename(self.data / "sets/quiet/desk.theme")
        self.assertEqual(self.run_launcher("--check-data", "--set", "quiet").returncode, 0)
        self.assertEqual(self.run_launcher("--check-data").returncode, 1)

    def test_link_to_a_missing_font_is_named(self):
        (self.data / "font.ttf").unlink()
        (self.data / "font.ttf").symlink_to("nowhere.ttf")
        self.assertIn(f"cannot read {self.data}/font.ttf.", self.run_launcher().stderr)

    def test_layout_without_a_widget_that_the_game_needs_fails_the_check(self):
        layout = self.data / "my.gui.debug"
        layout.write_text(layout.read_text().replace("farmerslab ", "farmerslob "))
        result = self.run_launcher("--check-data")
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("farmerslab", result.stdout + result.stderr)

    def test_only_files_are_checked_without_the_tools(self):
        (self.tools / "guiview").unlink()
        result = self.run_launcher("--check-data")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (0, f"Every file that the game reads from {self.data} is there.\n"
                             "To check its layout as well, install the package "
                             "merovinska-tools.\n", ""))
        (self.data / "gui.tga").unlink()
        self.assertEqual(self.run_launcher("--check-data").returncode, 1)

    # The manual

    def test_manual_is_opened_in_a_browser(self):
        self.write_command("xdg-open", f'echo "$*" >"{self.folder}/opened"')
        result = self.run_launcher(*self.menu_actions()["Manual"])
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
        page = Path((self.folder / "opened").read_text().rstrip("\n"))
        self.assertEqual(page, self.data / "manual/index.html")
        self.assertEqual({str(path.relative_to(page.parent)) for path in page.parent.rglob("*.png")},
                         set(re.findall(r'src="([^"]+)"', page.read_text())))
        self.assertEqual([*self.home.iterdir()], [])

    def test_place_of_the_manual_is_printed_if_there_is_no_browser(self):
        said = ("There is no browser that can be opened. The manual is the file "
                f"{self.data}/manual/index.html\n")
        # What xdg-open says is no help.
        self.write_command("xdg-open", "echo 'xdg-open: no method available' >&2; exit 3")
        result = self.run_launcher("--manual")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, said, ""))
        self.assertEqual(self.windows(), "zenity: --error --title=Merovinska --no-markup "
                                         f"--text={said}")

    def test_place_of_the_manual_is_printed_if_there_is_neither_display_nor_terminal(self):
        self.write_command("xdg-open", f'touch "{self.folder}/opened"')
        del self.environment["DISPLAY"]
        result = self.run_launcher("--manual")
        self.assertEqual(result.returncode, 0)
        self.assertIn(f"{self.data}/manual/index.html\n", result.stdout)
        self.assertEqual(self.windows(), "")
        self.assertFalse((self.folder / "opened").exists())

    def test_manual_is_opened_in_a_terminal_without_a_display(self):
        self.write_command("xdg-open", 'echo "reading $1"')
        del self.environment["DISPLAY"]
        master, slave = pty.openpty()
        with open(master, "rb", buffering=0) as terminal:
            result = subprocess.run([self.launcher, "--manual"], stdin=slave, stdout=slave,
                                    stderr=slave, env=self.environment, timeout=60)
            os.close(slave)
            said = terminal.read(4096).decode()
        self.assertEqual((result.returncode, said),
                         (0, f"reading {self.data}/manual/index.html\r\n"))

    def test_missing_manual_is_an_error(self):
        page = self.data / "manual/index.html"
        page.unlink()
        self.assertFailure(f"{page} cannot be read: the game is not installed completely.",
                           "--manual")

    def test_documentation_folder_has_a_link_to_the_manual(self):
        self.assertEqual((self.prefix / "share/doc/merovinska/manual").resolve(),
                         self.data / "manual")

    # Missing parts

    def test_game_does_not_start_without_its_layout(self):
        (self.data / "my.gui.debug").unlink()
        result = self.run_launcher()
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn(f"cannot read {self.data}/my.gui.debug.", result.stderr)

    def test_missing_display_is_an_error(self):
        del self.environment["DISPLAY"]
        self.assertFailure("there is no display (DISPLAY is not set): start the game from a "
                           "desktop.")

    def test_desktop_without_x11_needs_sdl12_compat(self):
        del self.environment["DISPLAY"]
        self.environment["WAYLAND_DISPLAY"] = "wayland-0"
        self.assertIn("install the package xwayland, or libsdl1.2-compat-shim.",
                      self.run_launcher().stderr)
        self.sdl_is(SDL12_COMPAT)
        self.assertStartsIn(self.data)

    def test_video_driver_chosen_by_the_player_needs_no_display(self):
        del self.environment["DISPLAY"]
        self.environment["SDL_VIDEODRIVER"] = "dummy"
        self.assertStartsIn(self.data)

    def test_missing_sdl_is_an_error_that_names_its_package(self):
        self.write_command("ldd", 'echo "\tlibSDL-1.2.so.0 => not found"')
        self.assertFailure("the library libSDL-1.2.so.0 is missing: install the package "
                           "libsdl1.2debian.")

    def test_other_missing_library_is_named(self):
        said = (self.folder / "commands/ldd").read_text()
        self.write_command("ldd", said + 'echo "\tlibGLEW.so.2.2 => not found"')
        self.assertFailure("the library libGLEW.so.2.2 is missing: the package merovinska or one "
                           "that it needs is damaged: install it again.")

    def test_program_for_another_machine_is_an_error(self):
        self.write_command("ldd", "echo '\tnot a dynamic executable' >&2; exit 1")
        self.assertFailure(f"{self.programs}/merovinska is not a program for this machine: the "
                           "package merovinska or one that it needs is damaged: install it again.")

    def test_missing_program_is_an_error(self):
        (self.programs / "merovinska").unlink()
        self.assertFailure(f"{self.programs}/merovinska cannot be started: the game is not "
                           "installed completely.")

    def test_game_that_cannot_open_its_window_fails_with_the_reason(self):
        self.game_is('echo "SDL_Init() failed. SDL Error: no screen" >&2; '
                     'echo "Error sending openwindow event" >&2; exit 0')
        result = self.run_launcher()
        self.assertEqual((result.returncode, result.stderr), (
            1, "SDL_Init() failed. SDL Error: no screen\nError sending openwindow event\n"
               "merovinska: the game could not open its window: "
               "SDL_Init() failed. SDL Error: no screen\n"))

    def test_failed_assertion_is_an_error(self):
        self.game_is("echo 'Assert failed on here' >&2; exit 0")
        result = self.run_launcher()
        self.assertEqual(result.returncode, 1)
        self.assertTrue(result.stderr.endswith("merovinska: the game could not continue: "
                                               "Assert failed on here\n"), result.stderr)

    def test_crash_is_an_error_that_is_shown_in_a_window(self):
        self.game_is("echo 'Caught signal SIGSEGV - Invalid memory segment access (ANSI)' >&2; "
                     "exit 1")
        result = self.run_launcher()
        self.assertEqual(result.returncode, 1)
        self.assertTrue(result.stderr.endswith(
            "merovinska: the game could not continue: Caught signal SIGSEGV - Invalid memory "
            "segment access (ANSI)\n"), result.stderr)
        self.assertIn("Caught signal SIGSEGV", self.windows())

    def test_game_ended_by_a_signal_opens_no_window(self):
        self.game_is("echo 'Caught signal SIGINT - Terminal interrupt (ANSI)' >&2; exit 1")
        self.assertEqual(self.run_launcher().returncode, 1)
        self.assertEqual(self.windows(), "")

    def test_message_is_shown_in_a_window_if_there_is_no_terminal(self):
        (self.data / "gui.tga").unlink()
        for name, words in (("zenity", "--error --title=Merovinska --no-markup --text="),
                            ("kdialog", "--title Merovinska --error "),
                            ("xmessage", "-center -title Merovinska ")):
            with self.subTest(name):
                self.run_launcher()
                self.assertEqual(self.windows(), f"{name}: {words}cannot read "
                                 f"{self.data}/gui.tga. The package merovinska or one that it "
                                 "needs is damaged: install it again.\n")
            (self.folder / "windows").unlink()
            # The launcher tries the next command only if this one is missing.
            (self.folder / "commands" / name).unlink()
        self.assertEqual(self.run_launcher().returncode, 1)

    def test_no_window_opens_if_there_is_a_terminal(self):
        (self.data / "gui.tga").unlink()
        master, slave = pty.openpty()
        with open(master, "rb", buffering=0) as terminal:
            result = subprocess.run([self.launcher], stdin=slave, stdout=slave, stderr=slave,
                                    env=self.environment, timeout=60)
            os.close(slave)
            said = terminal.read(4096).decode()
        self.assertEqual(result.returncode, 1)
        self.assertIn(f"merovinska: cannot read {self.data}/gui.tga.", said)
        self.assertEqual(self.windows(), "")

    def test_no_window_opens_without_an_error(self):
        self.assertStartsIn(self.data)
        self.assertEqual(self.windows(), "")

    # The end

    def test_launcher_ends_with_the_status_of_the_game(self):
        self.game_is("exit 3")
        self.assertEqual(self.run_launcher().returncode, 3)

    def test_output_and_errors_of_the_game_are_passed_on(self):
        self.game_is("echo out; echo err >&2")
        result = self.run_launcher()
        self.assertEqual((result.stdout, result.stderr), ("out\n", "err\n"))

    def test_signal_to_the_launcher_ends_the_game(self):
        for name in ("SIGTERM", "SIGHUP"):
            with self.subTest(name):
                self.game_is('echo $$; exec sleep 60')
                # A shell cannot catch a signal that was already ignored when it started.
                launcher = subprocess.Popen(["env", "--default-signal", self.launcher], text=True,
                                            env=self.environment, stdout=subprocess.PIPE,
                                            stderr=subprocess.DEVNULL)
                game = int(launcher.stdout.readline())
                launcher.send_signal(getattr(signal, name))
                self.assertEqual(launcher.wait(timeout=60), 128 + getattr(signal, name))
                launcher.stdout.close()
                self.assertRaises(ProcessLookupError, os.kill, game, 0)
                self.assertEqual(list(self.runtime.iterdir()), [])

    def test_signal_while_the_game_starts_ends_it(self):
        self.game_is("exec sleep 60")
        for steps in range(25):
            with self.subTest(steps):
                launcher = subprocess.Popen(["env", "--default-signal", self.launcher], text=True,
                                            env=self.environment, stdout=subprocess.PIPE,
                                            stderr=subprocess.DEVNULL, start_new_session=True)
                while not list(self.runtime.iterdir()):
                    time.sleep(0.001)
                time.sleep(steps * 0.002)
                launcher.send_signal(signal.SIGTERM)
                self.assertIn(launcher.wait(timeout=30), (-signal.SIGTERM, 128 + signal.SIGTERM))
                # The stream ends only when no process of the game is left.
                self.assertEqual(launcher.stdout.read(), "")
                launcher.stdout.close()
                self.assertEqual(list(self.runtime.iterdir()), [])

    def test_stopped_game_can_continue(self):
        self.game_is("echo started; sleep 0.2; exec echo ended")
        launcher = subprocess.Popen([self.launcher], env=self.environment, text=True,
                                    stdout=subprocess.PIPE, start_new_session=True)
        self.assertEqual(launcher.stdout.readline(), "started\n")
        os.killpg(launcher.pid, signal.SIGSTOP)
        time.sleep(0.5)
        self.assertEqual(launcher.poll(), None)
        os.killpg(launcher.pid, signal.SIGCONT)
        self.assertEqual(launcher.stdout.read(), "ended\n")
        launcher.stdout.close()
        self.assertEqual(launcher.wait(timeout=60), 0)
