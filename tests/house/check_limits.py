#!/usr/bin/env python3
"""Fails on a limit of docs/limits.md that no test keeps: the last cell of each row names one, as SUITE.NAME.

Usage: check_limits.py LIMITS.md TESTS (the folder of the tests)
"""

import pathlib
import re
import sys

TEST = re.compile(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST|TYPED_TEST_P)\(\s*(\w+),\s*(\w+)\s*\)", re.MULTILINE)
COLUMNS = 4  # what, most, beyond, test


def names_of_tests(folder):
    for source in sorted(folder.rglob("*_test.cpp")):
        for suite, name in TEST.findall(source.read_text(encoding="utf-8")):
            yield f"{suite}.{name}"


def rows_of(document):
    """Line number and cells of each row but the headings and the rules below them."""
    for number, line in enumerate(document.read_text(encoding="utf-8").splitlines(), 1):
        if not line.startswith("|") or re.match(r"^\|[-|: ]+\|$", line):
            continue
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if cells[-1] != "test":
            yield number, cells


def faults_of(document, tests):
    rows = list(rows_of(document))
    if not rows:
        yield f"{document}: no table"
    for number, cells in rows:
        name = re.fullmatch(r"`(\w+\.\w+)`", cells[-1])
        if len(cells) != COLUMNS or not cells[0] or not cells[1]:
            yield f"{document}:{number}: expected what, most, beyond and test"
        elif name is None or name[1] not in tests:
            yield f"{document}:{number}: {cells[-1]} is no test"


def main():
    document, folder = map(pathlib.Path, sys.argv[1:])
    found = list(faults_of(document, set(names_of_tests(folder))))
    print("\n".join(found) or f"each of {len(list(rows_of(document)))} limits has its test")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
