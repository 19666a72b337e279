# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""While nothing changes, the game shows a kept picture. It must be the one that it would draw."""

import os
import re
import signal
import tempfile
import time
import unittest
from pathlib import Path

from driver import BUILD, ROOT, Game, play_folder
from Xlib import X

STILL = "paperhint"  # a label whose text never changes
HIDDEN_TIME = 0.5  # seconds; pictures that cannot be seen cannot be counted
SETS = ["own", *sorted(path.name for path in (ROOT / "data/sets").glob("*") if path.is_dir())]


def play_randomly(test, name, frames, seed):
    """Plays a set for so many frames. Returns how many pictures were kept and drawn."""
    folder = Path(test.enterContext(tempfile.TemporaryDirectory()))
    for layer in [ROOT / "data", ROOT / "data/sets" / name]:
        for path in layer.glob("*"):
            if path.is_file():
                (folder / path.name).unlink(missing_ok=True)
                (folder / path.name).symlink_to(path)
    game = Game(play_folder(test) / name, [BUILD / "tests/plays/randomplay", str(frames), str(seed)],
                cwd=folder)
    try:
        status = game.process.wait()
        output = (game.folder / "stdout").read_text()
        test.assertEqual(status, 0, game.stderr[-2000:])
    finally:
        game.close()
    return [int(count) for count in re.fullmatch(r"kept (\d+) drawn (\d+)\s*", output).groups()]


class RandomPlay(unittest.TestCase):
    def test_pictures_are_those_of_the_widgets_in_every_frame_of_random_input(self):
        frames = 300
        for name in SETS:
            with self.subTest(set=name):
                kept, drawn = play_randomly(self, name, frames, seed=1)
                self.assertEqual(kept + drawn, frames - 1)
                self.assertGreater(kept, frames // 10)
                self.assertGreater(drawn, frames // 10)


class OtherWindows(unittest.TestCase):
    """What the window system does with the window of the running game."""

    def setUp(self):
        self.game = Game(play_folder(self))
        self.addCleanup(self.game.close)
        self.game.wait_until_started()
        self.before = self.game.at_rest(STILL)

    def frames_pass(self, count=4):
        seen = self.game.frames()
        self.game.wait(lambda: self.game.frames() >= seen + count, "further pictures")

    def expect_the_same_picture(self):
        self.game.wait(lambda: self.game.look(STILL) == self.before, "the same picture as before")
        self.frames_pass()
        self.assertEqual(self.game.look(STILL), self.before)

    def test_picture_is_right_after_another_window_was_in_front(self):
        screen = self.game.display
        other = screen.root.create_window(0, 0, 1280, 1024, 0, X.CopyFromParent,
                                          background_pixel=0x00FF00, override_redirect=True)
        other.map()
        screen.connection.sync()
        self.game.wait(lambda: self.game.look(STILL) != self.before, "the other window")
        time.sleep(HIDDEN_TIME)
        other.destroy()
        screen.connection.sync()
        self.expect_the_same_picture()

    def test_picture_is_right_after_the_window_was_hidden(self):
        self.game.window.unmap()
        self.game.display.connection.sync()
        self.game.wait(lambda: self.game.look(STILL) != self.before, "the window to be hidden")
        time.sleep(HIDDEN_TIME)
        self.game.window.map()
        self.game.display.connection.sync()
        self.expect_the_same_picture()

    def test_picture_is_right_after_the_game_was_stopped_and_covered(self):
        screen = self.game.display
        os.kill(self.game.game_process(), signal.SIGTSTP)
        other = screen.root.create_window(0, 0, 1280, 1024, 0, X.CopyFromParent,
                                          background_pixel=0x00FF00, override_redirect=True)
        other.map()
        screen.connection.sync()
        time.sleep(HIDDEN_TIME)
        other.destroy()
        screen.connection.sync()
        os.kill(self.game.game_process(), signal.SIGCONT)
        self.expect_the_same_picture()


if __name__ == "__main__":
    unittest.main()
