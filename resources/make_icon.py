#!/usr/bin/env python3
"""Draws the program's icon, a sheet with a bundle of five tally strokes, and writes Tallyrun.ico.

Run it after changing the drawing and commit the result: the build takes the .ico as it is, so that
it needs no Python. Small sizes are stored as plain bitmaps, which every Windows reads; the large
one as PNG.
"""

import pathlib
import struct
import zlib

SIZES = (16, 20, 24, 32, 40, 48, 64, 256)
PNG_FROM = 256
SAMPLES = 4  # per pixel and direction

# The drawing, in units of the whole icon's width.
SHEET = (0.09, 0.04, 0.91, 0.96)
SHEET_RADIUS = 0.12
STROKE_WIDTH = 0.085
STROKES = [((x, 0.24), (x, 0.76)) for x in (0.26, 0.42, 0.58, 0.74)]
SLASH = ((0.17, 0.67), (0.83, 0.33))

SHEET_COLOUR = (22, 92, 125)
STROKE_COLOUR = (255, 255, 255)
SLASH_COLOUR = (255, 190, 60)


def in_sheet(x, y):
    left, top, right, bottom = SHEET
    dx = max(left + SHEET_RADIUS - x, x - (right - SHEET_RADIUS), 0)
    dy = max(top + SHEET_RADIUS - y, y - (bottom - SHEET_RADIUS), 0)
    return dx * dx + dy * dy <= SHEET_RADIUS * SHEET_RADIUS


def in_stroke(x, y, ends, width):
    (x1, y1), (x2, y2) = ends
    dx, dy = x2 - x1, y2 - y1
    along = max(0, min(1, ((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy)))
    away = (x - x1 - along * dx) ** 2 + (y - y1 - along * dy) ** 2
    return away <= width * width / 4


def colour_at(x, y, width):
    """The colour of one point, or None outside the sheet."""
    if in_stroke(x, y, SLASH, width):
        return SLASH_COLOUR
    if any(in_stroke(x, y, stroke, width) for stroke in STROKES):
        return STROKE_COLOUR
    return SHEET_COLOUR if in_sheet(x, y) else None


def draw(size):
    """Rows from the top, each a list of (red, green, blue, alpha)."""
    width = max(STROKE_WIDTH, 1.5 / size)
    rows = []
    for py in range(size):
        row = []
        for px in range(size):
            hits = []
            for sy in range(SAMPLES):
                for sx in range(SAMPLES):
                    x = (px + (sx + 0.5) / SAMPLES) / size
                    y = (py + (sy + 0.5) / SAMPLES) / size
                    colour = colour_at(x, y, width)
                    if colour:
                        hits.append(colour)
            if hits:
                mean = tuple(round(sum(c[i] for c in hits) / len(hits)) for i in range(3))
                row.append(mean + (round(255 * len(hits) / SAMPLES**2),))
            else:
                row.append((0, 0, 0, 0))
        rows.append(row)
    return rows


def as_bitmap(rows):
    """A device-independent bitmap as icons hold it: from the bottom, with an empty mask behind."""
    size = len(rows)
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    pixels = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask = b"\0" * (((size + 31) // 32) * 4 * size)
    return header + pixels + mask


def as_png(rows):
    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data
                + struct.pack(">I", zlib.crc32(kind + data)))

    size = len(rows)
    lines = b"".join(b"\0" + bytes(value for pixel in row for value in pixel) for row in rows)
    return (b"\x89PNG\r\n\x1a\n"
            + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(lines, 9))
            + chunk(b"IEND", b""))


def main():
    images = []
    for size in SIZES:
        rows = draw(size)
        images.append((size, as_png(rows) if size >= PNG_FROM else as_bitmap(rows)))
    offset = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for size, data in images:
        # A width of 256 is written as 0.
        directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    target = pathlib.Path(__file__).with_name("Tallyrun.ico")
    target.write_bytes(directory + b"".join(data for _, data in images))


if __name__ == "__main__":
    main()
