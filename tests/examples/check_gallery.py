#!/usr/bin/env python3
"""Paints the gallery and checks that its page shows every picture, each of the size that was asked for and not empty.

Usage: check_gallery.py PROGRAM
"""

import pathlib
import re
import struct
import subprocess
import sys
import tempfile


def size_of(png):
    """Width and height in a PNG file's header."""
    return struct.unpack(">II", png.read_bytes()[16:24])


def problems(folder, page):
    shown = re.findall(r'<img src="([^"]+)"', page)
    written = sorted(path.name for path in folder.glob("*.png"))
    if sorted(shown) != written or len(set(shown)) != len(shown):
        yield "the page shows other pictures than there are"
    if len(written) < 200:
        yield f"only {len(written)} pictures"
    for name in written:
        expected = (1000, 560) if name.endswith("-192.png") else (500, 280)
        if size_of(folder / name) != expected:
            yield f"{name} is {size_of(folder / name)}"
        if (folder / name).stat().st_size < 1000:
            yield f"{name} is empty"
    if page.count("<section>") != page.count("</section>") or page.count("<h2>") != page.count("<section>"):
        yield "sections are not closed"


def main(program):
    with tempfile.TemporaryDirectory() as temporary:
        folder = pathlib.Path(temporary) / "new folder" / "图"
        done = subprocess.run([program, "gallery", str(folder)], capture_output=True, text=True, check=False)
        if done.returncode != 0 or done.stderr or str(folder / "index.html") not in done.stdout:
            sys.exit(f"gallery ended with {done.returncode}: {done.stdout}{done.stderr}")
        found = list(problems(folder, (folder / "index.html").read_text(encoding="utf-8")))
        file = pathlib.Path(temporary) / "file"
        file.write_text("")
        refused = subprocess.run([program, "gallery", str(file)], capture_output=True, text=True, check=False)
        if refused.returncode != 1 or str(file) not in refused.stderr:
            found.append(f"a file in the folder's place ended with {refused.returncode}: {refused.stderr}")
    if found:
        sys.exit("\n".join(found))


if __name__ == "__main__":
    main(sys.argv[1])
