# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""What the comparison of pictures lets pass and what it notices."""

import unittest

import goldens_test
from goldens import KEPT, OWN, compare, sets
from PIL import Image, ImageChops


class Comparison(unittest.TestCase):
    def setUp(self):
        with Image.open(KEPT / OWN / "start.png") as picture:
            self.golden = picture.convert("RGB")

    def expect_noticed(self, picture):
        fault, _ = compare(picture, self.golden)
        self.assertIsNotNone(fault)

    def test_a_picture_equals_itself(self):
        self.assertEqual(compare(self.golden, self.golden), (None, None))

    def test_another_rounding_of_every_channel_in_a_tenth_of_the_rows_passes(self):
        picture = self.golden.copy()
        rows = picture.crop((0, 0, picture.width, picture.height // 10))
        picture.paste(rows.point(lambda value: min(255, value + 1)))
        self.assertEqual(compare(picture, self.golden), (None, None))

    def test_a_shift_by_one_pixel_is_noticed(self):
        self.expect_noticed(ImageChops.offset(self.golden, 1, 0))

    def test_a_slightly_darker_picture_is_noticed(self):
        self.expect_noticed(self.golden.point(lambda value: max(0, value - 2)))

    def test_a_missing_letter_is_noticed(self):
        picture = self.golden.copy()
        darkest = min(((x, y) for y in range(300, 600) for x in range(300)),
                      key=lambda place: sum(picture.getpixel(place)))
        picture.putpixel(darkest, (255, 255, 255))
        self.expect_noticed(picture)

    def test_another_size_is_noticed(self):
        self.expect_noticed(self.golden.crop((0, 0, 10, 10)))

    def test_every_set_is_compared(self):
        compared = {goldens_test.OwnSet.set, goldens_test.LargeSet.set,
                    goldens_test.HighContrastSet.set}
        self.assertEqual(compared, set(sets()))
