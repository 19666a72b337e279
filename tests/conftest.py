# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""Makes the tests in Python use the release build if pytest is started without CTest. CTest also sets
MEROVINSKA_SDL_FOLDER, which two tests compare with the SDL library that the game has loaded."""

import os
from pathlib import Path

os.environ.setdefault("MEROVINSKA_BUILD", str(Path(__file__).resolve().parents[1] / "build/release"))
os.environ.setdefault("MEROVINSKA_SANITIZE", "OFF")
os.environ.setdefault("MEROVINSKA_SDL", "sdl12")
