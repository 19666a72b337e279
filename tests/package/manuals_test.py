# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The manuals that are made when the game is built: the page of docs/PLAYING.md for browsers, and the
manual pages of the tools."""

import gzip
import os
import re
import shlex
import subprocess
import tempfile
import unittest
from html.parser import HTMLParser
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["MEROVINSKA_BUILD"])
DOCUMENT = ROOT / "docs/PLAYING.md"
MANUAL = BUILD / "packaging/manual"

WITHOUT_END = {"meta", "img", "br", "hr"}


class Page(HTMLParser):
    """The elements of a page. Fails if they are not nested."""

    def __init__(self, text):
        super().__init__()
        self.open = []
        self.elements = []  # (tag, attributes)
        self.text_of = {}   # tag: the texts of its elements
        self.prose = ""     # the text outside code
        self.feed(text)
        self.close()
        if self.open:
            raise AssertionError(f"{self.open} have no end")

    def handle_starttag(self, tag, attributes):
        self.elements.append((tag, dict(attributes)))
        self.text_of.setdefault(tag, []).append("")
        if tag not in WITHOUT_END:
            self.open.append(tag)

    def handle_endtag(self, tag):
        if tag not in WITHOUT_END and (not self.open or self.open.pop() != tag):
            raise AssertionError(f"{self.getpos()}: </{tag}> ends another element")

    def handle_data(self, data):
        for tag in set(self.open):
            self.text_of[tag][-1] += data
        if not {"code", "pre", "style"} & set(self.open):
            self.prose += data

    def attributes(self, tag, name):
        return [attributes[name] for found, attributes in self.elements
                if found == tag and name in attributes]


class PlayingPage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.text = (MANUAL / "index.html").read_text()
        cls.page = Page(cls.text)
        cls.document = DOCUMENT.read_text()
        cls.without_code = re.sub(r"(?ms)^```.*?^```$", "", cls.document)

    def test_page_has_the_headings_of_the_document(self):
        for level in (1, 2, 3):
            headings = re.findall(rf"(?m)^#{{{level}}} (.+)$", self.without_code)
            self.assertEqual(self.page.text_of.get(f"h{level}", []), headings)
        self.assertEqual(self.page.text_of["title"], self.page.text_of["h1"])

    def test_page_has_all_tables_blocks_of_code_lists_and_pictures_of_the_document(self):
        rows = re.findall(r"(?m)^\|.*\|$", self.without_code)
        lines = [row for row in rows if re.fullmatch(r"[|: -]+", row)]
        self.assertEqual(len(self.page.text_of["table"]), len(lines))
        self.assertEqual(len(self.page.text_of["tr"]), len(rows) - len(lines))
        self.assertEqual([block.rstrip("\n") for block in self.page.text_of["pre"]],
                         re.findall(r"(?ms)^```\w*\n(.*?)\n```$", self.document))
        self.assertEqual(len(self.page.text_of["li"]),
                         len(re.findall(r"(?m)^(?:[-*]|\d+\.) ", self.without_code)))
        self.assertEqual(self.page.attributes("img", "src"),
                         re.findall(r"!\[[^]]*\]\(([^)]*)\)", self.document))
        self.assertTrue(all(self.page.attributes("img", "alt")))

    def test_no_markup_of_the_document_is_left_in_the_text(self):
        self.assertNotRegex(self.page.prose, r"\*\*|\]\(|`|^#|^\||^>|^- ")

    def test_every_link_leads_to_a_place_on_the_page(self):
        anchors = {attributes["id"] for _, attributes in self.page.elements if "id" in attributes}
        links = self.page.attributes("a", "href")
        self.assertTrue(links)
        for link in links:
            with self.subTest(link):
                self.assertIn(link.removeprefix("#"), anchors)

    def test_pictures_are_those_of_the_document(self):
        pictures = self.page.attributes("img", "src")
        self.assertTrue(pictures)
        for picture in pictures:
            self.assertEqual((MANUAL / picture).read_bytes(),
                             (DOCUMENT.parent / picture).read_bytes())
        files = {str(path.relative_to(MANUAL)) for path in MANUAL.rglob("*") if path.is_file()}
        self.assertEqual(files, {"index.html", *pictures})

    def test_page_loads_nothing_from_the_network(self):
        self.assertNotRegex(self.text, r"(?i)https?:|<script|<link|<iframe|@import|url\(")

    def test_page_says_its_language_its_encoding_and_that_it_fits_small_screens(self):
        self.assertEqual(self.page.attributes("html", "lang"), ["en"])
        self.assertEqual(self.page.attributes("meta", "charset"), ["utf-8"])
        self.assertEqual(self.page.attributes("meta", "name"), ["viewport"])
        self.assertTrue(self.text.startswith("<!DOCTYPE html>\n"))


def roff_text(text):
    return re.sub(r"\\f\w|\\[,/]", "", text).replace("\\-", "-")


class ManualPagesOfTools(unittest.TestCase):
    tools = ("countrysim", "guiview")

    def manual(self, tool):
        with gzip.open(BUILD / f"packaging/{tool}.1.gz", "rt") as page:
            return page.read()

    def test_manual_page_lists_the_options_of_the_help(self):
        for tool in self.tools:
            with self.subTest(tool):
                said = subprocess.run([BUILD / "tools" / tool, "--help"], check=True, text=True,
                                      stdout=subprocess.PIPE).stdout
                options = re.findall(r"(?m)^  (-.+?)(?: {2,}.*)?$", said)
                self.assertGreater(len(options), 10)
                section = roff_text(self.manual(tool)).split(".SH OPTIONS\n")[1]
                section = re.split(r"\n\.S[HS] ", section)[0]
                self.assertEqual(re.findall(r"(?m)^\.TP\n(.+)$", section), options)

    def test_manual_page_names_the_tool_in_one_line(self):
        for tool in self.tools:
            self.assertRegex(self.manual(tool), rf"(?m)^\.SH NAME\n{tool} \\- \w")

    def test_manual_pages_have_the_version_and_the_date_of_the_changelog(self):
        version = re.search(r"project\(merovinska VERSION (\S+)",
                            (ROOT / "CMakeLists.txt").read_text())[1]
        changelog = (ROOT / "packaging/changelog").read_text()
        _, _, month, year, *_ = re.search(r"(?m)^ -- .*>  (.*)$", changelog)[1].split()
        for tool in self.tools:
            heading = re.search(r"(?m)^\.TH .*", self.manual(tool))[0]
            self.assertRegex(heading, rf'"{month}\w* {year}" "Merovinska {re.escape(version)}"')

    def test_examples_of_the_manual_pages_succeed(self):
        for tool in self.tools:
            examples = re.findall(r"(?m)^\.RS\n(.+)\n\.RE", self.manual(tool))
            self.assertTrue(examples)
            for example in examples:
                command = shlex.split(roff_text(example).replace(
                    "/usr/share/games/merovinska", str(ROOT / "data")))
                with self.subTest(example), tempfile.TemporaryDirectory() as folder:
                    self.assertEqual(command[0], tool)
                    result = subprocess.run([BUILD / "tools" / tool, *command[1:]], cwd=folder,
                                            stdin=subprocess.DEVNULL, capture_output=True, text=True)
                    self.assertEqual(result.returncode, 0, result.stdout[-1000:] + result.stderr)
