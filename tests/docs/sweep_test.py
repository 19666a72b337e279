# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT
"""Runs docs/sweep and the commands that draw an own run, and gives docs/search and docs/plots/make
wrong input."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

import documents
from PIL import Image

ROOT = Path(__file__).resolve().parents[2]
COUNTRYSIM = Path(os.environ["MEROVINSKA_BUILD"]) / "tools/countrysim"


def run(*command, policies="", countrysim=COUNTRYSIM):
    return subprocess.run(command, input=policies, capture_output=True, text=True, cwd=ROOT,
                          env={**os.environ, "COUNTRYSIM": str(countrysim)}, timeout=100)


class OwnRun(unittest.TestCase):
    def test_commands_of_the_manual_draw_the_lines_of_an_own_run(self):
        block = next(block for block in documents.blocks(ROOT / "docs/PLAYING.md")
                     if any(line.startswith("gnuplot ") for line in block.lines))
        with tempfile.TemporaryDirectory() as folder:
            tools = Path(folder) / "build/release/tools"
            tools.mkdir(parents=True)
            (tools / "countrysim").symlink_to(COUNTRYSIM)
            for command in documents.shell(block):
                result = subprocess.run(["bash", "-c", command.text], cwd=folder,
                                        capture_output=True, text=True, timeout=100)
                self.assertEqual(result.returncode, 0, result.stderr)
            self.assertEqual(len((Path(folder) / "run.csv").read_text().splitlines()), 201)
            self.assertNotIn("warning", result.stderr)
            with Image.open(Path(folder) / "run.png") as picture:
                colours = {colour for count, colour in picture.convert("RGB").getcolors(1 << 24)
                           if count > 100 and len(set(colour)) > 1}
            self.assertGreaterEqual(len(colours), 3)


class Sweep(unittest.TestCase):
    def test_sweep_prints_the_rows_of_countrysim_in_the_order_of_the_policies(self):
        policies = [f"--doctors 0.{tenth} --renew" for tenth in range(5)] + [""]
        result = run("docs/sweep", "--seeds", "3-6", "--weeks", "60",
                     policies="".join(policy + "\n" for policy in policies))
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        expected = []
        for policy in policies:
            header, *rows = run(COUNTRYSIM, "--summary", "--seeds", "3-6", "--weeks", "60",
                                *policy.split()).stdout.splitlines()
            expected += [f"{policy},{row}" for row in rows]
        self.assertEqual(result.stdout.splitlines(), [f"policy,{header}", *expected])

    def test_a_policy_that_fails_is_reported_and_no_row_is_printed(self):
        result = run("docs/sweep", "--seeds", "1-2", policies="--doctors 0.1\n--healers 0.1\n")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn("countrysim: ", result.stderr)
        self.assertIn("sweep: not all policies could be run\n", result.stderr)

    def test_without_policies_nothing_is_printed(self):
        result = run("docs/sweep", "--seeds", "1-2")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_a_missing_countrysim_is_reported_in_one_line(self):
        for command in (["docs/sweep"], ["docs/search"], ["docs/plots/make"]):
            with self.subTest(command[0]):
                result = run(*command, countrysim="/nowhere/countrysim")
                self.assertEqual((result.returncode, result.stdout), (1, ""))
                self.assertRegex(result.stderr, r"^\w+: /nowhere/countrysim is missing: .*\n$")

    def test_an_unknown_table_is_reported_in_one_line(self):
        result = run("docs/search", "weather")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertRegex(result.stderr, r"^search: there is no table weather; .*\n$")

    def test_help_prints_the_usage(self):
        for command in ("docs/sweep", "docs/search"):
            result = run(command, "--help")
            self.assertEqual(result.returncode, 0)
            self.assertTrue(result.stdout.startswith(f"usage: {command} "))
