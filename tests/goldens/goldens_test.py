# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""Compares every pose of the game with the picture that is kept of it."""

import unittest

from goldens import KEPT, OWN, compare, drawn, poses
from PIL import Image


class Golden:
    """The pictures of one set. On a failure the picture stays in the build, and the difference
    beside it, four times as strong."""

    def expect_golden(self, pose):
        actual, expected = drawn(self.set) / f"{pose}.png", KEPT / self.set / f"{pose}.png"
        with Image.open(actual) as picture, Image.open(expected) as golden:
            fault, difference = compare(picture, golden)
        kept = actual.with_name(f"{pose}-difference.png")
        kept.unlink(missing_ok=True)
        if difference is not None:
            difference.save(kept)
        self.assertIsNone(fault, f"{actual} {fault}; see also {kept.name}")

    def expect_goldens(self, prefix):
        found = [pose for pose in poses(drawn(self.set)) if pose.startswith(prefix)]
        self.assertTrue(found)
        for pose in found:
            with self.subTest(pose=pose):
                self.expect_golden(pose)

    def test_every_picture_that_is_kept_is_drawn_and_no_other(self):
        self.assertEqual(poses(drawn(self.set)), poses(KEPT / self.set))

    def test_the_start_screen_looks_as_it_should(self):
        self.expect_golden("start")

    def test_every_tab_looks_as_it_should(self):
        self.expect_goldens("tab_")

    def test_a_hovered_button_looks_as_it_should(self):
        self.expect_golden("hovered")

    def test_a_pressed_button_looks_as_it_should(self):
        self.expect_golden("pressed")

    def test_the_screen_after_a_week_looks_as_it_should(self):
        self.expect_golden("week")

    def test_the_open_list_looks_as_it_should(self):
        self.expect_golden("list")

    def test_the_message_box_looks_as_it_should(self):
        self.expect_golden("refused")

    def test_the_longest_texts_look_as_they_should(self):
        self.expect_goldens("longest")


class OwnSet(Golden, unittest.TestCase):
    set = OWN


class LargeSet(Golden, unittest.TestCase):
    set = "large"


class HighContrastSet(Golden, unittest.TestCase):
    set = "high-contrast"
