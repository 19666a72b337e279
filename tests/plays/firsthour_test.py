# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The first hour of a player with a real mouse and keyboard. CTest runs it on SDL 1.2 and on
sdl12-compat. In every frame, the program watchedgame compares each label with the country's
numbers."""

import json
import os
import re
import time
import unittest
from pathlib import Path

from driver import BUILD, FAILURE_REPORTS, SANITIZED, Game, play_folder

WEEK = 604800
FED_WEEKS = 48  # for which the country has enough food
LAST_WEEK = 60
FIRST_MEASURED_WEEK = 5
MIB = 1024  # KiB
# The C library returns freed blocks of at least this size to the system at once. What Mesa
# allocates for one picture is therefore not counted between two pictures.
LARGE_BLOCK = {"MALLOC_MMAP_THRESHOLD_": "32768"}
MEMORY_SAMPLES = 150

ATTEMPT = 3.0  # seconds after which a press without an effect is repeated
# Seconds between a release and the next press. The game must draw a frame between them to notice
# both.
PAUSE = 0.1

FARMERS, BUTCHERS = range(2)
LIVESTOCK, GRAIN = range(2)


class FirstHour(unittest.TestCase):
    def setUp(self):
        folder = play_folder(self)
        folder.mkdir(parents=True, exist_ok=True)
        self.log = folder / "log"
        self.log.unlink(missing_ok=True)
        # Only the slow run draws every frame twice, to compare the two pictures.
        twice = ["twice"] if os.environ["MEROVINSKA_SDL"] == "sdl12-compat" else []
        self.game = Game(folder, [BUILD / "tests/plays/watchedgame", self.log, *twice],
                         settings=LARGE_BLOCK)
        self.addCleanup(self.game.close)
        self.game.wait_until_started()

    @property
    def state(self):
        """What watchedgame wrote last: the last complete line of its log."""
        whole = self.log.read_bytes().rpartition(b"\n")[0]
        return json.loads(whole.rpartition(b"\n")[2])

    def until(self, condition, what):
        self.game.wait(lambda: condition(self.state), what)

    def press(self, tag, condition, what):
        """Clicks on a button until the condition is true."""
        self.game.open_tab_of(tag)
        self.game.hover(tag)

        def happens():
            self.game.xdotool("mousedown", 1)
            end = time.monotonic() + ATTEMPT
            while not (done := condition(self.state)) and time.monotonic() < end:
                time.sleep(0.02)
            self.game.xdotool("mouseup", 1)
            time.sleep(PAUSE)
            return done

        self.game.wait(happens, what)

    def raise_share(self, profession, name, percent):
        while (before := round(self.state["shares"][profession] * 100)) < percent:
            self.press(name + "++",
                       lambda state: round(state["shares"][profession] * 100) > before,
                       f"more {name}")

    def order(self, stock, slider, fraction):
        self.game.open_tab_of(slider)
        self.game.drag(slider, fraction)
        self.until(lambda state: state["orders"][stock] > 0, "an order")

    def resident(self):
        """The KiB of memory that the game uses: the lowest of many samples."""
        samples = []
        for _ in range(MEMORY_SAMPLES):
            status = Path(f"/proc/{self.game.process.pid}/status").read_text()
            samples.append(int(re.search(r"VmRSS:\s*(\d+) kB", status)[1]))
            time.sleep(0.02)
        return min(samples)

    def play_a_week(self):
        before = self.state
        paper = self.game.look("paperlab")
        self.press("update",
                   lambda state: state["elapsed"] > before["elapsed"] + 0.9 * WEEK, "a week")
        self.assertTrue(self.state["story"].startswith("Page 1\n"))
        if self.state["story"] != before["story"]:
            self.game.wait_for_change("paperlab", paper)

    def read_the_chronicle(self):
        """Opens its tab. The newest entries are there, each with its date."""
        paper = self.game.look("chronicle")
        self.game.open_tab_of("chronicle")
        self.game.wait_for_change("chronicle", paper)
        entries = [line for line in self.state["chronicle"].splitlines() if line]
        self.assertGreater(len(entries), 3)
        for entry in entries:
            self.assertRegex(entry, r"^\d+/\d+/\d+: [A-Z].*[.!]$")
        self.assertRegex("\n".join(entries), r"A (famine|plague) begins")

    def test_labels_show_the_numbers_of_the_country_in_every_frame_of_the_first_hour(self):
        # Raise the rations and employ enough workers, so that nobody is hungry.
        for name in ("lration", "gration"):
            label = self.game.look(name + "lab")
            self.game.click(name + "++")
            self.game.wait_for_change(name + "lab", label)
        self.raise_share(FARMERS, "farmers", 40)
        self.raise_share(BUTCHERS, "butchers", 55)
        self.assertFalse(self.state["hungry"])

        self.order(GRAIN, "grainbuy", 0.3)
        news = self.game.look("news")
        before = self.state
        self.press("sellbut", lambda state: state["orders"][GRAIN] == 0, "a sale")
        self.assertGreater(self.state["funds"], before["funds"])
        self.assertLess(self.state["grain"], before["grain"])
        self.until(lambda state: ": The country sold" in state["news"], "news of the sale")
        self.game.wait_for_change("news", news)

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
        self.until(lambda state: not state["asked"], "the message box to close")
        self.game.xdotool("mouseup", 1)

        disaster = False
        calm_picture = self.game.look("newscalm")
        for week in range(1, LAST_WEEK + 1):
            self.play_a_week()
            state = self.state
            if week <= FED_WEEKS:
                self.assertFalse(state["hungry"] or state["famine"] or state["plague"], state)
                self.assertGreater(min(state["grain"], state["livestock"]), 0)
            if week == FIRST_MEASURED_WEEK:
                memory = self.resident()
            if week == FED_WEEKS:  # without butchers the livestock will not last
                self.game.drag("butchers", -0.35, self.state["shares"][BUTCHERS])
                self.until(lambda state: state["shares"][BUTCHERS] < 0.3, "fewer butchers")
            if not disaster and (state["famine"] or state["plague"]):
                disaster = True
                self.assertRegex(state["news"], r"^ALARM  \d+/\d+/\d+: .*(begin|starving|herd)")
                self.game.wait_for_change("newscalm", calm_picture)
        self.assertTrue(disaster)
        self.read_the_chronicle()
        at_the_end = self.resident()
        print(f"{memory} KiB in week {FIRST_MEASURED_WEEK}, {at_the_end} KiB at the end")
        # The sanitizers keep freed memory for a while, and report leaks themselves.
        if not SANITIZED:
            self.assertAlmostEqual(at_the_end, memory, delta=MIB)

        state = self.state
        self.assertEqual(state["wrong"], [])
        self.assertGreater(state["compared"], LAST_WEEK * 16)
        self.game.xdotool("keydown", "Escape")
        self.assertEqual(self.game.ended(), 0, self.game.stderr[-4000:])
        self.assertNotRegex(self.game.stderr, FAILURE_REPORTS)
