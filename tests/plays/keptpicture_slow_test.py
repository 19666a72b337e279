# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The same as the random play of keptpicture_test.py, for longer."""

import unittest

from keptpicture_test import SETS, play_randomly

FRAMES = 20000


class LongRandomPlay(unittest.TestCase):
    def test_pictures_are_those_of_the_widgets_in_20000_frames_of_each_set(self):
        for seed, name in enumerate(SETS, 1):
            with self.subTest(set=name):
                kept, drawn = play_randomly(self, name, FRAMES, seed)
                print(f"{name}: {kept} kept, {drawn} drawn")
                self.assertEqual(kept + drawn, FRAMES - 1)


if __name__ == "__main__":
    unittest.main()
