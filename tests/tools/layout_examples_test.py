# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""docs/LAYOUT.md is correct: guiview finds no errors in its examples and draws the same
pictures."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import layout_examples
from layout_examples import DOCUMENT, PICTURES, ROOT

BUILD = Path(os.environ["MEROVINSKA_BUILD"])
GUIVIEW = BUILD / "tools/guiview"
FAILED = BUILD / "layout_pictures"

# The largest allowed differences, of 255. Other versions of Mesa round differently at edges.
LARGEST_MEAN = 1.0
LARGEST = 96


def pixels(picture):
    size = subprocess.run(["identify", "-format", "%wx%h", picture], check=True,
                          capture_output=True, text=True).stdout
    return size, subprocess.run(["convert", picture, "-depth", "8", "rgb:-"], check=True,
                                capture_output=True).stdout


class LayoutDocument(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.document = DOCUMENT.read_text()
        cls.examples = layout_examples.read_examples(cls.document)

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def test_document_has_more_than_30_examples(self):
        self.assertGreater(len(self.examples), 30)

    def test_guiview_finds_no_errors_in_the_examples(self):
        for example in self.examples:
            with self.subTest(example.name):
                layout = example.write(self.folder)
                for check in [["--check"], ["--format", "--check"]]:
                    result = subprocess.run([GUIVIEW, *check, layout], capture_output=True,
                                            text=True)
                    self.assertEqual((result.returncode, result.stdout, result.stderr),
                                     (0, "", ""))

    def test_examples_look_like_their_pictures(self):
        for example in self.examples:
            with self.subTest(example.name):
                actual = self.folder / f"{example.name}.png"
                result = example.draw(GUIVIEW, self.folder, actual)
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.compare(actual, example.picture)

    def compare(self, actual, expected):
        size, shown = pixels(actual)
        expected_size, recorded = pixels(expected)
        differences = [abs(a - b) for a, b in zip(shown, recorded)] if shown != recorded else [0]
        mean = sum(differences) / len(differences)
        if size == expected_size and max(differences) <= LARGEST and mean <= LARGEST_MEAN:
            return
        FAILED.mkdir(exist_ok=True)
        shutil.copy(actual, FAILED)
        self.fail(f"{expected.name} differs by {max(differences)} at most and {mean:.2f} in the "
                  f"mean ({size}, recorded {expected_size}): see {FAILED}. If that is intended: "
                  "cmake --build --preset release --target renew_layout_records")

    def test_every_example_has_a_picture_and_every_picture_is_shown(self):
        shown = re.findall(r"!\[[^\]]+\]\(layout/([^)]+)\.png\)", self.document)
        self.assertEqual(sorted(shown), sorted(example.name for example in self.examples))
        self.assertEqual(sorted(shown), sorted(path.stem for path in PICTURES.iterdir()))

    def section(self, name):
        return re.search(rf"^## {name}\n(.*?)^## ", self.document, re.M | re.S)[1]

    def test_every_statement_and_kind_is_in_an_example(self):
        # layout_tables_test compares the sections with the toolkit.
        words, kinds = (re.findall(r"^### `(\w+)`$", self.section(name), re.M)
                        for name in ("Statements", "Kinds of widgets"))
        self.assertGreaterEqual(len(words), 11)
        self.assertGreaterEqual(len(kinds), 10)
        lines = [line.split() for example in self.examples
                 for line in example.layout.splitlines() if line.strip()]
        for word in words:
            if word != "CHLD":
                self.assertIn(word, {line[0] for line in lines}, "in no example")
        for kind in kinds:
            self.assertTrue(any(kind in line[1:3] for line in lines), f"{kind} is in no example")

    def test_every_line_of_a_theme_has_a_section(self):
        headings = re.findall(r"^### (\d+) ", self.document, re.M)
        self.assertEqual(headings, [str(number) for number in range(1, 17)])

    def test_targets_of_links_within_the_document_exist(self):
        headings = [re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
                    for heading in re.findall(r"^#+ (.*)$", self.document, re.M)]
        for number, heading in enumerate(headings):
            repeated = headings[:number].count(heading)
            if repeated:
                headings[number] = f"{heading}-{repeated}"
        for target in re.findall(r"\]\(#([^)]+)\)", self.document):
            self.assertIn(target, headings)

    def test_configuration_of_the_examples_is_that_of_the_game(self):
        def values(text):
            return [line.split("//")[0].split() for line in text.splitlines()]

        self.assertEqual(values(self.examples[0].files["gui.conf"]),
                         values((ROOT / "data/gui.conf").read_text()))
