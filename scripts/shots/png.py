# SPDX-License-Identifier: MIT
"""Parts of a screen as small PNG files."""

import struct
import zlib


def with_palette(rows):
    """The colours of `rows` of blue, green, red and nothing, at most 256, and the rows as numbers of colours.

    Where there are more, those that look the same become one.
    """
    for step in (1, 4, 8, 16, 32):
        rounded = bytes(min(255, (value + step // 2) // step * step) for value in range(256))
        numbers, lines = {}, []
        for row in rows:
            row = row.translate(rounded)
            pixels = (row[i : i + 3] for i in range(0, len(row), 4))
            lines.append([numbers.setdefault(pixel, len(numbers)) for pixel in pixels])
        if len(numbers) <= 256:
            break
    return [pixel[::-1] for pixel in numbers], [bytes(line) for line in lines]


def png(shown, box):
    """The bytes of a PNG file of `box` of the screen `shown`."""
    colours, lines = with_palette(list(shown.rows(box)))

    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    header = struct.pack(">IIBBBBB", box.width, box.height, 8, 3, 0, 0, 0)
    data = zlib.compress(b"".join(b"\0" + line for line in lines), 9)
    parts = [(b"IHDR", header), (b"PLTE", b"".join(colours)), (b"IDAT", data), (b"IEND", b"")]
    return b"\x89PNG\r\n\x1a\n" + b"".join(chunk(*part) for part in parts)
