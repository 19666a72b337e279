# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The tables of docs/THEMES.md: the colours of the themes of each set, and the contrasts of texts
and outlines.

theme_tables.py GUIVIEW writes the tables and draws the pictures again."""

import re
import subprocess
import sys
import tempfile
from functools import cache
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
DOCUMENT = ROOT / "docs/THEMES.md"
PICTURES = ROOT / "docs/themes"
OWN = "default"

# The lowest allowed contrasts.
MIN_CONTRAST_OF_TEXT = 4.5
MIN_CONTRAST_OF_OUTLINES = 3.0

# This part of the pixels of a background may have a lower contrast, as in the check of guiview.
IGNORED_PIXELS = 0.05

# Themes with the background of their text: the picture of another theme, or their own.
TEXT_ON = [("default", "parchment"), ("heading", "parchment"), ("hint", "parchment"),
           ("hint", "newsprint"), ("paper", "newsprint"), ("bar", "cloth")]
TEXT_ON_ITSELF = ["button", "barbutton", "tabwin_button", "partner", "messagebox", "seal", "chart"]

# The lines of charts, and the names at their ends. Shaded weeks have the outline colour of the
# chart with the first opacity, the band has its text colour with the second one.
CHART = "chart"
SERIES = [f"series{number}" for number in range(1, 5)]
TEXT_ON += [(which, CHART) for which in SERIES]
SHADING, BAND = 0.2, 0.1

# The parts of pictures, in their middle, on which texts and outlines are drawn.
MIDDLES = {"seal.tga": "62%x31%", "cloth.tga": "100%x60%"}

# Themes whose outline must be visible, with the background around it.
OUTLINES_ON = [("button", "parchment"), ("button", "newsprint"), ("barbutton", "cloth"),
               ("tabwin_button", "parchment"), ("combo_button", "partner"),
               ("partner", "parchment"), ("messagebox", "messagebox"), ("slot", "parchment"),
               ("seal", "parchment")]

# Sliders are half transparent.
KNOB, SLOT = "knob", "slot"


class Theme:
    def __init__(self, path):
        self.comment = path.read_text().splitlines()[0].removeprefix("// ")
        lines = [line.split("//")[0].split() for line in path.read_text().splitlines()
                 if line.strip() and not line.startswith("//")]
        self.text, self.line, self.fill = (tuple(map(float, group)) for group in lines[:3])
        self.dim, self.bright = map(float, lines[11])
        self.picture = lines[14][0]
        self.fades = lines[15][0] == "1"

    @property
    def brightness(self):
        """The brightness of an idle widget, and of one under the mouse."""
        return (self.dim if self.fades else self.bright), self.bright


def sets():
    return [OWN, *sorted(path.name for path in (ROOT / "data/sets").iterdir())]


def layers(name):
    return [ROOT / "data"] + ([] if name == OWN else [ROOT / "data/sets" / name])


def find(name, file):
    return next((folder / file for folder in reversed(layers(name)) if (folder / file).exists()),
                None)


@cache
def theme(name, which):
    return Theme(find(name, f"{which}.theme"))


@cache
def pixels(path):
    """The colours, from 0 to 1, of a picture, or of the part of it on which something is drawn."""
    part = MIDDLES.get(path.name)
    crop = ["-gravity", "center", "-crop", f"{part}+0+0"] if part else []
    raw = subprocess.run(["convert", str(path), *crop, "-depth", "8", "rgb:-"],
                         capture_output=True, check=True).stdout
    return [tuple(value / 255 for value in raw[at:at + 3]) for at in range(0, len(raw), 3)]


def scaled(colour, brightness):
    return tuple(min(channel * brightness, 1.0) for channel in colour)


def backgrounds(name, which):
    """The colours of a theme's surface while it is idle, and under the mouse."""
    look = theme(name, which)
    for brightness in look.brightness:
        tint = scaled(look.fill, brightness)
        file = None if look.picture in ("NULL", "gui.tga") else find(name, look.picture)
        if file is None:
            yield [tint]
        else:
            yield [tuple(a * b for a, b in zip(tint, colour)) for colour in pixels(file)]


def mixed(below, above, opacity):
    return tuple(a + opacity * (b - a) for a, b in zip(below, above))


def chart_grounds(name):
    """The colours on which the lines of a chart are, idle and under the mouse."""
    look = theme(name, CHART)
    for [plain] in backgrounds(name, CHART):
        shaded = mixed(plain, look.line, SHADING)
        yield [plain, shaded, mixed(plain, look.text, BAND), mixed(shaded, look.text, BAND)]


def luminance(colour):
    linear = [c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in colour]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def ratio(a, b):
    high, low = sorted((luminance(a) + 0.05, luminance(b) + 0.05), reverse=True)
    return high / low


# What people see who lack one of the three kinds of cones: red, green and blue of linear light
# (Machado, Oliveira and Fernandes 2009, severity 1).
COLOUR_BLINDNESS = {
    "none": ((1, 0, 0), (0, 1, 0), (0, 0, 1)),
    "protanopia": ((0.152286, 1.052583, -0.204868), (0.114503, 0.786281, 0.099216),
                   (-0.003882, -0.048116, 1.051998)),
    "deuteranopia": ((0.367322, 0.860646, -0.227968), (0.280085, 0.672501, 0.047413),
                     (-0.011820, 0.042940, 0.968881)),
    "tritanopia": ((1.255528, -0.076749, -0.178779), (-0.078411, 0.930809, 0.147602),
                   (0.004733, 0.691367, 0.303900)),
}


def product(matrix, values):
    return [sum(a * b for a, b in zip(row, values)) for row in matrix]


def lab(colour, blindness):
    """The colour in CIE L*a*b*, as people with this colour blindness see it."""
    linear = [c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in colour]
    seen = [min(max(c, 0.0), 1.0) for c in product(COLOUR_BLINDNESS[blindness], linear)]
    white = (0.9505, 1.0, 1.089)
    xyz = product(((0.4124, 0.3576, 0.1805), (0.2126, 0.7152, 0.0722), (0.0193, 0.1192, 0.9505)),
                  seen)
    x, y, z = (c ** (1 / 3) if c > 0.008856 else 7.787 * c + 16 / 116
               for c in (a / b for a, b in zip(xyz, white)))
    return 116 * y - 16, 500 * (x - y), 200 * (y - z)


def contrast(colour, ground):
    ratios = {other: ratio(colour, other) for other in set(ground)}
    return sorted(ratios[other] for other in ground)[int(IGNORED_PIXELS * (len(ground) - 1))]


def measures(name):
    """Tuples: what, on what background, lowest allowed contrast, idle contrast, contrast under the
    mouse."""
    for which, ground in TEXT_ON + [(which, which) for which in TEXT_ON_ITSELF]:
        text = theme(name, which).text
        yield ("text of " + which, ground, MIN_CONTRAST_OF_TEXT,
               *(contrast(text, colours) for colours in backgrounds(name, ground)))
    for which, ground in OUTLINES_ON:
        look = theme(name, which)
        surroundings = list(backgrounds(name, ground))
        if ground != which:  # the mouse is over the theme, not over its background
            surroundings = [surroundings[0]] * 2
        yield ("outline of " + which, ground, MIN_CONTRAST_OF_OUTLINES,
               *(contrast(scaled(look.line, brightness), colours)
                 for brightness, colours in zip(look.brightness, surroundings)))
    for which in SERIES:
        line = theme(name, which).line
        yield ("line of " + which, "shaded chart", MIN_CONTRAST_OF_OUTLINES,
               *(min(ratio(line, ground) for ground in grounds)
                 for grounds in chart_grounds(name)))
    slot = next(backgrounds(name, SLOT))[0]
    knob = theme(name, KNOB)
    yield (KNOB, SLOT, MIN_CONTRAST_OF_OUTLINES,
           *(ratio(tuple((a + b) / 2 for a, b in zip(scaled(knob.fill, brightness), slot)), slot)
             for brightness in knob.brightness))


def contrast_table(name):
    rows = ["| what | on | least | idle | under the mouse |", "|---|---|---|---|---|"]
    # Rounded down, so that no contrast below the lowest allowed one looks like it.
    rounded = lambda value: f"{int(value * 10) / 10:.1f}:1"
    for what, ground, least, idle, lit in measures(name):
        rows.append(f"| {what} | {ground} | {least}:1 | {rounded(idle)} | {rounded(lit)} |")
    return "\n".join(rows)


def colour(values):
    return "#" + "".join(f"{round(255 * value):02x}" for value in values)


def theme_table(name):
    rows = ["| theme | what for | text | outlines | fill | picture |", "|---|---|---|---|---|---|"]
    for path in sorted(layers(name)[-1].glob("*.theme")):
        look = Theme(path)
        picture = "" if look.picture == "NULL" else f"`{look.picture}`"
        rows.append(f"| `{path.stem}` | {look.comment.rstrip('.')} | {colour(look.text)} | "
                    f"{colour(look.line)} | {colour(look.fill)} | {picture} |")
    return "\n".join(rows)


TABLE = re.compile(r"(<!-- (themes|contrast) of (\S+) -->\n).*?(<!-- end -->)", re.S)


def renewed(document):
    make = {"themes": theme_table, "contrast": contrast_table}
    return TABLE.sub(lambda match: match[1] + make[match[2]](match[3]) + "\n" + match[4], document)


def draw(guiview, name, picture):
    with tempfile.TemporaryDirectory() as folder:
        for layer in layers(name):
            for path in layer.iterdir():
                link = Path(folder) / path.name
                if path.is_file():
                    link.unlink(missing_ok=True)
                    link.symlink_to(path)
        subprocess.run([guiview, "--game", "--png", str(picture), f"{folder}/my.gui.debug"],
                       check=True)


def main():
    PICTURES.mkdir(exist_ok=True)
    for name in sets():
        draw(sys.argv[1], name, PICTURES / f"{name}.png")
    DOCUMENT.write_text(renewed(DOCUMENT.read_text()))


if __name__ == "__main__":
    main()
