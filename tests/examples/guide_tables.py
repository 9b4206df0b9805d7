"""The tables of docs/embedding.md that tell where the fields of a record lie."""

import re

RECORD = re.compile(r"^`(\w+)`, (\d+) bytes")
ROW = re.compile(r"^\| `(\w+)` \| `([^`]+)` \| (\d+) \| (\d+) \|")


def guide_rows(source):
    """(record, its size, field, type, offset, size) of each row, below the line that names the record."""
    record, whole = None, None
    for line in (source / "docs" / "embedding.md").read_text(encoding="utf-8").splitlines():
        if RECORD.match(line):
            record, whole = RECORD.match(line).groups()
        elif ROW.match(line):
            field, kind, offset, size = ROW.match(line).groups()
            yield record, int(whole), field, kind, int(offset), int(size)


def guide_layout(source):
    """The layout, as header_layout.py has it."""
    layout, sizes = {}, {}
    for record, whole, field, _kind, offset, size in guide_rows(source):
        layout.setdefault(record, []).append((field, offset, size))
        sizes[record] = whole
    return {record: [*fields, ("", 0, sizes[record])] for record, fields in layout.items()}


def guide_types(source):
    """{record: [(field, C type), ...]}, as header_layout.py reads it in the header."""
    types = {}
    for record, _whole, field, kind, _offset, _size in guide_rows(source):
        types.setdefault(record, []).append((field, kind))
    return types
