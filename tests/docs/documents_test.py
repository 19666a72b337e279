# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT
"""The documents are correct: their commands run, and the files that they name exist."""

import os
import re
import shlex
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

import documents
from documents import ROOT
from documents_slow_test import SLOW
from driver import Game, Screen

BUILD = Path(os.environ["MEROVINSKA_BUILD"])

KINDS = {"sh", "console", "cpp", "diff", "layout", "theme", "conf", "change"}

# Commands that would take minutes or run these tests again, and what the test runs instead: the
# same command with an option that makes it end after it has read its arguments.
REPLACEMENTS = {
    "./check": "./check --help",
    "./check --all": "./check --all --help",
    "./check --preset sanitize": "./check --preset sanitize --help",
    "./check --preset tidy": "./check --preset tidy --help",
    "ctest --preset release": "ctest --preset release -N",
    "ctest --preset release -R Slider": "ctest --preset release -R Slider -N | grep Slider",
    "ctest --preset release -L play": "ctest --preset release -L play -N | grep Play",
    "ctest --preset slow": "ctest --preset slow -N | grep Documents",
    "scripts/ondisplay ctest --preset release": "scripts/ondisplay ctest --preset release -N",
    "pytest-3 tests/repository": "pytest-3 tests/repository --collect-only | grep PackageList",
    "scripts/tidy FILE": f"scripts/tidy {shlex.quote(str(ROOT))}/country/military.cpp",
    "cmake --install build/release --prefix <folder>":
        "cmake --install build/release --prefix installed && test -x installed/games/merovinska",
    # There is no such option for workflows, so the test only checks that the name exists.
    "cmake --workflow --preset debug": "cmake --workflow --list-presets | grep '\"debug\"'",
    "cmake --workflow --preset package": "cmake --workflow --list-presets | grep '\"package\"'",
}

# Commands that do not end, or that need a running game. Each has its own test below.
TESTED_BELOW = {
    "build/release/tools/guiview data/my.gui.debug",
    "kill -TSTP $(pidof merovinska)",
    "kill -CONT $(pidof merovinska)",
}

TOOLS = {"countrysim", "guiview", "guiart"}


def copy_tree(folder):
    """Copies the tree without built files and without its git repository."""
    shutil.copytree(ROOT, folder, ignore=lambda path, names: [
        name for name in names if name == ".git" or (Path(path) == ROOT and name == "build")])
    return folder


class Documents(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.temporary.cleanup)
        cls.sandbox = copy_tree(Path(cls.temporary.name) / "tree")
        # The documents name the release build; these tests use the build that CTest runs for.
        (cls.sandbox / "build").mkdir()
        (cls.sandbox / "build/release").symlink_to(BUILD)

    def run_in_sandbox(self, text, **options):
        return subprocess.run(["bash", "-c", f"set -o pipefail; {text}"], cwd=self.sandbox,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              timeout=100, **options)

    def runnable(self):
        """The commands of the blocks that can be run unchanged."""
        return [command for command in self.commands_of_blocks()
                if command.text not in REPLACEMENTS.keys() | TESTED_BELOW | SLOW]

    @staticmethod
    def commands_of_blocks():
        return [command for document in documents.documents()
                for block in documents.blocks(document) if block.kind in ("sh", "console")
                for command in documents.shell(block)]

    def test_every_block_of_code_names_its_kind(self):
        for document in documents.documents():
            with self.subTest(document.name):
                self.assertEqual(list(documents.indented(document)), [])
                for block in documents.blocks(document):
                    self.assertIn(block.kind, KINDS, f"line {block.line}")

    def test_commands_with_special_treatment_are_in_the_documents(self):
        written = {command.text for command in documents.commands()}
        self.assertEqual((REPLACEMENTS.keys() | TESTED_BELOW | SLOW) - written, set())

    def test_documents_have_commands_that_can_be_run(self):
        self.assertGreater(len(self.runnable()), 8)

    def test_commands_succeed_with_the_output_that_the_documents_show(self):
        for command in self.runnable():
            with self.subTest(command.text, place=command.place):
                result = self.run_in_sandbox(command.text)
                self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
                if command.output is not None:
                    self.assertEqual(result.stdout, command.output)

    def test_arguments_of_replaced_commands_are_accepted(self):
        written = {command.text for command in documents.commands()}
        for command, replacement in REPLACEMENTS.items():
            if command in written:
                with self.subTest(command):
                    result = self.run_in_sandbox(replacement)
                    self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def test_commands_in_the_text_exist(self):
        known = ({command.text for command in self.commands_of_blocks()}
                 | REPLACEMENTS.keys() | SLOW)
        for command in documents.commands():
            program, *arguments = command.text.split()
            if command.output is not None or command.text in known:
                continue
            with self.subTest(command.text, place=command.place):
                name = program.removeprefix("build/release/tools/")
                if name in TOOLS:  # with a placeholder such as FILE, or without some arguments
                    shown = self.run_in_sandbox(f"build/release/tools/{name} --help").stdout
                    for option in arguments:
                        if option.startswith("-"):
                            self.assertIn(option, shown)
                elif not arguments:
                    self.assertTrue(program.startswith("build/")
                                    or (self.sandbox / program).exists())
                else:
                    self.fail("this command is not tested")

    def test_code_without_a_name_is_from_a_source_file(self):
        sources = [path.read_text().splitlines() for folder in ("quarn2", "glwidget", "country",
                                                                "app", "tests")
                   for path in (ROOT / folder).rglob("*.cpp")]
        for document in documents.documents():
            for block in documents.blocks(document):
                if block.kind != "cpp" or block.name:  # named blocks are compiled by another test
                    continue
                lines = {line for line in block.lines if not line.strip().startswith("//")}
                with self.subTest(f"{document.name}:{block.line}"):
                    self.assertTrue(any(lines - {""} <= set(source) for source in sources),
                                    "no file has all of these lines")

    def test_targets_of_links_exist(self):
        for document in documents.documents():
            text = re.sub(r"^```.*?^```", "", document.read_text(), flags=re.M | re.S)
            for target in re.findall(r"\]\(([^)]+)\)", text):
                if target.startswith("http"):
                    continue
                with self.subTest(f"{document.relative_to(ROOT)}: {target}"):
                    path, _, anchor = target.partition("#")
                    file = document.parent / path if path else document
                    self.assertTrue(file.exists())
                    if anchor:
                        self.assertIn(anchor, anchors(file.read_text()))

    def test_guiview_shows_the_layout_in_a_window(self):
        display = Screen(log=self.sandbox / "display.log")
        self.addCleanup(display.close)
        viewer = subprocess.Popen(
            ["build/release/tools/guiview", "data/my.gui.debug"], cwd=self.sandbox,
            env=display.environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        self.addCleanup(viewer.wait)
        self.addCleanup(viewer.kill)
        deadline = time.monotonic() + 60
        while not display.root.query_tree().children:
            self.assertIsNone(viewer.poll())
            self.assertLess(time.monotonic(), deadline, "no window was opened")
            time.sleep(0.05)
        self.assertIsNone(viewer.poll())

    def test_guiview_checks_and_draws_the_widget_of_the_engine_example(self):
        data = self.sandbox / "data"

        def guiview(line, *options):
            (data / "meter.gui").write_text(f"CONF gui.conf\n{line}\n")
            return subprocess.run([BUILD / "tests/docs/guiview_with_meter", *options, "meter.gui"],
                                  cwd=data, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                                  timeout=100)

        meter = "CADD Meter level NULL -1 0 0.5 0.1"
        good = guiview(meter, "--check")
        self.assertEqual((good.returncode, good.stdout), (0, ""), good.stderr)
        flat = guiview(meter.replace("0.1", "0"), "--check")
        self.assertEqual((flat.returncode, flat.stdout), (
            1, "meter.gui:2:32: error: '0' is out of range for height: above 0\n"))
        missing = guiview(meter.removesuffix(" 0.1"), "--check")
        self.assertEqual(missing.returncode, 1)

        for line, picture in ((meter, "with.png"), ("", "without.png")):
            drawn = guiview(line, "--png", picture)
            self.assertEqual((drawn.returncode, drawn.stderr), (0, ""))
        self.assertNotEqual((data / "with.png").read_bytes(), (data / "without.png").read_bytes())

    def test_game_can_be_paused_and_continued(self):
        game = Game(self.sandbox / "paused")
        self.addCleanup(game.close)
        game.wait_until_started()

        def state():
            status = Path(f"/proc/{game.process.pid}/status").read_text()
            return re.search(r"State:\s+(\w)", status)[1]

        def run_command(command):
            # Other games may run on this machine, so pidof is replaced.
            result = self.run_in_sandbox(f"pidof() {{ echo {game.process.pid}; }}; {command}")
            self.assertEqual((result.returncode, result.stderr), (0, ""))

        run_command("kill -TSTP $(pidof merovinska)")
        game.wait(lambda: state() == "T", "the game to stop")
        run_command("kill -CONT $(pidof merovinska)")
        game.wait(lambda: state() != "T", "the game to continue")
        game.click("update")  # waits until the game reacts


class Reference(unittest.TestCase):
    """The reference that doxygen makes from the headers."""

    def doxygen(self, *changes, tree=ROOT):
        configuration = (BUILD / "docs/Doxyfile").read_text().replace(str(ROOT), str(tree))
        with tempfile.TemporaryDirectory() as folder:
            changed = "\n".join([configuration, f'OUTPUT_DIRECTORY = "{folder}"', *changes])
            return subprocess.run(["doxygen", "-"], input=changed, capture_output=True, text=True)

    def test_reference_is_made_without_a_warning(self):
        result = self.doxygen()
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_reference_is_made_in_a_folder_with_spaces_in_its_name(self):
        with tempfile.TemporaryDirectory(prefix="a tree ") as tree:
            for folder in ("quarn2", "glwidget", "country", "app"):
                shutil.copytree(ROOT / folder, Path(tree) / folder)
            result = self.doxygen(tree=tree)
            self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_every_class_and_free_function_has_a_comment(self):
        found = self.doxygen("WARN_IF_UNDOCUMENTED = YES", "WARN_AS_ERROR = NO").stderr
        self.assertIn("is not documented", found)  # doxygen warns: some members have no comment
        uncommented = {line for line in found.splitlines()
                       if re.search(r"Compound .* is not documented|"
                                    r"\(function\) of (namespace|file)", line)}
        self.assertEqual(uncommented, set())


def anchors(text):
    """The anchors of the headings. The second of two equal headings gets a number."""
    found = []
    fenced = False
    for line in text.splitlines():
        if line.startswith("```"):
            fenced = not fenced
        elif line.startswith("#") and not fenced:
            name = re.sub(r"[^\w\- ]", "", line.lstrip("# ").lower()).replace(" ", "-")
            found.append(f"{name}-{found.count(name)}" if name in found else name)
    return found
