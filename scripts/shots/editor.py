# SPDX-License-Identifier: MIT
"""The editor of a picture: with settings of its own, on a display of its own, in somebody's hands."""

import shutil
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tests/driven"))

import display as displays
from display import Box, Display, Failure, missing_tools, wait_until

# Without frames a window's place is also that of its contents.
NO_FRAMES = """<theme><keepBorder>no</keepBorder></theme>
<applications><application class="*"><decor>no</decor></application></applications>
"""
displays.OPENBOX = displays.OPENBOX.replace("</openbox_config>", NO_FRAMES + "</openbox_config>")

SCREEN = 1200, 900


class Editor:
    """One editor with a folder of its own, in which are the example unit, its settings and its templates."""

    def __init__(self, program, folder, display, width, height):
        self.program, self.folder, self.display, self.size = program, folder, display, (width, height)
        display.environment.update(
            HOME=str(folder / "home"),
            XDG_CONFIG_HOME=str(folder / "home/config"),
            XDG_DATA_HOME=str(folder / "home/data"),
            XDG_STATE_HOME=str(folder / "home/state"),
            XDG_RUNTIME_DIR=str(folder / "home"),
            QT_SCALE_FACTOR="1",
            LC_ALL="C.UTF-8",
        )
        (folder / "home").mkdir(mode=0o700)
        self.unit = folder / "Shapes.pas"
        shutil.copyfile(ROOT / "examples/Shapes.pas", self.unit)
        self.process = None
        self.window = None

    def start(self, *arguments, splash=False):
        self.process = self.display.start([self.program, *([] if splash else ["--no-splash"]), *map(str, arguments)])
        self.window = wait_until(lambda: self.display.windows(" – Virelle$"), "the window of the editor")[0]
        self.display.xdotool("windowsize", "--sync", self.window, *self.size)
        self.display.xdotool("windowmove", self.window, 30, 40)
        self.hide_mouse()
        self.settle()

    def hide_mouse(self):
        self.display.xdotool("mousemove", *(size - 1 for size in SCREEN))

    def settle(self):
        """Waits until the screen stays as it is, but for a caret."""
        last, same = None, 0
        while same < 6:
            time.sleep(0.15)
            shown = self.display.picture()
            box = Box(0, 0, shown.width, shown.height)
            same = same + 1 if last is not None and shown.differing(last, box) < 60 else 0
            last = shown

    def keys(self, *names):
        self.display.keys(*names)
        self.settle()

    def type(self, text):
        self.display.type(text)
        self.settle()

    def box(self, title=None):
        """The place of the window with this title, or of the editor's."""
        if title is None:
            return self.display.box(self.window)
        return self.display.box(wait_until(lambda: self.display.windows(f"^{title}$"), f"the window {title}")[-1])

    def wait_for_colour(self, colour, claim):
        wait_until(lambda: self.display.picture().count(self.box(), colour) > 5, claim)

    def go_to(self, line):
        self.display.keys("ctrl+g")
        self.display.wait_for_window("Go to Line Number")
        self.display.type(str(line))
        self.keys("Return")

    def line_with(self, text):
        """The first line, from 1, of the example unit that holds `text`."""
        return next(n for n, line in enumerate(self.unit.read_text().split("\n"), 1) if text in line)

    def place_of(self, text, part):
        """LINE:COLUMN of `part` in the first line with `text`."""
        line = self.line_with(text)
        return f"{line}:{self.unit.read_text().split(chr(10))[line - 1].index(part) + 1}"

    def spoil(self, right, wrong):
        self.unit.write_text(self.unit.read_text().replace(right, wrong))

    def options(self, steps):
        """Opens an item of the Tools menu, `steps` below its first."""
        self.display.keys("alt+t")
        self.keys(*["Down"] * steps, "Return")
