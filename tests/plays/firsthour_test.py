# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""A player's first hour with a real mouse and keyboard, on both SDL libraries. The game is watched
from inside: in every frame each label is compared with the country's numbers."""

import json
import os
import re
import time
import unittest
from pathlib import Path

from driver import BAD_NEWS, BUILD, Game, play_folder

WEEK = 604800
GRACE_WEEKS = 48
LAST_WEEK = 60
FIRST_MEASURED_WEEK = 5
MIB = 1024  # KiB
# Blocks from this size on go back to the system as soon as they are free, so that between two
# pictures nothing counts that the driver takes for one.
LARGE_BLOCK = {"MALLOC_MMAP_THRESHOLD_": "32768"}
LOOKS = 150
# The sanitizers keep what was freed for a while, and report leaks themselves.
SANITIZED = os.environ["MEROVINSKA_SANITIZE"] == "ON"

ATTEMPT = 3.0  # seconds that one press may stay without an effect before it is repeated
# Between a release and the next press the game must have drawn a frame to tell them apart.
BREATH = 0.1

FARMERS, BUTCHERS = range(2)
LIVESTOCK, GRAIN = range(2)


class FirstHour(unittest.TestCase):
    def setUp(self):
        folder = play_folder(self)
        folder.mkdir(parents=True, exist_ok=True)
        self.diary = folder / "diary"
        self.diary.unlink(missing_ok=True)
        self.game = Game(folder, [BUILD / "tests/plays/watchedgame", self.diary], settings=LARGE_BLOCK)
        self.addCleanup(self.game.close)
        self.game.wait_until_started()

    @property
    def state(self):
        """The diary's last whole line."""
        whole = self.diary.read_bytes().rpartition(b"\n")[0]
        return json.loads(whole.rpartition(b"\n")[2])

    def until(self, condition, what):
        self.game.wait(lambda: condition(self.state), what)

    def press(self, tag, condition, what):
        """One click on a button, until what it does has happened."""
        self.game.bring_up(tag)
        self.game.hover(tag)

        def happens():
            self.game.xdotool("mousedown", 1)
            end = time.monotonic() + ATTEMPT
            while not (done := condition(self.state)) and time.monotonic() < end:
                time.sleep(0.02)
            self.game.xdotool("mouseup", 1)
            time.sleep(BREATH)
            return done

        self.game.wait(happens, what)

    def raise_share(self, profession, name, percent):
        while (before := round(self.state["shares"][profession] * 100)) < percent:
            self.press(name + "++",
                       lambda state: round(state["shares"][profession] * 100) > before,
                       f"more {name}")

    def order(self, stock, slider, fraction):
        self.game.bring_up(slider)
        self.game.drag(slider, fraction)
        self.until(lambda state: state["orders"][stock] > 0, "an order")

    def resident(self):
        """KiB of memory that the game has in use, at the least of many looks."""
        least = []
        for _ in range(LOOKS):
            status = Path(f"/proc/{self.game.process.pid}/status").read_text()
            least.append(int(re.search(r"VmRSS:\s*(\d+) kB", status)[1]))
            time.sleep(0.02)
        return min(least)

    def play_a_week(self):
        before = self.state
        paper = self.game.look("paperlab")
        self.press("update",
                   lambda state: state["elapsed"] > before["elapsed"] + 0.9 * WEEK, "a week")
        self.assertTrue(self.state["story"].startswith("Page 1\n"))
        if self.state["story"] != before["story"]:
            self.game.wait_for_change("paperlab", paper)

    def test_a_first_hour_shows_at_every_moment_what_the_country_is(self):
        # Nobody hungers: a little more on the plates, and hands enough to grow it.
        for name in ("lration", "gration"):
            label = self.game.look(name + "lab")
            self.game.click(name + "++")
            self.game.wait_for_change(name + "lab", label)
        self.raise_share(FARMERS, "farmers", 40)
        self.raise_share(BUTCHERS, "butchers", 55)
        self.assertFalse(self.state["hungry"])

        self.order(GRAIN, "grainbuy", 0.3)
        before = self.state
        self.press("sellbut", lambda state: state["orders"][GRAIN] == 0, "a sale")
        self.assertGreater(self.state["funds"], before["funds"])
        self.assertLess(self.state["grain"], before["grain"])

        self.order(LIVESTOCK, "stockbuy", 0.2)
        before = self.state
        self.press("buybut", lambda state: state["orders"][LIVESTOCK] == 0, "a purchase")
        self.assertLess(self.state["funds"], before["funds"])
        self.assertGreater(self.state["livestock"], before["livestock"])

        self.order(LIVESTOCK, "stockbuy", 0.7)
        self.order(GRAIN, "grainbuy", 0.7)
        before = self.state
        self.press("buybut", lambda state: state["asked"], "a refusal")
        self.assertEqual(self.state["orders"], before["orders"])
        self.game.press("__msgbox_ok")
        self.until(lambda state: not state["asked"], "the box to go away")
        self.game.xdotool("mouseup", 1)

        struck = False
        for week in range(1, LAST_WEEK + 1):
            self.play_a_week()
            state = self.state
            if week <= GRACE_WEEKS:
                self.assertFalse(state["hungry"] or state["famine"] or state["plague"], state)
                self.assertGreater(min(state["grain"], state["livestock"]), 0)
            if week == FIRST_MEASURED_WEEK:
                memory = self.resident()
            if week == GRACE_WEEKS:  # the herd is left to itself, and is eaten up
                self.game.drag("butchers", -0.35, self.state["shares"][BUTCHERS])
                self.until(lambda state: state["shares"][BUTCHERS] < 0.3, "fewer butchers")
            struck = struck or state["famine"] or state["plague"]
        self.assertTrue(struck)
        at_the_end = self.resident()
        print(f"{memory} KiB in week {FIRST_MEASURED_WEEK}, {at_the_end} KiB at the end")
        if not SANITIZED:
            self.assertAlmostEqual(at_the_end, memory, delta=MIB)

        state = self.state
        self.assertEqual(state["wrong"], [])
        self.assertGreater(state["compared"], LAST_WEEK * 16)
        self.game.xdotool("keydown", "Escape")
        self.assertEqual(self.game.ended(), 0, self.game.stderr[-4000:])
        self.assertNotRegex(self.game.stderr, BAD_NEWS)
