# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""Which differences between pictures the comparison accepts, and which it notices."""

import unittest

import goldens_test
from goldens import GOLDENS, OWN, compare, sets
from PIL import Image, ImageChops


class Comparison(unittest.TestCase):
    def setUp(self):
        with Image.open(GOLDENS / OWN / "start.png") as picture:
            self.golden = picture.convert("RGB")

    def expect_noticed(self, picture):
        fault, _ = compare(picture, self.golden)
        self.assertIsNotNone(fault)

    def test_picture_is_equal_to_itself(self):
        self.assertEqual(compare(self.golden, self.golden), (None, None))

    def test_difference_of_1_in_a_tenth_of_the_rows_is_accepted(self):
        picture = self.golden.copy()
        rows = picture.crop((0, 0, picture.width, picture.height // 10))
        picture.paste(rows.point(lambda value: min(255, value + 1)))
        self.assertEqual(compare(picture, self.golden), (None, None))

    def test_shift_by_one_pixel_is_noticed(self):
        self.expect_noticed(ImageChops.offset(self.golden, 1, 0))

    def test_picture_that_is_darker_by_2_is_noticed(self):
        self.expect_noticed(self.golden.point(lambda value: max(0, value - 2)))

    def test_one_changed_pixel_of_a_letter_is_noticed(self):
        picture = self.golden.copy()
        darkest = min(((x, y) for y in range(300, 600) for x in range(300)),
                      key=lambda place: sum(picture.getpixel(place)))
        picture.putpixel(darkest, (255, 255, 255))
        self.expect_noticed(picture)

    def test_picture_of_another_size_is_noticed(self):
        self.expect_noticed(self.golden.crop((0, 0, 10, 10)))

    def test_every_set_is_compared(self):
        compared = {goldens_test.OwnSet.set, goldens_test.LargeSet.set,
                    goldens_test.HighContrastSet.set}
        self.assertEqual(compared, set(sets()))
