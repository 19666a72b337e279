# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The sets of data/ and what docs/THEMES.md says of them."""

import struct
import unittest

import theme_tables as tables


class ThemeTables(unittest.TestCase):
    def setUp(self):
        self.document = tables.DOCUMENT.read_text()

    def test_the_document_has_both_tables_of_every_set_as_they_are_now(self):
        found = {(match[2], match[3]) for match in tables.TABLE.finditer(self.document)}
        self.assertEqual(found, {(kind, name) for kind in ("themes", "contrast")
                                 for name in tables.sets() if (kind, name) != ("themes", "large")})
        self.assertEqual(tables.renewed(self.document), self.document,
                         "renew it with: cmake --build --preset release "
                         "--target renew_theme_records")

    def test_everything_that_has_to_be_told_apart_can_be(self):
        for name in tables.sets():
            for what, ground, least, *found in tables.measures(name):
                with self.subTest(set=name, what=what, on=ground):
                    self.assertGreaterEqual(min(found), least)

    def test_all_themes_of_a_set_share_one_size_of_letters_of_15_pixels_at_least(self):
        pixels_per_em = 600 / 2.6 / 64 * 64 * 96 / 72  # of glyphs of 64 points at 96 dots per inch
        for name in tables.sets():
            drawn = ["default", "heading", "hint", "bar", "button", "barbutton", "paper", "partner",
                     "messagebox", "seal", "sheet", "tabwin_button", "combo_button"]
            sizes = {tuple(tables.find(name, f"{theme}.theme").read_text().splitlines()[11]
                           .split("//")[0].split()) for theme in drawn}
            self.assertEqual(len(sizes), 1, name)
            (width, height), = sizes
            self.assertGreaterEqual(min(float(width), float(height)) * pixels_per_em, 15.0)

    def test_a_set_holds_only_what_differs(self):
        for name in tables.sets()[1:]:
            for path in tables.layers(name)[-1].iterdir():
                own = tables.ROOT / "data" / path.name
                self.assertTrue(not own.exists() or own.read_bytes() != path.read_bytes(), path)

    def test_there_is_a_picture_of_every_set(self):
        for name in tables.sets():
            self.assertIn(f"(themes/{name}.png)", self.document)
            head = (tables.PICTURES / f"{name}.png").read_bytes()[:24]
            self.assertEqual(struct.unpack(">II", head[16:]), (800, 600))
