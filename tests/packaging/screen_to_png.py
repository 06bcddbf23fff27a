#!/usr/bin/env python3
"""Turns a screen that Xvfb keeps in a file (-fbdir, 24 bits) into a PNG: screen_to_png.py IN OUT"""

import struct
import sys
import zlib

with open(sys.argv[1], "rb") as file:
    contents = file.read()
# X11/XWDFile.h: 25 big-endian numbers, the fifth and sixth are width and height.
width, height = struct.unpack(">6I", contents[:24])[4:]
pixels = contents[-4 * width * height:]
rgb = bytearray(3 * width * height)
for channel in range(3):  # stored as blue, green, red and nothing
    rgb[channel::3] = pixels[2 - channel::4]
lines = b"".join(b"\0" + rgb[3 * width * y:3 * width * (y + 1)] for y in range(height))


def chunk(kind, data):
    whole = kind + data
    return struct.pack(">I", len(data)) + whole + struct.pack(">I", zlib.crc32(whole))


with open(sys.argv[2], "wb") as file:
    file.write(b"\x89PNG\r\n\x1a\n")
    file.write(chunk(b"IHDR", struct.pack(">2I5B", width, height, 8, 2, 0, 0, 0)))
    file.write(chunk(b"IDAT", zlib.compress(lines)) + chunk(b"IEND", b""))
