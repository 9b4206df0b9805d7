#!/usr/bin/env python3
"""Fails if a record is laid out otherwise than in C: by the hosts in Python and C#, in the tables of the
embedding guide, or by the compiler for Windows.

Usage: check_layouts.py SOURCE COMPILER [COMPILER-FOR-WINDOWS]
"""

import ctypes
import pathlib
import sys

from csharp_layout import csharp_records
from guide_tables import guide_layout, guide_types
from header_layout import header_records, measured, refused

ON_LINUX_ONLY = ("ChartTarget",)  # a Windows host has its own surface
IN_GUIDE = ("GenerateBillRequest", "MoneyRecord", "TradeBillCounts")


def python_layout(source, records):
    sys.path.insert(0, str(source / "examples" / "python_host"))
    import tradebill  # pylint: disable=import-outside-toplevel
    layout = {}
    for name in records:
        record = getattr(tradebill, name)
        fields = [(field, getattr(record, field).offset, getattr(record, field).size) for field, _type in record._fields_]
        layout[name] = [*fields, ("", 0, ctypes.sizeof(record))]
    return layout


def differences(who, expected, found):
    for record, fields in expected.items():
        theirs = found.get(record, [])
        for field in fields:
            if field not in theirs:
                yield f"{who}: {record} lacks {field}"
        yield from (f"{who}: {record} has {field}" for field in theirs if field not in fields)
        if not set(fields) ^ set(theirs) and fields != theirs:
            yield f"{who}: the fields of {record} stand in another order"


def only(layout, records):
    return {name: layout[name] for name in records}


def main(source, compiler, *windows_compilers):
    source = pathlib.Path(source)
    layout = measured(source, compiler)
    on_windows = [name for name in layout if name not in ON_LINUX_ONLY]
    found = [*differences("tradebill.py", layout, python_layout(source, layout)),
             *differences("TradeBill.cs", only(layout, on_windows), csharp_records(source)),
             *differences("embedding.md", only(layout, IN_GUIDE), guide_layout(source)),
             *differences("embedding.md", only(header_records(source), IN_GUIDE), guide_types(source))]
    for windows_compiler in windows_compilers:
        found += refused(source, windows_compiler, only(layout, on_windows)).splitlines()
    if found:
        sys.exit("\n".join(found))
    print(sum(len(fields) - 1 for fields in layout.values()), "fields are where they should be")


if __name__ == "__main__":
    main(*sys.argv[1:])
