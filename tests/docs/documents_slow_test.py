# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT
"""Runs the commands of the documents that take minutes, in a copy of the tree: the builds, the
search, and the targets that draw pictures again."""

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
TOOLS = "scripts/tools"
# Run for 1 second for each target instead of 600.
FUZZING = {"fuzz/run 600": "fuzz/run 1"}

SLOW = SEARCHES | set(BUILDS) | RENEWALS | {*PLAYS, PICTURE, TOOLS} | FUZZING.keys()


class SlowDocuments(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = Path(folder.name) / "tree"
        shutil.copytree(ROOT, self.tree, ignore=lambda path, names: [
            name for name in names if name == ".git" or (Path(path) == ROOT and name == "build")])
        # With these, ccache reuses for the copy what it has compiled in the tree.
        self.ccache = {"CCACHE_BASEDIR": str(self.tree), "CCACHE_NOHASHDIR": "1"}
        self.environment = {**os.environ, **self.ccache}

    def run_command(self, command):
        result = subprocess.run(["bash", "-c", command], cwd=self.tree, env=self.environment,
                                stdin=subprocess.DEVNULL, capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, f"{command}\n{result.stdout[-3000:]}{result.stderr}")
        return result.stdout

    def start_display(self):
        display = Screen(log=self.tree / "display.log")
        self.addCleanup(display.close)
        self.environment = {**display.environment, **self.ccache}
        return display

    def test_copy_of_the_tree_can_be_built_and_draws_the_same_pictures(self):
        self.start_display()
        for command in BUILDS:
            self.run_command(command)
        self.assertTrue((self.tree / "build/release/docs/reference/index.html").exists())
        for command in sorted(RENEWALS):
            self.run_command(command)
        for folder in ("docs/plots", "docs/engine", "docs/themes"):
            for drawn in sorted((self.tree / folder).iterdir()):
                recorded = ROOT / folder / drawn.name
                with self.subTest(drawn.name):
                    if drawn.suffix == ".png":
                        difference = subprocess.run(
                            ["compare", "-metric", "MAE", recorded, drawn, "null:"],
                            capture_output=True, text=True)
                        # Of 65535. Other versions of FreeType draw the edges of letters
                        # differently.
                        self.assertLess(float(difference.stderr.split()[0]), 655,
                                        difference.stderr)
                    else:
                        self.assertEqual(drawn.read_bytes(), recorded.read_bytes())

    def test_copy_of_the_tree_can_be_played(self):
        self.run_command(PICTURE)
        size = subprocess.run(["identify", "-format", "%wx%h", self.tree / "picture.png"],
                              capture_output=True, text=True, check=True)
        self.assertEqual(size.stdout, "800x600")
        display = self.start_display()
        for command in PLAYS:
            with self.subTest(command):
                self.play(command, display)

    def play(self, command, display):
        """Starts the game, waits for its window and ends the game with Escape."""
        with open(self.tree / "play.log", "w") as log:
            game = subprocess.Popen(command.split(), cwd=self.tree, env=self.environment,
                                    stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        self.addCleanup(game.wait)
        self.addCleanup(game.kill)
        deadline = time.monotonic() + 300

        def wait_a_moment():
            self.assertLess(time.monotonic(), deadline, (self.tree / "play.log").read_text())
            time.sleep(0.2)

        while not any(window.get_wm_name() == TITLE
                      for window in display.root.query_tree().children):
            self.assertIsNone(game.poll(), "the game ended without a window")
            wait_a_moment()
        while game.poll() is None:
            subprocess.run(["xdotool", "key", "Escape"], env=self.environment, check=False)
            wait_a_moment()
        self.assertEqual(game.returncode, 0)

    def test_first_commands_about_layouts_work_after_the_first_game(self):
        self.run_command(PICTURE)
        self.assertFalse((self.tree / "build/release/tools/guiview").exists())
        block = documents.blocks(ROOT / "docs/LAYOUT.md")[0]
        commands = [command.text for command in documents.shell(block)]
        self.assertEqual(commands[0], TOOLS)
        self.start_display()
        for command in commands:
            if command.endswith("guiview data/my.gui.debug"):
                # The window stays until the user closes it.
                command = f"timeout --preserve-status 5 {command} | grep -q ': shown$'"
            self.run_command(command)
        self.run_command("./play --screenshot again.png --seconds 1")
        self.run_command(commands[2])

    def test_tables_of_the_document_are_the_output_of_the_search(self):
        self.environment["COUNTRYSIM"] = str(BUILD / "tools/countrysim")
        found = {command.text: command.output for command in documents.commands()
                 if command.text in SEARCHES}
        self.assertEqual(found.keys(), SEARCHES)
        for command, shown in found.items():
            with self.subTest(command):
                self.assertEqual(self.run_command(command), shown)

    def test_fuzz_targets_run_without_a_failure(self):
        for command in FUZZING.values():
            self.assertNotIn("FAILED", self.run_command(command))
