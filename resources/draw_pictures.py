#!/usr/bin/env python3
"""Draws the four pictures that stand beside it, which the module carries inside.

Usage: draw_pictures.py [--check]   (--check changes nothing and exits 1 if a picture isn't the one drawn here)

banner.png        825 x 86   top of the report; its right third is plain, since white text stands on it
title_bar.png     825 x 32   ground of each section's title
expand.png        8 x 8      double chevron pointing down
shrink.png        8 x 8      double chevron pointing up
"""

import math
import pathlib
import struct
import sys
import zlib

HERE = pathlib.Path(__file__).resolve().parent
WIDTH = 825  # of banner and title bar, and with them of the whole report

BANNER_HEIGHT = 86
BANNER_GROUND = (49, 125, 194)
PALE = (198, 226, 248)
WHITE = (255, 255, 255)
DEEP = (26, 92, 158)

BAR_HEIGHT = 32
BAR_GROUND = (53, 128, 195)

# The banner's account: how it stood at some places across, in pixels from the top; and how far each close of a day was
# above (below 0) or below that.
CURVE = ((-90, 76), (0, 70), (60, 65), (120, 67), (190, 54), (255, 57), (320, 42), (385, 45), (450, 30), (520, 22),
         (600, 13), (690, 6))
CLOSES = (3, -3, -7, 1, 5, -4, 2, 6, -2, -8, -3, -9, -2, 4, 7, 0, -5, 3, 8, 1, -6, -10, -3, 4, -1, 6, 2, -6, -10, -4, 3, -5,
          0, -6, 2, -4, 1, -3)
CANDLE_STEP, CANDLE_WIDTH = 15, 7
FIRST_CANDLE = 15


def smooth(start, end, x):
    """From 0 at `start` to 1 at `end` without a kink."""
    t = min(1.0, max(0.0, (x - start) / (end - start)))
    return t * t * (3 - 2 * t)


def share(low, high, cell):
    """How much of the pixel `cell` lies from `low` to `high`."""
    return max(0.0, min(high, cell + 1) - max(low, cell))


class Picture:
    """Pixels of red, green, blue and alpha, all from 0 to 255."""

    def __init__(self, width, height, ground):
        self.width = width
        self.height = height
        self.rows = [[list(ground) for _ in range(width)] for _ in range(height)]

    def tint(self, x, y, color, strength):
        """Takes a pixel towards `color`; its alpha stays."""
        if strength <= 0 or not (0 <= x < self.width and 0 <= y < self.height):
            return
        pixel = self.rows[y][x]
        for channel in range(3):
            pixel[channel] += (color[channel] - pixel[channel]) * min(strength, 1.0)

    def box(self, left, top, right, bottom, color, strength):
        """A box whose edges may lie between pixels."""
        for y in range(math.floor(top), math.ceil(bottom)):
            for x in range(math.floor(left), math.ceil(right)):
                self.tint(x, y, color, strength * share(left, right, x) * share(top, bottom, y))


def curve_at(x):
    """The account's curve: a spline through CURVE."""
    i = max(j for j in range(1, len(CURVE) - 2) if j == 1 or CURVE[j][0] <= x)
    (_, a), (start, b), (end, c), (_, d) = CURVE[i - 1:i + 3]
    t = (x - start) / (end - start)
    return b + t * (c - a + t * (2 * a - 5 * b + 4 * c - d + t * (3 * (b - c) + d - a))) / 2


def presence(x):
    """Of the artwork: it comes up at the left and is gone before the text begins."""
    return smooth(-30, 60, x) * (1 - smooth(330, 565, x))


def draw_sweeps(picture):
    """Wide soft waves behind everything."""
    for lift, depth, strength in ((-34, 60, 0.10), (-4, 40, 0.08)):
        for x in range(WIDTH):
            crest = 62 + lift - 46 * smooth(-60, 640, x) + 12 * smooth(40, 300, x) * (1 - smooth(300, 560, x))
            for y in range(BANNER_HEIGHT):
                below = (y + 0.5 - crest) / depth
                edge = min(1.0, max(0.0, y + 1 - crest))
                picture.tint(x, y, PALE, strength * presence(x) * edge * max(0.0, 1 - below))


def draw_grid(picture):
    for x in range(WIDTH):
        for y in range(BANNER_HEIGHT):
            is_line = x % 45 == 18 or y % 17 == 8
            picture.tint(x, y, PALE, 0.13 * presence(x) if is_line else 0)


def candles():
    """Left edge, opening and closing height of each day, which opens where the day before closed."""
    middles = [FIRST_CANDLE + CANDLE_STEP * i + CANDLE_WIDTH / 2 for i in range(len(CLOSES))]
    heights = [round(curve_at(x) + close) for x, close in zip(middles, CLOSES)]
    return [(int(x - CANDLE_WIDTH / 2), *days) for x, days in zip(middles, zip([heights[0] + 5] + heights, heights))]


def draw_volume(picture):
    for i, (left, opened, closed) in enumerate(candles()):
        height = 3 + 0.5 * abs(closed - opened) + (i * 7) % 5
        strength = 0.17 * presence(left)
        picture.box(left, BANNER_HEIGHT - height, left + CANDLE_WIDTH, BANNER_HEIGHT, PALE, strength)


def draw_candles(picture):
    for i, (left, opened, closed) in enumerate(candles()):
        top, bottom = min(opened, closed), max(opened, closed, min(opened, closed) + 1)
        color, strength = (PALE, 0.50) if closed <= opened else (DEEP, 0.50)
        strength *= presence(left)
        wick, right = left + CANDLE_WIDTH // 2, left + CANDLE_WIDTH
        picture.box(wick, top - 2 - i % 4, wick + 1, top, color, strength)
        picture.box(wick, bottom, wick + 1, bottom + 2 + (i * 3) % 5, color, strength)
        picture.box(left, top, right, bottom, color, strength)


def draw_curve(picture):
    """The account's curve, with a light below it that sinks to nothing."""
    for x in range(WIDTH):
        level = curve_at(x + 0.5)
        slope = curve_at(x + 1) - curve_at(x)
        lean = math.sqrt(1 + slope * slope)
        for y in range(BANNER_HEIGHT):
            away = abs(y + 0.5 - level) / lean
            picture.tint(x, y, WHITE, 0.10 * presence(x) * max(0.0, 1 - away / 7) ** 2)
            picture.tint(x, y, WHITE, 0.85 * presence(x) * min(1.0, max(0.0, 1.4 - away)))


def banner():
    picture = Picture(WIDTH, BANNER_HEIGHT, (*BANNER_GROUND, 255))
    for draw in (draw_sweeps, draw_grid, draw_volume, draw_candles, draw_curve):
        draw(picture)
    return picture


def title_bar():
    """Light on its upper edge, and a soft light along the middle that is strongest far from the title at the right."""
    picture = Picture(WIDTH, BAR_HEIGHT, (*BAR_GROUND, 255))
    for y in range(BAR_HEIGHT):
        edge = {0: 0.42, 1: 0.20, 2: 0.08}.get(y, 0.0)
        band = smooth(3, 14, y) * (1 - smooth(16, 29, y))
        for x in range(WIDTH):
            middle = smooth(-120, 380, x) * (1 - smooth(440, 940, x))
            picture.tint(x, y, WHITE, edge)
            picture.tint(x, y, WHITE, 0.15 * band * middle)
    return picture


def distance(x, y, start, end):
    """From a point to a stretch of line."""
    dx, dy = end[0] - start[0], end[1] - start[1]
    t = min(1.0, max(0.0, ((x - start[0]) * dx + (y - start[1]) * dy) / (dx * dx + dy * dy)))
    return math.sqrt((x - start[0] - t * dx) ** 2 + (y - start[1] - t * dy) ** 2)


def chevrons(points_up):
    """Two white chevrons, one below the other; each pixel is as opaque as the strokes cover it."""
    size, samples, half_width = 8, 16, 0.6
    strokes = []
    for top in (0.5, 4.5):
        tip = (4.0, top + 2.65)
        strokes += [((0.9, top), tip), ((7.1, top), tip)]
    picture = Picture(size, size, (*WHITE, 0))
    for y in range(size):
        for x in range(size):
            places = [((x + (i + 0.5) / samples), (y + (j + 0.5) / samples)) for i in range(samples)
                      for j in range(samples)]
            inside = sum(any(distance(*place, *stroke) <= half_width for stroke in strokes) for place in places)
            picture.rows[y][x][3] = 255 * inside / len(places)
    if points_up:
        picture.rows.reverse()
    return picture


def pixel_bytes(picture):
    return [bytes(int(value + 0.5) for pixel in row for value in pixel) for row in picture.rows]


def filtered(rows):
    """Each row as its difference to the row above, which suits pictures of long plain stretches."""
    above = bytes(len(rows[0]))
    data = bytearray()
    for row in rows:
        data.append(2)
        data += bytes((a - b) & 0xFF for a, b in zip(row, above))
        above = row
    return bytes(data)


def chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


def header(picture):
    return chunk(b"IHDR", struct.pack(">IIBBBBB", picture.width, picture.height, 8, 6, 0, 0, 0))


SIGNATURE = b"\x89PNG\r\n\x1a\n"
END = chunk(b"IEND", b"")


def png(picture):
    return SIGNATURE + header(picture) + chunk(b"IDAT", zlib.compress(filtered(pixel_bytes(picture)), 9)) + END


def is_png_of(picture, content):
    """Whether `content` is what png() makes, however well it was compressed: that differs between versions of zlib."""
    head = SIGNATURE + header(picture)
    data = content[len(head) + 8:-len(END) - 4]
    try:
        return content == head + chunk(b"IDAT", data) + END and zlib.decompress(data) == filtered(pixel_bytes(picture))
    except zlib.error:
        return False


def main():
    pictures = {"banner.png": banner(), "title_bar.png": title_bar(), "expand.png": chevrons(points_up=False),
                "shrink.png": chevrons(points_up=True)}
    stale = []
    for name, picture in pictures.items():
        path = HERE / name
        if not path.exists() or not is_png_of(picture, path.read_bytes()):
            stale.append(name)
            if "--check" not in sys.argv:
                path.write_bytes(png(picture))
    if stale and "--check" in sys.argv:
        print(f"run resources/draw_pictures.py: it draws {', '.join(stale)} otherwise", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
