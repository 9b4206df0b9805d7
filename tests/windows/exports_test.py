#!/usr/bin/env python3
"""Looks into the DLL, its import library and the program: what they need, what they offer and what they carry.

Usage: exports_test.py SOURCE BUILD
"""

import pathlib
import re
import struct
import subprocess
import sys

from portable_executable import PortableExecutable

X64 = 0x8664
IS_DLL = 0x2000
VERSION_TYPE = 16
TERMINAL_EXPORTS = {"GenerateBill", "TryGenerateBill", "ResetTradeBillFile", "StretchZjGraph", "StretchRiskAndProfit",
                    "StretchRisk", "StretchOffsetGraph", "SetRootFolder", "TradeBillLastError", "TradeBillLastCounts"}
# What every Windows has.
SYSTEM_LIBRARIES = {"advapi32.dll", "bcrypt.dll", "gdi32.dll", "gdiplus.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll",
                    "shell32.dll", "shlwapi.dll", "user32.dll"}
PICTURES = {5000: "title_bar.png", 5001: "expand.png", 5002: "shrink.png", 5003: "banner.png"}


def version_text(version, key):
    """A text of the version resource: its key, zeros up to a multiple of 4 bytes, its value."""
    found = re.search(re.escape(key.encode("utf-16-le")) + rb"(?:\0\0)+((?:[^\0].)+)\0\0", version, re.DOTALL)
    return found.group(1).decode("utf-16-le") if found else None


def wrong_version(file, name, source):
    number = re.search(r"project\(tradebill VERSION (\d+)\.(\d+)\.(\d+)", (source / "CMakeLists.txt").read_text())
    major, minor, patch = (int(part) for part in number.groups())
    versions = [content for (kind, *_), content in file.resources().items() if kind == VERSION_TYPE]
    if len(versions) != 1:
        yield f"{len(versions)} version resources"
        return
    fixed = versions[0].find(struct.pack("<I", 0xFEEF04BD))
    for what, at in (("file", 8), ("product", 16)):
        high, low = struct.unpack_from("<II", versions[0], fixed + at)
        if (high, low) != (major << 16 | minor, patch << 16):
            yield f"the {what} version is {high:#x} {low:#x}"
    for key, expected in (("OriginalFilename", name), ("ProductName", "tradebill"),
                          ("FileVersion", f"{major}.{minor}.{patch}"), ("ProductVersion", f"{major}.{minor}.{patch}")):
        if version_text(versions[0], key) != expected:
            yield f"{key} is {version_text(versions[0], key)}"


def wrong_pictures(file, source):
    carried = {key: content for (kind, key, _), content in file.resources().items() if kind == "PNG"}
    if carried.keys() != PICTURES.keys():
        yield f"the ids of pictures are {sorted(carried)}"
    for key, content in carried.items():
        if content != (source / "resources" / PICTURES.get(key, "")).read_bytes():
            yield f"picture {key} is another one"


def wrong_in_file(path, source, expected_exports):
    file = PortableExecutable(path)
    if file.machine != X64 or bool(file.flags & IS_DLL) != (path.suffix == ".dll"):
        yield f"machine {file.machine:#x}, flags {file.flags:#x}"
    for library in file.imported_libraries():
        if library.lower() not in SYSTEM_LIBRARIES:
            yield f"it needs {library}"
    exports = file.exports()
    if exports.keys() != expected_exports:
        yield f"it exports {sorted(exports)}"
    if len({address for _, address in exports.values()}) != len(exports):
        yield "two exports are the same function"
    yield from wrong_pictures(file, source)
    yield from wrong_version(file, path.name, source)


def said_by(tool, *arguments):
    command = [f"x86_64-w64-mingw32-{tool}", *arguments]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def exports_of(source):
    """What hosts are promised: the terminals' functions, and all of the header of several reports."""
    header = (source / "src/hosts/tradebill.h").read_text(encoding="utf-8")
    return TERMINAL_EXPORTS | set(re.findall(r"^TRADEBILL_API [^;(]*?(\w+)\(", header, re.MULTILINE))


def wrong_in_import_library(path, exports):
    functions = set(re.findall(r" I __imp_(\w+)$", said_by("nm", "--defined-only", path), re.MULTILINE))
    if functions != exports:
        yield f"it imports {sorted(functions)}"
    if said_by("dlltool", "-I", path).split() != ["TradeBill.dll"]:
        yield "it belongs to another DLL"


def main():
    source, build = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    exports = exports_of(source)
    found = [f"TradeBill.dll: {what}" for what in wrong_in_file(build / "bin/TradeBill.dll", source, exports)]
    found += [f"tradebill.exe: {what}" for what in wrong_in_file(build / "bin/tradebill.exe", source, set())]
    found += [f"TradeBill.lib: {what}" for what in wrong_in_import_library(build / "lib/TradeBill.lib", exports)]
    print("\n".join(found) or "the DLL, its import library and the program are as they should be")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
