# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""Plays of the game with a real mouse and keyboard. CTest runs them on SDL 1.2 and on
sdl12-compat."""

import os
import unittest
from pathlib import Path

from driver import FAILURE_REPORTS, SIZE, Game, play_folder, widgets

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
        self.assertNotRegex(self.game.stderr, FAILURE_REPORTS)

    def quit_by_escape(self):
        self.game.xdotool("keydown", "Escape")
        self.expect_clean_end()

    def expect_label_follows_button(self, button, label):
        self.game.open_tab_of(label)
        before = self.game.at_rest(label)
        self.game.click(button)
        self.game.wait_for_change(label, before)

    def cross_the_border(self, times):
        inside, outside = (400, 300), (SIZE[0] + 200, SIZE[1] + 200)
        for _ in range(times):
            self.game.move(*outside)
            self.game.move(*inside)

    # Start

    def test_game_opens_its_window_and_fills_its_labels(self):
        geometry = self.game.window.get_geometry()
        self.assertEqual((geometry.width, geometry.height), SIZE)
        self.assertTrue(self.game.stderr.startswith("Starting GUI from my.gui.debug\n"))
        self.quit_by_escape()

    def test_game_runs_on_the_sdl_library_that_was_chosen(self):
        folder = Path(os.environ["MEROVINSKA_SDL_FOLDER"])
        self.assertEqual(self.game.loaded_sdl(), folder.resolve())
        self.quit_by_escape()

    # Controls

    def test_plus_button_changes_the_label_and_minus_button_restores_it(self):
        self.game.open_tab_of("farmerslab")
        before = self.game.at_rest("farmerslab")
        self.game.click("farmers++")
        self.game.wait_for_change("farmerslab", before)
        self.game.click("farmers--")
        self.game.wait(lambda: self.game.look("farmerslab") == before, "the old text of farmerslab")
        self.quit_by_escape()

    def test_every_plus_and_minus_button_changes_its_label(self):
        # Plus before minus: a slider at its lowest level ignores the minus button.
        for name in ("farmers", "butchers", "educators", "warriors", "doctors", "lration",
                     "gration"):
            for step in ("++", "--"):
                with self.subTest(button=name + step):
                    self.expect_label_follows_button(name + step, name + "lab")
        self.quit_by_escape()

    def test_dragged_slider_changes_its_label_and_released_slider_does_not(self):
        self.game.open_tab_of("lrationlab")
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

    def test_dragged_slider_of_a_profession_changes_its_label_at_once(self):
        self.game.open_tab_of("doctorslab")
        before = self.game.at_rest("doctorslab")
        self.game.drag("doctors", 0.3)
        self.game.wait_for_change("doctorslab", before)
        self.quit_by_escape()

    def test_every_order_slider_fills_its_label(self):
        for name in ("stockbuy", "grainbuy", "finebuy"):
            with self.subTest(slider=name):
                self.game.open_tab_of(name + "lab")
                before = self.game.at_rest(name + "lab")
                self.game.drag(name, 0.2)
                self.game.wait_for_change(name + "lab", before)
        self.quit_by_escape()

    def test_dragged_slider_of_justice_changes_the_statistics(self):
        def first_line():
            label = widgets()["debuginfo"]
            line = (label.bottom - label.top) // 13
            return self.game.grab(label.left, label.top, label.right, label.top + line - 4)

        self.game.open_tab_of("debuginfo")
        self.game.wait(lambda: len(set(memoryview(first_line()).cast("I"))) > 2, "the statistics")
        before = first_line()
        self.game.drag("justiceslide", 0.3)
        self.game.open_tab_of("debuginfo")
        self.game.wait(lambda: first_line() != before, "another level of justice")
        self.quit_by_escape()

    def test_ornament_of_the_newspaper_does_not_answer_and_turns_no_page(self):
        # The clock's first tick makes the first edition.
        self.game.wait_for_change("date", self.game.look("date"))
        self.game.click("lration++")  # from now on the game notices the mouse
        before = self.game.at_rest("paperlab")
        ornament = self.game.at_rest("PrevPage")
        self.game.move(*widgets()["PrevPage"].middle)
        self.assertEqual(self.game.at_rest("PrevPage"), ornament)
        self.game.xdotool("mousedown", 1)
        self.assertEqual(self.game.at_rest("PrevPage"), ornament)
        self.game.xdotool("mouseup", 1)
        self.game.click("lration++")  # meanwhile a page would have been turned
        self.assertEqual(self.game.look("PrevPage"), ornament)
        self.assertEqual(self.game.look("paperlab"), before)
        self.quit_by_escape()

    def test_country_can_be_selected_from_the_list(self):
        button = widgets()["__countryseldropbox"]
        row = button.bottom - button.top
        name = button.right + 8, button.top, button.right + 80, button.bottom
        rows = (button.right + 8, button.bottom + row // 2,
                button.right + 80, button.bottom + 2 * row)
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

    def test_week_button_changes_the_day_of_the_date(self):
        # The part of the label in front of the time of day, which the clock changes.
        day = 0.72
        self.game.open_tab_of("date")
        whole = self.game.look("date")
        before = self.game.at_rest("date", day)
        self.game.wait_for_change("date", whole)
        self.assertEqual(self.game.look("date", day), before)
        self.game.click("update")
        self.game.wait(lambda: self.game.look("date", day) != before, "another day")
        self.quit_by_escape()

    # Trade

    def slider_at_zero(self, tag):
        self.game.open_tab_of(tag)
        return self.game.at_rest(tag)

    def refuse_a_purchase(self):
        """Orders more than the country can pay. Returns the pixels that were at the place of the
        message box's button before the box appeared."""
        self.game.drag("stockbuy", 0.7)
        self.game.drag("grainbuy", 0.7)
        nothing = self.game.at_rest("__msgbox_ok")
        self.game.click("buybut")
        self.game.wait_for_change("__msgbox_ok", nothing)
        return nothing

    def test_purchase_that_costs_too_much_is_refused_in_a_message_box(self):
        nothing = self.refuse_a_purchase()
        box = self.game.at_rest("__msgbox_ok")
        order = self.game.at_rest("stockbuy")
        self.game.press("__msgbox_ok")
        self.game.wait(lambda: self.game.look("__msgbox_ok") == nothing, "the message box to close")
        self.game.xdotool("mouseup", 1)
        self.assertNotEqual(box, nothing)
        self.assertEqual(self.game.at_rest("stockbuy"), order)
        self.quit_by_escape()

    def test_purchase_that_can_be_paid_clears_the_order(self):
        empty = self.slider_at_zero("stockbuy")
        self.game.drag("stockbuy", 0.3)
        self.assertNotEqual(self.game.at_rest("stockbuy"), empty)
        self.game.click("buybut")
        self.game.wait(lambda: self.game.look("stockbuy") == empty, "an empty order")
        self.quit_by_escape()

    def test_sale_clears_the_order(self):
        empty = self.slider_at_zero("grainbuy")
        self.game.drag("grainbuy", 0.3)
        self.assertNotEqual(self.game.at_rest("grainbuy"), empty)
        self.game.click("sellbut")
        self.game.wait(lambda: self.game.look("grainbuy") == empty, "an empty order")
        self.quit_by_escape()

    def test_long_play_does_not_leak_memory(self):
        """The leak sanitizer reports what is not freed."""
        nothing = self.refuse_a_purchase()
        self.game.press("__msgbox_ok")
        self.game.wait(lambda: self.game.look("__msgbox_ok") == nothing, "the message box to close")
        self.game.xdotool("mouseup", 1)
        self.game.click("sellbut")
        for tag in sorted({widget.tab for widget in widgets().values()} - {"-"}):
            self.game.click(tag)
        self.game.open_tabs.clear()
        self.game.click("update")
        self.game.click("farmers++")
        self.quit_by_escape()

    # Ends

    def test_escape_ends_the_game(self):
        self.quit_by_escape()

    def test_exit_button_ends_the_game(self):
        self.game.press("exitbut")
        self.expect_clean_end()

    def test_close_button_of_the_window_ends_the_game(self):
        self.game.close_window()
        self.expect_clean_end()

    # A mouse that leaves the window

    def test_clicks_and_keys_work_after_the_mouse_left_the_window_200_times(self):
        self.cross_the_border(200)
        self.expect_label_follows_button("farmers++", "farmerslab")
        self.expect_label_follows_button("lration++", "lrationlab")
        self.quit_by_escape()

    def test_first_close_request_ends_the_game_after_the_mouse_left_the_window_200_times(self):
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

    def test_sigquit_is_reported_with_the_stack_trace(self):
        self.expect_report("SIGQUIT")

    def test_sighup_is_reported_with_the_stack_trace(self):
        self.expect_report("SIGHUP")

    def test_sigint_is_reported_with_the_stack_trace(self):
        self.expect_report("SIGINT")

    def test_sigill_is_reported_with_the_stack_trace(self):
        self.expect_report("SIGILL")

    def test_sigabrt_is_reported_with_the_stack_trace(self):
        self.expect_report("SIGABRT")

    def test_sigsegv_is_reported_with_the_stack_trace(self):
        self.expect_report("SIGSEGV")
