# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT
"""docs/sweep spreads policies over processes; docs/search and docs/plots/make refuse politely."""

import os
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
COUNTRYSIM = Path(os.environ["MEROVINSKA_BUILD"]) / "tools/countrysim"


def run(*command, policies="", countrysim=COUNTRYSIM):
    return subprocess.run(command, input=policies, capture_output=True, text=True, cwd=ROOT,
                          env={**os.environ, "COUNTRYSIM": str(countrysim)}, timeout=100)


class Sweep(unittest.TestCase):
    def test_rows_are_those_of_countrysim_in_the_order_of_the_policies(self):
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

    def test_policy_that_cannot_be_run_is_a_failure_without_rows(self):
        result = run("docs/sweep", "--seeds", "1-2", policies="--doctors 0.1\n--healers 0.1\n")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn("countrysim: ", result.stderr)
        self.assertIn("sweep: not every policy could be run\n", result.stderr)

    def test_no_policies_are_no_rows(self):
        result = run("docs/sweep", "--seeds", "1-2")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_missing_countrysim_is_said_in_one_line(self):
        for command in (["docs/sweep"], ["docs/search"], ["docs/plots/make"]):
            with self.subTest(command[0]):
                result = run(*command, countrysim="/nowhere/countrysim")
                self.assertEqual((result.returncode, result.stdout), (1, ""))
                self.assertRegex(result.stderr, r"^\w+: /nowhere/countrysim is missing: .*\n$")

    def test_unknown_table_of_the_search_is_said_in_one_line(self):
        result = run("docs/search", "weather")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertRegex(result.stderr, r"^search: there is no table weather; .*\n$")

    def test_help_tells_the_arguments(self):
        for command in ("docs/sweep", "docs/search"):
            result = run(command, "--help")
            self.assertEqual(result.returncode, 0)
            self.assertTrue(result.stdout.startswith(f"usage: {command} "))
