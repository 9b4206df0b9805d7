#!/usr/bin/env python3
"""Fails unless the chart program saves a PNG file of 825 by 250 pixels, with something on it.

Usage: check_chart.py PROGRAM
"""

import pathlib
import struct
import subprocess
import sys
import tempfile

SIGNATURE = b"\x89PNG\r\n\x1a\n"
LEAST_BYTES = 2000  # a white picture of this size has fewer


def main():
    with tempfile.TemporaryDirectory() as folder:
        picture = pathlib.Path(folder) / "chart.png"
        subprocess.run([sys.argv[1], picture], check=True, timeout=30)
        content = picture.read_bytes()
    size = struct.unpack(">II", content[16:24])
    print(f"{len(content)} bytes, {size[0]} by {size[1]} pixels")
    return 0 if content.startswith(SIGNATURE) and size == (825, 250) and len(content) > LEAST_BYTES else 1


if __name__ == "__main__":
    sys.exit(main())
