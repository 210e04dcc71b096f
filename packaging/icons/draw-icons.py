#!/usr/bin/env python3
"""Draws the project's icons. Run it from anywhere after changing a shape; the results are in the
tree, so that a build needs no Python.

Each shape is a function from a point of the unit square to a colour (red, green, blue, alpha, each
0 to 1); a pixel is the mean of a grid of such points."""

import math
import pathlib
import struct
import zlib

ROOT = pathlib.Path(__file__).resolve().parents[2]
SAMPLES = 8

CLEAR = (0, 0, 0, 0)
DISH = (0.06, 0.20, 0.24, 1)
RIM = (0.20, 0.62, 0.58, 1)
RING = (0.16, 0.48, 0.47, 1)
SWEEP = (0.36, 0.95, 0.62)
BLIP = (1.0, 0.82, 0.36, 1)
CARTON = (0.80, 0.60, 0.36, 1)
CARTON_DARK = (0.64, 0.45, 0.25, 1)
TAPE = (0.95, 0.88, 0.72, 1)
PAPER = (0.96, 0.97, 0.97, 1)
PAPER_EDGE = (0.45, 0.52, 0.54, 1)
FOLD = (0.78, 0.83, 0.84, 1)

# The sizes of an icon theme that desktops look for, in pixels.
THEME = ROOT / "packaging/icons/hicolor"
THEME_SIZES = (16, 22, 24, 32, 48, 64, 128, 256)


def blend(below, above):
    alpha = above[3]
    return tuple(below[i] * (1 - alpha) + above[i] * alpha for i in range(3)) + (below[3],)


def radar(x, y):
    dx, dy = x - 0.5, y - 0.5
    radius = math.hypot(dx, dy)
    if radius > 0.48:
        return CLEAR
    if radius > 0.42:
        return RIM
    colour = DISH
    if abs(radius - 0.22) < 0.022 or min(abs(dx), abs(dy)) < 0.018:
        colour = RING
    # The beam points up and to the right; behind it the screen fades.
    behind = (math.atan2(-dy, dx) - math.pi / 3) % (2 * math.pi)
    if behind < 1.6:
        colour = blend(colour, SWEEP + ((1 - behind / 1.6) * 0.85,))
    if math.hypot(x - 0.31, y - 0.36) < 0.075:
        colour = BLIP
    return colour


def package(x, y):
    if not (0.08 <= x <= 0.92 and 0.16 <= y <= 0.90):
        return CLEAR
    if 0.42 <= x <= 0.58 and y < 0.58:
        return TAPE
    return CARTON_DARK if y < 0.38 else CARTON


def image(x, y):
    """A sheet with a folded corner, and on it the chip that the image is for."""
    fold = 0.24
    if not (0.14 <= x <= 0.86 and 0.04 <= y <= 0.96) or (x - 0.86) + fold > y - 0.04:
        return CLEAR
    if x > 0.86 - fold and y < 0.04 + fold:
        return FOLD
    if not (0.18 <= x <= 0.82 and 0.08 <= y <= 0.92):
        return PAPER_EDGE
    dx, dy = abs(x - 0.5), abs(y - 0.58)
    if max(dx, dy) < 0.17:
        return BLIP if max(dx, dy) < 0.07 else DISH
    if max(dx, dy) < 0.23 and any(abs(min(dx, dy) - pin) < 0.025 for pin in (0.02, 0.11)):
        return RING
    return PAPER


def render(shape, size):
    """Rows of (red, green, blue, alpha) bytes, the top one first; colours are not premultiplied."""
    rows = []
    for row in range(size):
        pixels = []
        for column in range(size):
            points = [
                shape((column + (i + 0.5) / SAMPLES) / size, (row + (j + 0.5) / SAMPLES) / size)
                for i in range(SAMPLES)
                for j in range(SAMPLES)
            ]
            alpha = sum(p[3] for p in points)
            colour = [sum(p[c] * p[3] for p in points) / alpha if alpha else 0 for c in range(3)]
            pixels.append(tuple(round(255 * v) for v in colour + [alpha / len(points)]))
        rows.append(pixels)
    return rows


def write_png(path, rows):
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

    size = len(rows)
    raw = b"".join(b"\0" + b"".join(bytes(p) for p in row) for row in rows)
    header = struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)
    path.write_bytes(
        b"\x89PNG\r\n\x1a\n"
        + chunk(b"IHDR", header)
        + chunk(b"IDAT", zlib.compress(raw, 9))
        + chunk(b"IEND", b"")
    )


def write_ico(path, rows):
    """One image of 32 bits: a bitmap of twice its height, whose second half is the mask."""
    size = len(rows)
    colours = b"".join(bytes((p[2], p[1], p[0], p[3])) for row in reversed(rows) for p in row)
    mask_row_bytes = (size + 31) // 32 * 4
    mask = b""
    for row in reversed(rows):
        bits = sum(1 << (31 - i) for i, p in enumerate(row) if p[3] == 0)
        mask += struct.pack(">I", bits)[:mask_row_bytes]
    bitmap = struct.pack(
        "<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(colours) + len(mask), 0, 0, 0, 0
    )
    image = bitmap + colours + mask
    directory = struct.pack("<HHH", 0, 1, 1)
    entry = struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(image), 6 + 16)
    path.write_bytes(directory + entry + image)


if __name__ == "__main__":
    write_ico(ROOT / "plugin/icons/radar_icon.ico", render(radar, 16))
    write_png(ROOT / "host/app/icons/radar_22x22.png", render(radar, 22))
    write_png(ROOT / "host/app/icons/radar_128x128.png", render(radar, 128))
    write_png(ROOT / "host/app/icons/config_output_16x16.png", render(package, 16))
    for theme_size in THEME_SIZES:
        folder = THEME / f"{theme_size}x{theme_size}"
        for name, shape in (("apps/pelk-host", radar), ("mimetypes/application-x-pelk-fcf", image)):
            path = folder / f"{name}.png"
            path.parent.mkdir(parents=True, exist_ok=True)
            write_png(path, render(shape, theme_size))
