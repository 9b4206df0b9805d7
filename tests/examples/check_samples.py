#!/usr/bin/env python3
"""Reads the sample accounts as a person does, by headings, labels and totals, and compares them with what the program
reads: counts of all stores, sums of lots, turnover, fees and results, the money of the first and the last day, and the
totals on the page.

Usage: check_samples.py PROGRAM SAMPLES
"""

import collections
import configparser
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

NUMBER = re.compile(r"-?[\d,]+(?:\.\d+)?")
TOTALS = re.compile(r"^\|?\s*(共|合计|小计|总计)")
# The first that fits a title wins.
KINDS = [
    ("positionSums", re.compile(r"持仓汇总|总览|持仓盈亏单|持仓盈亏汇总|持仓结算表|持仓表")),
    ("positions", re.compile(r"持仓明细|持仓情况|持仓 Positions|Open Positions")),
    ("closed", re.compile(r"平仓明细|平仓情况|平仓盈亏单|平仓结算表|平仓表|平仓 Closed")),
    ("matches", re.compile(r"成交记录|成交情况|成交结算表|成交表|成交 Trades")),
]
# Headings, without what stands behind a blank, and the fields that they head.
FIELDS = {
    "matches": {"手数": "MATCH_VOL", "成交额": "TURNOVER", "手续费": "POUNDAGE", "平仓盈亏": "OFFSETPL"},
    "closed": {"手数": "MATCH_VOL", "平仓盈亏": "OFFSETPL", "盯市盈亏": "OFFSETPL"},
    "positions": {"持仓量": "POSITION_VOL", "浮动盈亏": "FLOATPL", "盯市盈亏": "DSYK", "保证金": "DEPOSIT"},
    "positionSums": {},
}
MONEY = {
    "上日结存": "QCQY", "期初结存": "QCQY", "当日结存": "QMJC", "期末结存": "QMJC", "出入金": "CRJ", "当日出入金": "CRJ",
    "客户权益": "KHQY", "权益": "KHQY", "平仓盈亏": "PCYK", "盯市平仓盈亏": "PCYK", "持仓盯市盈亏": "CCDSYK",
    "盯市盈亏": "CCDSYK", "持仓盈亏": "CCDSYK", "可用资金": "KYZJ", "保证金占用": "BZJZY", "总保证金占用": "BZJZY",
    "占用保证金": "BZJZY", "手续费": "SXF", "行权手续费": "XQSXF", "行权费": "XQSXF",
}
# What a layout prints and nothing keeps.
NOT_READ = {("fund-status-premium", "matches", "OFFSETPL")}


def amount(text):
    return float(text.replace(",", "")) if NUMBER.fullmatch(text.strip()) else 0.0


def plain(word):
    """A heading or label without blanks, its English and its colon."""
    chinese = re.match(r"[^A-Za-z:：]*", word).group()
    return re.sub(r"[\s:：()（）]", "", chinese)


def cells(line):
    return [cell.strip() for cell in (line.strip().strip("|").split("|") if "|" in line else line.split())]


class Table:
    def __init__(self, kind, headings):
        self.kind, self.headings, self.rows, self.totals = kind, headings, [], None

    def column(self, field):
        names = [FIELDS[self.kind].get(name) for name in self.headings]
        return names.index(field) if field in names else None


def is_rule(line):
    return not re.sub(r"[-=|\s]", "", line)


def kind_of(line):
    """What a title opens; titles may be printed with blanks between their characters."""
    title = re.sub(r"(?<=[^ -~]) +(?=[^ -~])", "", line)
    if "|" in title or len(title.split()) > 4:
        return None
    return next((kind for kind, words in KINDS if words.search(title)), None)


def read_tables(lines):
    """Every table with a rule above and below its heading, under a title of its own."""
    tables, kind, table = [], None, None
    for before, line in zip([""] + lines, lines):
        if is_rule(line):
            continue
        if table is None and kind_of(line):
            kind = kind_of(line)
        elif kind and table is None and is_rule(before) and len(cells(line)) >= 8:
            table = Table(kind, [plain(cell) for cell in cells(line)])
        elif table is not None and TOTALS.match(line):
            table.totals = [amount(text) for text in NUMBER.findall(line)]
            tables.append(table)
            kind = table = None
        elif table is not None and re.search(r"\d", line):  # a second heading in English has no figures
            table.rows.append(cells(line))
    return tables


def read_money(lines):
    """Labels with their values, or headings with the row below them."""
    text = "\n".join(lines)
    found = {}
    for label, value in re.findall(r"([^\s:：|][^:：|\n]{0,40}?)[:：]+\s*\|?\s*(-?[\d,]+\.\d\d)\b", text):
        found.setdefault(MONEY.get(plain(label)), value)
    for label, value in re.findall(r"\|\s*([^|\d]+?)\s*\|\s*(-?[\d,]+\.\d\d)\s*(?=\|)", text):
        found.setdefault(MONEY.get(plain(label)), value)
    for at, line in enumerate(lines):
        names = [plain(cell) for cell in cells(line)]
        values = next((cells(below) for below in lines[at + 1:at + 4] if re.search(r"\d\.\d\d", below)), [])
        if sum(name in MONEY for name in names) < 3 or len(names) != len(values):
            continue
        for name, value in zip(names, values):
            found.setdefault(MONEY.get(name), value)
        if "入金" in names and "出金" in names:
            flow = amount(values[names.index("入金")]) - amount(values[names.index("出金")])
            found["CRJ"] = f"{flow:.2f}"
    found.pop(None, None)
    return found


def fail(sample, text):
    raise SystemExit(f"{sample}: {text}")


def near(left, right):
    return abs(left - right) < 0.005


def check_money(sample, lines, record):
    printed = read_money(lines)
    if len(printed) < 5:
        fail(sample, f"only {printed} was found in the statement of {record['BILL_DATE']}")
    if sample == "spaced-title":
        printed.pop("CRJ")  # this layout's deposits aren't read
    for field, value in printed.items():
        if not near(amount(value), amount(record[field] or "0")):
            fail(sample, f"{field} of {record['BILL_DATE']}: printed {value}, read {record[field]!r}")
    return len(printed)


def sides(table):
    """Rows that hold both sides of a contract: how many records they are."""
    buy, sell = table.headings.index("买持"), table.headings.index("卖持")
    return sum((amount(row[buy]) > 0) + (amount(row[sell]) > 0) for row in table.rows)


def check_table(sample, day, table, data):
    rows = [row for row in data[table.kind] if row["BILL_DATE"] == day]
    both = table.kind == "positionSums" and "买持" in table.headings
    expected = sides(table) if both else len(table.rows)
    if len(rows) != expected:
        fail(sample, f"{day}: {expected} {table.kind} are printed, {len(rows)} were read")
    sums = {}
    for field in sorted(set(FIELDS[table.kind].values())):
        column = table.column(field)
        if column is None or (sample, table.kind, field) in NOT_READ:
            continue
        printed = sum(amount(row[column]) for row in table.rows)
        read = sum(amount(row[field]) for row in rows)
        if not near(printed, read):
            fail(sample, f"{day}: {field} of {table.kind}: printed {printed:.2f}, read {read:.2f}")
        if table.rows and not any(near(printed, total) for total in table.totals):
            fail(sample, f"{day}: {field} of {table.kind} adds up to {printed:.2f}, which is no total of {table.totals}")
        sums[field] = printed
    return expected, sums


def page_rows(page):
    text = page.read_bytes().decode("gbk")
    return [[re.sub("<[^>]*>", "", cell).strip() for cell in re.findall(r"<t[dh][^>]*>(.*?)</t[dh]>", row, re.S)]
            for row in re.findall(r"<tr[^>]*>(.*?)</tr>", text, re.S)]


def check_page(sample, page, day_lots, closed_rows, closed_lots):
    rows = page_rows(page)
    counted = [[int(cell) for cell in row[1:] if re.fullmatch(r"\d+", cell)] for row in rows if row[0] == "小计"]
    lots = [numbers[0] for numbers in counted if numbers]
    if lots != day_lots:
        fail(sample, f"lots traded a day on the page {lots}, in the statements {day_lots}")
    grand = next((row for row in rows if row[0] == "总计"), None)
    if grand is None or [int(grand[3]), int(grand[4])] != [closed_rows, closed_lots]:
        fail(sample, f"closed rows and lots in all: on the page {grand}, in the statements {closed_rows}, {closed_lots}")


def check_domestic(sample, statements, data, page):
    counts, day_lots, closed = collections.Counter(), [], [0, 0]
    records = data["money"]["Records"]
    if [record["BILL_DATE"] for record in records] != [day for day, _ in statements]:
        fail(sample, "the days read aren't the days of the files")
    figures = 0
    for (day, lines), record in zip(statements, records):
        if record in (records[0], records[-1]):
            figures += check_money(sample, lines, record)
        for table in read_tables(lines):
            count, sums = check_table(sample, day, table, data)
            counts[table.kind] += count
            if table.kind == "matches" and count:
                day_lots.append(round(sums["MATCH_VOL"]))
            if table.kind == "closed":
                closed = [closed[0] + count, closed[1] + round(sums["MATCH_VOL"])]
    for kind in ("matches", "closed", "positions", "positionSums"):
        if counts[kind] != len(data[kind]):
            fail(sample, f"{counts[kind]} {kind} in all are printed, {len(data[kind])} were read")
    check_page(sample, page, day_lots, *closed)
    return f"{len(records)} days, {dict(counts)}, {figures} money figures"


def foreign_rows(lines, title):
    """Rows of a table that begin with a date, and the headings above them."""
    start = next(i for i, line in enumerate(lines) if title in line)
    rows = []
    for line in lines[start + 4:]:
        if is_rule(line):
            break
        if re.match(r"\d{8} ", line):
            rows.append(line)
    return rows


def check_foreign(sample, statements, data, page):
    matches = [row for _, lines in statements for row in foreign_rows(lines, "成交记录")]
    positions = [row for _, lines in statements for row in foreign_rows(lines, "持仓明细")]
    closed = [row for _, lines in statements for row in foreign_rows(lines, "平仓明细") if " 平仓 " in row]
    for kind, rows in (("matches", matches), ("positions", positions)):
        read = [(row.get("MATCH_DATE") or row.get("OPEN_DATE"), row["CONTRACT"], row.get("MATCH_VOL") or
                 row.get("POSITION_VOL"), row["CURRENCY"]) for row in data[kind]]
        printed = [(row.split()[0], row.split()[1], row.split()[4], row.split()[-1]) for row in rows]
        if read != printed:
            fail(sample, f"{kind}: {len(printed)} rows are printed, {len(read)} were read, or they differ")
    lots = sum(int(row.split()[4]) for row in closed)
    profit = sum(amount(row.split()[6]) for row in closed)
    read_lots = sum(offset["LONG_VOL"] for offset in data["offsets"])
    read_profit = sum(offset["LONG_WIN_PL"] + offset["LONG_LOSE_PL"] for offset in data["offsets"])
    if lots != read_lots or not near(profit, read_profit):
        fail(sample, f"closed lots and profit: printed {lots}, {profit}, read {read_lots}, {read_profit}")
    for currency in data["currencies"]:
        name, records = currency["name"], currency["store"]["Records"]
        for (day, lines), record in ((statements[0], records[0]), (statements[-1], records[-1])):
            heading = next(i for i, line in enumerate(lines) if name in line.split() and "Base" in line or
                           i > 0 and "借贷成本" in lines[i - 1] and name in line.split())
            column = [word for word in lines[heading].split() if re.fullmatch(r"[A-Z]{3}\*?", word)].index(name)
            for line in lines[heading:]:
                if "追加保证金" in line:
                    break
                for word, field in (("期初资金", "QCQY"), ("出入金", "CRJ"), ("可用资金", "KYZJ"), ("当前权益", "KHQY")):
                    if word in line and not near(amount(NUMBER.findall(line)[column]), amount(record[field])):
                        fail(sample, f"{field} of {name}, {day}: {line} against {record[field]}")
    if page_rows(page)[0][0] != "合约":
        fail(sample, "the page doesn't begin with the trade statistics")
    return f"{len(matches)} matches, {len(positions)} positions, {len(closed)} closed, {len(data['currencies'])} currencies"


def check(program, folder):
    request = configparser.ConfigParser()
    request.read(folder / "request.ini", encoding="utf-8")
    with tempfile.TemporaryDirectory() as temporary:
        copy = pathlib.Path(shutil.copytree(folder, pathlib.Path(temporary) / folder.name))
        command = [program, "report", "--root", copy / "root", "--request", copy / "request.ini", "--quiet", "--json",
                   copy / "data.json"]
        for option in ("units", "products"):
            if (copy / f"{option}.ini").exists():
                command += [f"--{option}", copy / f"{option}.ini"]
        subprocess.run(command, check=True)
        data = json.loads((copy / "data.json").read_text(encoding="utf-8"))
        bills = copy / "root" / "Users" / "demo" / "Data" / "Bill"
        statements = []
        for path in sorted(bills.glob("D*.txt")):
            lines = [line.strip() for line in path.read_bytes().decode("gbk").splitlines()]
            statements.append((path.name.split(".")[1][:8], [line for line in lines if line]))
        reader = check_foreign if request["REQUEST"]["kind"] == "foreign" else check_domestic
        print(f"{folder.name}: {reader(folder.name, statements, data, bills / 'Image' / 'TradeBill.html')}")


def main():
    if len(sys.argv) != 3:
        raise SystemExit(__doc__)
    for folder in sorted(pathlib.Path(sys.argv[2]).iterdir()):
        if folder.is_dir():
            check(sys.argv[1], folder)


main()
