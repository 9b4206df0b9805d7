#!/usr/bin/env python3
"""Fails on what knows of one system, or of one way to paint, outside of its folder.

Usage: check_platform.py SRC

Each header of platform/ has a source of its name for either system, and may have one for both beside it. Such a header,
and each that is told as a contract in paint/, names no system's headers, so that both builds see the same declarations.
What lies in a folder of a system or of a library is included from nowhere else.
"""

import pathlib
import re
import sys

SYSTEMS = ("linux", "windows")
# Folders of one system or one library, and who else may look into each.
APART = {
    "platform/linux": (),
    "platform/windows": ("paint/gdi", "paint/codecs"),
    "paint/freetype": (),
    "paint/gdi": (),
    "paint/codecs": (),
}
# Portable headers: those right in these folders.
CONTRACTS = ("platform", "paint", "paint/raster")
# The public face of the module speaks to both systems by itself.
PUBLIC = {"driver/report_request.h", "hosts/tradebill.h", "base/report_error.h"}
OWN = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
FOREIGN = re.compile(r"^\s*#\s*include\s+<([^>]+)>", re.MULTILINE)


def folder_of(path):
    return str(pathlib.PurePosixPath(path).parent)


def without_sources(src):
    for header in sorted((src / "platform").glob("*.h")):
        for system in SYSTEMS:
            if not (header.parent / system / f"{header.stem}.cpp").is_file():
                yield f"{header}: no source in {system}/"


def of_a_system(src):
    for folder in CONTRACTS:
        for header in sorted((src / folder).glob("*.h")):
            for target in FOREIGN.findall(header.read_text(encoding="utf-8")):
                if "." in target or "/" in target:
                    yield f"{header}: <{target}> isn't of the standard library"


def out_of_place(src):
    for path in sorted(src.rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        name = path.relative_to(src).as_posix()
        text = path.read_text(encoding="utf-8")
        if "_WIN32" in text and name not in PUBLIC:
            yield f"{path}: asks for the system; that is decided by which sources are built"
        for target in OWN.findall(text):
            home = folder_of(target)
            if home in APART and folder_of(name) not in (home, *APART[home]):
                yield f'{path}: "{target}" is of {home}/ alone'


def main():
    src = pathlib.Path(sys.argv[1])
    found = [*without_sources(src), *of_a_system(src), *out_of_place(src)]
    print("\n".join(found) or "systems keep to their folders")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
