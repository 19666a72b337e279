# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The package installed into a clean root, played from there, and removed, on both SDL libraries."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from driver import BAD_NEWS, SIZE, Game, play_folder
from package_test import package


class InstalledGame(Game):
    """The launcher is the process that was started, and the game its child."""

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
        # An empty Debian that believes to have what this machine has, so that dpkg looks at the
        # package's dependencies. Their files are this machine's; of the fonts a link leads there.
        records = self.root / "var/lib/dpkg"
        for name in ("info", "updates", "triggers"):
            (records / name).mkdir(parents=True)
        shutil.copy("/var/lib/dpkg/status", records)
        fonts = self.root / "usr/share/fonts"
        fonts.parent.mkdir(parents=True)
        fonts.symlink_to("/usr/share/fonts")

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

    def test_it_is_installed_played_and_removed_without_a_trace(self):
        before = self.files()
        self.dpkg("--install", str(package()))
        self.assertIn("usr/games/merovinska", self.files())
        installed = self.files()

        game = self.start()
        game.wait_until_started()
        self.assertEqual(game.loaded_sdl(), Path(os.environ["MEROVINSKA_SDL_FOLDER"]).resolve())
        self.assertEqual(game.window.get_wm_class(), ("merovinska", "merovinska"))
        day = 0.72  # of the date's label; the clock changes only the rest of it
        before_week = game.at_rest("date", day)
        game.click("farmers++")
        game.click("update")
        game.wait(lambda: game.look("date", day) != before_week, "another day")
        game.xdotool("keydown", "Escape")
        self.assertEqual(game.ended(), 0, game.stderr)
        self.assertNotRegex(game.stderr, BAD_NEWS)

        # Playing changes nothing that is installed, and leaves nothing with the player.
        self.assertEqual(self.files(), installed)
        self.assertEqual([*self.home.rglob("*")], [])
        self.assertEqual([*self.elsewhere.iterdir()], [])

        self.dpkg("--purge", "merovinska")
        self.assertEqual(self.files(), before)
        self.assertEqual([*(self.root / "var/lib/dpkg/info").glob("merovinska*")], [])

    def test_a_set_and_a_scale_are_played(self):
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
        # The window is there a moment before it listens.
        game.wait(lambda: game.xdotool("key", "Escape") or game.process.poll() is not None,
                  "the end", may_end=True)
        self.assertEqual(game.ended(), 0, game.stderr)
        self.assertNotRegex(game.stderr, BAD_NEWS)
        self.assertEqual([*self.home.rglob("*")], [])

    def test_the_installed_data_is_complete(self):
        self.dpkg("--install", str(package()))
        sdl = {name: value for name, value in os.environ.items() if name == "LD_LIBRARY_PATH"}
        result = subprocess.run([self.root / "usr/games/merovinska", "--check-data"],
                                cwd=self.elsewhere, stdin=subprocess.DEVNULL, capture_output=True,
                                text=True, env={"PATH": "/usr/bin:/bin", "HOME": str(self.home),
                                                **sdl})
        self.assertEqual((result.returncode, result.stderr), (0, ""))
