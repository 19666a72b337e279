# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

"""Plays the real game: starts it on a virtual display of its own, moves the mouse, presses keys
and looks at the picture. Nothing in the game helps; what a play knows, a player could see."""

import functools
import os
import re
import signal
import subprocess
import time
from pathlib import Path

from Xlib import X, display
from Xlib.error import BadWindow
from Xlib.protocol import event as protocol
from virtualdisplay import VirtualDisplay

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["MEROVINSKA_BUILD"])
TITLE = "Quarn Application"
SIZE = (800, 600)
SCREEN = (1280, 1024)

# Waiting ends as soon as its condition holds; this long only when something is broken. A sanitized
# build on a busy machine is slow.
PATIENCE = 90.0
POLL = 0.02
# A picture that stayed the same this long has come to rest: a highlight takes 0.2 seconds.
REST = 0.4

TRICKLE = 0.25  # how long one attempt may stay unnoticed before it is repeated

BAD_NEWS = re.compile("Assert failed on|Error sending|Invalid Tag Widget|runtime error:|Sanitizer")


class Broken(AssertionError):
    """The game did not do what the play waited for."""


class Widget:
    def __init__(self, line):
        self.tag, self.kind, *box, self.behind = line.split("\t")
        self.left, self.top, self.right, self.bottom = map(int, box)

    @property
    def middle(self):
        return (self.left + self.right) // 2, (self.top + self.bottom) // 2


@functools.cache
def widgets():
    """What tests/plays/widgetmap found."""
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
    """One run of the game, or of another program that plays it. Its streams go to files in
    `folder`. `settings` are added to its environment."""

    def __init__(self, folder, command=(BUILD / "merovinska",), cwd=ROOT / "data", settings=()):
        self.folder = folder
        folder.mkdir(parents=True, exist_ok=True)
        self.display = Screen(log=folder / "display.log")
        # Each thread of Mesa would keep memory for drawing.
        self.environment = {**self.display.environment, "LP_NUM_THREADS": "0"}
        environment = {**self.environment, **dict(settings)}
        with open(folder / "stdout", "w") as stdout, open(folder / "stderr", "w") as stderr:
            self.process = subprocess.Popen(command, cwd=cwd, env=environment,
                                            stdin=subprocess.DEVNULL, stdout=stdout, stderr=stderr,
                                            # SIGTSTP does not stop a group whose parents are all
                                            # outside its session, as a check's may be.
                                            process_group=0)
        self.pointer = None
        self.tab = {}

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.display.close()

    # What can be seen

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
            except BadWindow:  # one that the library opened to try something, and closed again
                pass
        return None

    def grab(self, left, top, right, bottom):
        """The pixels of a part of the window, borders included."""
        return self.display.root.get_image(self.origin[0] + left, self.origin[1] + top,
                                           right - left + 1, bottom - top + 1,
                                           X.ZPixmap, 0xFFFFFFFF).data

    def look(self, tag, part=1.0):
        """A widget's pixels, or those of the given part from its left. Of a slider only the strip
        along its line is looked at: the text of a neighbour may reach into the rest of its box."""
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

    def wait(self, condition, what, patience=PATIENCE, may_end=False):
        """Until the condition gives something true, which is returned."""
        end = time.monotonic() + patience
        while True:
            found = condition()
            if found:
                return found
            if not may_end and self.process.poll() is not None:
                raise Broken(f"the game ended with {self.process.returncode} before {what}\n"
                             f"{self.stderr[-2000:]}")
            if time.monotonic() > end:
                self.take_picture()
                raise Broken(f"waited in vain for {what}, see {self.folder}")
            time.sleep(POLL)

    def wait_for_change(self, tag, before, part=1.0):
        self.wait(lambda: self.look(tag, part) != before, f"a change of {tag}")

    def at_rest(self, tag, part=1.0):
        """The widget's pixels once they stay the same."""
        last = self.look(tag, part)
        since = time.monotonic()

        def rests():
            nonlocal last, since
            now = self.look(tag, part)
            if now != last:
                last, since = now, time.monotonic()
            return time.monotonic() - since > REST

        self.wait(rests, f"{tag} to come to rest")
        return last

    def wait_until_started(self):
        self.window = self.wait(self.find_window, f'a window "{TITLE}"')
        self.wait(lambda: self.window.get_attributes().map_state == X.IsViewable, "its window")
        place = self.window.translate_coords(self.display.root, 0, 0)
        self.origin = -place.x, -place.y
        for label in ("farmerslab", "popinfo", "date"):
            self.wait(lambda: len(set(memoryview(self.look(label)).cast("I"))) > 2,
                      f"{label} to be filled")

    def take_picture(self):
        subprocess.run(["import", "-window", "root", str(self.folder / "failed.png")],
                       env=self.environment, check=False)

    # What hands can do

    def xdotool(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.environment, check=True,
                       stdout=subprocess.DEVNULL, timeout=PATIENCE)

    def move(self, x, y):
        self.pointer = x, y
        self.xdotool("mousemove", self.origin[0] + x, self.origin[1] + y)

    def bring_up(self, tag):
        """Presses the tab button that the widget is behind."""
        behind = widgets()[tag].behind
        window = behind.partition("tab")[0]
        if behind != "-" and self.tab.get(window) != behind:
            self.click(behind)
            self.tab[window] = behind

    def hover(self, tag, point=None):
        """Puts the mouse over a widget and waits until it is lit. The first motion of all is
        not noticed by the game, so the hand trembles until the widget has seen it."""
        widget = widgets()[tag]
        x, y = point or widget.middle
        if self.pointer is not None:
            px, py = self.pointer
            if widget.left <= px <= widget.right and widget.top <= py <= widget.bottom:
                self.move(x, y)
                self.at_rest(tag)
                return
        dark = self.at_rest(tag)
        tremble = 0

        def lit():
            nonlocal tremble
            self.move(x + tremble, y)
            tremble = 1 - tremble
            end = time.monotonic() + TRICKLE
            while time.monotonic() < end:
                if self.look(tag) != dark:
                    return True
                time.sleep(POLL)
            return False

        self.wait(lit, f"{tag} to notice the mouse")
        self.move(x, y)
        self.at_rest(tag)

    def click(self, tag):
        """Presses and releases the left button over a button, each for as long as the game
        needs to show it."""
        self.bring_up(tag)
        self.hover(tag)
        lit = self.look(tag)
        self.xdotool("mousedown", 1)
        self.wait_for_change(tag, lit)
        self.xdotool("mouseup", 1)

    def press(self, tag):
        """Presses the left button over something that goes away by it."""
        self.bring_up(tag)
        self.hover(tag)
        self.xdotool("mousedown", 1)

    def grip(self, tag, start):
        """Takes a slider's knob in the hand: presses, and moves until the knob follows.
        Returns the direction of the track."""
        widget = widgets()[tag]
        horizontal = widget.right - widget.left > widget.bottom - widget.top
        self.bring_up(tag)
        self.hover(tag, start)
        lit = self.look(tag)
        self.xdotool("mousedown", 1)
        x, y = start
        step = 0

        def follows():
            nonlocal step
            step += 3
            self.move(*((x + step, y) if horizontal else (x, y - step)))
            end = time.monotonic() + TRICKLE
            while time.monotonic() < end:
                if self.look(tag) != lit:
                    return True
                time.sleep(POLL)
            return False

        self.wait(follows, f"the knob of {tag} to follow")
        return horizontal

    def drag(self, tag, fraction, level=0.0):
        """Drags a slider that stands at the level by this fraction of its box."""
        widget = widgets()[tag]
        width, height = widget.right - widget.left, widget.bottom - widget.top
        x, y = widget.middle
        knob = min(max(width, height) // 10, 10)  # from the box's end to where the knob ends
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
        """What a window manager does when its close button is pressed."""
        connection = self.display.connection
        request = protocol.ClientMessage(
            window=self.window, client_type=connection.intern_atom("WM_PROTOCOLS"),
            data=(32, [connection.intern_atom("WM_DELETE_WINDOW"), X.CurrentTime, 0, 0, 0]))
        self.window.send_event(request)
        connection.flush()

    def send_signal(self, name):
        self.process.send_signal(getattr(signal, name))

    def ended(self):
        """The exit status, once the game is gone."""
        self.wait(lambda: self.process.poll() is not None, "the end of the game", may_end=True)
        return self.process.returncode
