#!/usr/bin/env python3
"""Draws the program's icon, corvel32.ico, and that of the tray while IMs are off, ims_off.ico: 32
and 16 pixels, each in 16 and 256 colours.

A balloon with a C that fades from red to blue: a line of chat, said aloud. It is drawn pixel by
pixel and not scaled, so that the small one is as sharp as the large one. With 16 colours the fade
is three bands of pure colours, since a pattern of dots would make the letter ragged. With IMs off
a red bar crosses the balloon, and the letter has lost its colours, so that the bar is seen.
"""
import math
import pathlib
import struct

SIXTEEN = [(0, 0, 0), (128, 0, 0), (0, 128, 0), (128, 128, 0), (0, 0, 128), (128, 0, 128),
           (0, 128, 128), (192, 192, 192), (128, 128, 128), (255, 0, 0), (0, 255, 0),
           (255, 255, 0), (0, 0, 255), (255, 0, 255), (0, 255, 255), (255, 255, 255)]
BLACK, WHITE, GREY, TEAL = (0, 0, 0), (255, 255, 255), (128, 128, 128), (0, 128, 128)
BANDS = [(255, 0, 0), (128, 0, 128), (0, 0, 255)]
RED = (255, 0, 0)


class Drawing:
    """What differs between the sizes: places in pixels."""

    def __init__(self, size, box, corner, tail, centre, letter, waves, shadow, bar):
        self.size, self.box, self.corner, self.tail = size, box, corner, tail
        self.centre, self.letter, self.waves, self.shadow = centre, letter, waves, shadow
        self.bar = bar  # half its breadth, and that of the light around it

    def in_balloon(self, x, y):
        left, top, right, bottom = self.box
        if left <= x <= right and top <= y <= bottom:
            across = min(x - left, right - x)
            down = min(y - top, bottom - y)
            return across + down >= self.corner
        tail_left, tail_width, tail_end = self.tail
        return bottom < y <= tail_end and \
            tail_left <= x < tail_left + tail_width - (y - bottom)

    def fade(self, y, colours):
        radius = self.letter[1]
        part = (y + 0.5 - (self.centre[1] - radius)) / (2 * radius)
        part = min(max(part, 0), 0.999)
        if colours == 16:
            return BANDS[int(part * 3)]
        return (round(255 * (1 - part)), 0, round(255 * part))

    def mark(self, x, y, colours):
        """The letter and the waves of sound beside it, or nothing."""
        dx, dy = x + 0.5 - self.centre[0], y + 0.5 - self.centre[1]
        distance, angle = math.hypot(dx, dy), abs(math.degrees(math.atan2(dy, dx)))
        inner, outer = self.letter
        if inner <= distance <= outer and angle >= 48:
            return self.fade(y, colours)
        for wave_inner, wave_outer in self.waves:
            if wave_inner <= distance <= wave_outer and angle <= 36:
                return TEAL
        return None

    def across(self, x, y):
        """How far from the line that falls from corner to corner of the balloon."""
        left, top, right, bottom = self.box
        width, height = right - left, bottom - top
        return abs(width * (y - top) - height * (x - left)) / math.hypot(width, height)

    def pixel(self, x, y, colours, struck):
        if not struck or not self.in_balloon(x, y):
            return self.drawn(x, y, colours)
        red, light = self.bar
        if self.across(x, y) <= light:
            return RED if self.across(x, y) <= red else WHITE
        colour = self.drawn(x, y, colours)
        return colour if colour in (BLACK, WHITE) else GREY

    def drawn(self, x, y, colours):
        if self.in_balloon(x, y):
            around = [(x - 1, y), (x + 1, y), (x, y - 1), (x, y + 1)]
            if not all(self.in_balloon(*place) for place in around):
                return BLACK
            return self.mark(x, y, colours) or WHITE
        if self.shadow and self.in_balloon(x - self.shadow, y - self.shadow):
            return GREY
        return None


DRAWINGS = [
    Drawing(32, (1, 1, 28, 22), 3, (6, 8, 28), (11.0, 12.0), (4.2, 8.0),
            [(9.3, 10.9), (13.0, 14.6)], 2, (1.6, 2.6)),
    Drawing(16, (0, 0, 15, 11), 2, (3, 5, 15), (6.0, 6.0), (1.9, 4.2), [(6.4, 7.5)], 0, (0.8, 1.6)),
]


def palette_of(pixels, colours):
    if colours == 16:
        return SIXTEEN
    used = sorted({colour for row in pixels for colour in row if colour})
    palette = SIXTEEN + [colour for colour in used if colour not in SIXTEEN]
    return palette + [BLACK] * (256 - len(palette))


def padded(row):
    return row + bytes(-len(row) % 4)


def image(drawing, colours, struck):
    """The picture as an icon holds it: header, palette, colours and mask, rows from the bottom."""
    size, bits = drawing.size, 4 if colours == 16 else 8
    pixels = [[drawing.pixel(x, y, colours, struck) for x in range(size)] for y in range(size)]
    palette = palette_of(pixels, colours)
    data = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, bits, 0, 0, 0, 0, 0, 0)
    data += b"".join(bytes((b, g, r, 0)) for r, g, b in palette)
    for row in reversed(pixels):
        indexes = [palette.index(colour) if colour else 0 for colour in row]
        if bits == 4:
            indexes = [a << 4 | b for a, b in zip(indexes[::2], indexes[1::2])]
        data += padded(bytes(indexes))
    for row in reversed(pixels):
        mask = "".join("0" if colour else "1" for colour in row)
        data += padded(int(mask, 2).to_bytes(size // 8, "big"))
    return data


def write_icon(name, struck):
    pictures = [(drawing, colours) for colours in (16, 256) for drawing in DRAWINGS]
    images = [image(drawing, colours, struck) for drawing, colours in pictures]
    icon = struct.pack("<HHH", 0, 1, len(images))
    offset = 6 + 16 * len(images)
    for (drawing, colours), data in zip(pictures, images):
        icon += struct.pack("<BBBBHHII", drawing.size, drawing.size, colours % 256, 0, 1,
                            4 if colours == 16 else 8, len(data), offset)
        offset += len(data)
    (pathlib.Path(__file__).parent / name).write_bytes(icon + b"".join(images))


def main():
    write_icon("corvel32.ico", struck=False)
    write_icon("ims_off.ico", struck=True)


if __name__ == "__main__":
    main()
