#!/usr/bin/env python3
"""Draws the emblem of the parks sample: parks.bmp, 96 by 72 pixels, 24 bits."""
import struct

WIDTH, HEIGHT = 96, 72


def pixel(x, y):
    """Colour at x, y (y from the top) as red, green, blue."""
    if (x - 72) ** 2 + (y - 18) ** 2 < 100:
        return 244, 182, 66  # the sun
    near, far = 30 + abs(x - 34) * 1.1, 26 + abs(x - 64) * 0.9
    if y > near:
        return (245, 248, 250) if y < near + 9 and abs(x - 34) < 9 else (46, 94, 62)
    if y > far:
        return 92, 134, 96
    return 198 - y, 222 - y // 2, 240


rows = []
for y in reversed(range(HEIGHT)):
    rows.append(b"".join(bytes(reversed(pixel(x, y))) for x in range(WIDTH)))
bits = b"".join(rows)
header = struct.pack("<2sIHHI", b"BM", 54 + len(bits), 0, 0, 54)
info = struct.pack("<IiiHHIIiiII", 40, WIDTH, HEIGHT, 1, 24, 0, len(bits), 2835, 2835, 0, 0)
with open("parks.bmp", "wb") as file:
    file.write(header + info + bits)
