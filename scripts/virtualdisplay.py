# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""Virtual displays for programs in Python. scripts/ondisplay starts them."""

import os
import subprocess
from pathlib import Path

ONDISPLAY = Path(__file__).resolve().with_name("ondisplay")


class VirtualDisplay:
    """A virtual display. It ends when it is closed. It also ends when the process that started it is
    killed, because `keeper` ends at the end of its input. The display's messages go to the file
    `log`."""

    def __init__(self, size=(1280, 1024), log=None):
        options = ["--size", "{}x{}".format(*size), *(["--log", log] if log else [])]
        self.keeper = subprocess.Popen([ONDISPLAY, *options, "sh", "-c", 'echo "$DISPLAY"; cat'],
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.name = self.keeper.stdout.readline().strip()
        if not self.name:
            self.close()
            raise RuntimeError("the virtual display did not start")

    @property
    def environment(self):
        """This process's environment, in which programs open their windows on the display and
        draw without graphics hardware."""
        environment = {**os.environ, "DISPLAY": self.name, "SDL_VIDEODRIVER": "x11",
                       "LIBGL_ALWAYS_SOFTWARE": "1"}
        environment.pop("WAYLAND_DISPLAY", None)
        return environment

    def close(self):
        self.keeper.stdin.close()
        self.keeper.stdout.close()
        self.keeper.wait()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
