# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""Plays the real game: starts it on its own virtual display, moves the mouse, presses keys and
reads the pixels of the screen. A play uses nothing that a player could not see."""

import functools
import os
import re
import signal
import subprocess
import time
from pathlib import Path

from Xlib import X, display
from Xlib.error import BadWindow
from Xlib.ext import damage
from Xlib.protocol import event as protocol
from virtualdisplay import VirtualDisplay

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["MEROVINSKA_BUILD"])
# The sanitizers must be the first library that is loaded.
SANITIZED = os.environ["MEROVINSKA_SANITIZE"] == "ON"
TITLE = "Quarn Application"
SIZE = (800, 600)
SCREEN = (1280, 1024)

# All times are in seconds. A wait ends as soon as its condition is true. Only a failing test waits
# until the timeout, which is long because a build with sanitizers on a busy machine is slow.
TIMEOUT = 90.0
POLL_INTERVAL = 0.02
# Pixels that stay the same for this time and for this number of frames will not change again: a
# highlight fades in 0.2 seconds, and what the mouse does is visible two frames later. On a busy
# machine one frame can take half a second.
REST_TIME = 0.4
REST_FRAMES = 4

RETRY_TIME = 0.25  # after which a movement of the mouse without an effect is repeated

FAILURE_REPORTS = re.compile("Assert failed on|Error sending|Invalid Tag Widget|runtime error:|"
                             "Sanitizer")


class PlayFailed(AssertionError):
    """The game did not do what the play was waiting for."""


class Widget:
    def __init__(self, line):
        self.tag, self.kind, *box, self.tab = line.split("\t")
        self.left, self.top, self.right, self.bottom = map(int, box)

    @property
    def middle(self):
        return (self.left + self.right) // 2, (self.top + self.bottom) // 2


@functools.cache
def widgets():
    """The widgets of the game by their tags. The program widgetmap has written them to a file."""
    lines = (BUILD / "tests/plays/widgets.tsv").read_text().splitlines()
    return {widget.tag: widget for widget in map(Widget, lines)}


def play_folder(test):
    """Where the streams of a test's game, and a picture of its failure, can be found later."""
    return BUILD / "plays" / os.environ["MEROVINSKA_SDL"] / test.id().split(".", 1)[-1]


class Screen(VirtualDisplay):
    """A virtual display whose windows and pixels can be read."""

    def __init__(self, size=SCREEN, log=None):
        super().__init__(size, log)
        self.connection = display.Display(self.name)
        self.root = self.connection.screen().root

    def close(self):
        self.connection.close()
        super().close()


class Game:
    """One run of the game, or of another program that contains it. Its output and its errors are
    written to files in `folder`. `settings` are added to its environment."""

    def __init__(self, folder, command=(BUILD / "merovinska",), cwd=ROOT / "data", settings=()):
        self.folder = folder
        folder.mkdir(parents=True, exist_ok=True)
        self.display = Screen(log=folder / "display.log")
        # Each thread of Mesa would keep memory for drawing.
        self.environment = {**self.display.environment, "LP_NUM_THREADS": "0"}
        environment = {**self.environment, **dict(settings)}
        if not SANITIZED:
            environment["LD_PRELOAD"] = str(BUILD / "tests/plays/libpacedswap.so")
        with open(folder / "stdout", "w") as stdout, open(folder / "stderr", "w") as stderr:
            self.process = subprocess.Popen(command, cwd=cwd, env=environment,
                                            stdin=subprocess.DEVNULL, stdout=stdout, stderr=stderr,
                                            # SIGTSTP does not stop a process group whose parent
                                            # processes are all in another session.
                                            process_group=0)
        self.pointer = None
        self.shown_frames = 0
        self.open_tabs = {}

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.display.close()

    # What a player sees

    @property
    def stderr(self):
        return (self.folder / "stderr").read_text(errors="replace")

    def loaded_sdl(self):
        """The folder of the SDL library that the running game has loaded."""
        maps = Path(f"/proc/{self.game_process()}/maps").read_text()
        folder, = {Path(path).parent for path in re.findall(r"/\S+/libSDL-1\.2\S+", maps)}
        return folder

    def game_process(self):
        return self.process.pid

    def find_window(self):
        for window in self.display.root.query_tree().children:
            try:
                if window.get_wm_name() == TITLE:
                    return window
            except BadWindow:  # SDL opened a window for a test, and has closed it again
                pass
        return None

    def frames(self):
        """How many frames the game has shown since its start."""
        connection = self.display.connection
        while connection.pending_events():
            if connection.next_event().type == connection.extension_event.DamageNotify:
                self.shown_frames += 1
        return self.shown_frames

    def grab(self, left, top, right, bottom):
        """The pixels of a part of the window. All four sides belong to the part."""
        image = self.display.root.get_image(self.origin[0] + left, self.origin[1] + top,
                                            right - left + 1, bottom - top + 1,
                                            X.ZPixmap, 0xFFFFFFFF)
        pixels = bytearray(image.data)
        # The fourth byte of a pixel is not a part of its colour. It can differ between a picture
        # that was drawn and one that was kept.
        pixels[3::4] = bytes(len(pixels) // 4)
        return bytes(pixels)

    def look(self, tag, part=1.0):
        """A widget's pixels, or those of the left part of it. Of a slider only the strip along its
        line: the text of a neighbouring label may reach into the rest of its box."""
        widget = widgets()[tag]
        left, top, right, bottom = widget.left, widget.top, widget.right, widget.bottom
        if widget.kind == "Slider":
            x, y = widget.middle
            strip = 4
            if right - left > bottom - top:
                top, bottom = y - strip, y + strip
            else:
                left, right = x - strip, x + strip
        return self.grab(left, top, left + int((right - left) * part), bottom)

    # Waiting

    def wait(self, condition, what, timeout=TIMEOUT, may_end=False):
        """Waits until the condition returns a true value, and returns that value."""
        end = time.monotonic() + timeout
        while True:
            found = condition()
            if found:
                return found
            if not may_end and self.process.poll() is not None:
                raise PlayFailed(f"the game ended with {self.process.returncode} while the play "
                                 f"waited for {what}\n{self.stderr[-2000:]}")
            if time.monotonic() > end:
                self.take_picture()
                raise PlayFailed(f"waited {timeout} seconds for {what}, see {self.folder}")
            time.sleep(POLL_INTERVAL)

    def wait_for_change(self, tag, before, part=1.0):
        self.wait(lambda: self.look(tag, part) != before, f"a change of {tag}")

    def at_rest(self, tag, part=1.0):
        """The widget's pixels, after they have stayed the same for a while."""
        last = self.look(tag, part)
        since = time.monotonic()
        frame = self.frames()

        def rests():
            nonlocal last, since, frame
            now = self.look(tag, part)
            if now != last:
                last, since, frame = now, time.monotonic(), self.frames()
            return (time.monotonic() - since > REST_TIME
                    and self.frames() >= frame + REST_FRAMES)

        self.wait(rests, f"{tag} to stop changing")
        return last

    def wait_until_started(self):
        self.window = self.wait(self.find_window, f'a window "{TITLE}"')
        self.wait(lambda: self.window.get_attributes().map_state == X.IsViewable,
                  "its window to be shown")
        self.display.connection.damage_query_version()
        self.window.damage_create(damage.DamageReportRawRectangles)  # one event for each frame
        place = self.window.translate_coords(self.display.root, 0, 0)
        self.origin = -place.x, -place.y
        for label in ("farmerslab", "popinfo", "date"):
            self.wait(lambda: len(set(memoryview(self.look(label)).cast("I"))) > 2,
                      f"the text of {label}")

    def take_picture(self):
        subprocess.run(["import", "-window", "root", str(self.folder / "failed.png")],
                       env=self.environment, check=False)

    # What a player does

    def xdotool(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.environment, check=True,
                       stdout=subprocess.DEVNULL, timeout=TIMEOUT)

    def move(self, x, y):
        self.pointer = x, y
        self.xdotool("mousemove", self.origin[0] + x, self.origin[1] + y)

    def open_tab_of(self, tag):
        """Opens the tab that the widget is in, by a click on the tab's button."""
        tab = widgets()[tag].tab
        window = tab.partition("tab")[0]
        if tab != "-" and self.open_tabs.get(window) != tab:
            self.click(tab)
            self.open_tabs[window] = tab

    def hover(self, tag, point=None):
        """Moves the mouse over a widget and waits until the widget is highlighted. The game does
        not notice the very first movement, so the mouse is moved back and forth until it does."""
        widget = widgets()[tag]
        x, y = point or widget.middle
        if self.pointer is not None:
            px, py = self.pointer
            if widget.left <= px <= widget.right and widget.top <= py <= widget.bottom:
                self.move(x, y)
                self.at_rest(tag)
                return
        before = self.at_rest(tag)
        offset = 0

        def highlighted():
            nonlocal offset
            self.move(x + offset, y)
            offset = 1 - offset
            end = time.monotonic() + RETRY_TIME
            while time.monotonic() < end:
                if self.look(tag) != before:
                    return True
                time.sleep(POLL_INTERVAL)
            return False

        self.wait(highlighted, f"the highlight of {tag}")
        self.move(x, y)
        self.at_rest(tag)

    def click(self, tag):
        """Presses the left mouse button over a button, waits until the game shows the button
        pressed, and releases it."""
        self.open_tab_of(tag)
        self.hover(tag)
        before = self.look(tag)
        self.xdotool("mousedown", 1)
        self.wait_for_change(tag, before)
        self.xdotool("mouseup", 1)

    def press(self, tag):
        """Presses the left mouse button over a widget that the click removes."""
        self.open_tab_of(tag)
        self.hover(tag)
        self.xdotool("mousedown", 1)

    def grip(self, tag, start):
        """Presses the left mouse button over a slider's knob, and moves the mouse until the knob
        follows. Returns whether the slider is horizontal."""
        widget = widgets()[tag]
        horizontal = widget.right - widget.left > widget.bottom - widget.top
        self.open_tab_of(tag)
        self.hover(tag, start)
        before = self.look(tag)
        self.xdotool("mousedown", 1)
        x, y = start
        step = 0

        def follows():
            nonlocal step
            step += 3
            self.move(*((x + step, y) if horizontal else (x, y - step)))
            end = time.monotonic() + RETRY_TIME
            while time.monotonic() < end:
                if self.look(tag) != before:
                    return True
                time.sleep(POLL_INTERVAL)
            return False

        self.wait(follows, f"a movement of the knob of {tag}")
        return horizontal

    def drag(self, tag, fraction, level=0.0):
        """Drags a slider that is at `level` by this fraction of the length of its box."""
        widget = widgets()[tag]
        width, height = widget.right - widget.left, widget.bottom - widget.top
        x, y = widget.middle
        knob = min(max(width, height) // 10, 10)  # pixels from the end of the box to the knob
        if width > height:
            start = widget.left + knob + int((width - 2 * knob) * level), y
            target = start[0] + int(width * fraction), y
        else:
            start = x, widget.bottom - knob - int((height - 2 * knob) * level)
            target = x, start[1] - int(height * fraction)
        self.grip(tag, start)
        self.move(*target)
        self.at_rest(tag)
        self.xdotool("mouseup", 1)
        self.at_rest(tag)

    def close_window(self):
        """Asks the window to close, as a window manager does when its close button is pressed."""
        connection = self.display.connection
        request = protocol.ClientMessage(
            window=self.window, client_type=connection.intern_atom("WM_PROTOCOLS"),
            data=(32, [connection.intern_atom("WM_DELETE_WINDOW"), X.CurrentTime, 0, 0, 0]))
        self.window.send_event(request)
        connection.flush()

    def send_signal(self, name):
        self.process.send_signal(getattr(signal, name))

    def ended(self):
        """Waits for the end of the game, and returns its exit status."""
        self.wait(lambda: self.process.poll() is not None, "the end of the game", may_end=True)
        return self.process.returncode
