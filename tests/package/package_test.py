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

ROOT = Path(__file__).resolve().parents[2]

PROGRAMS = ("usr/libexec/merovinska/merovinska", "usr/libexec/merovinska/guiview")
METAINFO = "usr/share/metainfo/example.merovinska.merovinska.metainfo.xml"
DESKTOP_ENTRY = "usr/share/applications/merovinska.desktop"
FONT = "usr/share/games/merovinska/font.ttf"


def output(*command, **options):
    return subprocess.run([*map(str, command)], check=True, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, text=True, **options).stdout


def version():
    return re.search(r"project\(merovinska VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())[1]


def package(build=ROOT / "build/package"):
    architecture = output("dpkg", "--print-architecture").strip()
    return build / f"merovinska_{version()}_{architecture}.deb"


def field(name):
    return output("dpkg-deb", "-f", package(), name).strip()


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.root = Path(cls.folder.name)
        output("dpkg-deb", "-x", package(), cls.root)

    def expect_success_without_output(self, *command):
        result = subprocess.run([*map(str, command)], stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    # Programs that check packages

    def test_lintian_finds_no_errors_or_warnings(self):
        # Without --allow-root, lintian warns if root runs it.
        result = subprocess.run(["lintian", "--allow-root", "--fail-on", "error,warning",
                                 package()],
                                stdin=subprocess.DEVNULL, capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stdout), (0, ""), result.stderr)

    def test_menu_entry_is_valid(self):
        self.expect_success_without_output("desktop-file-validate", self.root / DESKTOP_ENTRY)

    def test_description_for_software_centres_is_valid(self):
        result = subprocess.run(["appstreamcli", "validate", "--no-net", self.root / METAINFO],
                                stdin=subprocess.DEVNULL, capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stdout)
        self.assertNotRegex(result.stdout, r"(?m)^[EW]:")

    def test_manual_page_is_formatted_without_warnings(self):
        page = self.root / "usr/share/man/man6/merovinska.6.gz"
        result = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page],
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                stderr=subprocess.PIPE, text=True,
                                env={**os.environ, "LC_ALL": "C.UTF-8", "MANROFFSEQ": "",
                                     "MANWIDTH": "80"})
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    # Description

    def test_package_is_a_game_with_the_version_of_the_project(self):
        self.assertEqual((field("Package"), field("Version"), field("Section")),
                         ("merovinska", version(), "games"))

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
        depended = set(re.findall(r"(?:^|[,|] )([a-z0-9.+-]+)", field("Depends")))
        for program in PROGRAMS:
            dynamic = output("readelf", "-d", self.root / program)
            needed = re.findall(r"\(NEEDED\).*\[(.+)\]", dynamic)
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

    def test_package_recommends_the_programs_that_show_messages_of_the_launcher(self):
        packages = {"zenity": "zenity", "kdialog": "kdialog", "xmessage": "x11-utils"}
        launcher = (self.root / "usr/games/merovinska").read_text()
        called = re.findall(r"if command -v (\w+) >", launcher)
        self.assertEqual(sorted(field("Recommends").split(" | ")),
                         sorted(packages[name] for name in called))

    def test_font_is_a_link_to_that_of_another_package(self):
        self.assertIn("fonts-noto-extra", field("Depends").split(", "))
        self.assertTrue((self.root / FONT).is_symlink())
        target = os.readlink(self.root / FONT)
        self.assertFalse(target.startswith("/"), target)
        installed = Path(os.path.normpath(Path("/") / Path(FONT).parent / target))
        self.assertEqual(installed.read_bytes(), (ROOT / "data/font.ttf").read_bytes())
        self.assertEqual(output("dpkg-query", "-S", installed).split(":")[0],
                         "fonts-noto-extra")

    # Contents

    def test_package_contains_all_data(self):
        source, installed = ROOT / "data", self.root / "usr/share/games/merovinska"
        wanted = {str(path.relative_to(source)) for path in source.rglob("*")}
        # The package with the font contains the font's licence.
        wanted.remove("font.LICENSE.txt")
        self.assertEqual({str(path.relative_to(installed)) for path in installed.rglob("*")},
                         wanted)

    def test_every_file_belongs_to_root_and_is_readable(self):
        for line in output("dpkg-deb", "-c", package()).splitlines():
            mode, owner, _, _, _, path = line.split(maxsplit=5)
            with self.subTest(path):
                self.assertEqual(owner, "root/root")
                executable = re.match(r"\./usr/(games|libexec/merovinska)/(merovinska|guiview)$",
                                      path)
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
        for program in PROGRAMS:
            self.assertNotRegex(output("readelf", "-SW", self.root / program),
                                r" \.(symtab|debug_\w+) ")

    def test_programs_are_hardened(self):
        for program in PROGRAMS:
            with self.subTest(program):
                said = output("readelf", "-hldW", "--dyn-syms", self.root / program)
                self.assertIn("(Position-Independent Executable file)", said)
                self.assertIn("GNU_RELRO", said)
                self.assertRegex(said, r"\(FLAGS_1\)\s+Flags: NOW PIE")
                self.assertRegex(said, r"GNU_STACK .* RW ")
                self.assertIn(" __stack_chk_fail@", said)
                self.assertRegex(said, r" __\w+_chk@")

    def test_programs_do_not_contain_the_path_of_the_build_folder(self):
        for program in PROGRAMS:
            self.assertNotIn(os.fsencode(ROOT), (self.root / program).read_bytes())

    # Reproducible builds

    def times(self):
        """The times of the files in the package, in seconds."""
        archive = subprocess.run(["dpkg-deb", "--fsys-tarfile", package()], check=True,
                                 stdout=subprocess.PIPE).stdout
        with tarfile.open(fileobj=io.BytesIO(archive)) as files:
            return [int(member.mtime) for member in files]

    def test_times_of_the_files_are_that_of_the_last_commit(self):
        if (ROOT / ".git").exists():
            time = output("git", "-c", "safe.directory=*", "-C", ROOT, "log", "-1", "--format=%ct")
        else:
            time = output("dpkg-parsechangelog", "-S", "Timestamp", "-l",
                          ROOT / "packaging/changelog")
        self.assertEqual(set(self.times()), {int(time)})

    def test_second_build_in_another_folder_makes_the_same_package(self):
        copy = self.root / "a copy/of the sources"
        shutil.copytree(ROOT, copy, symlinks=True,
                        ignore=lambda folder, names: {".git", "build", ".cache"} & set(names)
                        if Path(folder) == ROOT else set())
        # The copy is no git repository, so the time has to be given. Everything else is different:
        # ccache is not used, and the time zone and the language are others.
        environment = {**os.environ, "SOURCE_DATE_EPOCH": str(self.times()[0]),
                       "CCACHE_DISABLE": "1", "TZ": "Pacific/Apia", "LC_ALL": "C.UTF-8"}
        output("cmake", "--workflow", "--preset", "package", cwd=copy, env=environment)
        first, second = package(), package(copy / "build/package")
        for one, other in zip(*(output("dpkg-deb", "-c", deb).splitlines()
                                for deb in (first, second))):
            self.assertEqual(one, other)
        self.assertEqual(first.read_bytes(), second.read_bytes())
