# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""packages.txt names everything that a new machine needs: the packages in it, and those that they
depend on, contain all headers, libraries, commands and Python modules that the tree uses."""

import os
import re
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["MEROVINSKA_BUILD"])

# The commands that scripts and tests call, by the section whose packages must contain them.
COMMANDS = {
    "play": ["g++", "cmake", "ninja"],
    "picture": ["Xvfb", "import"],
    "tools": [],
    "check": ["ccache", "pkg-config", "clang-format", "clang-tidy", "run-clang-tidy", "shellcheck",
              "xdotool", "python3", "pytest-3", "doxygen", "gnuplot", "dot", "reuse", "codespell",
              "parallel", "help2man"],
    "package": ["dpkg-shlibdeps", "strip", "readelf", "git", "lintian", "desktop-file-validate",
                "appstreamcli", "man", "rsvg-convert", "hb-subset"],
    "fuzz": ["clang++"],
    "coverage": ["gcovr"],
}

# Installed on every Debian, without being listed.
ALWAYS = ["bash", "coreutils", "dpkg", "findutils", "gawk", "grep", "gzip", "libc-bin", "mawk",
          "sed"]


def read_list(text):
    """The sections of the list. Each is a dictionary of packages and their reasons."""
    sections = {}
    current = None
    for line in text.splitlines():
        heading = re.fullmatch(r"\[(\w+)\]", line.strip())
        if heading:
            current = sections.setdefault(heading[1], {})
        elif line.strip() and not line.startswith("#"):
            name, _, reason = line.strip().partition(" ")
            if current is None:
                raise ValueError(f"{name} is in no section")
            if any(name in section for section in sections.values()):
                raise ValueError(f"{name} is listed twice")
            if not reason.strip():
                raise ValueError(f"{name} has no reason")
            current[name] = reason.strip()
    return sections


def output(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          text=True).stdout


class Installed:
    """The installed packages, as dpkg knows them."""

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

    def installed_with(self, packages):
        """These packages and all packages that they depend on."""
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
        """The package of each file. dpkg may know the same file in /lib or in /usr/lib."""
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
    """The headers of libraries that the object files of these folders were compiled with."""
    headers = set()
    wanted = False
    for line in output("ninja", "-C", str(BUILD), "-t", "deps").splitlines():
        if line and not line.startswith(" "):
            wanted = line.startswith(targets)
        elif wanted and line.strip().startswith(("/usr/include/", "/usr/lib/")):
            headers.add(line.strip())
    return headers


def linked_libraries(targets):
    """The libraries that the programs of these folders are linked with."""
    libraries = set()
    wanted = False
    for line in (BUILD / "build.ninja").read_text().splitlines():
        if line.startswith("build "):
            wanted = line.removeprefix("build ").startswith(targets)
        elif wanted and line.strip().startswith("LINK_LIBRARIES ="):
            libraries.update(re.findall(r"(/(?:usr/)?lib/\S+\.(?:so|a))", line))
    return libraries


def section_of_compiler():
    """The section with the compiler of this build, if it is not g++, which is in [play]."""
    cache = (BUILD / "CMakeCache.txt").read_text()
    compiler = re.search(r"^CMAKE_CXX_COMPILER:\w+=(.*)", cache, re.MULTILINE)[1]
    return ["fuzz"] if "clang" in Path(compiler).name else []


GAME = ("quarn2/", "glwidget/", "country/", "app/", "merovinska")
TOOLS = ("tools/",)
EVERYTHING = ("",)


class PackageList(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.installed = Installed()

    def setUp(self):
        self.sections = read_list((ROOT / "packages.txt").read_text())

    def installed_with(self, *sections):
        names = [name for section in sections for name in self.sections[section]]
        return self.installed.installed_with(names + ALWAYS)

    def expect_provided(self, files, *sections):
        self.assertTrue(files, "there are no files: is the tree built?")
        owners = Installed.owners(files)
        provided = self.installed_with(*sections)
        unlisted = {f"{owner} ({path})" for path, owner in owners.items() if owner not in provided}
        self.assertFalse(unlisted, f"packages.txt does not install {sorted(unlisted)}")
        unowned = {path for path in map(os.path.normpath, files) if path not in owners}
        self.assertFalse(unowned, f"no package contains {sorted(unowned)}")

    def test_list_has_its_sections_and_each_package_once_with_a_reason(self):
        self.assertEqual(
            list(self.sections),
            ["play", "picture", "tools", "check", "package", "fuzz", "coverage"])
        for section in self.sections.values():
            self.assertTrue(section)

    def test_list_provides_the_headers_of_the_game(self):
        self.expect_provided(compiled_headers(GAME), "play", *section_of_compiler())

    def test_list_provides_the_headers_of_the_tools(self):
        self.expect_provided(compiled_headers(GAME + TOOLS), "play", "tools",
                             *section_of_compiler())

    def test_list_provides_the_headers_of_the_tests(self):
        self.expect_provided(compiled_headers(EVERYTHING), "play", "picture", "tools", "check",
                            *section_of_compiler())

    def test_list_provides_the_libraries_of_the_game(self):
        self.expect_provided(linked_libraries(GAME), "play")

    def test_list_provides_the_libraries_of_the_tools(self):
        self.expect_provided(linked_libraries(GAME + TOOLS), "play", "tools")

    def test_list_provides_the_libraries_of_the_tests(self):
        self.expect_provided(linked_libraries(EVERYTHING), "play", "picture", "tools", "check")

    def test_list_provides_the_commands_that_scripts_and_tests_call(self):
        sections = []
        for section, commands in COMMANDS.items():
            sections.append(section)
            # The commands of Debian, even if others come first in PATH.
            paths = [f"/usr/bin/{command}" for command in commands]
            if not self.installed.depends.keys() >= self.sections[section].keys():
                # ./check does not install the last three sections. If a command of theirs is
                # missing, it is not checked.
                self.assertIn(section, ("package", "fuzz", "coverage"))
                paths = list(filter(os.path.exists, paths))
            if paths:
                self.expect_provided(paths, *sections)

    def test_list_provides_the_python_modules_of_the_build_and_the_tests(self):
        for module in ("PIL", "Xlib", "markdown", "pytest", "pytest_subtests", "xdist",
                       "yaml"):
            file = output("/usr/bin/python3", "-c", f"import {module}; print({module}.__file__)")
            self.expect_provided([file.strip()], "check")

    def test_package_that_is_removed_from_the_list_is_noticed(self):
        del self.sections["play"]["libsdl1.2-dev"]
        with self.assertRaisesRegex(AssertionError, "libsdl1.2-dev"):
            self.expect_provided(compiled_headers(GAME), "play")

    def test_package_of_the_tools_that_is_removed_from_the_list_is_noticed(self):
        del self.sections["tools"]["libcli11-dev"]
        with self.assertRaisesRegex(AssertionError, "libcli11-dev"):
            self.expect_provided(compiled_headers(GAME + TOOLS), "play", "tools")

    def test_package_without_a_reason_is_an_error(self):
        with self.assertRaisesRegex(ValueError, "cmake has no reason"):
            read_list("[play]\ncmake\n")

    def test_package_in_two_sections_is_an_error(self):
        with self.assertRaisesRegex(ValueError, "cmake is listed twice"):
            read_list("[play]\ncmake  builds\n[check]\ncmake  builds\n")

    def test_package_outside_the_sections_is_an_error(self):
        with self.assertRaisesRegex(ValueError, "cmake is in no section"):
            read_list("cmake  builds\n")
