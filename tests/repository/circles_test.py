# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""No two sources of a folder need each other, directly or through others: a source needs another
one if it uses a function or a variable that the other defines."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

BUILD = Path(os.environ["MEROVINSKA_BUILD"])
FOLDERS = ["quarn2", "glwidget", "country", "app"]

# What nm writes for symbols that one object alone may define: code, data, zeroed and constant data.
DEFINED = "TDBR"


def symbols(libraries):
    """The symbols that each object of the libraries defines, and those that it uses."""
    defined, used = {}, {}
    for library in libraries:
        listing = subprocess.run(["nm", "--print-file-name", library], check=True,
                                 stdout=subprocess.PIPE, text=True).stdout
        for line in listing.splitlines():
            path, _, entry = line.rpartition(":")
            name = path.rpartition(":")[2].removesuffix(".o")
            kind, symbol = entry.split()[-2:]
            if kind == "U":
                used.setdefault(name, set()).add(symbol)
            elif kind in DEFINED:
                defined.setdefault(name, set()).add(symbol)
    return defined, used


def needs(libraries):
    """For each object the others that it needs."""
    defined, used = symbols(libraries)
    definer = {symbol: name for name, group in defined.items() for symbol in group}
    return {name: {definer[symbol] for symbol in group & definer.keys()} - {name}
            for name, group in used.items()}


def circle(needed):
    """Objects that need each other, in the order of the circle; none if there is no circle."""
    finished = set()
    path = []

    def search(name):
        if name in finished:
            return []
        if name in path:
            return path[path.index(name):]
        path.append(name)
        for other in sorted(needed.get(name, ())):
            if found := search(other):
                return found
        path.pop()
        finished.add(name)
        return []

    for name in sorted(needed):
        if found := search(name):
            return found
    return []


class Circles(unittest.TestCase):
    def test_no_two_sources_of_a_folder_need_each_other(self):
        for folder in FOLDERS:
            with self.subTest(folder):
                needed = needs((BUILD / folder).glob("*.a"))
                self.assertGreater(len(needed), 2)
                self.assertEqual(circle(needed), [])

    def test_two_sources_that_need_each_other_are_found(self):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            (folder / "a.cpp").write_text("void B(); void A() { B(); }\n")
            (folder / "b.cpp").write_text("void C(); void B() { C(); }\n")
            (folder / "c.cpp").write_text("void A(); void C() { A(); }\n")
            (folder / "d.cpp").write_text("void A(); void D() { A(); }\n")
            subprocess.run(["g++", "-c", "a.cpp", "b.cpp", "c.cpp", "d.cpp"], cwd=folder,
                           check=True)
            subprocess.run(["ar", "rc", "all.a", "a.o", "b.o", "c.o", "d.o"], cwd=folder,
                           check=True)
            self.assertEqual(needs([folder / "all.a"])["d"], {"a"})
            self.assertEqual(circle(needs([folder / "all.a"])), ["a", "b", "c"])

    def test_sources_that_need_each_other_in_one_direction_are_no_circle(self):
        self.assertEqual(circle({"a": {"b", "c"}, "b": {"c"}, "d": {"a", "c"}}), [])


if __name__ == "__main__":
    unittest.main()
