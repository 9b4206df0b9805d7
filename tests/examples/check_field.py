#!/usr/bin/env python3
"""Holds reports of the statements in samples/field, which counters print in these forms today, against what is printed.

Usage: check_field.py PROGRAM SAMPLES

Each file is read here by its labels and headings alone, cell by cell; `report FILE` must have the same figures, each of
them and no others, and find nothing wrong. Deposits, exercises and deliveries, which the page has no place for, are held
against the tables of `export` too. A label or heading that nobody knows fails, so that no figure is passed over.
"""

import csv
import json
import pathlib
import re
import subprocess
import sys
import tempfile

# Label, without blanks and what isn't Chinese, and the field that it fills.
MONEY = {"期初结存": "QCQY", "出入金": "CRJ", "期末结存": "QMJC", "平仓盈亏": "PCYK", "持仓盯市盈亏": "CCDSYK", "客户权益": "KHQY",
         "手续费": "SXF", "保证金占用": "BZJZY", "可用资金": "KYZJ", "行权手续费": "XQSXF"}
PREMIUM = ("权利金收入", "权利金支出")
# Labels and headings that no field keeps. What is in none of these tables is new, and has to be put into one.
UNKEPT_MONEY = {"基础保证金", "质押金", "货币质押保证金占用", "交割保证金", "期权执行盈亏", "交割手续费", "多头期权市值", "空头期权市值", "货币质入",
                "货币质出", "市值权益", "质押变化金额", "风险度", "应追加资金", "货币质押变化金额"}
UNKEPT = {"投资单元", "交易编码", "品种", "资金账号", "期权市值", "成交类型"}
# Title, list of the JSON, and the field of each heading.
TABLES = {
    "成交记录": ("matches", {"成交日期": "MATCH_DATE", "交易所": "EXCH_NAME", "合约": "CONTRACT", "买/卖": "BID", "投/保": "HEDGE",
                          "成交价": "MATCH_PRICE", "手数": "MATCH_VOL", "成交额": "TURNOVER", "开平": "OFFSET", "手续费": "POUNDAGE",
                          "平仓盈亏": "OFFSETPL", "权利金收支": "ROYALTY", "成交序号": "MATCHNO"}, UNKEPT),
    "平仓明细": ("closed", {"平仓日期": "MATCH_DATE", "交易所": "EXCH_NAME", "合约": "CONTRACT", "开仓日期": "OPEN_DATE", "买/卖": "tradeSide",
                         "手数": "MATCH_VOL", "开仓价": "OPEN_PRICE", "昨结算": "SETTLE_PRICE", "成交价": "MATCH_PRICE",
                         "平仓盈亏": "OFFSETPL"}, UNKEPT | {"投/保", "权利金收支"}),
    "持仓明细": ("positions", {"交易所": "EXCH_NAME", "合约": "CONTRACT", "开仓日期": "OPEN_DATE", "投/保": "HEDGE", "买/卖": "BID",
                           "持仓量": "POSITION_VOL", "开仓价": "OPEN_PRICE", "昨结算": "YSETTLE_PRICE", "结算价": "SETTLE_PRICE",
                           "浮动盈亏": "FLOATPL", "盯市盈亏": "DSYK", "保证金": "DEPOSIT"}, UNKEPT),
}
SUMMARY = "持仓汇总"
# Rows that the page has no place for: title, table of the exports, the field of each heading, and which are amounts.
OTHER_ROWS = {
    "出入金明细": ("cash", {"发生日期": "CASH_DATE", "出入金类型": "CASH_TYPE", "入金": "CASH_IN", "出金": "CASH_OUT", "说明": "NOTE",
                       "摘要": "NOTE"}, {"入金", "出金"}),
    "行权明细": ("exercises", {"交割日期": "EXERCISE_DATE", "成交日期": "EXERCISE_DATE", "交易所": "EXCH_NAME", "品种": "PRODUCT",
                           "合约": "CONTRACT", "投/保": "HEDGE", "买/卖": "BID", "是否行权": "EXERCISED", "行权数量": "EXERCISE_VOL",
                           "行权价格": "EXERCISE_PRICE", "行权金额": "EXERCISE_AMOUNT", "行权盈亏": "EXERCISE_PL",
                           "行权手续费": "EXERCISE_FEE"}, {"行权数量", "行权价格", "行权金额", "行权盈亏", "行权手续费"}),
    "交割明细": ("deliveries", {"交割日期": "DELIVERY_DATE", "交易所": "EXCH_NAME", "品种": "PRODUCT", "合约": "CONTRACT", "交割期": "CONTRACT",
                            "投/保": "HEDGE", "买/卖": "BID", "实提数量": "DELIVERED_VOL", "剩余数量": "RESIDUAL_VOL",
                            "交割价格": "DELIVERY_PRICE", "交割金额": "DELIVERY_AMOUNT", "交割手续费": "DELIVERY_FEE",
                            "开仓均价": "OPEN_PRICE", "交割盈亏": "DELIVERY_PL"},
             {"实提数量", "剩余数量", "交割价格", "交割金额", "交割手续费", "开仓均价", "交割盈亏"}),
}
UNKEPT_OTHER = {"汇率", "账户币种", "本外币标识", "投资单元", "交易编码", "资金账号"}
SIDES = {"买": "buy", "卖": "sell"}
PAIR = re.compile(r"([\u4e00-\u9fff][^：:]*?)[：:]+\s*(-?[\d,]+(?:\.\d+)?)%?(?=\s|$)")
AMOUNT = re.compile(r"-?[\d,]+(\.\d+)?")
DATE = re.compile(r"日期 Date：\s*(\d{8})")
TITLES = ("交易结算单", "交易核算单")


def amount(text):
    return float(text.replace(",", ""))


def text_of(path):
    data = path.read_bytes()
    try:
        return data.decode("utf-8")
    except UnicodeDecodeError:
        return data.decode("gb18030")


def days_of(lines):
    """{day: lines} of the statements in a file, each from its title on."""
    starts = [i for i, line in enumerate(lines) if line.strip().startswith(TITLES)]
    parts = [lines[start:end] for start, end in zip(starts, starts[1:] + [len(lines)])]
    return {DATE.search("\n".join(part))[1]: part for part in parts}


def money_of(lines, layout):
    """({field: amount}, labels that nobody knows) of the first money section, that of the account's own currency."""
    start = next(i for i, line in enumerate(lines) if "资金状况" in line)
    end = next((i for i in range(start + 1, len(lines)) if lines[i].startswith("|") or "资金状况" in lines[i]), len(lines))
    printed = {}
    for line in lines[start + 1:end]:
        for label, value in PAIR.findall(line):
            printed["".join(re.findall("[\u4e00-\u9fff]", label))] = amount(value)
    fields = {field: printed[label] for label, field in MONEY.items() if label in printed}
    if any(label in printed for label in PREMIUM):
        # The row of the premium paid ends the money of this layout, so its amount never counts.
        paid = 0 if layout == "bilingual" else printed.get(PREMIUM[1], 0)
        fields["QLJSZ"] = printed.get(PREMIUM[0], 0) - paid
    return fields, set(printed) - set(MONEY) - set(PREMIUM) - UNKEPT_MONEY


def rows_of(lines, title):
    """The rows of a table as {heading: cell}; none where the statement has no such table."""
    start = next((i for i, line in enumerate(lines) if line.strip().startswith(title)), None)
    if start is None:
        return []
    heading, rows = None, []
    for line in lines[start + 1:]:
        if not line.startswith("|"):
            if rows and line.strip() and not line.startswith("-"):
                break
            continue
        cells = [cell.strip() for cell in line.strip()[1:-1].split("|")]
        if cells[0].startswith("共"):
            break
        if heading is None:
            heading = cells
        elif re.search(r"\d", line):
            rows.append(dict(zip(heading, cells)))
    return rows


def summed(positions):
    """The rows of a summary, worked out of positions lot by lot: {(contract, hedge): {heading: amount}}."""
    sums = {}
    for row in positions:
        values = row["values"]
        lots = values["POSITION_VOL"]
        lot_side = "买" if row["BID"] == "买" else "卖"
        entry = sums.setdefault((row["CONTRACT"], row["HEDGE"]),
                                {"买持": 0, "卖持": 0, "买均价": 0, "卖均价": 0, "持仓盯市盈亏": 0, "保证金占用": 0})
        entry[lot_side + "持"] += lots
        entry[lot_side + "均价"] += lots * values["OPEN_PRICE"]  # divided when all lots are there
        entry["持仓盯市盈亏"] += values["DSYK"]
        entry["保证金占用"] += values["DEPOSIT"]
        entry["昨结算"], entry["今结算"] = values["YSETTLE_PRICE"], values["SETTLE_PRICE"]
    for entry in sums.values():
        for side in "买卖":
            entry[side + "均价"] = round(entry[side + "均价"] / max(entry[side + "持"], 1), 3)
    return sums


def summary_differences(lines, positions):
    """The layouts of these statements read no summary, so each of its figures is that of the positions."""
    rows = rows_of(lines, SUMMARY)
    if not rows:
        return []
    sums = summed(positions)
    found = []
    if {(row["合约"], row["投/保"]) for row in rows} != set(sums):
        found.append(f"{SUMMARY}: its contracts aren't those of the positions")
    for row in rows:
        for heading, value in sums.get((row["合约"], row["投/保"]), {}).items():
            if abs(amount(row[heading]) - value) > 0.0011:  # prices of lots are printed in thousandths
                found.append(f"{SUMMARY}, {row['合约']}, {heading}: printed {row[heading]}, positions make {value}")
    return found


def cell_agrees(printed, field, record):
    if field == "tradeSide":
        return SIDES[printed] == record[field]
    if field in record["values"] and AMOUNT.fullmatch(printed):
        return amount(printed) == record["values"][field]
    return printed == record[field]


def table_differences(title, rows, records, fields, unkept):
    if len(rows) != len(records):
        return [f"{title}: {len(rows)} rows printed, {len(records)} read"]
    found = [f"{title}: nobody knows the heading {heading}" for heading in (rows[0] if rows else ())
             if heading not in fields and heading not in unkept]
    for number, (row, record) in enumerate(zip(rows, records), 1):
        for heading, field in fields.items():
            if heading in row and not cell_agrees(row[heading], field, record):
                found.append(f"{title}, row {number}, {heading}: printed {row[heading]}, read {record[field]!r}")
    return found


def differences(day, lines, layout, report):
    """What one day of a report has otherwise than its statement."""
    money = [record for record in report["money"]["Records"] if record["BILL_DATE"] == day]
    if len(money) != 1:
        return [f"{len(money)} records of money instead of 1"]
    printed, unknown = money_of(lines, layout)
    found = [f"nobody knows the label {label}" for label in sorted(unknown)]
    for field, value in printed.items():
        if abs((money[0]["values"][field] or 0) - value) > 1e-9:
            found.append(f"{field}: printed {value}, read {money[0][field]!r}")
    for title, (name, fields, unkept) in TABLES.items():
        records = [record for record in report[name] if record["BILL_DATE"] == day]
        found += table_differences(title, rows_of(lines, title), records, fields, unkept)
    positions = [record for record in report["positions"] if record["BILL_DATE"] == day]
    return found + summary_differences(lines, positions)


def other_cell_agrees(printed, field, record, is_amount):
    """A cell of OTHER_ROWS, in the JSON or in a CSV file, where a day is 2024-01-31 and all are texts."""
    got = record.get("values", {}).get(field, record[field])
    if is_amount and AMOUNT.fullmatch(printed):
        return got not in (None, "") and abs(float(got) - amount(printed)) < 1e-9
    text = "" if got is None else str(got)
    return printed == (text.replace("-", "") if field.endswith("_DATE") else text)


def other_differences(where, days, tables):
    """What the rows of OTHER_ROWS are otherwise in `tables`, {table: rows}, of the report or of an export."""
    found = []
    for title, (name, fields, amounts) in OTHER_ROWS.items():
        rows = [(day, row) for day, lines in days.items() for row in rows_of(lines, title)]
        records = tables.get(name)
        if records is None:
            found.append(f"{where} has no table {name}")
            continue
        if len(rows) != len(records):
            found.append(f"{where}, {title}: {len(rows)} rows printed, {len(records)} read")
            continue
        for number, ((day, row), record) in enumerate(zip(rows, records), 1):
            if record["BILL_DATE"].replace("-", "") != day:
                found.append(f"{where}, {title}, row {number}: of {day}, read {record['BILL_DATE']!r}")
            for heading, printed in row.items():
                if heading not in fields:
                    if heading not in UNKEPT_OTHER:
                        found.append(f"{title}: nobody knows the heading {heading}")
                elif not other_cell_agrees(printed, fields[heading], record, heading in amounts):
                    found.append(f"{where}, {title}, row {number}, {heading}: printed {printed}, "
                                 f"read {record[fields[heading]]!r}")
    return found


def exported(program, path, folder):
    """{table: rows} of the CSV files that the export of a statement makes, or why there are none."""
    root, tables = folder / "root", folder / "tables"
    for arguments in (["import", path, "--root", root, "--user", "me", "--quiet"],
                      ["export", "--root", root, "--csv", tables, "--quiet"]):
        ended = subprocess.run([program, *map(str, arguments)], capture_output=True, check=False)
        if ended.returncode != 0:
            raise SystemExit(f"{path}: {arguments[0]} ends with {ended.returncode}: "
                             f"{ended.stderr.decode(errors='replace').strip()}")
    files = {table.stem: table.read_text(encoding="utf-8-sig") for table in tables.glob("*.csv")}
    return {name: list(csv.DictReader(text.splitlines())) for name, text in files.items()}


# What is to be found in a sample; in the others nothing.
EXPECTED = {"classic-two-currencies": ["currency"]}


def check(program, path, folder):
    """Differences, and how many figures agree."""
    days = days_of(text_of(path).splitlines())
    ended = subprocess.run([program, "report", str(path), "--out", str(folder / "page"), "--json", "-", "--quiet", "--strict"],
                           capture_output=True, check=False)
    expected = EXPECTED.get(path.parent.name, [])
    if ended.returncode != (3 if expected else 0):
        return [f"ends with {ended.returncode}: {ended.stderr.decode(errors='replace').strip()}"], 0
    report = json.loads(ended.stdout)
    found = [f"a finding {finding['code']}: {finding['text']}" for finding in report["findings"] if finding["code"] not in expected]
    found += [f"no finding {code}" for code in expected if code not in [finding["code"] for finding in report["findings"]]]
    figures = 0
    layouts = {statement["day"]: statement["layout"] for statement in report["run"]["statements"]}
    if list(layouts) != list(days):
        return [*found, f"not the days {', '.join(days)}"], 0
    for day, lines in days.items():
        found += [f"{day}: {difference}" for difference in differences(day, lines, layouts[day], report)]
        figures += len(money_of(lines, layouts[day])[0])
        figures += sum(len(row) for title in (*TABLES, SUMMARY, *OTHER_ROWS) for row in rows_of(lines, title))
    found += other_differences("the JSON", days, report)
    found += other_differences("the export", days, exported(program, path, folder))
    return found, figures


def main():
    if len(sys.argv) != 3:
        raise SystemExit(__doc__)
    program, field = sys.argv[1], pathlib.Path(sys.argv[2]) / "field"
    paths = sorted(path for path in field.rglob("*.txt"))
    if not paths:
        raise SystemExit(f"no statements in {field}")
    failed = False
    for path in paths:
        with tempfile.TemporaryDirectory(prefix="field-") as name:
            found, figures = check(program, path, pathlib.Path(name))
        failed = failed or bool(found) or figures == 0
        print(f"{path.parent.name}/{path.name}: " + ("; ".join(found) if found else f"{figures} cells agree"))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
