# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""Every file tells whose it is and what others may do with it, and is spelled well."""

import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
NOT_OURS = {"build", ".git", ".cache", "compile_commands.json"}


class PythonTests(unittest.TestCase):
    def test_ctest_runs_every_file_of_python_tests(self):
        files = list(ROOT.glob("tests/**/*_test.py"))
        self.assertIn(Path(__file__), files)
        for file in files:
            with self.subTest(str(file.relative_to(ROOT))):
                self.assertRegex((file.parent / "CMakeLists.txt").read_text(),
                                 rf"(?m)^ *merovinska_python_tests\(\w+ {file.name}\b")


class Tree(unittest.TestCase):
    """Works in a copy: a tree without its history has no list of what belongs to it."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name) / "merovinska"
        shutil.copytree(ROOT, self.root, symlinks=True,
                        ignore=lambda folder, names: {name for name in names
                                                      if name == "__pycache__"
                                                      or (name in NOT_OURS
                                                          and Path(folder) == ROOT)})

    def run_in_tree(self, *command):
        return subprocess.run(command, cwd=self.root, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=100)

    def test_every_file_names_its_rights_and_licence(self):
        result = self.run_in_tree("reuse", "lint")
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_a_source_without_them_is_found(self):
        (self.root / "app/new.cpp").write_text("int New() { return 1; }\n")
        result = self.run_in_tree("reuse", "lint")
        self.assertEqual(result.returncode, 1)
        self.assertIn("app/new.cpp", result.stdout)

    def test_the_licence_is_the_same_wherever_it_stands(self):
        text = (ROOT / "LICENSE").read_text()
        self.assertEqual((ROOT / "LICENSES/MIT.txt").read_text(), text)
        packaged = (ROOT / "packaging/copyright").read_text()
        _, _, terms = text.split("\n\n", 2)
        self.assertIn("".join(f" {line or '.'}\n" for line in terms.splitlines()), packaged)

    def test_is_spelled_well(self):
        result = self.run_in_tree("codespell")
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    def test_a_misspelling_is_found(self):
        with open(self.root / "README.md", "a") as readme:
            readme.write("You will rec" + "ieve a newspaper.\n")
        result = self.run_in_tree("codespell")
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("README.md", result.stdout)
