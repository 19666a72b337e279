# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The files of the tree: every one names its copyright and licence, none has misspelled words, and
CTest runs all tests."""

import fnmatch
import json
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["MEROVINSKA_BUILD"])
NOT_IN_THE_TREE = {"build", ".git", ".cache", "compile_commands.json"}


class PythonTests(unittest.TestCase):
    def test_ctest_runs_every_file_of_python_tests(self):
        files = list(ROOT.glob("tests/**/*_test.py"))
        self.assertIn(Path(__file__), files)
        for file in files:
            with self.subTest(str(file.relative_to(ROOT))):
                self.assertRegex((file.parent / "CMakeLists.txt").read_text(),
                                 rf"(?m)^ *merovinska_python_tests\(\w+ {file.name}\b")


class TestPrograms(unittest.TestCase):
    @staticmethod
    def list_tests(program):
        result = subprocess.run([program, "--gtest_list_tests"], cwd=ROOT, check=True,
                                capture_output=True, text=True, timeout=100)
        tests, suite = [], None
        for line in result.stdout.splitlines():
            if line.startswith("  "):
                tests.append(suite + line.split()[0])
            elif line:
                suite = line.split()[0]
        return sorted(tests)

    def test_ctest_runs_every_test_of_every_program_once(self):
        result = subprocess.run(["ctest", "--test-dir", BUILD, "--show-only=json-v1"], check=True,
                                capture_output=True, text=True, timeout=100)
        filters = {}
        for test in json.loads(result.stdout)["tests"]:
            if not test["name"].startswith("sdl12-compat."):
                program, *options = test.get("command", [""])
                for option in options:
                    if option.startswith("--gtest_filter="):
                        filters.setdefault(program, []).append(option.partition("=")[2])
        suites = "_suites.cmake"
        programs = [str(file).removesuffix(suites) for file in BUILD.glob(f"tests/**/*{suites}")]
        self.assertTrue(programs)
        for program in programs:
            with self.subTest(program):
                self.assertIn(program, filters)
                tests = self.list_tests(program)
                self.assertTrue(tests)
                self.assertEqual(sorted(test for name in filters[program] for test in tests
                                        if fnmatch.fnmatchcase(test, name)), tests)


class Tree(unittest.TestCase):
    """Each test uses a copy of the tree without built files. It cannot ask git for the files of the
    tree, because the tree may be no git repository."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name) / "merovinska"
        shutil.copytree(ROOT, self.root, symlinks=True,
                        ignore=lambda folder, names: {name for name in names
                                                      if name == "__pycache__"
                                                      or (name in NOT_IN_THE_TREE
                                                          and Path(folder) == ROOT)})

    def run_in_tree(self, *command):
        return subprocess.run(command, cwd=self.root, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=100)

    def test_every_file_names_its_copyright_and_licence(self):
        result = self.run_in_tree("reuse", "lint")
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_source_without_copyright_and_licence_is_noticed(self):
        (self.root / "app/new.cpp").write_text("int New() { return 1; }\n")
        result = self.run_in_tree("reuse", "lint")
        self.assertEqual(result.returncode, 1)
        self.assertIn("app/new.cpp", result.stdout)

    def test_all_copies_of_the_licence_are_equal(self):
        text = (ROOT / "LICENSE").read_text()
        self.assertEqual((ROOT / "LICENSES/MIT.txt").read_text(), text)
        packaged = (ROOT / "packaging/copyright").read_text()
        _, _, terms = text.split("\n\n", 2)
        self.assertIn("".join(f" {line or '.'}\n" for line in terms.splitlines()), packaged)

    def test_no_word_is_misspelled(self):
        result = self.run_in_tree("codespell")
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    def test_misspelled_word_is_noticed(self):
        with open(self.root / "README.md", "a") as readme:
            readme.write("You will rec" + "ieve a newspaper.\n")
        result = self.run_in_tree("codespell")
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("README.md", result.stdout)
