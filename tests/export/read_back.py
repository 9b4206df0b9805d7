#!/usr/bin/env python3
"""Exports every sample, reads the tables back by Python's own csv and sqlite3, and holds them against the JSON of a report.

Usage: read_back.py PROGRAM SAMPLES
"""

import csv
import io
import json
import pathlib
import re
import sqlite3
import subprocess
import sys
import tempfile

# Tables that are lists of the JSON, by the path to each.
LISTS = {
    "trades": "matches", "closed": "closed", "positions": "positions", "position_sums": "positionSums",
    "cash": "cash", "exercises": "exercises", "deliveries": "deliveries", "cash_kinds": "analysis.cashKinds",
    "contracts": "analysis.contracts", "products": "analysis.products", "sides": "analysis.sides",
    "exchanges": "analysis.exchanges", "closed_months": "analysis.closedMonths", "months": "analysis.months",
    "years": "analysis.years", "weekdays": "analysis.weekdays", "drawdowns": "analysis.drawdowns",
    "margin": "analysis.margin.products", "open": "analysis.open", "concentration": "analysis.concentration",
    "findings": "findings",
}
OTHERS = {"days", "currency_days", "units", "figures"}
DAY = re.compile(r"(\d{4})-?(\d\d)-?(\d\d)")
PLAIN = re.compile(r"-?\d+(\.\d+)?")


def read_csv(path):
    content = path.read_bytes()
    if not content.startswith(b"\xef\xbb\xbf") or re.search(rb"[^\r]\n|\r[^\n]", content):
        raise SystemExit(f"{path}: no mark, or lines end otherwise")
    rows = list(csv.reader(io.StringIO(content.decode("utf-8-sig"), newline=""), strict=True))
    if any(len(row) != len(rows[0]) for row in rows):
        raise SystemExit(f"{path}: rows have different lengths")
    return rows[0], rows[1:]


def read_sqlite(database, table):
    cursor = database.execute(f'SELECT * FROM "{table}" ORDER BY rowid')
    names = [column[0] for column in cursor.description]
    types = {name: kind for _, name, kind, *_ in database.execute(f'PRAGMA table_info("{table}")')}
    if names[:3] != ["user", "account", "kind"]:
        raise SystemExit(f"{table}: begins with {names[:3]}")
    return names[3:], [row[3:] for row in cursor], types


def follow(document, path):
    for name in path.split("."):
        document = document[name]
    return document


def text_of(cell):
    """What a statement says, without the apostrophe that keeps spreadsheets from obeying it."""
    return cell[1:] if cell.startswith("'") else cell


def agrees_with_sqlite(cell, value, kind):
    if value is None:
        return cell == ""
    if kind == "TEXT":
        return isinstance(value, str) and text_of(cell) == value
    return PLAIN.fullmatch(cell) is not None and float(cell) == value


def agrees_with_json(cell, name, row):
    value = row["values"][name] if name in row.get("values", {}) else row.get(name)
    if value is None or value == "":
        return cell == ""
    if isinstance(value, str):
        day = DAY.fullmatch(value)
        return text_of(cell) == value or bool(day and cell == "-".join(day.groups()))
    return PLAIN.fullmatch(cell) is not None and abs(float(cell) - value) <= 1e-12 * abs(value)


def check(sample, program, folder):
    common = ["--root", sample / "root", "--request", sample / "request.ini"]
    for name in ("units", "products", "live"):
        if (sample / f"{name}.ini").exists():
            common += [f"--{name}", sample / f"{name}.ini"]
    tables, file, page = folder / "tables", folder / "tables.db", folder / "page"
    subprocess.run([program, "export", "--quiet", *common, "--csv", tables, "--sqlite", file], check=True)
    subprocess.run([program, "report", "--quiet", *common, "--out", page, "--json", folder / "report.json"], check=True)
    document = json.loads((folder / "report.json").read_bytes())
    database = sqlite3.connect(file)
    names = {path.stem for path in tables.iterdir()}
    wrong = [] if names == LISTS.keys() | OTHERS else [f"the tables are {sorted(names)}"]
    for name in sorted(names):
        columns, rows = read_csv(tables / f"{name}.csv")
        same_columns, same_rows, types = read_sqlite(database, name)
        if columns != same_columns or len(rows) != len(same_rows):
            wrong.append(f"{name}: CSV and SQLite differ in form")
        for number, (row, same) in enumerate(zip(rows, same_rows)):
            wrong += [f"{name} {number} {column}: {cell!r} is {value!r} in SQLite" for column, cell, value in
                      zip(columns, row, same) if not agrees_with_sqlite(cell, value, types[column])]
        if name not in LISTS:
            continue
        told = follow(document, LISTS[name])
        if len(told) != len(rows):
            wrong.append(f"{name}: {len(rows)} rows, {len(told)} in JSON")
        for number, (row, other) in enumerate(zip(rows, told)):
            wrong += [f"{name} {number} {column}: {cell!r}, in JSON {other}" for column, cell in zip(columns, row)
                      if not agrees_with_json(cell, column, other)]
    database.close()
    return wrong


def main():
    program, samples = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
    found = []
    for sample in sorted(path.parent for path in samples.glob("*/request.ini")):
        with tempfile.TemporaryDirectory() as folder:
            wrong = check(sample, program, pathlib.Path(folder))
        found += [f"{sample.name}: {line}" for line in wrong[:10]]
    print("\n".join(found) or "all tables agree")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
