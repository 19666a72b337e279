# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""Compares every pose of the game with its golden picture."""

import unittest

from goldens import GOLDENS, OWN, compare, drawn, poses
from PIL import Image


class Golden:
    """The pictures of one set. If a test fails, the drawn picture is in the build folder, with a
    picture of the difference, four times as strong, beside it."""

    def expect_golden(self, pose):
        actual, expected = drawn(self.set) / f"{pose}.png", GOLDENS / self.set / f"{pose}.png"
        with Image.open(actual) as picture, Image.open(expected) as golden:
            fault, difference = compare(picture, golden)
        shown = actual.with_name(f"{pose}-difference.png")
        shown.unlink(missing_ok=True)
        if difference is not None:
            difference.save(shown)
        self.assertIsNone(fault, f"{actual} {fault}; see also {shown.name}")

    def expect_goldens(self, prefix):
        found = [pose for pose in poses(drawn(self.set)) if pose.startswith(prefix)]
        self.assertTrue(found)
        for pose in found:
            with self.subTest(pose=pose):
                self.expect_golden(pose)

    def test_every_golden_picture_and_no_other_is_drawn(self):
        self.assertEqual(poses(drawn(self.set)), poses(GOLDENS / self.set))

    def test_start_screen_looks_like_its_golden_picture(self):
        self.expect_golden("start")

    def test_every_tab_looks_like_its_golden_picture(self):
        self.expect_goldens("tab_")

    def test_button_under_the_mouse_looks_like_its_golden_picture(self):
        self.expect_golden("hovered")

    def test_pressed_button_looks_like_its_golden_picture(self):
        self.expect_golden("pressed")

    def test_screen_after_a_week_looks_like_its_golden_picture(self):
        self.expect_golden("week")

    def test_screen_after_a_reign_with_many_events_looks_like_its_golden_pictures(self):
        self.expect_goldens("reign")

    def test_open_list_looks_like_its_golden_picture(self):
        self.expect_golden("list")

    def test_message_box_looks_like_its_golden_picture(self):
        self.expect_golden("refused")

    def test_longest_texts_look_like_their_golden_pictures(self):
        self.expect_goldens("longest")

    def test_charts_of_unusual_series_look_like_their_golden_picture(self):
        self.expect_golden("charts")


class OwnSet(Golden, unittest.TestCase):
    set = OWN


class LargeSet(Golden, unittest.TestCase):
    set = "large"


class HighContrastSet(Golden, unittest.TestCase):
    set = "high-contrast"
