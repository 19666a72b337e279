# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""guiview as a program: its options, its status, its pictures and its live view."""

import json
import os
import re
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from driver import Screen
from Xlib import X
from virtualdisplay import VirtualDisplay

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["MEROVINSKA_BUILD"])
GUIVIEW = BUILD / "tools/guiview"
TREE = ROOT / "tests/tools/guiview/my.gui.debug.tree"

CLEAN, FINDINGS, UNUSABLE = 0, 1, 2

# How long to wait for a condition before the test fails, in seconds.
TIMEOUT = 60.0

THEME = """0 0 0
0.3 0.3 0.3
{fill}
0 0 0
1
0
1
0.01
0
0
0.05 0.05
1 1
0.02 -0.02 0
0.1
NULL
1
"""
CONFIGURATION = "font.ttf\nx\n" + "0 0 1 1\n" * 5 + "0.005\n"


def without_display():
    """An environment in which no display can be found."""
    environment = dict(os.environ)
    for name in ["DISPLAY", "WAYLAND_DISPLAY", "SDL_VIDEODRIVER"]:
        environment.pop(name, None)
    return environment


class Folder(unittest.TestCase):
    """A folder with the font, configuration and themes that layouts need."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        shutil.copy(ROOT / "data/font.ttf", self.folder)
        self.write("gui.conf", CONFIGURATION)
        for theme in ["default", "tabwin_button", "combo_button", "messagebox"]:
            self.write(f"{theme}.theme", THEME.format(fill="0.8 0.8 0.8"))

    def write(self, name, text):
        path = self.folder / name
        path.write_text(text)
        return str(path)

    def guiview(self, *arguments, **options):
        options.setdefault("cwd", self.folder)
        return subprocess.run([GUIVIEW, *map(str, arguments)], stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=TIMEOUT,
                              env=without_display(), **options)


class GuiviewProgram(Folder):
    def expect(self, result, status, stdout="", stderr=""):
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (status, stdout, stderr))

    # Arguments

    def test_a_layout_is_required(self):
        result = self.guiview("--check")
        self.expect(result, UNUSABLE, "", "guiview: LAYOUT is required\n")

    def test_an_unknown_option_is_one_line(self):
        result = self.guiview("--loud", "a.gui")
        self.assertEqual((result.returncode, result.stdout), (UNUSABLE, ""))
        self.assertRegex(result.stderr, r"\Aguiview: .*--loud.*\n\Z")

    def test_tree_and_check_exclude_each_other(self):
        self.assertEqual(self.guiview("--tree", "--check", "a.gui").returncode, UNUSABLE)

    def test_json_without_check_is_refused(self):
        self.assertEqual(self.guiview("--json", "a.gui").returncode, UNUSABLE)

    def test_a_missing_layout_is_reported(self):
        for mode in ["--check", "--tree", "--format", "--png=a.png"]:
            with self.subTest(mode):
                self.expect(self.guiview(mode, "none.gui"), UNUSABLE, "",
                            "guiview: none.gui: cannot be read\n")

    def test_a_folder_instead_of_a_layout_is_reported(self):
        self.expect(self.guiview("--check", "."), UNUSABLE, "", "guiview: .: cannot be read\n")

    def test_a_pipe_instead_of_a_layout_is_refused_at_once(self):
        os.mkfifo(self.folder / "pipe")
        self.assertEqual(self.guiview("--check", "pipe").returncode, UNUSABLE)

    def test_the_live_view_needs_a_display(self):
        self.write("a.gui", "")
        self.expect(self.guiview("a.gui"), UNUSABLE, "",
                    "guiview: there is no display: --png, --tree and --check need none\n")

    # Checks

    def test_a_clean_layout_prints_nothing(self):
        self.write("a.gui", "CONF gui.conf\nCADD Label a NULL 0 0 A\n")
        self.expect(self.guiview("--check", "a.gui"), CLEAN)

    def test_findings_are_printed_with_file_line_and_column(self):
        self.write("a.gui", "FOO\nCADD Butt a NULL 5 0 TEX 1 1\n")
        self.expect(self.guiview("--check", "a.gui"), FINDINGS,
                    "a.gui:1:1: error: unknown statement 'FOO'\n"
                    "a.gui:2:11: warning: 'a' is outside the screen, 985 pixels beyond its right "
                    "edge\n")

    def test_a_layout_with_warnings_is_not_clean(self):
        self.write("a.gui", "CHLD\n")
        self.assertEqual(self.guiview("--check", "a.gui").returncode, FINDINGS)

    def test_paths_are_reported_as_they_were_given(self):
        layout = self.write("a.gui", "THEM a.theme NULL\n")
        self.write("a.theme", "")
        for path in [layout, f"{self.folder}/../{self.folder.name}/a.gui", "./a.gui"]:
            with self.subTest(path):
                self.expect(self.guiview("--check", path), FINDINGS,
                            path.removesuffix("gui")
                            + "theme:1:1: error: the file ends before its text colour\n")

    def test_files_are_read_from_the_folder_of_the_layout(self):
        layout = self.write("a.gui", "CONF gui.conf\nTHEM default.theme NULL\n")
        self.expect(self.guiview("--check", layout, cwd="/"), CLEAN)

    def test_findings_can_be_printed_as_json(self):
        self.write("a.gui", "FOO\n")
        result = self.guiview("--check", "--json", "a.gui")
        self.assertEqual(result.returncode, FINDINGS)
        self.assertEqual(json.loads(result.stdout),
                         [{"file": "a.gui", "line": 1, "column": 1, "severity": "error",
                           "message": "unknown statement 'FOO'"}])

    def test_no_findings_are_an_empty_array(self):
        self.write("a.gui", "")
        self.expect(self.guiview("--check", "--json", "a.gui"), CLEAN, "[]\n")

    def test_game_also_checks_what_the_game_needs(self):
        self.write("a.gui", "")
        self.expect(self.guiview("--check", "a.gui"), CLEAN)
        result = self.guiview("--check", "--game", "a.gui")
        self.assertEqual(result.returncode, FINDINGS)
        self.assertIn("the game needs a Butt with the tag 'exitbut'\n", result.stdout)

    def test_layout_of_the_game_is_known_by_its_tags(self):
        layout = (ROOT / "data/my.gui.debug").read_text().replace(" exitbut ", " leavebut ")
        shutil.copytree(ROOT / "data", self.folder / "game")
        self.write("game/my.gui.debug", layout)
        self.assertIn("the game needs a Butt with the tag 'exitbut'",
                      self.guiview("--check", "game/my.gui.debug").stdout)

    def test_picture_of_a_layout_of_the_game_shows_its_longest_texts(self):
        shutil.copytree(ROOT / "data", self.folder / "game")
        pictures = []
        for options in ([], ["--game"], ["--text", "date=Today"]):
            result = self.guiview("--png", "a.png", *options, "game/my.gui.debug")
            self.assertEqual((result.returncode, result.stderr), (CLEAN, ""))
            pictures.append((self.folder / "a.png").read_bytes())
        self.assertEqual(pictures[0], pictures[1])
        self.assertNotEqual(pictures[0], pictures[2])

    def test_sample_texts_are_checked(self):
        self.write("a.gui", "CONF gui.conf\nCADD Label a NULL 0 0 A\n")
        result = self.guiview("--check", "--text", r"a=A\nB", "a.gui")
        self.expect(result, FINDINGS,
                    "a.gui:2:12: warning: the text of 'a' takes 2 lines; the widget has room for "
                    "1\n")

    def test_a_text_for_an_unknown_tag_is_refused(self):
        self.write("a.gui", "")
        self.expect(self.guiview("--check", "--text", "b=B", "a.gui"), UNUSABLE, "",
                    "guiview: --text: no widget has the tag 'b'\n")

    def test_a_text_without_a_tag_is_refused(self):
        self.write("a.gui", "")
        for text in ["=B", "B"]:
            self.expect(self.guiview("--check", "--text", text, "a.gui"), UNUSABLE, "",
                        "guiview: --text takes TAG=TEXT\n")

    def test_findings_that_cannot_be_written_are_reported(self):
        self.write("a.gui", "FOO\n")
        with open("/dev/full", "w") as full:
            result = subprocess.run([GUIVIEW, "--check", self.folder / "a.gui"], stdout=full,
                                    stderr=subprocess.PIPE, text=True, timeout=TIMEOUT)
        self.assertEqual((result.returncode, result.stderr),
                         (UNUSABLE, "guiview: the findings cannot be written\n"))

    # Trees

    def test_a_tree_is_one_line_per_widget(self):
        self.write("a.gui", "CADD Frame f NULL 0.5 0.5 0\nCADD Butt a f 0 0 TEX 0.1 0.1\n")
        self.expect(self.guiview("--tree", "a.gui"), CLEAN,
                    "f Frame NULL   0.5000   0.5000   0.6600   0.6600\n"
                    "a Butt  f      0.5000   0.5000   0.6000   0.6000\n")

    def test_a_tree_of_a_broken_layout_names_the_errors(self):
        self.write("a.gui", "CADD Frame f NULL 0.5 0.5 0\nCADD Butt a g 0 0 TEX 0.1 0.1\nCHLD\n")
        self.expect(self.guiview("--tree", "a.gui"), FINDINGS,
                    "f Frame NULL   0.5000   0.5000   0.5000   0.5000\n",
                    "a.gui:2:13: error: unknown tag 'g'\n")

    def test_the_games_screen_is_laid_out_as_recorded(self):
        self.maxDiff = None
        self.assertEqual(self.guiview("--tree", ROOT / "data/my.gui.debug").stdout,
                         TREE.read_text(),
                         "if the change is meant: cmake --build --preset release --target "
                         "renew_layout_records")

    # Font sizes

    def game_folder(self):
        shutil.copytree(ROOT / "data", self.folder / "game")
        return self.folder / "game"

    @staticmethod
    def font_size(theme):
        lines = [line.split() for line in theme.read_text().splitlines()
                 if line.strip() and not line.startswith("//")]
        return " ".join(lines[10][:2])

    def test_all_themes_with_text_get_the_font_size_in_the_folder_of_a_set(self):
        game = self.game_folder()
        before = {path.name: path.read_bytes() for path in game.glob("*.theme")}
        (self.folder / "medium").mkdir()
        result = self.guiview("--font-size", "0.05", "--into", "medium", "game/my.gui.debug")
        self.assertEqual((result.returncode, result.stderr), (CLEAN, ""))
        written = sorted((self.folder / "medium").iterdir())
        self.assertEqual(result.stdout.splitlines(), [f"medium/{path.name}" for path in written])
        self.assertLessEqual({"default.theme", "button.theme", "messagebox.theme"},
                             {path.name for path in written})
        self.assertNotIn("desk.theme", {path.name for path in written})
        for path in written:
            self.assertEqual(self.font_size(path), "0.05 0.05")
        self.assertEqual({path.name: path.read_bytes() for path in game.glob("*.theme")}, before)
        for path in written:
            shutil.copy(path, game)
        self.assertNotIn("error", self.guiview("--check", "game/my.gui.debug").stdout)
        self.expect(self.guiview("--font-size", "0.05", "game/my.gui.debug"), CLEAN)

    def test_theme_that_the_set_already_has_keeps_its_other_values(self):
        self.game_folder()
        (self.folder / "medium").mkdir()
        own = self.write("medium/default.theme", THEME.format(fill="0.1 0.2 0.3"))
        self.assertEqual(
            self.guiview("--font-size", "0.06", "--into", "medium/", "game/my.gui.debug").returncode,
            CLEAN)
        self.assertEqual(Path(own).read_text(),
                         THEME.format(fill="0.1 0.2 0.3").replace("0.05 0.05", "0.06 0.06"))

    def test_font_size_changes_the_themes_beside_the_layout(self):
        self.write("a.gui", "CONF gui.conf\nCADD Label a NULL 0 0 A\n")
        self.expect(self.guiview("--font-size", "0.06", "a.gui"), CLEAN, "default.theme\n")
        self.assertEqual(self.font_size(self.folder / "default.theme"), "0.06 0.06")
        self.assertEqual(self.font_size(self.folder / "messagebox.theme"), "0.05 0.05")

    def test_font_size_out_of_range_is_refused(self):
        self.write("a.gui", "CONF gui.conf\nCADD Label a NULL 0 0 A\n")
        for size in ("0", "12", "large", "0.05x"):
            self.expect(self.guiview("--font-size", size, "a.gui"), UNUSABLE, "",
                        "guiview: --font-size takes a number: 0.04 to 0.4\n")

    def test_themes_that_cannot_be_changed_are_reported(self):
        self.write("a.gui", "CONF gui.conf\nCADD Label a NULL 0 0 A\n")
        self.expect(self.guiview("--font-size", "0.06", "--into", "none", "a.gui"), UNUSABLE, "",
                    "guiview: none/default.theme: cannot be written\n")
        self.write("default.theme", "1 1 1\n")
        self.expect(self.guiview("--font-size", "0.06", "a.gui"), UNUSABLE, "",
                    "guiview: default.theme: has no line for the font size\n")
        (self.folder / "default.theme").unlink()
        self.expect(self.guiview("--font-size", "0.06", "a.gui"), UNUSABLE, "",
                    "guiview: default.theme: cannot be read\n")

    # Formatting

    UNALIGNED = "CADD Label a NULL 0 0 A\nCADD Win win NULL 1 0.5 0 W\n"
    ALIGNED = "CADD Label a   NULL 0 0   A\nCADD Win   win NULL 1 0.5 0 W\n"

    def test_a_layout_is_formatted_in_place(self):
        layout = self.write("a.gui", self.UNALIGNED)
        os.chmod(layout, 0o640)
        self.expect(self.guiview("--format", "a.gui"), CLEAN)
        self.assertEqual(Path(layout).read_text(), self.ALIGNED)
        self.assertEqual(os.stat(layout).st_mode & 0o777, 0o640)
        self.assertEqual(sorted(path.name for path in self.folder.glob("a.*")), ["a.gui"])

    def test_a_layout_that_is_already_aligned_is_not_written(self):
        layout = self.write("a.gui", self.ALIGNED)
        before = os.stat(layout)
        self.expect(self.guiview("--format", "a.gui"), CLEAN)
        after = os.stat(layout)
        self.assertEqual((before.st_ino, before.st_mtime_ns), (after.st_ino, after.st_mtime_ns))

    def test_a_link_to_a_layout_stays_a_link(self):
        self.write("a.gui", self.UNALIGNED)
        (self.folder / "link.gui").symlink_to("a.gui")
        self.expect(self.guiview("--format", "link.gui"), CLEAN)
        self.assertTrue((self.folder / "link.gui").is_symlink())
        self.assertEqual((self.folder / "a.gui").read_text(), self.ALIGNED)

    def test_the_format_can_be_checked_without_changing_it(self):
        layout = self.write("a.gui", self.UNALIGNED)
        self.expect(self.guiview("--format", "--check", "a.gui"), FINDINGS,
                    "a.gui:1:1: warning: the columns are not aligned: guiview --format aligns "
                    "them\na.gui:2:1: warning: the columns are not aligned: guiview --format "
                    "aligns them\n")
        self.assertEqual(Path(layout).read_text(), self.UNALIGNED)
        self.write("a.gui", self.ALIGNED)
        self.expect(self.guiview("--format", "--check", "a.gui"), CLEAN)

    def test_a_layout_that_cannot_be_written_stays_as_it_is(self):
        layout = self.write("a.gui", self.UNALIGNED)
        (self.folder / "a.gui.guiview").mkdir()  # has the name of the file for the new content
        self.expect(self.guiview("--format", "a.gui"), UNUSABLE, "",
                    "guiview: a.gui: cannot be written\n")
        self.assertEqual(Path(layout).read_text(), self.UNALIGNED)


def pixel(picture, x, y):
    """Red, green and blue of a pixel of a PNG file."""
    text = subprocess.run(["convert", picture, "-depth", "8", "-crop", f"1x1+{x}+{y}", "txt:-"],
                          check=True, capture_output=True, text=True).stdout
    return tuple(map(int, re.search(r"\((\d+),(\d+),(\d+)", text).groups()))


def size(picture):
    return tuple(map(int, subprocess.run(["identify", "-format", "%w %h", picture], check=True,
                                         capture_output=True, text=True).stdout.split()))


NOTHING = (0, 0, 204)  # where no widget is drawn
GREY = (204, 204, 204)
OUTLINE = (77, 77, 77)


class GuiviewPicture(Folder):
    """Pictures, which need no display."""

    def picture(self, layout, *arguments):
        self.write("a.gui", layout)
        file = self.folder / "a.png"
        result = self.guiview("--png", file, "a.gui", *arguments)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (CLEAN, "", ""))
        return file

    def test_shows_the_whole_screen(self):
        # A unit is 230.77 pixels; the middle of the screen is the origin.
        file = self.picture("CADD Butt a NULL 0.5 0.5 TEX 0.5 0.25\n")
        self.assertEqual(size(file), (800, 600))
        self.assertEqual(pixel(file, 10, 10), NOTHING)
        self.assertEqual(pixel(file, 573, 156), GREY)
        self.assertEqual(pixel(file, 573, 188), NOTHING)

    def test_can_be_cropped_to_the_widgets(self):
        file = self.picture("CADD Butt a NULL 0.5 0.5 TEX 0.5 0.25\n", "--crop")
        width, height = size(file)
        self.assertTrue(129 <= width <= 134 and 72 <= height <= 76, (width, height))
        self.assertEqual(pixel(file, 2, 2), NOTHING)
        self.assertEqual(pixel(file, width // 2, height // 2), GREY)

    def test_shows_sample_texts(self):
        layout = "CONF gui.conf\nCADD Label a NULL 0 0.5 A\n"
        plain = self.picture(layout).read_bytes()
        self.assertNotEqual(self.picture(layout, "--text", "a=B").read_bytes(), plain)
        self.assertEqual(self.picture(layout, "--text", "a=A").read_bytes(), plain)

    def test_fills_a_list_with_the_lines_of_its_text(self):
        layout = "CONF gui.conf\nCADD Combo a NULL 0.5 0.5\n"
        items = "TEXT a One\nTEXT a Two\n"
        self.assertEqual(self.picture(layout, "--text", r"a=One\nTwo", "--click", "a").read_bytes(),
                         self.picture(layout + items, "--click", "a").read_bytes())

    def test_the_same_layout_gives_the_same_picture(self):
        layout = "CONF gui.conf\nCADD Label a NULL 0 0.5 The same\n"
        self.assertEqual(self.picture(layout).read_bytes(), self.picture(layout).read_bytes())

    def test_a_pressed_button_is_drawn_at_its_offset(self):
        layout = "CADD Butt a NULL 0.5 0.5 TEX 0.5 0.25\n"
        self.assertEqual(pixel(self.picture(layout), 518, 155), GREY)
        # pressed by 0.02 to the right: 4.6 pixels
        pressed = self.picture(layout, "--press", "a")
        self.assertEqual(pixel(pressed, 517, 155), NOTHING)
        self.assertEqual(pixel(pressed, 525, 155), GREY)

    def test_a_hovered_button_is_brighter(self):
        self.write("default.theme",
                   THEME.format(fill="0.8 0.8 0.8").replace("1 1\n0.02", "0.5 1\n0.02"))
        layout = "CADD Butt a NULL 0.5 0.5 TEX 0.5 0.25\n"
        self.assertEqual(pixel(self.picture(layout), 573, 156), (102, 102, 102))
        self.assertEqual(pixel(self.picture(layout, "--hover", "a"), 573, 156), GREY)

    def test_a_click_on_a_tab_opens_it(self):
        layout = ("CONF gui.conf\nCADD TWin w NULL -1 -1\nNTAB w 0 A\nNTAB w 1 B\n"
                  "TADD 0 Label a w 0 0 One\nTADD 1 Label b w 0 0 Two\n")
        first = self.picture(layout).read_bytes()
        self.assertNotEqual(self.picture(layout, "--click", "__wtab1B").read_bytes(), first)

    def test_game_shows_the_longest_texts_of_the_game(self):
        layout = "CONF gui.conf\nCADD Label date NULL -1.7 0.5 Now\n"
        self.assertNotEqual(self.picture(layout).read_bytes(),
                            self.picture(layout, "--game").read_bytes())

    def test_a_broken_layout_gives_no_picture(self):
        self.write("a.gui", "CADD Label a none 0 0 A\n")
        result = self.guiview("--png", "a.png", "a.gui")
        self.assertEqual((result.returncode, result.stderr),
                         (FINDINGS, "a.gui:1:12: error: 'a' shows text, but there is no CONF, "
                                    "which loads the font\n"
                                    "a.gui:1:14: error: unknown tag 'none'\n"))
        self.assertFalse((self.folder / "a.png").exists())

    def test_a_layout_with_warnings_gives_a_picture(self):
        self.assertEqual(size(self.picture("CADD Butt a NULL 5 5 TEX 1 1\n")), (800, 600))

    def test_an_unknown_tag_cannot_be_clicked(self):
        self.write("a.gui", "")
        for option in ["--click", "--hover", "--press"]:
            result = self.guiview("--png", "a.png", "a.gui", option, "b")
            self.assertEqual((result.returncode, result.stderr),
                             (UNUSABLE, "guiview: no widget has the tag 'b'\n"))

    def test_a_picture_that_cannot_be_written_is_reported(self):
        self.write("a.gui", "")
        result = self.guiview("--png", "none/a.png", "a.gui")
        self.assertEqual(result.returncode, UNUSABLE)
        self.assertRegex(result.stderr, r"\Aguiview: none/a.png: cannot be written: .*\n\Z")

    def test_needs_no_other_program(self):
        self.write("a.gui", "CADD Butt a NULL 0.5 0.5 TEX 0.5 0.25\n")
        environment = {**without_display(), "PATH": str(self.folder)}
        result = subprocess.run([GUIVIEW, "--png", "a.png", "a.gui"], cwd=self.folder,
                                env=environment, capture_output=True, text=True, timeout=TIMEOUT)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (CLEAN, "", ""))
        self.assertEqual(pixel(self.folder / "a.png", 573, 156), GREY)

    def test_a_missing_driver_for_pictures_is_reported(self):
        self.write("a.gui", "")
        environment = {**without_display(),
                       "__EGL_VENDOR_LIBRARY_FILENAMES": str(self.folder / "none.json")}
        result = subprocess.run([GUIVIEW, "--png", "a.png", "a.gui"], cwd=self.folder,
                                env=environment, capture_output=True, text=True, timeout=TIMEOUT)
        self.assertEqual((result.returncode, result.stderr),
                         (UNUSABLE,
                          "guiview: no picture can be drawn: is Mesa's driver for EGL "
                          "installed?\n"))
        self.assertFalse((self.folder / "a.png").exists())


class GuiviewLive(Folder):
    """The live view on a virtual display, with the keys and the mouse of xdotool."""

    def setUp(self):
        super().setUp()
        screen = Screen((800, 600))
        self.addCleanup(screen.close)
        self.root = screen.root
        self.environment = screen.environment

    def start(self, layout, *arguments):
        self.layout = Path(self.write("a.gui", layout))
        self.output = self.folder / "output"
        with open(self.output, "w") as output:
            self.process = subprocess.Popen([GUIVIEW, "a.gui", *arguments], cwd=self.folder,
                                            env=self.environment, stdin=subprocess.DEVNULL,
                                            stdout=output, stderr=output)
        self.addCleanup(self.process.wait)
        self.addCleanup(self.process.kill)

    def said(self):
        return self.output.read_text()

    def pixel(self, x, y):
        data = self.root.get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFFFF).data
        return data[2], data[1], data[0]

    def wait(self, condition, what):
        end = time.monotonic() + TIMEOUT
        while not condition():
            self.assertLess(time.monotonic(), end, f"{what}: not seen\n{self.said()}")
            time.sleep(0.02)

    def wait_for_pixel(self, x, y, colour):
        self.wait(lambda: self.pixel(x, y) == colour, f"{colour} at {x}, {y}")

    def xdotool(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.environment, check=True,
                       timeout=TIMEOUT)

    def hold(self, key, condition, what):
        """Holds a key until the condition is true."""
        self.xdotool("keydown", key)
        self.wait(condition, what)
        self.xdotool("keyup", key)

    def move(self, x, y):
        # The first event only tells where the mouse is; the second one moves it.
        self.xdotool("mousemove", x + 1, y)
        time.sleep(0.1)
        self.xdotool("mousemove", x, y)

    PLATE = "CADD Butt a NULL 0.5 0.5 TEX 0.5 0.25\n"
    MOVED = "CADD Butt a NULL -0.5 0.5 TEX 0.5 0.25\n"

    def test_shows_the_layout_until_escape(self):
        self.start(self.PLATE)
        self.wait_for_pixel(573, 156, GREY)
        self.assertEqual(self.pixel(10, 10), NOTHING)
        self.assertEqual(self.said(), "a.gui: shown\n")
        self.xdotool("mousemove", 100, 100)
        self.hold("Escape", lambda: self.process.poll() is not None, "end of the program")
        self.assertEqual(self.process.returncode, CLEAN)

    def test_losing_the_display_is_reported_in_the_status(self):
        # Xlib ends the process itself, with the status of a layout with findings.
        with VirtualDisplay((800, 600)) as lost:
            self.environment = lost.environment
            self.start(self.PLATE)
            self.wait(lambda: self.said() == "a.gui: shown\n", "report")
        self.assertEqual(self.process.wait(TIMEOUT), UNUSABLE)

    def test_shows_the_layout_again_when_it_changes(self):
        self.start(self.PLATE)
        self.wait_for_pixel(573, 156, GREY)
        self.layout.write_text(self.MOVED)
        self.wait_for_pixel(342, 156, GREY)
        self.assertEqual(self.pixel(573, 156), NOTHING)
        self.assertEqual(self.said(), "a.gui: shown\na.gui: shown\n")

    def test_shows_the_layout_again_when_an_editor_replaces_its_file(self):
        self.start(self.PLATE)
        self.wait_for_pixel(573, 156, GREY)
        self.write("a.gui~", self.MOVED)
        os.replace(self.folder / "a.gui~", self.layout)
        self.wait_for_pixel(342, 156, GREY)

    def test_shows_the_layout_again_when_a_theme_changes(self):
        self.start("THEM b.theme NULL\n" + self.PLATE)
        self.wait(lambda: "broken" in self.said(), "report of the missing theme")
        self.write("b.theme", THEME.format(fill="1 0 0"))
        self.wait_for_pixel(573, 156, (255, 0, 0))
        self.write("b.theme", THEME.format(fill="0 1 0"))
        self.wait_for_pixel(573, 156, (0, 255, 0))

    def test_shows_the_layout_again_when_a_picture_changes(self):
        def paint(colour):
            subprocess.run(["convert", "-size", "8x8", f"xc:{colour}", "-compress", "RLE",
                            "TGA:" + str(self.folder / "p.tga")], check=True)

        paint("red")
        self.write("b.theme", THEME.format(fill="1 1 1").replace("NULL", "p.tga"))
        self.start("THEM b.theme NULL\n" + self.PLATE)
        self.wait_for_pixel(573, 156, (255, 0, 0))
        paint("lime")
        self.wait_for_pixel(573, 156, (0, 255, 0))

    def test_shows_the_layout_again_when_the_configuration_or_its_font_changes(self):
        self.start("CONF gui.conf\n" + self.PLATE)
        self.wait_for_pixel(573, 156, GREY)
        self.write("gui.conf", CONFIGURATION + "// later\n")
        self.wait(lambda: self.said().count("shown") == 2, "second picture")
        shutil.copy(ROOT / "data/font.ttf", self.folder)
        self.wait(lambda: self.said().count("shown") == 3, "third picture")

    def test_keeps_the_last_good_layout_while_the_file_has_errors(self):
        self.start(self.PLATE)
        self.wait_for_pixel(573, 156, GREY)
        self.layout.write_text(self.MOVED + "CADD Label b none 0 0 B\n")
        self.wait(lambda: "a.gui: broken, not shown\n" in self.said(), "report")
        self.assertIn("a.gui:2:14: error: unknown tag 'none'\n", self.said())
        self.assertEqual(self.pixel(573, 156), GREY)
        self.assertEqual(self.pixel(342, 156), NOTHING)
        self.layout.write_text(self.MOVED)
        self.wait_for_pixel(342, 156, GREY)

    def test_answers_keys_while_the_file_has_errors(self):
        self.start(self.PLATE)
        self.wait_for_pixel(573, 156, GREY)
        self.layout.write_text(self.MOVED + "CADD Label b none 0 0 B\n")
        self.wait(lambda: "a.gui: broken, not shown\n" in self.said(), "report")
        self.move(573, 156)
        named = "a  Butt    0.5000   0.5000   1.0000   0.7500  default\n"
        self.hold("i", lambda: named in self.said(), "name of the widget")

    def test_the_window_stays_open_when_the_layout_changes(self):
        self.start(self.PLATE)
        self.wait_for_pixel(573, 156, GREY)
        windows = {window.id for window in self.root.query_tree().children}
        self.layout.write_text(self.MOVED)
        self.wait_for_pixel(342, 156, GREY)
        self.assertEqual({window.id for window in self.root.query_tree().children}, windows)

    def test_keeps_the_last_good_layout_when_the_file_is_deleted(self):
        self.start(self.PLATE)
        self.wait_for_pixel(573, 156, GREY)
        self.layout.unlink()
        self.wait(lambda: "cannot be read" in self.said(), "report")
        self.assertEqual(self.pixel(573, 156), GREY)

    def test_shows_a_layout_once_its_errors_are_gone(self):
        self.start("CADD Label b none 0 0 B\n")
        self.wait(lambda: "a.gui: broken, not shown\n" in self.said(), "report")
        self.layout.write_text(self.PLATE)
        self.wait_for_pixel(573, 156, GREY)

    def test_o_outlines_the_widgets_also_after_the_layout_changed(self):
        self.start(self.PLATE)
        self.wait_for_pixel(573, 156, GREY)
        self.xdotool("mousemove", 100, 100)
        pink = (255, 0, 230)
        edge = 630  # the right edge lies between two pixels
        self.hold("o", lambda: pink in (self.pixel(edge, 156), self.pixel(edge + 1, 156)),
                    "outline")
        self.layout.write_text(self.MOVED)
        self.wait(lambda: pink in (self.pixel(399, 156), self.pixel(400, 156)),
                  "outline of the moved button")

    def test_i_names_the_widget_under_the_mouse(self):
        self.start("CADD Frame f NULL 0.5 0.5 0\nCADD Butt a f 0 0 TEX 0.5 0.25\n")
        self.wait_for_pixel(573, 156, GREY)
        self.move(573, 156)
        named = "a  Butt    0.5000   0.5000   1.0000   0.7500  default\n"
        self.hold("i", lambda: named in self.said(), "name of the widget")

    def test_an_o_typed_into_a_text_box_does_not_switch_outlines_on(self):
        self.start("CONF gui.conf\nCADD Text t NULL 0.5 0.5 8 2\n" + self.MOVED)
        self.wait_for_pixel(342, 156, GREY)
        box = (530, 170)
        before = self.root.get_image(520, 150, 100, 40, X.ZPixmap, 0xFFFFFFFF).data
        self.move(*box)
        self.xdotool("mousedown", 1)
        self.wait(lambda: self.root.get_image(520, 150, 100, 40, X.ZPixmap, 0xFFFFFFFF).data
                  != before, "caret")
        self.xdotool("mouseup", 1)
        focused = self.root.get_image(520, 150, 100, 40, X.ZPixmap, 0xFFFFFFFF).data
        self.hold("o", lambda: self.root.get_image(520, 150, 100, 40, X.ZPixmap,
                                                     0xFFFFFFFF).data != focused, "letter")
        self.assertEqual(self.pixel(342, 156), GREY)
        self.assertNotIn((255, 0, 230), [self.pixel(x, 156) for x in range(280, 290)])

    def test_shows_sample_texts(self):
        self.start("CONF gui.conf\nCADD Label t NULL 0 1 \n" + self.PLATE, "--text", "t=MMMM")
        self.wait_for_pixel(573, 156, GREY)
        area = self.root.get_image(400, 40, 60, 30, X.ZPixmap, 0xFFFFFFFF).data
        self.assertGreater(len(set(memoryview(area).cast("I"))), 1)
