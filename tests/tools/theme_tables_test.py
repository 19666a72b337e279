# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The sets of data/sets, and the tables of docs/THEMES.md about them."""

import itertools
import math
import struct
import unittest

import theme_tables as tables


class ThemeTables(unittest.TestCase):
    def setUp(self):
        self.document = tables.DOCUMENT.read_text()

    def test_tables_of_the_document_are_up_to_date_for_every_set(self):
        found = {(match[2], match[3]) for match in tables.TABLE.finditer(self.document)}
        self.assertEqual(found, {(kind, name) for kind in ("themes", "contrast")
                                 for name in tables.sets() if (kind, name) != ("themes", "large")})
        self.assertEqual(tables.renewed(self.document), self.document,
                         "to write them again: cmake --build --preset release "
                         "--target renew_theme_records")

    def test_contrasts_of_texts_and_outlines_are_high_enough(self):
        for name in tables.sets():
            for what, ground, least, *found in tables.measures(name):
                with self.subTest(set=name, what=what, on=ground):
                    self.assertGreaterEqual(min(found), least)

    def test_lines_of_charts_differ_for_the_colour_blind(self):
        for name in tables.sets():
            for blindness in tables.COLOUR_BLINDNESS:
                seen = [tables.lab(tables.theme(name, which).line, blindness)
                        for which in tables.SERIES]
                for first, second in itertools.combinations(seen, 2):
                    with self.subTest(set=name, blindness=blindness):
                        self.assertGreater(math.dist(first, second), 15)

    def test_letters_of_a_set_have_two_sizes_of_which_the_smaller_has_at_least_15_pixels(self):
        pixels_per_em = 600 / 2.6 / 64 * 64 * 96 / 72  # of glyphs of 64 points at 96 dots per inch

        def sizes(name, themes):
            return {tuple(map(float, tables.find(name, f"{theme}.theme").read_text()
                              .splitlines()[11].split("//")[0].split())) for theme in themes}

        for name in tables.sets():
            texts = sizes(name, ["default", "hint", "bar", "button", "barbutton", "paper",
                                 "partner", "messagebox", "seal", "sheet", "tabwin_button", "news",
                                 "chart"])
            self.assertEqual(len(texts), 1, name)
            (width, height), = texts
            least = 20.0 if name == "large" else 15.0
            self.assertGreaterEqual(min(width, height) * pixels_per_em, least)
            headings = sizes(name, ["heading", "stock"])
            self.assertEqual(len(headings), 1, name)
            for size in headings.pop():
                self.assertAlmostEqual(size / height, 1.3, delta=0.05)

    def test_set_contains_no_file_that_is_equal_to_that_of_the_data(self):
        for name in tables.sets()[1:]:
            for path in tables.layers(name)[-1].iterdir():
                own = tables.ROOT / "data" / path.name
                self.assertTrue(not own.exists() or own.read_bytes() != path.read_bytes(), path)

    def test_document_shows_a_picture_of_every_set(self):
        for name in tables.sets():
            self.assertIn(f"(themes/{name}.png)", self.document)
            head = (tables.PICTURES / f"{name}.png").read_bytes()[:24]
            self.assertEqual(struct.unpack(">II", head[16:]), (800, 600))
