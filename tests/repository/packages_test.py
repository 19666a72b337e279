# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""packages.txt names what a fresh machine needs: nothing that the tree compiles against, links to
or calls comes from a package that the list would not bring along."""

import os
import re
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["MEROVINSKA_BUILD"])

# What the scripts and the plays call, by the section that has to bring it.
COMMANDS = {
    "play": ["g++", "cmake", "ninja", "pkg-config"],
    "picture": ["Xvfb", "import"],
    "check": ["clang-format", "clang-tidy", "run-clang-tidy", "shellcheck", "xdotool", "python3", "doxygen",
              "gnuplot", "dot", "reuse", "codespell", "parallel"],
    "package": ["dpkg-shlibdeps", "strip", "readelf", "git", "lintian", "desktop-file-validate",
                "appstreamcli", "man", "rsvg-convert"],
    "fuzz": ["clang++"],
    "coverage": ["gcovr"],
}

# Installed on every Debian, whatever is listed.
ALWAYS = ["bash", "coreutils", "dpkg", "findutils", "gawk", "grep", "gzip", "libc-bin", "mawk",
          "sed"]


def read_list(text):
    """The sections of the list: each package with its reason."""
    sections = {}
    current = None
    for line in text.splitlines():
        heading = re.fullmatch(r"\[(\w+)\]", line.strip())
        if heading:
            current = sections.setdefault(heading[1], {})
        elif line.strip() and not line.startswith("#"):
            name, _, reason = line.strip().partition(" ")
            if current is None:
                raise ValueError(f"{name} stands in no section")
            if any(name in section for section in sections.values()):
                raise ValueError(f"{name} is listed twice")
            if not reason.strip():
                raise ValueError(f"{name} has no reason")
            current[name] = reason.strip()
    return sections


def output(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout


class Installed:
    """Debian's records of what is installed."""

    def __init__(self):
        self.depends = {}
        self.providers = {}
        query = "${Package}\t${db:Status-Status}\t${Pre-Depends}, ${Depends}\t${Provides}\n"
        for line in output("dpkg-query", "-W", "-f", query).splitlines():
            package, status, depends, provides = line.split("\t")
            if status != "installed":
                continue
            self.depends.setdefault(package, set()).update(self.names(depends))
            for virtual in self.names(provides):
                self.providers.setdefault(virtual, set()).add(package)

    @staticmethod
    def names(relations):
        return set(re.findall(r"(?:^|[,|])\s*([a-z0-9][a-z0-9+.-]+)", relations))

    def brought_by(self, packages):
        """What is there once these packages are: they and what they depend on."""
        found = set()
        waiting = list(packages)
        while waiting:
            name = waiting.pop()
            for package in {name} | self.providers.get(name, set()):
                if package in self.depends and package not in found:
                    found.add(package)
                    waiting.extend(self.depends[package])
        return found

    @staticmethod
    def owners(paths):
        """The package of each file. The same file may be recorded under /lib and /usr/lib."""
        spellings = {}
        for path in paths:
            path = os.path.normpath(path)
            spellings[path] = path
            spellings[os.path.realpath(path)] = path
            if path.startswith("/usr/"):
                spellings[path.removeprefix("/usr")] = path
            else:
                spellings["/usr" + path] = path
        owners = {}
        for line in output("dpkg-query", "-S", *sorted(spellings)).splitlines():
            packages, _, spelling = line.partition(": ")
            if spelling in spellings:
                for package in packages.split(", "):
                    owners[spellings[spelling]] = package.split(":")[0]
        return owners


def compiled_headers(targets):
    """Library headers that the objects below these folders of the build were compiled with."""
    headers = set()
    wanted = False
    for line in output("ninja", "-C", str(BUILD), "-t", "deps").splitlines():
        if line and not line.startswith(" "):
            wanted = line.startswith(targets)
        elif wanted and line.strip().startswith(("/usr/include/", "/usr/lib/")):
            headers.add(line.strip())
    return headers


def linked_libraries(targets):
    """Library files that CMake found and put on the link lines of these folders' programs."""
    libraries = set()
    wanted = False
    for line in (BUILD / "build.ninja").read_text().splitlines():
        if line.startswith("build "):
            wanted = line.removeprefix("build ").startswith(targets)
        elif wanted and line.strip().startswith("LINK_LIBRARIES ="):
            libraries.update(re.findall(r"(/(?:usr/)?lib/\S+\.(?:so|a))", line))
    return libraries


def other_compiler():
    """The section that brings the compiler of this build, where [play] does not."""
    cache = (BUILD / "CMakeCache.txt").read_text()
    compiler = re.search(r"^CMAKE_CXX_COMPILER:\w+=(.*)", cache, re.MULTILINE)[1]
    return ["fuzz"] if "clang" in Path(compiler).name else []


GAME = ("quarn2/", "glwidget/", "country/", "app/", "merovinska")
EVERYTHING = ("",)


class PackageList(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.installed = Installed()

    def setUp(self):
        self.sections = read_list((ROOT / "packages.txt").read_text())

    def brought_by(self, *sections):
        names = [name for section in sections for name in self.sections[section]]
        return self.installed.brought_by(names + ALWAYS)

    def expect_brought(self, files, *sections):
        self.assertTrue(files, "there is nothing to look at: is the tree built?")
        owners = Installed.owners(files)
        brought = self.brought_by(*sections)
        strangers = {f"{owner} ({path})" for path, owner in owners.items() if owner not in brought}
        self.assertFalse(strangers, f"packages.txt does not bring {sorted(strangers)}")
        unowned = {path for path in map(os.path.normpath, files) if path not in owners}
        self.assertFalse(unowned, f"no package holds {sorted(unowned)}")

    def test_has_its_sections_and_every_package_once_with_a_reason(self):
        self.assertEqual(
            list(self.sections), ["play", "picture", "check", "package", "fuzz", "coverage"])
        for section in self.sections.values():
            self.assertTrue(section)

    def test_brings_the_headers_that_the_game_is_compiled_with(self):
        self.expect_brought(compiled_headers(GAME), "play", *other_compiler())

    def test_brings_the_headers_that_everything_is_compiled_with(self):
        self.expect_brought(compiled_headers(EVERYTHING), "play", "picture", "check",
                            *other_compiler())

    def test_brings_the_libraries_that_the_game_is_linked_to(self):
        self.expect_brought(linked_libraries(GAME), "play")

    def test_brings_the_libraries_that_everything_is_linked_to(self):
        self.expect_brought(linked_libraries(EVERYTHING), "play", "picture", "check")

    def test_brings_the_commands_that_the_scripts_call(self):
        sections = []
        for section, commands in COMMANDS.items():
            sections.append(section)
            # Debian's own, wherever another one may stand on the search path.
            paths = [f"/usr/bin/{command}" for command in commands]
            if not self.installed.depends.keys() >= self.sections[section].keys():
                # ./check alone does not install the last three sections. What is here of theirs
                # came with something else.
                self.assertIn(section, ("package", "fuzz", "coverage"))
                paths = list(filter(os.path.exists, paths))
                if not paths:
                    continue
            self.expect_brought(paths, *sections)

    def test_brings_the_modules_with_which_the_tests_see_and_read(self):
        for module in ("PIL", "Xlib", "pytest", "pytest_subtests", "yaml"):
            file = output("/usr/bin/python3", "-c", f"import {module}; print({module}.__file__)")
            self.expect_brought([file.strip()], "check")

    def test_is_found_wanting_when_a_package_is_taken_out(self):
        del self.sections["play"]["libsdl1.2-dev"]
        with self.assertRaisesRegex(AssertionError, "libsdl1.2-dev"):
            self.expect_brought(compiled_headers(GAME), "play")

    def test_a_package_without_a_reason_is_refused(self):
        with self.assertRaisesRegex(ValueError, "cmake has no reason"):
            read_list("[play]\ncmake\n")

    def test_a_package_in_two_sections_is_refused(self):
        with self.assertRaisesRegex(ValueError, "cmake is listed twice"):
            read_list("[play]\ncmake  builds\n[check]\ncmake  builds\n")

    def test_a_package_outside_the_sections_is_refused(self):
        with self.assertRaisesRegex(ValueError, "cmake stands in no section"):
            read_list("cmake  builds\n")
