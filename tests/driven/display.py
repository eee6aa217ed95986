# SPDX-License-Identifier: MIT
"""A display of one's own: Xvfb with a window manager, driven by xdotool, and looked at through its frame buffer."""

import os
import shutil
import struct
import subprocess
import time
import zlib
from pathlib import Path
from typing import NamedTuple

TOOLS = ("Xvfb", "xdotool", "openbox")

# Nothing is bound to a key or button, so every event reaches the program.
OPENBOX = """<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
<focus><focusNew>yes</focusNew></focus>
<mouse><context name="Client"><mousebind button="Left" action="Press"><action name="Focus"/></mousebind></context></mouse>
</openbox_config>
"""


class Failure(Exception):
    """What the user would have seen is not there."""


def missing_tools():
    """The names of the programs that are not installed."""
    return [tool for tool in TOOLS if shutil.which(tool) is None]


def wait_until(condition, claim, seconds=60):
    """Polls `condition` until it gives something true, which is returned. The limit only keeps a failure from hanging."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Failure(f"in vain waited for: {claim}")
        time.sleep(0.05)


class Box(NamedTuple):
    """A rectangle of the screen in pixels."""

    x: int
    y: int
    width: int
    height: int

    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2


class Picture:
    """What the screen shows, read from a frame buffer in the format of xwd: 32 bits a pixel."""

    def __init__(self, dump):
        header = struct.unpack(">25I", dump[:100])
        self.width, self.height = header[4], header[5]
        self.stride, order, bits = header[12], header[7], header[11]
        if bits != 32 or order != 0:
            raise Failure(f"a frame buffer of {bits} bits a pixel, byte order {order}")
        first = header[0] + header[19] * 12  # behind the header and the colour map
        self.bytes = dump[first : first + self.stride * self.height]

    def pixel(self, x, y):
        """The colour as 0xRRGGBB."""
        place = y * self.stride + 4 * x
        return int.from_bytes(self.bytes[place : place + 3], "little")

    def rows(self, box):
        """The bytes of each row of `box`, four a pixel."""
        for y in range(box.y, box.y + box.height):
            first = y * self.stride + 4 * box.x
            yield self.bytes[first : first + 4 * box.width]

    def count(self, box, colour):
        """How many pixels of `box` have the colour 0xRRGGBB."""
        wanted = colour.to_bytes(3, "little")
        total = 0
        for row in self.rows(box):
            place = row.find(wanted)
            while place >= 0:
                total += place % 4 == 0
                place = row.find(wanted, place + 1)
        return total

    def differing(self, other, box, place=None):
        """How many pixels of `box` are others than in `other`, in the same box or in the one of its size at `place`."""
        total = 0
        for mine, theirs in zip(self.rows(box), other.rows(place or box)):
            if mine != theirs:
                total += sum(mine[i : i + 3] != theirs[i : i + 3] for i in range(0, len(mine), 4))
        return total

    def save(self, path):
        """Writes a PNG file."""
        lines = bytearray()
        for row in self.rows(Box(0, 0, self.width, self.height)):
            rgb = bytearray(3 * self.width)
            rgb[0::3], rgb[1::3], rgb[2::3] = row[2::4], row[1::4], row[0::4]
            lines += b"\0" + rgb

        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

        header = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        parts = (b"IHDR", header), (b"IDAT", zlib.compress(bytes(lines), 1)), (b"IEND", b"")
        Path(path).write_bytes(b"\x89PNG\r\n\x1a\n" + b"".join(chunk(*part) for part in parts))


class Display:
    """The X server, its window manager, and the hands and eyes of a user. Use it in a with statement."""

    def __init__(self, folder, width=1200, height=900):
        self.folder = Path(folder)
        self.processes = []
        self.environment = dict(os.environ, QT_QPA_PLATFORM="xcb")
        reading, writing = os.pipe()
        screen = ["-screen", "0", f"{width}x{height}x24"]
        # Without -noreset the server starts anew, and loses whoever is just coming, when its only client goes.
        server = ["Xvfb", "-displayfd", str(writing), *screen, "-fbdir", str(folder), "-nolisten", "tcp", "-noreset"]
        self.start(server, (writing,))
        os.close(writing)
        with os.fdopen(reading) as answer:  # a line with the number, or the end of a server that failed
            number = answer.readline().strip()
        if not number:
            raise Failure("Xvfb does not start")
        self.environment["DISPLAY"] = f":{number}"
        rules = self.folder / "openbox.xml"
        rules.write_text(OPENBOX)
        self.start(["openbox", "--sm-disable", "--config-file", str(rules)])
        wait_until(self.has_window_manager, "a window manager")

    def start(self, command, files=()):
        log = open(self.folder / (Path(command[0]).name + ".log"), "wb")
        process = subprocess.Popen(command, env=self.environment, stdout=log, stderr=log, pass_fds=files)
        log.close()
        self.processes.append(process)
        return process

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.kill()
            process.wait()

    def xdotool(self, *arguments, check=True):
        """Runs xdotool and returns what it prints."""
        command = ["xdotool", *map(str, arguments)]
        done = subprocess.run(command, env=self.environment, capture_output=True, text=True, timeout=60)
        if check and done.returncode != 0:
            raise Failure(f"{' '.join(command)}: {done.stderr}")
        return done.stdout.strip()

    def has_window_manager(self):
        return bool(self.xdotool("get_num_desktops", check=False))

    def picture(self):
        return Picture((self.folder / "Xvfb_screen0").read_bytes())

    def keys(self, *names):
        self.xdotool("key", "--delay", "2", *names)

    def type(self, text):
        self.xdotool("type", "--delay", "2", text)

    def click(self, x, y):
        self.xdotool("mousemove", x, y, "click", "1")

    def windows(self, title):
        """The windows on the screen whose title matches the regular expression."""
        return self.xdotool("search", "--onlyvisible", "--name", title, check=False).split()

    def all_windows(self):
        """Every window on the screen, menus and lists that have popped up among them."""
        return set(self.xdotool("search", "--onlyvisible", "--name", "", check=False).split())

    def box(self, window):
        shell = dict(line.split("=") for line in self.xdotool("getwindowgeometry", "--shell", window).split())
        return Box(*(int(shell[key]) for key in ("X", "Y", "WIDTH", "HEIGHT")))

    def active_title(self):
        return self.xdotool("getactivewindow", "getwindowname", check=False)

    def wait_for_window(self, title):
        """Waits until the window `title` is the active one.

        A window manager that is told of two windows' ends at once may leave the focus nowhere; then a user clicks.
        """
        try:
            wait_until(lambda: self.active_title() == title, f"the window {title}", 5)
        except Failure:
            window = wait_until(lambda: self.windows(f"^{title}$"), f"the window {title}")[-1]
            box = self.box(window)
            self.click(box.x + box.width // 2, box.y + box.height - 3)
            wait_until(lambda: self.active_title() == title, f"the window {title} to be active")

    def popup(self, before, claim):
        """Waits for a window that was not there `before`, and returns its place."""
        new = wait_until(lambda: self.all_windows() - before, claim)
        return max((self.box(window) for window in new), key=lambda box: box.width * box.height)
