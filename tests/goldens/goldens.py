# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""The golden pictures: how the game looks with every set in several situations, called poses, and
how charts of unusual series look. Draws and compares them.

goldens.py draw SET     draws the poses of a set into the build folder
goldens.py renew        draws the poses of all sets and makes them the golden pictures"""

import os
import shutil
import subprocess
import sys
from pathlib import Path

from PIL import Image, ImageChops, ImageStat

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["MEROVINSKA_BUILD"])
GOLDENS = Path(__file__).resolve().parent / "pictures"
OWN = "own"  # the name for the data of the game without a set

# The largest allowed differences, of 255. Drivers round differently at the edges of letters and
# lines, but not in whole areas.
LARGEST = 64  # of one channel of one pixel
MEAN = 0.5  # of all pixels


def sets():
    """The game's own data and the sets of data/sets."""
    return [OWN, *sorted(path.name for path in (ROOT / "data/sets").glob("*") if path.is_dir())]


def drawn(name):
    return BUILD / "goldens" / name


def draw(name):
    """Draws the poses of a set into the folder drawn(name)."""
    folder = drawn(name)
    shutil.rmtree(folder, ignore_errors=True)
    data = folder / "data"
    data.mkdir(parents=True)
    layers = [ROOT / "data"] + ([] if name == OWN else [ROOT / "data/sets" / name])
    for layer in layers:
        for path in layer.iterdir():
            if path.is_file():
                link = data / path.name
                link.unlink(missing_ok=True)
                link.symlink_to(path)
    for program in ["gameposes", "chartposes"]:
        subprocess.run([BUILD / "tests/goldens" / program, folder], cwd=data, check=True,
                       env={**os.environ, "LIBGL_ALWAYS_SOFTWARE": "1"})


def poses(folder):
    return sorted(path.stem for path in folder.glob("*.png")
                  if not path.stem.endswith("-difference"))


def compare(actual, expected):
    """Returns a description of the difference and a picture that shows it. Each is None if there is
    nothing to say or to show."""
    if actual.size != expected.size:
        return f"is {actual.size} pixels instead of {expected.size}", None
    difference = ImageChops.difference(actual.convert("RGB"), expected.convert("RGB"))
    largest = max(high for _, high in difference.getextrema())
    mean = sum(ImageStat.Stat(difference).mean) / 3
    if largest <= LARGEST and mean <= MEAN:
        return None, None
    return (f"differs by up to {largest} and by {mean:.3f} on average, of 255",
            difference.point(lambda value: min(255, value * 4)))


def renew():
    shutil.rmtree(GOLDENS, ignore_errors=True)
    for name in sets():
        draw(name)
        (GOLDENS / name).mkdir(parents=True)
        for pose in poses(drawn(name)):
            with Image.open(drawn(name) / f"{pose}.png") as picture:
                picture.convert("RGB").save(GOLDENS / name / f"{pose}.png", optimize=True)


if __name__ == "__main__":
    match sys.argv[1:]:
        case ["draw", name] if name in sets():
            draw(name)
        case ["renew"]:
            renew()
        case _:
            sys.exit(__doc__)
