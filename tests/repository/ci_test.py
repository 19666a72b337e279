# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The continuous integration only calls commands of the repository, with options that they have, so
that everything it does can be done by hand."""

import os
import re
import shlex
import subprocess
import unittest
from pathlib import Path

import yaml

ROOT = Path(__file__).resolve().parents[2]


def usage(script):
    """What the script prints with --help."""
    result = subprocess.run([ROOT / script, "--help"], cwd=ROOT, stdin=subprocess.DEVNULL,
                            capture_output=True, text=True, timeout=60)
    return result.stdout + result.stderr


class ContinuousIntegration(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        workflow = yaml.safe_load((ROOT / ".github/workflows/ci.yml").read_text())
        cls.jobs = list(workflow["jobs"].values())
        cls.commands = [entry["command"] for job in cls.jobs
                        for entry in job["strategy"]["matrix"]["include"]]

    def expect_valid(self, command):
        script, *words = shlex.split(command)
        path = ROOT / script
        self.assertTrue(path.is_file() and os.access(path, os.X_OK), f"there is no {script}")
        self.assertTrue(path.resolve().is_relative_to(ROOT))
        said = usage(script)
        self.assertIn("usage: ", said)
        for word in words:
            if not word.isdigit():
                self.assertRegex(said, rf"(?<![\w-]){re.escape(word)}(?![\w-])")

    def test_jobs_run_in_a_container_of_debian_12(self):
        self.assertEqual({job["container"] for job in self.jobs}, {"debian:12"})

    def test_jobs_run_only_the_commands_of_the_matrix(self):
        for job in self.jobs:
            runs = [step["run"] for step in job["steps"] if "run" in step]
            self.assertEqual(runs, ["${{ matrix.command }}"])

    def test_every_command_and_its_options_exist(self):
        for command in self.commands:
            with self.subTest(command):
                self.expect_valid(command)

    def test_jobs_cover_gcc_clang_sanitizers_clang_tidy_package_and_fuzz_targets(self):
        wanted = {"./check", "./check --preset clang", "./check --preset sanitize",
                  "./check --preset tidy", "./check --all"}
        self.assertLessEqual(wanted, set(self.commands))
        self.assertTrue(any(command.startswith("fuzz/run ") for command in self.commands))

    def test_missing_command_is_noticed(self):
        with self.assertRaisesRegex(AssertionError, "there is no scripts/deploy"):
            self.expect_valid("scripts/deploy")

    def test_unknown_option_is_noticed(self):
        for command in ("./check --fast", "./check --preset fast"):
            with self.assertRaises(AssertionError):
                self.expect_valid(command)
