# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""Whole plays of the game with a real mouse and keyboard, on both SDL libraries."""

import os
import re
import unittest
from pathlib import Path

from driver import BAD_NEWS, SIZE, Game, play_folder, widgets

SIGNALS = {
    "SIGQUIT": "Caught signal SIGQUIT - Terminal quit (POSIX)",
    "SIGHUP": "Caught signal SIGHUP - Hangup (POSIX)",
    "SIGINT": "Caught signal SIGINT - Terminal interrupt (ANSI)",
    "SIGILL": "Caught signal SIGILL - Illegal instruction (ANSI)",
    "SIGABRT": "Caught signal SIGIOT - IOT Trap (4.2 BSD)",
    "SIGSEGV": "Caught signal SIGSEGV - Invalid memory segment access (ANSI)",
}


class Plays(unittest.TestCase):
    def setUp(self):
        self.game = Game(play_folder(self))
        self.addCleanup(self.game.close)
        self.game.wait_until_started()

    def expect_clean_end(self, status=0):
        self.assertEqual(self.game.ended(), status, self.game.stderr[-4000:])
        self.assertNotRegex(self.game.stderr, BAD_NEWS)

    def quit_by_escape(self):
        self.game.xdotool("keydown", "Escape")
        self.expect_clean_end()

    def expect_label_follows_button(self, button, label):
        self.game.bring_up(label)
        before = self.game.at_rest(label)
        self.game.click(button)
        self.game.wait_for_change(label, before)

    def cross_the_border(self, times):
        inside, outside = (400, 300), (SIZE[0] + 200, SIZE[1] + 200)
        for _ in range(times):
            self.game.move(*outside)
            self.game.move(*inside)

    # Start

    def test_the_game_opens_its_window_and_fills_its_labels(self):
        geometry = self.game.window.get_geometry()
        self.assertEqual((geometry.width, geometry.height), SIZE)
        self.assertTrue(self.game.stderr.startswith("Starting GUI from my.gui.debug\n"))
        self.quit_by_escape()

    def test_the_game_runs_on_the_library_it_was_given(self):
        self.assertEqual(self.game.loaded_sdl(), Path(os.environ["MEROVINSKA_SDL_FOLDER"]).resolve())
        self.quit_by_escape()

    # Controls

    def test_a_step_up_changes_the_label_and_a_step_down_brings_it_back(self):
        self.game.bring_up("farmerslab")
        before = self.game.at_rest("farmerslab")
        self.game.click("farmers++")
        self.game.wait_for_change("farmerslab", before)
        self.game.click("farmers--")
        self.game.wait(lambda: self.game.look("farmerslab") == before, "the old farmers' label")
        self.quit_by_escape()

    def test_every_step_button_changes_its_label(self):
        # Up before down: at the end of the range a step down does nothing.
        for name in ("farmers", "butchers", "educators", "warriors", "doctors", "lration", "gration"):
            for step in ("++", "--"):
                with self.subTest(button=name + step):
                    self.expect_label_follows_button(name + step, name + "lab")
        self.quit_by_escape()

    def test_a_dragged_slider_moves_its_label_and_a_released_one_stays(self):
        self.game.bring_up("lrationlab")
        before = self.game.at_rest("lrationlab")
        slider = widgets()["lration"]
        horizontal = self.game.grip("lration", slider.middle)
        self.game.wait_for_change("lrationlab", before)
        self.game.xdotool("mouseup", 1)
        self.game.at_rest("lration")
        label = self.game.look("lrationlab")
        x, y = self.game.pointer
        self.game.move(*((x - 20, y) if horizontal else (x, y + 20)))
        self.game.at_rest("lration")
        self.assertEqual(self.game.look("lrationlab"), label)
        self.quit_by_escape()

    def test_a_dragged_profession_takes_people_at_once(self):
        self.game.bring_up("doctorslab")
        before = self.game.at_rest("doctorslab")
        self.game.drag("doctors", 0.3)
        self.game.wait_for_change("doctorslab", before)
        self.quit_by_escape()

    def test_every_order_slider_fills_its_label(self):
        for name in ("stockbuy", "grainbuy", "finebuy"):
            with self.subTest(slider=name):
                self.game.bring_up(name + "lab")
                before = self.game.at_rest(name + "lab")
                self.game.drag(name, 0.2)
                self.game.wait_for_change(name + "lab", before)
        self.quit_by_escape()

    def test_a_dragged_justice_shows_among_the_figures(self):
        def first_line():
            label = widgets()["debuginfo"]
            line = (label.bottom - label.top) // 13
            return self.game.grab(label.left, label.top, label.right, label.top + line - 4)

        self.game.bring_up("debuginfo")
        self.game.wait(lambda: len(set(memoryview(first_line()).cast("I"))) > 2, "the figures")
        before = first_line()
        self.game.drag("justiceslide", 0.3)
        self.game.bring_up("debuginfo")
        self.game.wait(lambda: first_line() != before, "another level of justice")
        self.quit_by_escape()

    def test_the_newspaper_stays_on_its_only_page(self):
        # The first edition comes with the clock's first tick.
        self.game.wait_for_change("date", self.game.look("date"))
        before = self.game.at_rest("paperlab")
        self.game.click("PrevPage")
        self.game.click("lration++")  # a frame in which the page would have been turned
        self.assertEqual(self.game.look("paperlab"), before)
        self.quit_by_escape()

    def test_a_country_is_picked_from_the_list(self):
        button = widgets()["__countryseldropbox"]
        row = button.bottom - button.top
        name = button.right + 8, button.top, button.right + 80, button.bottom
        rows = button.right + 8, button.bottom + row // 2, button.right + 80, button.bottom + 2 * row
        self.game.hover("__countryseldropbox")
        first, closed = self.game.grab(*name), self.game.grab(*rows)
        self.game.xdotool("mousedown", 1)
        self.game.wait(lambda: self.game.grab(*rows) != closed, "the list to open")
        self.game.xdotool("mouseup", 1)
        self.game.move(button.right + 40, button.bottom + 3 * row)
        self.game.xdotool("mousedown", 1)
        self.game.wait(lambda: self.game.grab(*rows) == closed, "the list to close")
        self.game.xdotool("mouseup", 1)
        self.assertNotEqual(self.game.grab(*name), first)
        self.quit_by_escape()

    def test_the_week_button_advances_the_date_by_days(self):
        # The clock changes only the time of day, at the label's end.
        day = 0.72
        self.game.bring_up("date")
        whole = self.game.look("date")
        before = self.game.at_rest("date", day)
        self.game.wait_for_change("date", whole)
        self.assertEqual(self.game.look("date", day), before)
        self.game.click("update")
        self.game.wait(lambda: self.game.look("date", day) != before, "another day")
        self.quit_by_escape()

    # Trade

    def slider_at_zero(self, tag):
        self.game.bring_up(tag)
        return self.game.at_rest(tag)

    def refuse_a_purchase(self):
        """Asks for more than the treasury holds. Returns the pixels where the box's button will
        be, as they were before."""
        self.game.drag("stockbuy", 0.7)
        self.game.drag("grainbuy", 0.7)
        nothing = self.game.at_rest("__msgbox_ok")
        self.game.click("buybut")
        self.game.wait_for_change("__msgbox_ok", nothing)
        return nothing

    def test_a_purchase_beyond_the_means_is_refused_in_a_box_that_is_answered(self):
        nothing = self.refuse_a_purchase()
        box = self.game.at_rest("__msgbox_ok")
        order = self.game.at_rest("stockbuy")
        self.game.press("__msgbox_ok")
        self.game.wait(lambda: self.game.look("__msgbox_ok") == nothing, "the box to go away")
        self.game.xdotool("mouseup", 1)
        self.assertNotEqual(box, nothing)
        self.assertEqual(self.game.at_rest("stockbuy"), order)
        self.quit_by_escape()

    def test_a_purchase_within_the_means_clears_the_order(self):
        empty = self.slider_at_zero("stockbuy")
        self.game.drag("stockbuy", 0.3)
        self.assertNotEqual(self.game.at_rest("stockbuy"), empty)
        self.game.click("buybut")
        self.game.wait(lambda: self.game.look("stockbuy") == empty, "an empty order")
        self.quit_by_escape()

    def test_a_sale_clears_the_order(self):
        empty = self.slider_at_zero("grainbuy")
        self.game.drag("grainbuy", 0.3)
        self.assertNotEqual(self.game.at_rest("grainbuy"), empty)
        self.game.click("sellbut")
        self.game.wait(lambda: self.game.look("grainbuy") == empty, "an empty order")
        self.quit_by_escape()

    def test_a_long_play_leaves_nothing_behind(self):
        """The sanitized build reports here what is not given back."""
        nothing = self.refuse_a_purchase()
        self.game.press("__msgbox_ok")
        self.game.wait(lambda: self.game.look("__msgbox_ok") == nothing, "the box to go away")
        self.game.xdotool("mouseup", 1)
        self.game.click("sellbut")
        for tag in sorted({widget.behind for widget in widgets().values()} - {"-"}):
            self.game.click(tag)
        self.game.tab.clear()
        self.game.click("update")
        self.game.click("farmers++")
        self.quit_by_escape()

    # Ends

    def test_escape_ends_the_game(self):
        self.quit_by_escape()

    def test_the_exit_button_ends_the_game(self):
        self.game.press("exitbut")
        self.expect_clean_end()

    def test_the_close_button_ends_the_game(self):
        self.game.close_window()
        self.expect_clean_end()

    # A restless pointer

    def test_crossing_the_border_200_times_leaves_clicks_and_keys_working(self):
        self.cross_the_border(200)
        self.expect_label_follows_button("farmers++", "farmerslab")
        self.expect_label_follows_button("lration++", "lrationlab")
        self.quit_by_escape()

    def test_after_crossing_the_border_200_times_the_first_close_request_ends_the_game(self):
        self.cross_the_border(200)
        self.game.close_window()
        self.expect_clean_end()

    # Signals

    def expect_report(self, name):
        self.game.send_signal(name)
        self.assertEqual(self.game.ended(), 1)
        lines = self.game.stderr.splitlines()
        start = lines.index(SIGNALS[name])
        self.assertEqual(lines[start + 1], "Stack Trace:")
        stack = lines[start + 2:]
        self.assertEqual(stack[-3:], ["#3: Kernel::MainLoop", "#2: App::Init", "#1: ::main"])
        for depth, line in enumerate(reversed(stack), 1):
            self.assertRegex(line, rf"^#{depth}: \w*::[~\w+=\[\] ]+$")

    def test_a_quit_signal_is_reported_with_the_stack(self):
        self.expect_report("SIGQUIT")

    def test_a_hangup_is_reported_with_the_stack(self):
        self.expect_report("SIGHUP")

    def test_an_interrupt_is_reported_with_the_stack(self):
        self.expect_report("SIGINT")

    def test_an_illegal_instruction_is_reported_with_the_stack(self):
        self.expect_report("SIGILL")

    def test_an_abort_is_reported_with_the_stack(self):
        self.expect_report("SIGABRT")

    def test_an_invalid_access_is_reported_with_the_stack(self):
        self.expect_report("SIGSEGV")
