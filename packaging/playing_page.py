#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT
"""Makes a page for browsers from a document of the tree.

playing_page.py DOCUMENT FOLDER     writes FOLDER/index.html, and copies the pictures of the document
                                    to the same places in FOLDER"""

import html
import re
import shutil
import sys
from pathlib import Path

import markdown

# The plots have a white ground, so they keep it on a dark page.
STYLE = """
:root { color-scheme: light dark; --line: #b9ae97; --tint: #f3eddf; --text: #221d14;
        --ground: #fdfbf5; --link: #7a2412; }
@media (prefers-color-scheme: dark) {
    :root { --line: #5c5445; --tint: #2b2720; --text: #ece5d6; --ground: #1c1914; --link: #f0a58f; }
}
body { margin: 0 auto; padding: 1rem 1.25rem 4rem; max-width: 46rem; line-height: 1.55;
       font-family: "Noto Serif", "DejaVu Serif", Georgia, serif;
       color: var(--text); background: var(--ground); }
h1, h2 { line-height: 1.2; }
h2 { margin-top: 2.5rem; border-bottom: 1px solid var(--line); padding-bottom: 0.2rem; }
a { color: var(--link); }
table { display: block; overflow-x: auto; border-collapse: collapse; margin: 1rem 0; }
th, td { border: 1px solid var(--line); padding: 0.25rem 0.6rem; text-align: left;
         vertical-align: top; }
th { background: var(--tint); }
code, pre { font-family: "DejaVu Sans Mono", monospace; font-size: 0.85em;
            background: var(--tint); }
pre { padding: 0.75rem; overflow-x: auto; line-height: 1.4; }
pre code { font-size: 1em; }
blockquote { margin: 1rem 0; border-left: 0.25rem solid var(--line); padding-left: 1rem; }
img { max-width: 100%; height: auto; background: white; }
""".strip()


def anchor(heading, separator):
    """The same anchors as those of websites that show the document, so that its links work."""
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", separator)


def page(text):
    converter = markdown.Markdown(output_format="html",
                                  extensions=["tables", "fenced_code", "toc"],
                                  extension_configs={"toc": {"slugify": anchor}})
    body = converter.convert(text)
    title = re.search(r"^# (.+)$", text, re.MULTILINE)[1]
    return "\n".join([
        "<!DOCTYPE html>",
        '<html lang="en">',
        "<head>",
        '<meta charset="utf-8">',
        '<meta name="viewport" content="width=device-width, initial-scale=1">',
        f"<title>{html.escape(title)}</title>",
        f"<style>\n{STYLE}\n</style>",
        "</head>",
        "<body>",
        body,
        "</body>",
        "</html>",
        ""])


def main():
    document, folder = map(Path, sys.argv[1:])
    text = page(document.read_text(encoding="utf-8"))
    for picture in re.findall(r'<img [^>]*src="([^"]+)"', text):
        copy = folder / picture
        copy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(document.parent / picture, copy)
    (folder / "index.html").write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
