# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT
"""Finds the code and the commands in the documents of the tree.

documents.py DOCUMENT FOLDER     writes the named blocks of C++ to files in the folder, and the files
                                 of the tree that blocks of kind diff change, after the change"""

import re
import sys
from dataclasses import dataclass, field
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

# What text between backquotes begins with if it is a command.
PROGRAMS = re.compile(r"(\./(play|check)|(scripts|docs|fuzz|build)/\S+|cmake|ctest|kill|"
                      r"countrysim|guiview|guiart|docs/\S+)( |$)")


@dataclass
class Block:
    """A fenced block of code. `kind` and `name` are the words after the opening fence."""
    document: Path
    line: int
    kind: str
    name: str
    lines: list = field(default_factory=list)


@dataclass
class Command:
    text: str
    place: str
    output: str = None  # the output in the document; None if the document shows none


def documents():
    """Every document of the tree."""
    return sorted(path for path in ROOT.rglob("*.md")
                  if not any(part == "build" or part.startswith(".")
                             for part in path.relative_to(ROOT).parts))


def blocks(document):
    found = []
    current = None
    for number, line in enumerate(document.read_text().splitlines(), 1):
        if line.lstrip().startswith("```"):
            if current is None:
                kind, _, name = line.strip().removeprefix("```").partition(" ")
                current = Block(document, number, kind, name)
            else:
                found.append(current)
                current = None
        elif current is not None:
            current.lines.append(line)
    return found


def indented(document):
    """The numbers of lines that are code because they are indented by four spaces after an empty
    line. Lists and fenced blocks are left out."""
    fenced = in_list = False
    before = ""
    for number, line in enumerate(document.read_text().splitlines(), 1):
        if line.lstrip().startswith("```"):
            fenced = not fenced
        elif not fenced:
            if re.match(r"\s*([-*]|\d+\.) ", line):
                in_list = True
            elif line and not line.startswith(" "):
                in_list = False
            if line.startswith("    ") and not before.strip() and not in_list:
                yield number
        before = line


def shell(block):
    """The commands of a block of kind sh or console."""
    place = f"{block.document.relative_to(ROOT)}:{block.line}"
    if block.kind == "sh":
        return [Command(re.sub(r"\s+# .*", "", line).strip(), place)
                for line in block.lines if line.strip() and not line.startswith("#")]
    commands = []
    for line in block.lines:
        if line.startswith("$ "):
            commands.append(Command(line[2:], place, ""))
        else:
            commands[-1].output += line + "\n"
    return commands


def in_text(document):
    """The commands between backquotes in the text of a document."""
    fenced = False
    for number, line in enumerate(document.read_text().splitlines(), 1):
        if line.lstrip().startswith("```"):
            fenced = not fenced
        if fenced:
            continue
        for code in re.findall(r"`([^`]+)`", line):
            if PROGRAMS.match(code):
                yield Command(code, f"{document.relative_to(ROOT)}:{number}")


def commands():
    """Every command of every document."""
    found = []
    for document in documents():
        for block in blocks(document):
            if block.kind in ("sh", "console"):
                found += shell(block)
        found += in_text(document)
    return found


def changed(block):
    """The file that a block of kind diff names, after the change."""
    text = (ROOT / block.name).read_text()
    for hunk in "\n".join(block.lines).split("\n@@\n"):
        lines = hunk.split("\n")
        before = "".join(line[1:] + "\n" for line in lines if not line.startswith("+"))
        after = "".join(line[1:] + "\n" for line in lines if not line.startswith("-"))
        if text.count(before) != 1:
            sys.exit(f"{block.document}:{block.line}: {block.name} does not have these lines once:"
                     f"\n{before}")
        text = text.replace(before, after)
    return text


def main():
    document, folder = map(Path, sys.argv[1:])
    for block in blocks(document):
        if not block.name or block.kind not in ("cpp", "diff"):
            continue
        file = folder / block.name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(changed(block) if block.kind == "diff" else "\n".join(block.lines) + "\n")


if __name__ == "__main__":
    main()
