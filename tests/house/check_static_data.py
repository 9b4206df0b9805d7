#!/usr/bin/env python3
"""Fails on writable static data in the objects of src/: the state of a run belongs to its report.

driver/ owns the report of the exports; what else may keep something between two runs stands in KEPT, with its reason.
Constants that are made when the program starts count as writable: make them constexpr.

Usage: check_static_data.py NM FOLDER (a build's folder that belongs to src/, with its objects somewhere below)
"""

import pathlib
import re
import subprocess
import sys

# Source below src/, name in it, why it may stay.
KEPT = [
    (r"paint/freetype/font_faces",
     r".*\b(Library\(\)::library|NeedFontconfig\(\)::isStarted|OpenFaces\(\)::faces"
     r"|KnownFamilies\(\)::families|FontLock\(\)::lock)",
     "FreeType, fontconfig and the faces opened so far, behind one lock; nothing that came of a shortage"),
    (r"paint/freetype/font_memory", r".*\b(FontMemory\(\)::memory|ReserveOfFonts|IsShort)",
     "FreeType's functions for memory, and a reserve for its shortages, behind the same lock"),
    (r"paint/freetype/scaled_face", r".*\bScaledFaces\(\)::cache", "faces by size, behind the same lock"),
    (r"platform/linux/text_encoding", r".*\b(Decode|Utf8ToGbk).*::converter", "a converter behind its lock; one that can't be had isn't kept"),
    (r"platform/linux/text_encoding", r".*\bCharacterOf\(.*\)::characters", "characters decoded so far, each an atomic"),
    (r"cli/main", r".*\b(kEarlyStart|RanShort)", "what the program does about memory that runs short, wherever it does"),
    (r"cli/batch_worker", r".*\bIsShort", "the same of a worker, which ends behind the account that ran short"),
    (r"platform/(linux|windows)/stop_signal", r".*\b(HandlersPipe|ExitAtOnce|HasAsked|OnStop)",
     "what a signal's handler may touch: it is given nothing but the signal"),
    (r"platform/windows/runtime_threads", r".*\b(RuntimeLock|FirstUseDone|Keys|KeyCount|RuntimeEnd)",
     "what the compiler's runtime inside the DLL wants of threads"),
]
OWNER = "driver/"
# Sections, what the compiler makes itself, and what headers of the libraries bring along.
NOT_OURS = re.compile(r"^(\.|DW\.ref\.|(std|CLI|nlohmann)::|vtable for |typeinfo |VTT for |construction vtable)")
MADE_FOR = re.compile(r"^(guard variable for |TLS (init|wrapper) function for |__emutls_[vt]\.)")
WRITABLE = re.compile(r"^\.(bss|data|tbss|tdata|tls)(?!\.rel\.ro)")


def source_of(path):
    """Where below src/ the object's source stands, without its ending: CMake puts it into TARGET.dir/SOURCE.o."""
    return re.sub(r"\.cpp\.o(bj)?$", "", str(path).split(".dir/", 1)[1])


def writable_names(nm, path):
    listing = subprocess.run([nm, "-f", "sysv", "-C", path], capture_output=True, check=True, text=True).stdout
    names = set()
    for line in listing.splitlines():
        columns = [column.strip() for column in line.rsplit("|", 6)]
        if len(columns) != 7 or not WRITABLE.match(columns[6]):
            continue
        name = MADE_FOR.sub("", columns[0])
        if not NOT_OURS.match(name):
            names.add(name)
    return names


def main():
    nm, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    objects = sorted(path for path in folder.rglob("*.cpp.o*") if path.suffix in (".o", ".obj"))
    if len(objects) < 50:
        print(f"{folder}: only {len(objects)} objects: is it built?")
        return 1
    found, used = [], set()
    for path in objects:
        source = source_of(path)
        for name in sorted(writable_names(nm, path)):
            reasons = [entry for entry in KEPT if re.fullmatch(entry[0], source) and re.fullmatch(entry[1], name)]
            used.update(reasons)
            if not source.startswith(OWNER) and not reasons:
                found.append(f"{source}: {name}")
    sources = [source_of(path) for path in objects]
    for entry in KEPT:
        if entry not in used and any(re.fullmatch(entry[0], source) for source in sources):
            found.append(f"KEPT names {entry[0]}: {entry[1]} in vain")
    print("\n".join(found) or f"{len(objects)} objects keep nothing")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
