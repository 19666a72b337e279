# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""Installs the package into an empty folder, plays the installed game and removes the package.
CTest runs it on SDL 1.2 and on sdl12-compat."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from driver import FAILURE_REPORTS, ROOT, SIZE, Game, play_folder
from package_test import GAME, TOOLS, package


class InstalledGame(Game):
    """The started process is the launcher; the game is its child."""

    def game_process(self):
        pids = Path(f"/proc/{self.process.pid}/task/{self.process.pid}/children").read_text()
        for pid in pids.split():
            if Path(f"/proc/{pid}/exe").resolve().name == "merovinska":
                return int(pid)
        return None

    def close(self):
        if self.process.poll() is None:
            self.process.terminate()
            self.process.wait()
        super().close()


class InstalledPackage(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name) / "root"
        self.home = Path(folder.name) / "home"
        self.elsewhere = Path(folder.name) / "elsewhere"
        for path in (self.home, self.elsewhere):
            path.mkdir()
        # An empty Debian with the list of packages of this machine, so that dpkg finds what the
        # package depends on. The game uses the libraries of this machine.
        records = self.root / "var/lib/dpkg"
        for name in ("info", "updates", "triggers"):
            (records / name).mkdir(parents=True)
        shutil.copy("/var/lib/dpkg/status", records)

    def dpkg(self, *words):
        result = subprocess.run(["dpkg", f"--root={self.root}", "--force-not-root", *words],
                                stdin=subprocess.DEVNULL, capture_output=True, text=True,
                                env={**os.environ, "LC_ALL": "C"})
        self.assertEqual(result.returncode, 0, result.stderr[-2000:])

    def files(self):
        return {str(path.relative_to(self.root)) for path in self.root.rglob("*")
                if not path.is_relative_to(self.root / "var")}

    def start(self, *words):
        settings = {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.home),
                    "MESA_SHADER_CACHE_DISABLE": "true"}
        game = InstalledGame(play_folder(self), [self.root / "usr/games/merovinska", *words],
                             self.elsewhere, settings)
        self.addCleanup(game.close)
        return game

    def test_game_can_be_installed_played_and_removed_and_leaves_no_files(self):
        before = self.files()
        self.dpkg("--install", str(package(GAME)), str(package(TOOLS)))
        self.assertIn("usr/games/merovinska", self.files())
        installed = self.files()

        game = self.start()
        game.wait_until_started()
        self.assertEqual(game.loaded_sdl(), Path(os.environ["MEROVINSKA_SDL_FOLDER"]).resolve())
        self.assertEqual(game.window.get_wm_class(), ("merovinska", "merovinska"))
        day = 0.72  # the part of the date's label in front of the time of day
        before_week = game.at_rest("date", day)
        game.click("farmers++")
        game.click("update")
        game.wait(lambda: game.look("date", day) != before_week, "another day")
        game.xdotool("keydown", "Escape")
        self.assertEqual(game.ended(), 0, game.stderr)
        self.assertNotRegex(game.stderr, FAILURE_REPORTS)

        # The game has changed no installed file and written nothing into the player's folders.
        self.assertEqual(self.files(), installed)
        self.assertEqual([*self.home.rglob("*")], [])
        self.assertEqual([*self.elsewhere.iterdir()], [])

        self.dpkg("--purge", TOOLS)
        self.dpkg("--purge", GAME)
        self.assertEqual(self.files(), before)
        self.assertEqual([*(self.root / "var/lib/dpkg/info").glob("merovinska*")], [])

    def test_game_can_be_played_with_a_set_and_a_scale(self):
        self.dpkg("--install", str(package()))
        game = self.start("--set", "large", "--scale", "1.5")
        window = game.wait(game.find_window, "the window")
        game.wait(lambda: (window.get_geometry().width, window.get_geometry().height)
                  == (SIZE[0] * 3 // 2, SIZE[1] * 3 // 2), "its size")
        game.wait(game.game_process, "the game")
        folder = Path(f"/proc/{game.game_process()}/cwd").resolve()
        data = self.root / "usr/share/games/merovinska"
        self.assertEqual((folder / "default.theme").resolve(), data / "sets/large/default.theme")
        self.assertEqual((folder / "gui.tga").resolve(), data / "gui.tga")
        # The window is shown some time before the game reads keys.
        game.wait(lambda: game.xdotool("key", "Escape") or game.process.poll() is not None,
                  "the end", may_end=True)
        self.assertEqual(game.ended(), 0, game.stderr)
        self.assertNotRegex(game.stderr, FAILURE_REPORTS)
        choices = self.home / ".config/merovinska/choices"
        self.assertEqual({path for path in self.home.rglob("*") if path.is_file()}, {choices})
        self.assertEqual(choices.read_text(), "set=large\nscale=1.5\n")

    def run_installed(self, *words):
        sdl = {name: value for name, value in os.environ.items() if name == "LD_LIBRARY_PATH"}
        return subprocess.run([self.root / words[0], *words[1:]], cwd=self.elsewhere,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              env={"PATH": "/usr/bin:/bin", "HOME": str(self.home), **sdl})

    def test_tools_work_without_the_game(self):
        self.dpkg("--install", str(package(TOOLS)))
        self.assertFalse((self.root / "usr/games").exists())
        result = self.run_installed("usr/bin/countrysim", "--weeks", "3")
        self.assertEqual((result.returncode, len(result.stdout.splitlines())), (0, 4))
        shutil.copytree(ROOT / "data", self.elsewhere / "data")
        result = self.run_installed("usr/bin/guiview", "--check", "--game", "data/my.gui.debug")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_installed_data_is_complete(self):
        self.dpkg("--install", str(package(GAME)))
        result = self.run_installed("usr/games/merovinska", "--check-data")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("install the package merovinska-tools", result.stdout)
        self.dpkg("--install", str(package(TOOLS)))
        result = self.run_installed("usr/games/merovinska", "--check-data")
        self.assertEqual((result.returncode, len(result.stdout.splitlines()), result.stderr),
                         (0, 1, ""))

    def test_place_of_the_installed_manual_is_printed(self):
        self.dpkg("--install", str(package(GAME)))
        result = self.run_installed("usr/games/merovinska", "--manual")
        place = Path(result.stdout.split()[-1])
        self.assertEqual((result.returncode, place),
                         (0, self.root / "usr/share/games/merovinska/manual/index.html"))
        self.assertIn("<h1", place.read_text())
