# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The examples of docs/LAYOUT.md: reads them from the document, and draws their pictures.

layout_examples.py GUIVIEW draws the pictures of the document again."""

import re
import shutil
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
DOCUMENT = ROOT / "docs/LAYOUT.md"
PICTURES = ROOT / "docs/layout"

BLOCK = re.compile(r"^```(\w+) (\S+)([^\n]*)\n(.*?)^```$", re.M | re.S)


class Example:
    """A layout of the document, and the other files that it needs."""

    def __init__(self, name, layout, options, files):
        self.name = name
        self.layout = layout
        self.options = options
        self.files = files

    @property
    def picture(self):
        return PICTURES / f"{self.name}.png"

    def write(self, folder):
        for font_or_sheet in ["font.ttf", "gui.tga"]:
            shutil.copy(ROOT / "data" / font_or_sheet, folder)
        for name, text in self.files.items():
            (folder / name).write_text(text)
        path = folder / f"{self.name}.gui"
        path.write_text(self.layout)
        return path

    def draw(self, guiview, folder, picture):
        layout = self.write(folder)
        return subprocess.run([guiview, "--png", picture, "--crop", layout, *self.options],
                              capture_output=True, text=True)


def change_line(theme, number, text):
    """Replaces the line of a theme that has this number when comments are not counted."""
    lines = theme.splitlines(keepends=True)
    values = [i for i, line in enumerate(lines) if not line.startswith("//")]
    lines[values[number - 1]] = text
    return "".join(lines)


def read_examples(document):
    """Reads the blocks of a document by the words after their fences. `layout NAME.gui OPTIONS`
    is a layout. `theme NAME...` and `conf NAME...` are files. `change NAME LINE OPTIONS` is the
    layout sample.gui with another line in its theme."""
    layouts, files, changes = {}, {}, []
    for kind, name, rest, text in BLOCK.findall(document):
        words = rest.split()
        if kind == "layout":
            layouts[name.removesuffix(".gui")] = (text, words)
        elif kind in ("theme", "conf"):
            for file in [name, *words]:
                files[file] = text
        elif kind == "change":
            changes.append((name, int(words[0]), words[1:], text))
        else:
            raise ValueError(f"unknown kind of block: {kind}")
    files["sample.theme"] = files["default.theme"]
    examples = [Example(name, text, options, files) for name, (text, options) in layouts.items()]
    sample = layouts["sample"][0]
    for name, line, options, text in changes:
        theme = change_line(files["default.theme"], line, text)
        examples.append(Example(name, sample, options, {**files, "sample.theme": theme}))
    return examples


def renew(guiview):
    import tempfile

    PICTURES.mkdir(exist_ok=True)
    for old in PICTURES.glob("*.png"):
        old.unlink()
    for example in read_examples(DOCUMENT.read_text()):
        with tempfile.TemporaryDirectory() as folder:
            result = example.draw(guiview, Path(folder), example.picture)
        if result.returncode != 0:
            sys.exit(f"{example.name}: {result.stderr}")


if __name__ == "__main__":
    renew(sys.argv[1])
