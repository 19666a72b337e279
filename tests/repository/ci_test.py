# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""What the continuous integration does can be done by hand: it calls the repository's own commands,
with options that they have."""

import os
import re
import shlex
import subprocess
import unittest
from pathlib import Path

import yaml

ROOT = Path(__file__).resolve().parents[2]


def usage(script):
    """What a command says of itself when it does not understand."""
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

    def expect_understood(self, command):
        script, *words = shlex.split(command)
        path = ROOT / script
        self.assertTrue(path.is_file() and os.access(path, os.X_OK), f"there is no {script}")
        self.assertTrue(path.resolve().is_relative_to(ROOT))
        said = usage(script)
        self.assertIn("usage: ", said)
        for word in words:
            if not word.isdigit():
                self.assertRegex(said, rf"(?<![\w-]){re.escape(word)}(?![\w-])")

    def test_runs_in_a_container_of_the_systems_debian(self):
        self.assertEqual({job["container"] for job in self.jobs}, {"debian:12"})

    def test_runs_nothing_but_the_named_commands(self):
        for job in self.jobs:
            runs = [step["run"] for step in job["steps"] if "run" in step]
            self.assertEqual(runs, ["${{ matrix.command }}"])

    def test_every_command_is_one_of_the_repositorys_with_options_that_it_has(self):
        for command in self.commands:
            with self.subTest(command):
                self.expect_understood(command)

    def test_covers_both_compilers_sanitizers_tidy_package_and_fuzzers(self):
        wanted = {"./check", "./check --preset clang", "./check --preset sanitize",
                  "./check --preset tidy", "./check --all"}
        self.assertLessEqual(wanted, set(self.commands))
        self.assertTrue(any(command.startswith("fuzz/run ") for command in self.commands))

    def test_a_command_that_is_not_there_is_found(self):
        with self.assertRaisesRegex(AssertionError, "there is no scripts/deploy"):
            self.expect_understood("scripts/deploy")

    def test_an_option_that_the_command_does_not_have_is_found(self):
        for command in ("./check --fast", "./check --preset fast"):
            with self.assertRaises(AssertionError):
                self.expect_understood(command)
