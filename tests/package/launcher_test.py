# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The launcher as it is installed, in front of a stand-in for the game."""

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

CLASSIC, COMPAT = "classic", "SDL12COMPAT_SYNC_TO_VBLANK"  # what tells the libraries apart


class Launcher(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()
        self.prefix = self.folder / "usr"
        subprocess.run(["cmake", "--install", BUILD, "--prefix", self.prefix], check=True,
                       stdout=subprocess.DEVNULL)
        self.launcher = self.prefix / "games/merovinska"
        self.programs = self.prefix / "libexec/merovinska"
        self.data = self.prefix / "share/games/merovinska"
        self.home = self.folder / "home"
        self.own_data = self.home / ".local/share/merovinska"
        self.runtime = self.folder / "runtime"
        for path in (self.home, self.runtime, self.folder / "commands"):
            path.mkdir()
        self.environment = {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.runtime),
                            "PATH": f"{self.folder / 'commands'}:/usr/bin:/bin",
                            "DISPLAY": ":12345"}
        # No message window of the machine's own may open, whatever is installed.
        for name in ("zenity", "kdialog", "xmessage"):
            self.stand_in(name, f'echo "{name}: $*" >>"{self.folder}/windows"')
        self.game_is('echo "in $PWD"')
        self.sdl_is(CLASSIC)

    def stand_in(self, name, text, folder=None):
        path = (folder or self.folder / "commands") / name
        path.write_text(f"#!/bin/sh\n{text}\n")
        path.chmod(0o755)

    def game_is(self, text):
        self.stand_in("merovinska", text, self.programs)

    def sdl_is(self, kind):
        """The library that the loader would give the game."""
        library = self.folder / "lib/libSDL-1.2.so.0"
        library.parent.mkdir(exist_ok=True)
        library.write_text(kind)
        self.stand_in("ldd", f'echo "\tlibSDL-1.2.so.0 => {library} (0x0)"')
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

    def assertRefuses(self, message, *words):
        result = self.run_launcher(*words)
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (1, "", f"merovinska: {message}\n"))

    # Data

    def test_the_systems_data_is_taken_where_the_player_has_none(self):
        self.assertStartsIn(self.data)

    def test_the_players_own_data_is_taken_when_it_holds_a_layout(self):
        shutil.copytree(self.data, self.own_data)
        self.assertStartsIn(self.own_data)

    def test_the_players_own_data_is_looked_for_where_the_desktop_says(self):
        self.environment["XDG_DATA_HOME"] = str(self.folder / "share")
        shutil.copytree(self.data, self.folder / "share/merovinska")
        self.assertStartsIn(self.folder / "share/merovinska")

    def test_a_folder_that_is_not_named_from_the_root_is_not_where_the_desktop_says(self):
        shutil.copytree(self.data, self.folder / "share/merovinska")
        shutil.copytree(self.data, self.own_data)
        self.environment["XDG_DATA_HOME"] = "share"
        self.assertStartsIn(self.own_data)

    def test_the_players_own_data_without_a_layout_is_left_alone(self):
        shutil.copytree(self.data, self.own_data)
        (self.own_data / "my.gui.debug").unlink()
        self.assertStartsIn(self.data)

    def test_a_folder_can_be_named(self):
        shutil.copytree(self.data, self.folder / "my data")
        self.assertStartsIn(self.folder / "my data", "--data", "my data")

    def test_a_folder_that_is_not_there_is_refused(self):
        self.assertRefuses("there is no folder nowhere.", "--data", "nowhere")

    def test_a_link_to_the_launcher_starts_the_same_game(self):
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

    def test_a_set_is_laid_over_the_data(self):
        self.write_set(self.data, "quiet", {"desk.theme": "of the set\n", "more": "besides\n"})
        self.game_is("cat desk.theme more; cmp button.theme "
                     f"'{self.data}/button.theme' && cmp font.ttf '{self.data}/font.ttf'; "
                     "find . -type f")
        result = self.run_launcher("--set", "quiet")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (0, "of the set\nbesides\n", ""))
        self.assertNotEqual((self.data / "desk.theme").read_text(), "of the set\n")

    def test_a_set_of_the_players_lies_over_the_systems_data(self):
        self.write_set(self.own_data, "mine", {"desk.theme": "mine\n"})
        self.game_is("cat desk.theme")
        self.assertEqual(self.run_launcher("--set", "mine").stdout, "mine\n")

    def test_a_set_beside_the_named_data_comes_first(self):
        shutil.copytree(self.data, self.folder / "other")
        self.write_set(self.folder / "other", "quiet", {"desk.theme": "other\n"})
        self.write_set(self.data, "quiet", {"desk.theme": "system\n"})
        self.game_is("cat desk.theme")
        self.assertEqual(self.run_launcher("--data", "other", "--set", "quiet").stdout, "other\n")

    def test_a_set_that_is_not_there_is_refused_with_those_that_are(self):
        shutil.rmtree(self.data / "sets", ignore_errors=True)
        self.assertRefuses("there is no set loud; there is none.", "--set", "loud")
        self.write_set(self.data, "quiet", {})
        self.write_set(self.own_data, "mine", {})
        self.assertRefuses("there is no set loud; there is mine quiet.", "--set", "loud")

    def test_a_path_is_no_set(self):
        shutil.rmtree(self.data / "sets", ignore_errors=True)
        (self.data / "sets").mkdir()
        for name in ("..", ".", "../sets", "/tmp"):
            with self.subTest(name):
                self.assertRefuses(f"there is no set {name}; there is none.", "--set", name)

    def test_the_folder_of_links_is_gone_when_the_game_has_ended(self):
        self.write_set(self.data, "quiet", {"desk.theme": "quiet\n"})
        self.game_is('echo "$PWD"')
        result = self.run_launcher("--set", "quiet")
        self.assertTrue(result.stdout.startswith(f"{self.runtime}/merovinska."), result.stdout)
        self.assertEqual(list(self.runtime.iterdir()), [])

    def test_without_a_runtime_folder_the_links_are_among_the_cached_files(self):
        self.write_set(self.data, "quiet", {"desk.theme": "quiet\n"})
        self.game_is('echo "$PWD"')
        del self.environment["XDG_RUNTIME_DIR"]
        result = self.run_launcher("--set", "quiet")
        self.assertTrue(result.stdout.startswith(f"{self.home}/.cache/merovinska."), result.stdout)
        self.assertEqual(list((self.home / ".cache").iterdir()), [])

    def test_where_nothing_of_the_players_can_be_written_the_links_are_temporary(self):
        self.game_is('echo "$PWD"')
        temporary = self.folder / "temporary"
        temporary.mkdir()
        # Nobody writes there, not even root; a folder that is not named from the root is none.
        self.environment.update(HOME="/proc/home", XDG_RUNTIME_DIR="runtime",
                                TMPDIR=str(temporary))
        result = self.run_launcher("--set", "large")
        self.assertTrue(result.stdout.startswith(f"{temporary}/merovinska."), result.stderr)
        self.assertEqual(list(temporary.iterdir()), [])
        self.environment["TMPDIR"] = "/proc/temporary"
        self.assertRefuses("there is no folder to write to: neither XDG_RUNTIME_DIR nor "
                           "XDG_CACHE_HOME names one.")

    def test_two_games_do_not_meet(self):
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

    def test_pictures_keep_in_step_with_the_screen(self):
        self.game_is('echo "$SDL12COMPAT_SYNC_TO_VBLANK"')
        self.assertEqual(self.run_launcher().stdout, "1\n")

    def test_the_player_may_have_chosen_otherwise(self):
        self.game_is('echo "<$SDL12COMPAT_SYNC_TO_VBLANK>"')
        for chosen in ("0", ""):
            self.environment["SDL12COMPAT_SYNC_TO_VBLANK"] = chosen
            self.assertEqual(self.run_launcher().stdout, f"<{chosen}>\n")

    def test_the_window_bears_the_programs_name_for_the_desktop(self):
        self.game_is('echo "$SDL_VIDEO_X11_WMCLASS"')
        entry = (self.prefix / "share/applications/merovinska.desktop").read_text()
        self.assertIn(f"\nStartupWMClass={self.run_launcher().stdout}", entry)

    def test_scaling_is_done_by_the_library_that_can(self):
        self.sdl_is(COMPAT)
        self.game_is('echo "$SDL12COMPAT_WINDOW_SCALING $LD_LIBRARY_PATH"')
        self.assertEqual(self.run_launcher("--scale", "1.5").stdout, "1.5 \n")

    def test_scaling_takes_the_library_that_can_from_beside_the_other(self):
        compat = self.sdl_is(CLASSIC) / "sdl12-compat"
        compat.mkdir()
        (compat / "libSDL-1.2.so.0").write_text(COMPAT)
        self.game_is('echo "$SDL12COMPAT_WINDOW_SCALING $LD_LIBRARY_PATH"')
        self.assertEqual(self.run_launcher("--scale", "2").stdout, f"2 {compat}\n")
        self.environment["LD_LIBRARY_PATH"] = "/mine"
        self.assertEqual(self.run_launcher("--scale", "2").stdout, f"2 {compat}:/mine\n")

    def test_scaling_without_such_a_library_names_its_package(self):
        self.assertRefuses("--scale needs the package libsdl1.2-compat, which is not installed.",
                           "--scale", "2")

    def test_nothing_is_scaled_unless_wanted(self):
        self.sdl_is(COMPAT)
        self.game_is('echo "<$SDL12COMPAT_WINDOW_SCALING>"')
        self.assertEqual(self.run_launcher().stdout, "<>\n")

    def test_a_scale_that_is_no_number_is_refused(self):
        for scale in ("0", "0.5", "10", "-1", "2x", "two", "1.", ".5"):
            with self.subTest(scale):
                self.assertRefuses("--scale takes a number from 1 to below 10, such as 1.5, and "
                                   f'not "{scale}".', "--scale", scale)

    # Words

    def test_an_unknown_option_is_refused(self):
        self.assertRefuses("unknown option --loud; usage: merovinska [--data DIR] [--set NAME] "
                           "[--scale N] [--check-data]", "--loud")

    def test_an_option_without_its_value_is_refused(self):
        for option in ("--data", "--set", "--scale"):
            for words in ([option], [option, ""]):
                self.assertIn(f"merovinska: {option} needs a value; usage: ",
                              self.run_launcher(*words).stderr)

    def test_the_version_is_the_projects(self):
        version = re.search(r"project\(merovinska VERSION (\S+)",
                            (ROOT / "CMakeLists.txt").read_text())[1]
        self.assertEqual(self.run_launcher("--version").stdout, f"merovinska {version}\n")

    def test_the_help_and_the_manual_tell_the_same_options(self):
        told = set(re.findall(r"--[a-z-]+", self.run_launcher("--help").stdout))
        taken = set(re.findall(r"--(?:data|set|scale|check-data|help|version)(?= \||\))",
                               self.launcher.read_text()))
        manual = (ROOT / "packaging/merovinska.6").read_text().replace("\\-", "-")
        documented = set(re.findall(r"^\.BI? (--[a-z-]+)", manual, re.M))
        self.assertEqual(len(told), 6)
        self.assertEqual(told, taken)
        self.assertEqual(told, documented)

    def test_the_help_tells_where_the_data_is(self):
        said = self.run_launcher("--help").stdout
        self.assertIn(str(self.own_data), said)
        self.assertIn(str(self.data), said)

    # Looking at the data without starting

    def test_complete_data_is_said_to_be_so(self):
        self.environment.pop("DISPLAY")
        result = self.run_launcher("--check-data")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (0, f"Every file that the game reads from {self.data} is there.\n", ""))

    def test_a_missing_file_is_named(self):
        (self.data / "gui.tga").unlink()
        self.assertRefuses(f"cannot be read: {self.data}/gui.tga. The package merovinska or one "
                           "that it needs is damaged: install it again.", "--check-data")

    def test_a_missing_file_of_the_players_is_named(self):
        shutil.copytree(self.data, self.own_data)
        (self.own_data / "desk.theme").unlink()
        self.assertRefuses(f"cannot be read: {self.own_data}/desk.theme. The folder "
                           f"{self.own_data} is not complete; without it the game plays with its "
                           "own data.", "--check-data")

    def test_what_the_set_brings_is_not_missing(self):
        self.write_set(self.data, "quiet", {})
        (self.data / "desk.theme").rename(self.data / "sets/quiet/desk.theme")
        self.assertEqual(self.run_launcher("--check-data", "--set", "quiet").returncode, 0)
        self.assertEqual(self.run_launcher("--check-data").returncode, 1)

    def test_a_font_whose_package_is_gone_is_named(self):
        (self.data / "font.ttf").unlink()
        (self.data / "font.ttf").symlink_to("nowhere.ttf")
        self.assertIn(f"cannot be read: {self.data}/font.ttf.", self.run_launcher().stderr)

    def test_a_layout_that_the_game_could_not_use_fails(self):
        layout = self.data / "my.gui.debug"
        layout.write_text(layout.read_text().replace("farmerslab ", "farmerslob "))
        result = self.run_launcher("--check-data")
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("farmerslab", result.stdout + result.stderr)

    def test_the_files_are_looked_at_even_where_the_layout_cannot_be(self):
        (self.programs / "guiview").unlink()
        self.assertEqual(self.run_launcher("--check-data").returncode, 0)

    # What is missing

    def test_nothing_starts_without_its_data(self):
        (self.data / "my.gui.debug").unlink()
        result = self.run_launcher()
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn(f"cannot be read: {self.data}/my.gui.debug.", result.stderr)

    def test_a_missing_display_is_said(self):
        del self.environment["DISPLAY"]
        self.assertRefuses("there is no display (DISPLAY is not set): start the game from a desktop.")

    def test_a_desktop_without_x11_serves_the_newer_library_alone(self):
        del self.environment["DISPLAY"]
        self.environment["WAYLAND_DISPLAY"] = "wayland-0"
        self.assertIn("install the package xwayland, or libsdl1.2-compat-shim.",
                      self.run_launcher().stderr)
        self.sdl_is(COMPAT)
        self.assertStartsIn(self.data)

    def test_a_driver_that_needs_no_display_is_the_players_business(self):
        del self.environment["DISPLAY"]
        self.environment["SDL_VIDEODRIVER"] = "dummy"
        self.assertStartsIn(self.data)

    def test_a_missing_library_names_its_package(self):
        self.stand_in("ldd", 'echo "\tlibSDL-1.2.so.0 => not found"')
        self.assertRefuses("the library libSDL-1.2.so.0 is missing: install the package "
                           "libsdl1.2debian.")

    def test_another_missing_library_is_named(self):
        said = (self.folder / "commands/ldd").read_text()
        self.stand_in("ldd", said + 'echo "\tlibGLEW.so.2.2 => not found"')
        self.assertRefuses("the library libGLEW.so.2.2 is missing: the package merovinska or one "
                           "that it needs is damaged: install it again.")

    def test_a_program_of_another_machine_is_said(self):
        self.stand_in("ldd", "echo '\tnot a dynamic executable' >&2; exit 1")
        self.assertRefuses(f"{self.programs}/merovinska is no program of this machine: the package "
                           "merovinska or one that it needs is damaged: install it again.")

    def test_a_missing_program_is_said(self):
        (self.programs / "merovinska").unlink()
        self.assertRefuses(f"{self.programs}/merovinska cannot be started: the game is not "
                           "installed completely.")

    def test_a_game_that_cannot_open_its_window_fails_with_its_reason(self):
        self.game_is('echo "SDL_Init() failed. SDL Error: no light" >&2; '
                     'echo "Error sending openwindow event" >&2; exit 0')
        result = self.run_launcher()
        self.assertEqual((result.returncode, result.stderr), (
            1, "SDL_Init() failed. SDL Error: no light\nError sending openwindow event\n"
               "merovinska: the game could not open its window: "
               "SDL_Init() failed. SDL Error: no light\n"))

    def test_a_game_that_cannot_go_on_fails_with_its_words(self):
        self.game_is("echo 'Assert failed on here' >&2; exit 0")
        result = self.run_launcher()
        self.assertEqual(result.returncode, 1)
        self.assertTrue(result.stderr.endswith("merovinska: the game could not go on: "
                                               "Assert failed on here\n"), result.stderr)

    def test_a_game_that_crashes_fails_with_its_words(self):
        self.game_is("echo 'Caught signal SIGSEGV - Invalid memory segment access (ANSI)' >&2; exit 1")
        result = self.run_launcher()
        self.assertEqual(result.returncode, 1)
        self.assertTrue(result.stderr.endswith(
            "merovinska: the game could not go on: Caught signal SIGSEGV - Invalid memory segment "
            "access (ANSI)\n"), result.stderr)
        self.assertIn("Caught signal SIGSEGV", self.windows())

    def test_a_game_that_was_told_to_end_is_no_news(self):
        self.game_is("echo 'Caught signal SIGINT - Terminal interrupt (ANSI)' >&2; exit 1")
        self.assertEqual(self.run_launcher().returncode, 1)
        self.assertEqual(self.windows(), "")

    def test_a_window_tells_where_there_is_no_terminal(self):
        (self.data / "gui.tga").unlink()
        for name, words in (("zenity", "--error --title=Merovinska --no-markup --text="),
                            ("kdialog", "--title Merovinska --error "),
                            ("xmessage", "-center -title Merovinska ")):
            with self.subTest(name):
                self.run_launcher()
                self.assertEqual(self.windows(), f"{name}: {words}cannot be read: "
                                 f"{self.data}/gui.tga. The package merovinska or one that it "
                                 "needs is damaged: install it again.\n")
            (self.folder / "windows").unlink()
            # The next one is only asked when this one is not there. One of the machine's own
            # would open a real window, on a display that does not exist.
            (self.folder / "commands" / name).unlink()
        self.assertEqual(self.run_launcher().returncode, 1)

    def test_no_window_opens_where_a_terminal_is_read(self):
        (self.data / "gui.tga").unlink()
        ours, theirs = pty.openpty()
        with open(ours, "rb", buffering=0) as terminal:
            result = subprocess.run([self.launcher], stdin=theirs, stdout=theirs, stderr=theirs,
                                    env=self.environment, timeout=60)
            os.close(theirs)
            said = terminal.read(4096).decode()
        self.assertEqual(result.returncode, 1)
        self.assertIn(f"merovinska: cannot be read: {self.data}/gui.tga.", said)
        self.assertEqual(self.windows(), "")

    def test_no_window_opens_while_nothing_is_wrong(self):
        self.assertStartsIn(self.data)
        self.assertEqual(self.windows(), "")

    # The end

    def test_the_games_status_is_the_launchers(self):
        self.game_is("exit 3")
        self.assertEqual(self.run_launcher().returncode, 3)

    def test_what_the_game_says_goes_where_it_belongs(self):
        self.game_is("echo out; echo err >&2")
        result = self.run_launcher()
        self.assertEqual((result.stdout, result.stderr), ("out\n", "err\n"))

    def test_a_signal_to_the_launcher_ends_the_game(self):
        for name in ("SIGTERM", "SIGHUP"):
            with self.subTest(name):
                self.game_is('echo $$; exec sleep 60')
                # Whoever runs the tests may ignore signals, and a shell cannot undo that.
                launcher = subprocess.Popen(["env", "--default-signal", self.launcher], text=True,
                                            env=self.environment, stdout=subprocess.PIPE,
                                            stderr=subprocess.DEVNULL)
                game = int(launcher.stdout.readline())
                launcher.send_signal(getattr(signal, name))
                self.assertEqual(launcher.wait(timeout=60), 128 + getattr(signal, name))
                launcher.stdout.close()
                self.assertRaises(ProcessLookupError, os.kill, game, 0)
                self.assertEqual(list(self.runtime.iterdir()), [])

    def test_a_signal_that_comes_while_the_game_starts_ends_it_too(self):
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
                # Whoever is left of the group would hold this end open.
                self.assertEqual(launcher.stdout.read(), "")
                launcher.stdout.close()
                self.assertEqual(list(self.runtime.iterdir()), [])

    def test_a_paused_game_goes_on(self):
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


if __name__ == "__main__":
    unittest.main()
