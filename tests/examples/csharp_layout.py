"""The records of TradeBill.cs as they are passed to the module: read in the source, so that no compiler is needed."""

import re

STRUCT = re.compile(r"\[StructLayout\(LayoutKind\.Sequential, Pack = 8\)\]\s+public struct (\w+)\s*\{(.*?)\n\}", re.DOTALL)
FIELD = re.compile(r"(?:\[MarshalAs\(UnmanagedType\.(?P<marshal>\w+)(?:, SizeConst = (?P<count>\d+))?\)\] )?"
                   r"public (?P<type>\w+)(?P<array>\[\])? (?P<names>\w+(?:, \w+)*);")
SCALARS = {"IntPtr": 8, "int": 4, "uint": 4, "double": 8, "byte": 1}


def csharp_records(source):
    """The layout, as header_layout.py has it. Records stand in the source before those that hold them."""
    text = (source / "examples" / "csharp_host" / "TradeBill.cs").read_text(encoding="utf-8")
    kinds = {name: (size, size) for name, size in SCALARS.items()}  # size and alignment
    kinds.update((name, (8, 8)) for name in re.findall(r"public delegate \w+ (\w+)\(", text))
    layout = {}
    for record, body in STRUCT.findall(re.sub(r"//.*", "", text)):
        layout[record], alignment = laid_out(body, kinds)
        kinds[record] = (layout[record][-1][2], alignment)
    return layout


def laid_out(body, kinds):
    fields, end, strictest = [], 0, 1
    for line in filter(None, map(str.strip, body.splitlines())):
        field = FIELD.fullmatch(line)
        if field is None:
            raise SystemExit(f"TradeBill.cs: what does this line declare? {line}")
        is_array = field["array"] is not None
        if is_array != (field["marshal"] == "ByValArray") or is_array != (field["count"] is not None):
            raise SystemExit(f"TradeBill.cs: an array needs ByValArray and SizeConst, and nothing else has them: {line}")
        size, alignment = kinds[field["type"]]
        for name in field["names"].split(", "):
            start = -(-end // alignment) * alignment
            end = start + size * int(field["count"] or 1)
            fields.append((name, start, end - start))
            strictest = max(strictest, alignment)
    return [*fields, ("", 0, -(-end // strictest) * strictest)], strictest
