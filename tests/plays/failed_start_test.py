# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""A start of the game that fails. CTest runs it on SDL 1.2 and on sdl12-compat."""

import os
import subprocess
import unittest

from driver import BUILD, ROOT


class FailedStart(unittest.TestCase):
    def test_game_without_a_display_reports_it_and_ends_with_status_0(self):
        environment = {**os.environ, "SDL_VIDEODRIVER": "x11"}
        environment.pop("DISPLAY", None)
        run = subprocess.run([BUILD / "merovinska"], cwd=ROOT / "data", env=environment,
                             stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=60)
        self.assertRegex(run.stderr, r"\ASDL_Init\(\) failed\. SDL Error: .+\n"
                                     r"Error sending openwindow event\n\Z")
        self.assertEqual(run.stdout, "")
        self.assertEqual(run.returncode, 0)
