#!/usr/bin/env python3
"""The records of the public header as a C compiler lays them out.

Usage: header_layout.py SOURCE COMPILER
prints "RECORD OFFSET FIELD" of every field and "RECORD SIZE" of every record.

A layout is {record: [(field, offset, size), ...]}; the last entry of a record is ("", 0, its size).
"""

import pathlib
import re
import subprocess
import sys
import tempfile

HEADER = "driver/report_request.h"
RECORD = re.compile(r"typedef struct (\w+) \{(.*?)\} \1;", re.DOTALL)
COMMENT = re.compile(r"/\*.*?\*/", re.DOTALL)


def header_records(source):
    """{record: [(field, C type), ...]}, in the header's order; an array's type is like "char[64]"."""
    text = "".join((source / "src" / name).read_text(encoding="utf-8")
                   for name in ("report/money_record.h", HEADER))
    return {record: list(fields_of(body)) for record, body in RECORD.findall(COMMENT.sub("", text))}


def fields_of(body):
    for declaration in filter(None, map(str.strip, body.split(";"))):
        kind, names = re.fullmatch(r"(\w+\*?) (.*)", declaration, re.DOTALL).groups()
        for name in re.split(r",\s*", names):
            field, bounds = re.fullmatch(r"(\w+)((?:\[\w+\])?)", name).groups()
            yield field, kind + bounds


def places(records):
    """(record, field, C expressions for offset and size) of all fields and of the records themselves."""
    for record, fields in records.items():
        for field, _type in fields:
            yield record, field, f"offsetof({record}, {field})", f"sizeof((({record}*)0)->{field})"
        yield record, "", "0", f"sizeof({record})"


def compiled(source, compiler, text, *options):
    program = f"#include <stddef.h>\n#include <stdio.h>\n#include <{HEADER}>\n{text}\n"
    return subprocess.run([compiler, "-I", str(source / "src"), "-x", "c", "-std=c11", *options, "-"], input=program,
                          capture_output=True, text=True, check=False)


def measured(source, compiler):
    """The layout that `compiler` makes, whose programs run here."""
    records = header_records(source)
    lines = [f'printf("{record} %zu %zu {field}\\n", (size_t){offset}, {size});'
             for record, field, offset, size in places(records)]
    layout = {record: [] for record in records}
    with tempfile.TemporaryDirectory() as folder:
        program = pathlib.Path(folder) / "layout"
        done = compiled(source, compiler, "int main(void) {\n" + "\n".join(lines) + "\nreturn 0;\n}", "-o", str(program))
        if done.returncode != 0:
            raise SystemExit(done.stderr)
        printed = subprocess.run([program], capture_output=True, text=True, check=True).stdout
    for line in printed.splitlines():
        record, offset, size, field = line.split(" ")
        layout[record].append((field, int(offset), int(size)))
    return layout


def refused(source, compiler, layout):
    """What `compiler`, whose programs needn't run here, says against `layout`; an empty text if nothing."""
    records = header_records(source)
    known = {(record, field): (offset, size) for record, fields in layout.items() for field, offset, size in fields}
    lines = []
    for record, field, offset, size in places({name: records[name] for name in layout}):
        expected = known[record, field]
        lines.append(f'_Static_assert({offset} == {expected[0]} && {size} == {expected[1]}, "{record} {field}");')
    return compiled(source, compiler, "\n".join(lines), "-fsyntax-only").stderr


if __name__ == "__main__":
    for name, places_in_it in measured(pathlib.Path(sys.argv[1]), sys.argv[2]).items():
        for field_name, field_offset, field_size in places_in_it:
            print(name, *((field_offset, field_name) if field_name else (field_size,)))
