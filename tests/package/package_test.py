# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The Debian package: its contents, and that every build makes the same package."""

import gzip
import io
import os
import re
import shutil
import subprocess
import tarfile
import tempfile
import unittest
from pathlib import Path

from PIL import ImageFont

ROOT = Path(__file__).resolve().parents[2]

GAME, TOOLS = "merovinska", "merovinska-tools"
# The programs of each package.
PROGRAMS = {GAME: ("usr/libexec/merovinska/merovinska",),
            TOOLS: ("usr/bin/countrysim", "usr/bin/guiview")}
ALL_PROGRAMS = [program for programs in PROGRAMS.values() for program in programs]
METAINFO = "usr/share/metainfo/example.merovinska.merovinska.metainfo.xml"
DESKTOP_ENTRY = "usr/share/applications/merovinska.desktop"
FONT = "usr/share/games/merovinska/font.ttf"
FONT_LICENCE = "usr/share/games/merovinska/font.LICENSE.txt"


def output(*command, **options):
    return subprocess.run([*map(str, command)], check=True, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, text=True, **options).stdout


def version():
    return re.search(r"project\(merovinska VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())[1]


def package(name=GAME, build=ROOT / "build/package"):
    architecture = output("dpkg", "--print-architecture").strip()
    return build / f"{name}_{version()}_{architecture}.deb"


def field(name, of=GAME):
    return output("dpkg-deb", "-f", package(of), name).strip()


def names(relations):
    """The packages that a field names."""
    return re.findall(r"(?:^|[,|] )([a-z0-9.+-]+)", relations)


class Packages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.root = Path(cls.folder.name) / "both"
        for name in (GAME, TOOLS):
            output("dpkg-deb", "-x", package(name), cls.root)

    def expect_success_without_output(self, *command):
        result = subprocess.run([*map(str, command)], stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    # Programs that check packages

    def test_lintian_finds_no_errors_or_warnings(self):
        for name in (GAME, TOOLS):
            with self.subTest(name):
                # Without --allow-root, lintian warns if root runs it.
                result = subprocess.run(["lintian", "--allow-root", "--fail-on", "error,warning",
                                         package(name)],
                                        stdin=subprocess.DEVNULL, capture_output=True, text=True)
                self.assertEqual((result.returncode, result.stdout), (0, ""), result.stderr)

    def test_menu_entry_is_valid(self):
        self.expect_success_without_output("desktop-file-validate", self.root / DESKTOP_ENTRY)

    def test_description_for_software_centres_is_valid(self):
        result = subprocess.run(["appstreamcli", "validate", "--no-net", self.root / METAINFO],
                                stdin=subprocess.DEVNULL, capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stdout)
        self.assertNotRegex(result.stdout, r"(?m)^[EW]:")

    def test_manual_pages_are_formatted_without_warnings(self):
        pages = sorted((self.root / "usr/share/man").rglob("*.gz"))
        self.assertEqual([page.name for page in pages],
                         ["countrysim.1.gz", "guiview.1.gz", "merovinska.6.gz"])
        for page in pages:
            with self.subTest(page.name):
                result = subprocess.run(
                    ["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page],
                    stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                    text=True, env={**os.environ, "LC_ALL": "C.UTF-8", "MANROFFSEQ": "",
                                    "MANWIDTH": "80"})
                self.assertEqual((result.returncode, result.stderr), (0, ""))

    # Description

    def test_packages_have_the_version_of_the_project_and_only_one_is_a_game(self):
        for name, section in ((GAME, "games"), (TOOLS, "utils")):
            self.assertEqual([field(key, name) for key in ("Package", "Version", "Section")],
                             [name, version(), section])

    def test_packages_describe_themselves_without_the_words_of_the_other(self):
        for name, summary in ((GAME, "country management game of the year 1358"),
                              (TOOLS, "simulator and layout viewer of the game Merovinska")):
            first, *others = field("Description", name).splitlines()
            self.assertEqual(first, summary)
            self.assertTrue(all(line.startswith(" ") for line in others))
            self.assertEqual("countrysim" in field("Description", name), name == TOOLS)

    def test_every_file_names_the_same_version(self):
        metainfo = (self.root / METAINFO).read_text()
        release, date = re.search(r'<release version="([^"]+)" date="([^"]+)"', metainfo).groups()
        self.assertEqual(release, version())
        self.assertIn(f"\n## [{release}] - {date}\n",
                      (self.root / "usr/share/doc/merovinska/CHANGELOG.md").read_text())
        changelog = gzip.open(self.root / "usr/share/doc/merovinska/changelog.gz", "rt").read()
        self.assertTrue(changelog.startswith(f"merovinska ({version()}) "), changelog)
        manual = gzip.open(self.root / "usr/share/man/man6/merovinska.6.gz", "rt").read()
        self.assertIn(f'"Merovinska {version()}"', manual)

    def test_package_depends_on_every_library_that_the_programs_need(self):
        for name, programs in PROGRAMS.items():
            depended = set(names(field("Depends", name)))
            needed = set()
            for program in programs:
                dynamic = output("readelf", "-d", self.root / program)
                needed.update(re.findall(r"\(NEEDED\).*\[(.+)\]", dynamic))
            self.assertIn("libSDL-1.2.so.0", needed)
            for library in needed:
                # A dependency may also name a virtual package that the owner provides.
                found = output("dpkg-query", "-S", f"*/{library}")
                owners = {line.split(":")[0] for line in found.splitlines()}
                provided = set(owners)
                for owner in owners:
                    provides = output("dpkg-query", "-W", "-f", "${Provides}", owner)
                    provided.update(re.findall(r"(?:^|, )([a-z0-9.+-]+)", provides))
                self.assertTrue(provided & depended, f"{library} of {owners} is not in {depended}")

    def test_package_recommends_what_the_launcher_calls(self):
        packages = {"zenity": "zenity", "kdialog": "kdialog", "xmessage": "x11-utils",
                    "xdg-open": "xdg-utils"}
        launcher = (self.root / "usr/games/merovinska").read_text()
        called = re.findall(r"if command -v ([\w-]+) >", launcher)
        self.assertIn("needs the package libsdl1.2-compat", launcher)
        self.assertEqual(sorted(names(field("Recommends"))),
                         sorted(["libsdl1.2-compat", *(packages[name] for name in called)]))

    def test_game_suggests_the_tools_that_its_check_uses(self):
        self.assertEqual(field("Suggests"), TOOLS)
        self.assertIn("merovinska-tools", (self.root / "usr/games/merovinska").read_text())
        self.assertEqual(field("Recommends", TOOLS), GAME)

    def test_packages_are_small(self):
        for name in (GAME, TOOLS):
            self.assertLess(package(name).stat().st_size, 2_000_000)
            self.assertLess(int(field("Installed-Size", name)), 5_000)  # KiB

    # The font

    def test_package_brings_its_font_and_depends_on_no_package_of_fonts(self):
        self.assertTrue((self.root / FONT).is_file())
        self.assertFalse((self.root / FONT).is_symlink())
        for name in (GAME, TOOLS):
            for key in ("Depends", "Recommends"):
                self.assertNotRegex(field(key, name), r"\bfonts-")

    def test_font_draws_every_code_of_the_engine_as_the_whole_font_does(self):
        whole, subset = (ImageFont.truetype(str(file), 85, layout_engine=ImageFont.Layout.BASIC)
                         for file in (ROOT / "data/font.ttf", self.root / FONT))
        self.assertEqual(whole.getmetrics(), subset.getmetrics())
        for code in range(128):
            with self.subTest(code):
                drawn = []
                for font in (whole, subset):
                    mask, offset = font.getmask2(chr(code))
                    drawn.append((font.getlength(chr(code)), mask.size, offset, bytes(mask)))
                self.assertEqual(*drawn)

    def test_font_contains_only_characters_that_the_engine_draws(self):
        kept = output("fc-query", "-f", "%{charset}", self.root / FONT)
        self.assertEqual(kept, "20-7e")
        self.assertLess((self.root / FONT).stat().st_size, 50_000)

    def test_font_names_its_copyright_and_its_licence(self):
        font = (self.root / FONT).read_bytes()
        for text in ("Copyright 2015 Google LLC", "SIL Open Font License, Version 1.1"):
            self.assertTrue(text.encode("utf-16-be") in font, text)
        self.assertIn("SIL OPEN FONT LICENSE", (self.root / FONT_LICENCE).read_text())
        # A modified font must not have a name that its licence reserves.
        self.assertNotIn("with Reserved Font Name", (self.root / FONT_LICENCE).read_text())

    # Contents

    def test_package_contains_all_data(self):
        source, installed = ROOT / "data", self.root / "usr/share/games/merovinska"
        wanted = {str(path.relative_to(source)) for path in source.rglob("*")}
        found = {str(path.relative_to(installed)) for path in installed.rglob("*")}
        self.assertEqual({path for path in found if path.split("/")[0] != "manual"}, wanted)

    def test_package_contains_the_manual_with_its_plots(self):
        manual = self.root / "usr/share/games/merovinska/manual"
        self.assertEqual({str(path.relative_to(manual)) for path in manual.rglob("*.*")},
                         {"index.html"} | {f"plots/{plot.name}"
                                           for plot in (ROOT / "docs/plots").glob("*.png")})
        self.assertEqual((self.root / "usr/share/doc/merovinska/manual").resolve(),
                         manual.resolve())

    def test_no_file_is_in_both_packages(self):
        game, tools = ({line.split(maxsplit=5)[5] for line in
                        output("dpkg-deb", "-c", package(name)).splitlines() if line[0] != "d"}
                       for name in (GAME, TOOLS))
        self.assertTrue(game and tools)
        self.assertFalse(game & tools)

    def test_every_file_belongs_to_root_and_is_readable(self):
        lines = [line for name in (GAME, TOOLS)
                 for line in output("dpkg-deb", "-c", package(name)).splitlines()]
        for line in lines:
            mode, owner, _, _, _, path = line.split(maxsplit=5)
            with self.subTest(path):
                self.assertEqual(owner, "root/root")
                executable = re.match(r"\./usr/(games/merovinska|libexec/merovinska/merovinska|"
                                      r"bin/(countrysim|guiview))$", path)
                self.assertIn(mode, {"drwxr-xr-x", "lrwxrwxrwx",
                                     "-rwxr-xr-x" if executable else "-rw-r--r--"})

    def test_icons_have_the_sizes_of_their_folders(self):
        icons = self.root / "usr/share/icons/hicolor"
        sizes = {path.parts[-3] for path in icons.rglob("merovinska.*")}
        self.assertEqual(sizes, {"48x48", "64x64", "128x128", "256x256", "scalable"})
        for size in sizes - {"scalable"}:
            self.assertEqual(output("identify", "-format", "%wx%h",
                                    icons / size / "apps/merovinska.png"), size)

    def test_icons_look_like_the_drawn_coat_of_arms(self):
        icons = self.root / "usr/share/icons/hicolor"
        for size in (48, 64, 128, 256):
            with self.subTest(size):
                drawn = self.root / "drawn.png"
                output("rsvg-convert", "-w", size, "-h", size, "-o", drawn,
                       icons / "scalable/apps/merovinska.svg")
                compared = subprocess.run(
                    ["compare", "-metric", "MAE", drawn,
                     icons / f"{size}x{size}/apps/merovinska.png", "null:"],
                    stderr=subprocess.PIPE, text=True)
                share = float(re.search(r"\((.+)\)", compared.stderr)[1])
                self.assertLess(share, 0.005)

    # The programs

    def test_programs_are_stripped(self):
        for program in ALL_PROGRAMS:
            self.assertNotRegex(output("readelf", "-SW", self.root / program),
                                r" \.(symtab|debug_\w+) ")

    def test_programs_are_hardened(self):
        for program in ALL_PROGRAMS:
            with self.subTest(program):
                said = output("readelf", "-hldW", "--dyn-syms", self.root / program)
                self.assertIn("(Position-Independent Executable file)", said)
                self.assertIn("GNU_RELRO", said)
                self.assertRegex(said, r"\(FLAGS_1\)\s+Flags: NOW PIE")
                self.assertRegex(said, r"GNU_STACK .* RW ")
                self.assertIn(" __stack_chk_fail@", said)
                self.assertRegex(said, r" __\w+_chk@")

    def test_programs_do_not_contain_the_path_of_the_build_folder(self):
        for program in ALL_PROGRAMS:
            self.assertNotIn(os.fsencode(ROOT), (self.root / program).read_bytes())

    # Reproducible builds

    def times(self):
        """The times of the files in the packages, in seconds."""
        times = []
        for name in (GAME, TOOLS):
            archive = subprocess.run(["dpkg-deb", "--fsys-tarfile", package(name)], check=True,
                                     stdout=subprocess.PIPE).stdout
            with tarfile.open(fileobj=io.BytesIO(archive)) as files:
                times += [int(member.mtime) for member in files]
        return times

    def test_times_of_the_files_are_that_of_the_last_commit(self):
        if (ROOT / ".git").exists():
            time = output("git", "-c", "safe.directory=*", "-C", ROOT, "log", "-1", "--format=%ct")
        else:
            time = output("dpkg-parsechangelog", "-S", "Timestamp", "-l",
                          ROOT / "packaging/changelog")
        self.assertEqual(set(self.times()), {int(time)})

    def test_second_build_in_another_folder_makes_the_same_packages(self):
        copy = self.root / "a copy/of the sources"
        shutil.copytree(ROOT, copy, symlinks=True,
                        ignore=lambda folder, names: {".git", "build", ".cache"} & set(names)
                        if Path(folder) == ROOT else set())
        # The copy is no git repository, so the time has to be given. Everything else is different:
        # ccache is not used, and the time zone and the language are others.
        environment = {**os.environ, "SOURCE_DATE_EPOCH": str(self.times()[0]),
                       "CCACHE_DISABLE": "1", "TZ": "Pacific/Apia", "LC_ALL": "C.UTF-8"}
        output("cmake", "--workflow", "--preset", "package", cwd=copy, env=environment)
        for name in (GAME, TOOLS):
            first, second = package(name), package(name, copy / "build/package")
            for one, other in zip(*(output("dpkg-deb", "-c", deb).splitlines()
                                    for deb in (first, second))):
                self.assertEqual(one, other)
            self.assertEqual(first.read_bytes(), second.read_bytes())
