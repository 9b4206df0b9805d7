#!/usr/bin/env python3
"""Writes a workbook of the older form from a list of its cells.

Usage: make_xls.py CELLS XLS

CELLS has lines of "sheet<TAB>NAME" and "KIND<TAB>ROW<TAB>COLUMN<TAB>VALUE", KIND one of text, number, formula (which came
to VALUE) and open (a formula that nobody worked out).
"""

import struct
import sys

import xlwt

FORMULA = struct.pack("<H", 6)  # kind of a record, which its size follows


def worked_out(data, row, column, value):
    """The bytes of a workbook with the value of the formula in one cell, and without the flag to work it out: the writer
    knows no values."""
    place = struct.pack("<HH", row, column)
    at = data.index(place)
    while data[at - 4:at - 2] != FORMULA:
        at = data.index(place, at + 1)
    return data[:at + 6] + struct.pack("<dH", value, 0) + data[at + 16:]


def main():
    book = xlwt.Workbook(encoding="utf-8")
    sheet = None
    formulas = []
    for line in open(sys.argv[1], encoding="utf-8"):
        kind, *rest = line.rstrip("\n").split("\t")
        if kind == "sheet":
            sheet = book.add_sheet(rest[0], cell_overwrite_ok=True)
            continue
        row, column, value = int(rest[0]), int(rest[1]), rest[2]
        if kind == "text":
            sheet.write(row, column, value)
        elif kind == "number":
            sheet.write(row, column, float(value))
        else:
            sheet.write(row, column, xlwt.Formula("1+1"))
            if kind == "formula":
                formulas.append((row, column, float(value)))
    book.save(sys.argv[2])
    with open(sys.argv[2], "rb") as file:
        data = file.read()
    for row, column, value in formulas:
        data = worked_out(data, row, column, value)
    with open(sys.argv[2], "wb") as file:
        file.write(data)


if __name__ == "__main__":
    main()
