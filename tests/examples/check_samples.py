#!/usr/bin/env python3
"""Makes the report of every sample and compares it with figures that sample_statements.py reads in the statements.

Usage: check_samples.py PROGRAM SAMPLES
"""

import configparser
import decimal
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

from sample_statements import ForeignStatement, PrintError, Statement, number, total

Decimal = decimal.Decimal
STORES = ("matches", "closed", "positions", "positionSums")
HALF_A_CENT = Decimal("0.005")

# What a layout prints and its reader leaves empty, by sample and store.
LEFT_EMPTY = {
    "client-bill": {"matches": "MATCHNO", "positionSums": "EXCH_NAME"},
    "client-bill-premium": {"money": "XQSXF QLJSZ", "positionSums": "EXCH_NAME"},
    "fund-class": {"money": "XQSXF"},
    "fund-status-premium": {"matches": "OFFSETPL"},
    "spaced-title": {"money": "CRJ", "matches": "MATCHNO"},
    "spaced-title-premium": {"matches": "MATCHNO ROYALTY"},
    "template-pairs": {"matches": "DELIVERY", "closed": "DELIVERY", "positions": "DELIVERY"},
    "template-row": {"positionSums": "EXCH_NAME"},
}
# Samples whose reader keeps the lots of a summary row by side, in a field that the page doesn't show.
LOTS_BY_SIDE = ("fund-status", "one-year", "template-pairs")
# Samples whose reader takes premium received as the premium of the day, up to the day before this one.
PREMIUM_PAID_FROM = {"bilingual": "99999999", "bilingual-new": "20240119"}
# Samples whose reader adds up the P/L of positions itself, and so counts a row with lots of both sides twice.
PL_OF_BOTH_SIDES = ("client-bill-premium",)


class Differences:
    """What the program has and the statements don't, or the other way round."""

    def __init__(self):
        self.found = []

    def compare(self, what, printed, got):
        """Texts and counts are equal, amounts are equal to the cent."""
        if isinstance(printed, Decimal) and got != "":
            equal = abs(Decimal(str(got)) - printed) < HALF_A_CENT
        else:
            equal = printed == got
        if not equal:
            self.found.append(f"{what}: the statements make {printed!s:.100}, the program has {got!s:.100}")


class Book:
    """All statements of a sample, and what the program's stores have to hold after reading them."""

    def __init__(self, sample):
        request = configparser.ConfigParser()
        request.read(sample / "request.ini", encoding="utf-8")
        request = request["REQUEST"]
        self.name = sample.name
        self.units = {}
        if (sample / "units.ini").exists():
            units = configparser.ConfigParser()
            units.optionxform = str
            units.read(sample / "units.ini", encoding="utf-8")
            self.units = units["UNITS"]
        self.chains = len(re.findall(rb"^\[CHAIN\d+\]", (sample / "root/sys/chain.ini").read_bytes(), re.MULTILINE))
        self.statements = []
        read = ForeignStatement if request["kind"] == "foreign" else Statement
        for path in sorted((sample / "root/Users/demo/Data/Bill").glob("*.txt")):
            day = re.search(r"\.(\d{8})o\.txt$", path.name).group(1)
            try:
                self.statements.append(read(path, day))
                self.statements[-1].printed = self.statements[-1].money_record()
            except PrintError as error:
                raise PrintError(f"{path.name}: {error}") from None
        if self.statements[0].day != request["from"].replace("-", "") \
                or self.statements[-1].day != request["to"].replace("-", ""):
            raise PrintError("the statements aren't those of the days from and to")
        for before, after in zip(self.statements, self.statements[1:]):
            if read is Statement and before.printed["QMJC"] != after.printed["QCQY"]:
                raise PrintError(f"{after.day} doesn't open with the balance that {before.day} closed with")
        self.stores = {store: [self.kept(store, statement.day, row) for statement in self.statements
                               for row in statement.records(store)] for store in STORES}
        self.money = [self.kept_money(statement) for statement in self.statements]
        self.currencies = {name: [{"BILL_DATE": statement.day, **statement.currency_records()[name]}
                                  for statement in self.statements]
                           for name in self.statements[0].currency_records()}
        self.offsets = self.add_up_offsets()

    def kept(self, store, day, row):
        row = {"BILL_DATE": day, **row}
        row.update((field, "") for field in LEFT_EMPTY.get(self.name, {}).get(store, "").split())
        if store == "positionSums" and self.name in LOTS_BY_SIDE:
            row[{"买": "BID_POSITION_VOL", "卖": "ASK_POSITION_VOL"}[row["BID"]]] = row.pop("POSITION_VOL")
        return row

    def kept_money(self, statement):
        record = self.kept("money", statement.day, statement.printed)
        if statement.day < PREMIUM_PAID_FROM.get(self.name, ""):
            record["QLJSZ"] = statement.money["权利金收入"]
        if self.name in PL_OF_BOTH_SIDES:
            record["CCDSYK"] = total(statement.records("positionSums"), "DSYK")
        return record

    def add_up_offsets(self):
        """Closed positions by contract and side: rows, lots and P/L of those with and without a loss."""
        offsets = {}
        for statement in self.statements:
            for contract, delivery, side, lots, gain in statement.closings(self.units):
                if "DELIVERY" in LEFT_EMPTY.get(self.name, {}).get("closed", ""):
                    delivery = ""
                outcome = "WIN" if gain >= 0 else "LOSE"
                if (contract, delivery) not in offsets and side == "卖" and gain == 0:
                    outcome = "FLAT"  # a contract's first closed position is kept as neither if it is short and flat
                tally = offsets.setdefault((contract, delivery), {})
                for field, more in (("COUNT", 1), ("VOL", lots), ("PL", gain)):
                    field = f"{'LONG' if side == '买' else 'SHORT'}_{outcome}_{field}"
                    tally[field] = tally.get(field, 0) + more
        return offsets

    def offset_total(self, field):
        return sum(tally.get(f"{side}_{outcome}_{field}", 0) for tally in self.offsets.values()
                   for side in ("LONG", "SHORT") for outcome in ("WIN", "LOSE", "FLAT"))


def amount(records, field):
    return sum((record[field] or 0 for record in records if field in record), Decimal(0))


def number_in(text):
    """What a printed amount is as a number of the JSON."""
    return Decimal(text.replace(",", "")) if re.fullmatch(r"\s*[-+]?[\d,]*\.?\d*\s*", text) and text.strip() else None


def check_record(differences, what, record, got):
    """Each text of a record, and each number beside it."""
    for field, text in got.items():
        if field not in ("values", "side", "tradeSide"):
            differences.compare(f"{what} {field}", record.get(field, ""), text)
    for field, value in got["values"].items():
        if field != "EXCHANGE_RATE":
            differences.compare(f"{what} value of {field}", number_in(got[field]), value)


def check_money(differences, what, records, store):
    """The record of every day field by field, and the sums of the range."""
    differences.compare(f"{what} count", len(records), store["Count"])
    differences.compare(f"{what} days", [record["BILL_DATE"] for record in records],
                        [record["BILL_DATE"] for record in store["Records"]])
    for record, got in zip(records, store["Records"]):
        check_record(differences, f"{what} {record['BILL_DATE']}", record, got)
        differences.compare(f"{what} {record['BILL_DATE']} EXCHANGE_RATE", Decimal(1), got["values"]["EXCHANGE_RATE"])
    for name, printed in (("OpeningEquity", records[0]["QCQY"]), ("ClosingEquity", records[-1]["KHQY"]),
                          ("TotalClosedPL", amount(records, "PCYK")), ("TotalPositionPL", amount(records, "CCDSYK")),
                          ("TotalCashFlow", amount(records, "CRJ")), ("TotalFees", amount(records, "SXF")),
                          ("TotalPremium", amount(records, "QLJSZ")), ("Available", records[-1]["KYZJ"]),
                          ("PositionMargin", records[-1]["BZJZY"])):
        differences.compare(f"{what} {name}", printed, store[name])


def check_stores(differences, book, found):
    """Counts of all stores, and every field of every record."""
    for store in STORES:
        differences.compare(f"{store} count", len(book.stores[store]), len(found[store]))
        for position, (row, got) in enumerate(zip(book.stores[store], found[store])):
            check_record(differences, f"{store}[{position}] {row['BILL_DATE']} {row['CONTRACT']}", row, got)
            if store == "closed":
                closed_by_buying = (row["BID"].strip()[0] == "买") == bool(book.currencies)
                sides = ("short", "buy") if closed_by_buying else ("long", "sell")
                differences.compare(f"closed[{position}] sides", sides, (got["side"], got["tradeSide"]))
    differences.compare("chains count", book.chains, len(found["chains"]))
    check_money(differences, "money", book.money, found["money"])
    differences.compare("currencies", list(book.currencies), [entry["name"] for entry in found["currencies"]])
    for entry in found["currencies"]:
        if entry["name"] in book.currencies:
            check_money(differences, entry["name"], book.currencies[entry["name"]], entry["store"])
    differences.compare("offsets", list(book.offsets),
                        [(entry["CONTRACT"], entry["DELIVERY"]) for entry in found["offsets"]])
    for tally, got in zip(book.offsets.values(), found["offsets"]):
        for field in [f"{side}_{outcome}_{figure}" for side in ("LONG", "SHORT") for outcome in ("WIN", "LOSE")
                      for figure in ("COUNT", "VOL", "PL")]:
            printed = Decimal(tally.get(field, 0)) if field.endswith("PL") else tally.get(field, 0)
            differences.compare(f"offsets {got['CONTRACT']}{got['DELIVERY']} {field}", printed, got[field])
    differences.compare("days count", len(book.money), len(found["days"]))
    for record, day in zip(book.money, found["days"]):
        for name, field in (("Day", "BILL_DATE"), ("ClosedPL", "PCYK"), ("PositionPL", "CCDSYK"),
                            ("CashFlow", "CRJ"), ("Closing", "KHQY")):
            differences.compare(f"days {record['BILL_DATE']} {name}", record.get(field, "") or Decimal(0), day[name])


def totals_of(page, table):
    """Of a table of the page: its headings, and of each of its totals rows the cells that hold figures."""
    start = page.find(f'id= "{table}"'.encode())
    if start < 0:
        return None, None
    lines = page[start:page.index(b"</table>", start)].split(b"</tr>")
    mark = re.compile("|".join(f">{label}</span>" for label in ("小计", "总计")).encode("gbk"))
    headings, *sums = [[cell.strip() for cell in re.findall(r"<span[^>]*>([^<]*)</span>", line.decode("gbk"))]
                       for position, line in enumerate(lines) if position == 0 or mark.search(line)]
    return headings, [{name: text for name, text in list(zip(headings, cells))[1:] if text} for cells in sums]


def check_table(differences, page, table, printed):
    """`printed` are the figures of each totals row by heading; integers stand for counts."""
    headings, sums = totals_of(page, table)
    if headings is None:
        differences.compare(f"page {table}", printed, None)
        return
    differences.compare(f"page {table}: totals rows", len(printed), len(sums))
    for position, (figures, cells) in enumerate(zip(printed, sums)):
        differences.compare(f"page {table} totals {position}: headings", sorted(figures), sorted(cells))
        for name in figures.keys() & cells.keys():
            figure = cells[name]
            if isinstance(figures[name], int):
                figure = int(figure) if re.fullmatch(r"-?\d+", figure) else figure
            elif not re.fullmatch(r"-?\d+\.\d\d", figure):
                differences.compare(f"page {table} totals {position}: {name}", "two decimals", figure)
                continue
            differences.compare(f"page {table} totals {position}: {name}", figures[name], figure)


def by_day(rows):
    days = {}
    for row in rows:
        days.setdefault(row["BILL_DATE"], []).append(row)
    return days.values()


def check_page(differences, book, page):
    foreign = bool(book.currencies)
    count, lots, gain = book.offset_total("COUNT"), book.offset_total("VOL"), Decimal(book.offset_total("PL"))
    check_table(differences, page, "tabTrade", [{
        "交易次数": count, "手数": lots, "利润": gain, "平均单次利润": gain / count if count else Decimal(0),
        "平均每手利润": gain / lots if lots else Decimal(0)}])

    headings = totals_of(page, "tabMatch")[0] or []
    columns = {"成交额": "TURNOVER", "平仓盈亏": "OFFSETPL", "手续费": "POUNDAGE"}
    check_table(differences, page, "tabMatch", [{
        "手数": sum(int(row["MATCH_VOL"]) for row in day),
        **{name: total(day, field) for name, field in columns.items() if name in headings}}
        for day in by_day(book.stores["matches"])])

    if "持仓盈亏" in (totals_of(page, "tabPositions")[0] or []):  # the summary adds up all days
        days, columns = [book.stores["positionSums"]], {"持仓盈亏": "DSYK", "占用保证金": "DEPOSIT"}
    else:
        days = by_day(book.stores["positions"])
        columns = {"浮动盈亏": "FLOATPL"} if foreign else {"浮动盈亏": "DSYK", "占用保证金": "DEPOSIT"}
    check_table(differences, page, "tabPositions",
                [{name: total(day, field) for name, field in columns.items()} for day in days])

    if foreign:
        differences.compare("page tabOffset", None, totals_of(page, "tabOffset")[0])
    else:
        check_table(differences, page, "tabOffset", [{
            "逐笔平仓盈亏": gain, "手续费": total(book.stores["closed"], "POUNDAGE")}])


def make_report(program, sample):
    output = sample / "report.json"
    command = [program, "report", "--quiet", "--root", sample / "root", "--request", sample / "request.ini",
               "--json", output]
    for option in ("units", "products", "live"):
        if (sample / f"{option}.ini").exists():
            command += [f"--{option}", sample / f"{option}.ini"]
    subprocess.run(command, check=True, timeout=60)
    page = sample / "root/Users/demo/Data/Bill/Image/TradeBill.html"
    return json.loads(output.read_text(encoding="utf-8"), parse_float=Decimal), page.read_bytes()


def check_sample(program, sample):
    """One sample; returns the differences. Prints what was compared."""
    differences = Differences()
    with tempfile.TemporaryDirectory() as folder:
        copy = shutil.copytree(sample, pathlib.Path(folder) / sample.name)
        try:
            book = Book(copy)
            found, page = make_report(program, copy)
            check_stores(differences, book, found)
            check_page(differences, book, page)
        except (PrintError, OSError, subprocess.SubprocessError, ValueError, KeyError) as error:
            differences.found.append(f"{type(error).__name__}: {error}")
            return differences.found
    counts = ", ".join(f"{len(book.stores[store])} {store}" for store in STORES)
    print(f"{sample.name}: {len(book.money)} days, {len(book.currencies)} currencies, {counts}, "
          f"{len(book.offsets)} offsets, totals of {3 if book.currencies else 4} page tables: "
          + ("DIFFERENT" if differences.found else "agree"))
    return differences.found


def main():
    if len(sys.argv) != 3:
        raise SystemExit(__doc__)
    program, samples = sys.argv[1], pathlib.Path(sys.argv[2])
    folders = sorted(folder for folder in samples.iterdir() if (folder / "request.ini").exists())
    if len(folders) != 14:
        raise SystemExit(f"{len(folders)} samples instead of 14 in {samples}")
    failed = False
    for sample in folders:
        found = check_sample(program, sample)
        for line in found[:20]:
            print(f"{sample.name}: {line}", file=sys.stderr)
        if len(found) > 20:
            print(f"{sample.name}: {len(found) - 20} more differences", file=sys.stderr)
        failed = failed or bool(found)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
