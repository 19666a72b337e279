# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT
"""The commands of the documents that take minutes: builds, the search and what renews pictures. They
run in a copy of the tree."""

import os
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

import documents
from documents import ROOT
from driver import TITLE, Screen

BUILD = Path(os.environ["MEROVINSKA_BUILD"])

SEARCHES = {f"docs/search {table}" for table in
            ("idling", "workforces", "doctors", "justice", "trade", "best")}
BUILDS = ["cmake --preset release", "cmake --build --preset release",
          "cmake --build --preset release --target docs"]
RENEWALS = {f"cmake --build --preset release --target {target}"
            for target in ("goldens", "renew_layout_records", "renew_theme_records", "plots")}
PLAYS = ["./play", "./play --set large", "./play --set high-contrast --scale 1.5"]
PICTURE = "./play --screenshot picture.png --seconds 5"
# Shorter than written: for a second each instead of ten minutes.
FUZZING = {"fuzz/run 600": "fuzz/run 1"}

SLOW = SEARCHES | set(BUILDS) | RENEWALS | {*PLAYS, PICTURE} | FUZZING.keys()


class SlowDocuments(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = Path(folder.name) / "tree"
        shutil.copytree(ROOT, self.tree, ignore=lambda path, names: [
            name for name in names if name == ".git" or (Path(path) == ROOT and name == "build")])
        # What ccache keeps of the tree then serves its copy.
        self.ccache = {"CCACHE_BASEDIR": str(self.tree), "CCACHE_NOHASHDIR": "1"}
        self.environment = {**os.environ, **self.ccache}

    def type_in(self, command):
        result = subprocess.run(["bash", "-c", command], cwd=self.tree, env=self.environment,
                                stdin=subprocess.DEVNULL, capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, f"{command}\n{result.stdout[-3000:]}{result.stderr}")
        return result.stdout

    def start_display(self):
        display = Screen(log=self.tree / "display.log")
        self.addCleanup(display.close)
        self.environment = {**display.environment, **self.ccache}
        return display

    def test_fresh_copy_is_built_and_makes_its_pictures_again(self):
        self.start_display()
        for command in BUILDS:
            self.type_in(command)
        self.assertTrue((self.tree / "build/release/docs/reference/index.html").exists())
        for command in sorted(RENEWALS):
            self.type_in(command)
        for folder in ("docs/plots", "docs/engine", "docs/themes"):
            for made in sorted((self.tree / folder).iterdir()):
                recorded = ROOT / folder / made.name
                with self.subTest(made.name):
                    if made.suffix == ".png":
                        difference = subprocess.run(
                            ["compare", "-metric", "MAE", recorded, made, "null:"],
                            capture_output=True, text=True)
                        # Of 65535: another version of the library smooths edges differently.
                        self.assertLess(float(difference.stderr.split()[0]), 655,
                                        difference.stderr)
                    else:
                        self.assertEqual(made.read_bytes(), recorded.read_bytes())

    def test_fresh_copy_plays(self):
        self.type_in(PICTURE)
        size = subprocess.run(["identify", "-format", "%wx%h", self.tree / "picture.png"],
                              capture_output=True, text=True, check=True)
        self.assertEqual(size.stdout, "800x600")
        display = self.start_display()
        for command in PLAYS:
            with self.subTest(command):
                self.play(command, display)

    def play(self, command, display):
        """Starts the game, waits for its window and ends it as a player does."""
        with open(self.tree / "play.log", "w") as log:
            game = subprocess.Popen(command.split(), cwd=self.tree, env=self.environment,
                                    stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        self.addCleanup(game.wait)
        self.addCleanup(game.kill)
        deadline = time.monotonic() + 300

        def go_on():
            self.assertLess(time.monotonic(), deadline, (self.tree / "play.log").read_text())
            time.sleep(0.2)

        while not any(window.get_wm_name() == TITLE
                      for window in display.root.query_tree().children):
            self.assertIsNone(game.poll(), "it ended before there was a window")
            go_on()
        while game.poll() is None:
            subprocess.run(["xdotool", "key", "Escape"], env=self.environment, check=False)
            go_on()
        self.assertEqual(game.returncode, 0)

    def test_tables_are_what_the_search_prints(self):
        self.environment["COUNTRYSIM"] = str(BUILD / "tools/countrysim")
        found = {command.text: command.output for command in documents.commands()
                 if command.text in SEARCHES}
        self.assertEqual(found.keys(), SEARCHES)
        for command, shown in found.items():
            with self.subTest(command):
                self.assertEqual(self.type_in(command), shown)

    def test_everything_that_reads_files_is_fed_with_broken_ones(self):
        for command in FUZZING.values():
            self.assertNotIn("FAILED", self.type_in(command))
