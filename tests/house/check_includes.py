#!/usr/bin/env python3
"""Fails on an #include in src/ that climbs from one floor of the house to a higher one.

Usage: check_includes.py SRC
"""

import pathlib
import re
import sys

# What a room may include beside itself. "graph" knows nothing of accounts; nobody but the program includes "cli".
BELOW = {
    "base": set(),
    "platform": {"base"},
    "paint": {"base", "platform"},
    "report": {"base", "platform"},
    "graph": {"base", "paint"},
    "statistics": {"base", "platform", "report"},
    "analysis": {"base", "platform", "report", "statistics"},
    "readers": {"base", "platform", "report"},
    "findings": {"base", "platform", "paint", "report", "readers"},
    "anonymise": {"base", "platform", "report", "statistics", "readers", "findings"},
    "intake": {"base", "platform", "report", "readers", "findings"},
    "images": {"base", "platform", "paint", "report", "statistics", "graph"},
    "export": {"base", "platform", "paint", "report", "statistics", "analysis", "readers", "findings"},
    "explore": {"base", "platform", "report", "statistics", "analysis", "readers", "findings", "export"},
    "page": {"base", "platform", "paint", "report", "statistics", "images"},
    "driver": {"base", "platform", "paint", "report", "statistics", "readers", "graph", "images", "page"},
    "requests": {"base", "platform", "report", "readers", "findings", "export", "intake", "driver"},
    "hosts": {"base", "platform", "paint", "report", "analysis", "readers", "findings", "export", "images", "driver", "requests"},
    "batch": {"base", "platform", "paint", "report", "statistics", "analysis", "readers", "findings", "export", "explore",
              "intake", "images", "page", "driver"},
    "cli": {"base", "platform", "paint", "report", "statistics", "analysis", "readers", "findings", "export", "explore",
            "anonymise", "intake", "graph", "images", "page", "driver", "requests", "batch"},
}
# The public face of the module and the record inside it are read from every floor.
OPEN_TO_ALL = {"driver/report_request.h", "report/money_record.h"}
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def climbs(src):
    for path in sorted(src.rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        room = path.relative_to(src).parts[0]
        for target in INCLUDE.findall(path.read_text(encoding="utf-8")):
            other = target.split("/")[0]
            if room not in BELOW:
                yield f"{path}: the room {room} stands on no floor"
            elif not (src / target).is_file():
                yield f'{path}: "{target}" is not a path below src/'
            elif other != room and other not in BELOW[room] and target not in OPEN_TO_ALL:
                yield f'{path}: "{target}" stands on a higher floor'


def main():
    found = list(climbs(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "every include goes down")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
