"""Reads the statements of samples/ as a person would: by printed titles, column headings, labels and totals rows.

It knows no layout numbers, row offsets or column indices. What it can't place, and figures that contradict each other,
it refuses with a PrintError.
"""

import collections
import decimal
import re

Decimal = decimal.Decimal

NUMBER = re.compile(r"-?[\d,]+(\.\d+)?$")
RULE = re.compile(r"\s*[-=]{10,}$")
TITLE = re.compile(r"(?:客户帐单_|【)?(资金|借贷成本|成交|平仓|持仓|总览)[^\d|]*$")
TOTALS = re.compile(r"\|?\s*(合计|小计|总计|共\s*(\d+)\s*[条笔])")
LABELLED = re.compile(r"([^:：|]+)[:：|]+\s*(-?[\d,]+\.\d+)(?!\d*%)")
OPTION = re.compile(r"\d-?[CP]-?\d|[CP]\d+$")

# The headings under which a person looks for a field, by the store that the program keeps it in.
CONTRACT = {"EXCH_NAME": "交易所", "CONTRACT": "合约 品种", "DELIVERY": "交割期", "HEDGE": "投保", "BID": "买卖"}
COLUMNS = {
    "matches": {**CONTRACT, "MATCH_DATE": "成交日期", "MATCH_PRICE": "成交价", "MATCH_VOL": "手数",
                "TURNOVER": "成交额", "OFFSET": "开平", "POUNDAGE": "手续费", "OFFSETPL": "平仓盈亏",
                "MATCHNO": "成交编号 成交号 成交序号", "ROYALTY": "权利金收支 期权收支"},
    "closed": {**CONTRACT, "MATCH_DATE": "平仓日期", "MATCH_PRICE": "平仓价 成交价", "MATCH_VOL": "手数",
               "OPEN_DATE": "开仓日期", "OPEN_PRICE": "开仓价", "SETTLE_PRICE": "昨结算价 昨结算",
               "POUNDAGE": "手续费", "OFFSETPL": "平仓盈亏 盯市盈亏"},
    "positions": {**CONTRACT, "OPEN_DATE": "开仓日期", "POSITION_VOL": "持仓量 手数", "OPEN_PRICE": "开仓价",
                  "YSETTLE_PRICE": "昨结算", "SETTLE_PRICE": "结算价 今结算", "FLOATPL": "浮动盈亏",
                  "DSYK": "盯市盈亏", "DEPOSIT": "保证金"},
    "positionSums": {**CONTRACT, "POSITION_VOL": "手数", "POSITION_PRICE": "均价", "YSETTLE_PRICE": "昨结算 昨结算价",
                     "SETTLE_PRICE": "今结算 今结算价", "DSYK": "盯市盈亏 持仓盯市盈亏 持仓盈亏",
                     "DEPOSIT": "保证金 保证金占用"},
}
MONEY = {"QCQY": "上日结存 期初结存", "CRJ": "出入金 当日出入金", "QMJC": "当日结存 期末结存",
         "KYZJ": "可用资金 可用", "PCYK": "平仓盈亏 盯市平仓盈亏", "CCDSYK": "持仓盯市盈亏 盯市盈亏 持仓盈亏",
         "KHQY": "客户权益 权益", "SXF": "手续费", "BZJZY": "保证金占用 占用保证金 总保证金占用 保证金",
         "XQSXF": "行权手续费 行权费用 行权费", "QLJSZ": "权利金收支 期权收支"}
FOREIGN_COLUMNS = {
    "matches": {"MATCH_DATE": "成交日期", "EXCH_NAME": "交易所", "CONTRACT": "合约", "MATCH_PRICE": "成交价",
                "POUNDAGE": "手续费", "CURRENCY": "币种"},
    "positions": {"OPEN_DATE": "开仓日期", "EXCH_NAME": "交易所", "CONTRACT": "合约", "OPEN_PRICE": "开仓价",
                  "SETTLE_PRICE": "结算价", "FLOATPL": "浮动盈亏", "CURRENCY": "币种"},
}
FOREIGN_MONEY = {"QCQY": "期初资金", "CRJ": "出入金", "QMJC": "当前权益", "KYZJ": "可用资金", "PCYK": "平仓盈亏",
                 "KHQY": "当前权益", "SXF": "手续费", "BZJZY": "维持保证金", "HOST_CURRENT": "浮动盈亏"}


class PrintError(Exception):
    """A statement that can't be read, or whose figures contradict each other."""


def number(text):
    return Decimal(text.replace(",", "") or 0)


def total(rows, field):
    return sum((number(row[field]) for row in rows), Decimal(0))


def agree(what, printed, worked_out):
    if printed != worked_out:
        raise PrintError(f"{what}: {printed} printed, but {worked_out} worked out")


def first_of(printed, names):
    return next((printed[name] for name in names.split() if name in printed), "")


def words(line):
    """The words of a line with their first and past-the-last print position; a Chinese character takes two."""
    wide = re.sub(r"([^\x00-\x7f])", "\\1\0", line)
    return [(found.group().replace("\0", ""), found.start(), found.end()) for found in re.finditer(r"\S+", wide)]


def chinese(label):
    return re.sub(r"[^\u4e00-\u9fff]", "", label)


def framed_cells(line):
    return [cell.strip() for cell in line.strip().strip("|").split("|")]


class Headings:
    """One row of column headings; tells for a row below which text stands under which heading."""

    def __init__(self, line):
        self.framed = line.lstrip().startswith("|")
        self.words = [(name.replace("/", ""), start, end) for name, start, end in words(line)]
        self.names = framed_cells(line.replace("/", "")) if self.framed else [name for name, _, _ in self.words]

    def cells(self, line):
        if self.framed:
            return {name: text for name, text in zip(self.names, framed_cells(line)) if text}
        found = {}
        for text, first, last in words(line):
            name = self.above(text, first, last)
            if name in found:
                raise PrintError(f"two words under {name}: {line.strip()}")
            found[name] = text
        return found

    def above(self, text, first, last):
        """Numbers end where their heading ends, texts start where it starts, sides stand below its middle."""
        nearest, nearest_overlap = None, 0
        for name, start, end in self.words:
            if last == end or first == start:
                return name
            overlap = min(last, end) - max(first, start)
            if overlap > nearest_overlap:
                nearest, nearest_overlap = name, overlap
        if nearest is None:
            raise PrintError(f"{text} stands under no heading")
        return nearest


class Table:
    """One printed table: its rows as {heading: text}, its totals row, and how many rows it says it has."""

    def __init__(self):
        self.headings = None
        self.rows = []
        self.totals = {}
        self.count = None
        self.closed = False

    def read(self, line):
        found = TOTALS.match(line)
        if self.headings is None:
            if line.strip() and not re.search(r"[:：]", line):
                self.headings = Headings(line)
        elif self.closed or not re.search(r"\d", line):
            return
        elif found:
            self.closed = True
            self.count = int(found.group(2)) if found.group(2) else None
            blank = " " * (len(found.group()) + len(re.findall(r"[^\x00-\x7f]", found.group())))
            cells = self.headings.cells(line if self.headings.framed else blank + line[found.end():])
            self.totals = {name: number(text) for name, text in cells.items() if NUMBER.match(text)}
        else:
            self.rows.append(self.headings.cells(line))

    def check(self, name):
        """Every total that is printed is the sum of its column, every count that of the rows."""
        if not self.closed or not self.totals:
            raise PrintError(f"{name}: a table without totals row")
        if self.count is not None:
            agree(f"{name}: rows", self.count, len(self.rows))
        for heading, printed in self.totals.items():
            agree(f"{name}: total of {heading}", printed, total(self.rows, heading))


def read_text(path, day):
    text = path.read_bytes().decode("gbk")
    if day not in re.findall(r"(?:日\s*期|制表时间|结算日)[^\d\r\n]*(\d{8})", text):
        raise PrintError(f"doesn't say that it is the statement of {day}")
    return text.split("\r\n")


def title_of(line):
    text = re.sub(r"\s", "", line)
    found = TITLE.match(text)
    if not found or "日期" in text or "币种Currency" in text:
        return None
    return None if re.search("[:：]", text) and not text.startswith("资金状况") else found.group(1)


class Statement:
    """A domestic statement: money figures by label, and its tables."""

    def __init__(self, path, day):
        self.day = day
        self.money = {}
        self.tables = {}
        self.money_headings = None
        titled, section = [], None
        for line in read_text(path, day):
            title = title_of(line)
            if title:
                section = None if title == "资金" else Table()
                titled.append((title, section))
            elif not titled or RULE.match(line):
                continue
            elif section is None:
                self.read_money(line)
            else:
                section.read(line)
        self.name_tables([pair for pair in titled if pair[1] is not None])

    def read_money(self, line):
        pairs = [(chinese(label), value) for label, value in LABELLED.findall(line) if chinese(label)]
        if pairs:
            self.money.update((label, number(value)) for label, value in pairs)
        elif re.search(r"[:：]", line) or len(line.split()) < 3:
            return
        elif not re.search(r"\d", line):
            self.money_headings = Headings(line)
        elif self.money_headings:
            cells = self.money_headings.cells(line)
            self.money.update((name, number(text)) for name, text in cells.items() if NUMBER.match(text))
            self.money_headings = None

    def name_tables(self, titled):
        """Of the tables of positions, the one with opening prices is in detail, the other one is the summary."""
        for title, table in titled:
            name = {"成交": "matches", "平仓": "closed"}.get(title)
            name = name or ("positions" if "开仓价" in table.headings.names else "positionSums")
            if name in self.tables:
                raise PrintError(f"two tables of {name}")
            self.tables[name] = table
            table.check(name)

    def money_record(self):
        """The account figures of the day. What isn't printed as such follows from the tables."""
        record = {field: first_of(self.money, names) for field, names in MONEY.items()}
        if record["CRJ"] == "":
            record["CRJ"] = self.money["入金"] - self.money["出金"]
        if record["QLJSZ"] == "" and "权利金收入" in self.money:
            record["QLJSZ"] = self.money["权利金收入"] - self.money["权利金支出"]
        if record["PCYK"] == "":
            record["PCYK"] = total(self.records("closed"), "OFFSETPL")
            record["CCDSYK"] = self.money["当日盈亏"] - record["PCYK"]
        if record["KHQY"] == "":
            record["KHQY"] = record["QMJC"]
        self.check_money(record)
        return record

    def check_money(self, record):
        """The account figures agree with each other and with the tables."""
        trades = self.records("matches")
        agree("fees", record["SXF"], total(trades, "POUNDAGE"))
        agree("realised P/L", record["PCYK"], total(self.records("closed"), "OFFSETPL"))
        for name in [name for name in ("positions", "positionSums") if name in self.tables]:
            for field, money in (("DSYK", "CCDSYK"), ("DEPOSIT", "BZJZY")):
                agree(f"{money} of {name}", record[money], self.tables[name].totals[first_of(
                    {heading: heading for heading in self.tables[name].headings.names}, COLUMNS[name][field])])
        if record["QLJSZ"] != "" or not any(OPTION.search(trade["CONTRACT"]) for trade in trades):
            agree("closing balance", record["QMJC"], record["QCQY"] + record["CRJ"] + record["PCYK"]
                  + record["CCDSYK"] - record["SXF"] - (record["XQSXF"] or 0) + (record["QLJSZ"] or 0))

    def currency_records(self):
        return {}

    def records(self, store):
        """The rows of a table as the records that a person would make of them, amounts as they are printed."""
        if store not in self.tables:
            return []
        found = []
        for row in self.tables[store].rows:
            record = {field: first_of(row, names) for field, names in COLUMNS[store].items()}
            if store == "closed":  # the side of the position, not of the closing trade
                record["BID"] = {"买": "卖", "卖": "买"}[record["BID"]]
            if "买持" not in row:
                found.append(record)
                continue
            for side in [side for side in "买卖" if row[side + "持"] != "0"]:
                found.append({**record, "BID": side, "POSITION_VOL": row[side + "持"],
                              "POSITION_PRICE": row[side + "均价"]})
        return found

    def closings(self, units):
        """Closed positions with the P/L from opening to closing price: (contract, delivery, side, lots, P/L)."""
        for row in self.records("closed"):
            unit = int(units[re.match(r"\D+?(?=-?\d|$)", row["CONTRACT"]).group()])
            gain = (number(row["MATCH_PRICE"]) - number(row["OPEN_PRICE"])) * int(row["MATCH_VOL"]) * unit
            yield (row["CONTRACT"], row["DELIVERY"], row["BID"], int(row["MATCH_VOL"]),
                   gain if row["BID"] == "买" else -gain)


class ForeignStatement:
    """A foreign statement: money figures by currency and label; each exchange has its part of a table."""

    def __init__(self, path, day):
        self.day = day
        self.money = collections.defaultdict(dict)
        self.tables = {"成交": [], "平仓": [], "持仓": []}
        title, headings, exchange = None, None, None
        for line in read_text(path, day):
            new_title = title_of(line)
            if new_title:
                title, headings, exchange = new_title, None, None
            elif title is None or not line.strip() or RULE.match(line):
                continue
            elif headings is None:
                headings = Headings(line)
            elif title not in self.tables:
                for text, first, last in words(line):
                    if NUMBER.match(text):
                        self.money[headings.above(text, first, last)][chinese(line)] = number(text)
            elif re.match(r"\d{8} ", line):
                self.tables[title].append({**headings.cells(line), "交易所": exchange})
            elif TOTALS.match(line):
                self.check_total(title, line)
            elif re.match(r"[A-Z]+$", line):
                exchange = line

    def check_total(self, title, line):
        part = re.match(r"小计 Subtotal ([A-Z]+): (\d+) 手", line)
        if part:
            held = sum(self.side_and_lots(row)[1] for row in self.tables[title] if row["交易所"] == part.group(1))
            agree(f"{title}: lots of {part.group(1)}", int(part.group(2)), held)
        else:
            agree(f"{title}: rows", 2 * int(TOTALS.match(line).group(2)), len(self.tables[title]))

    @staticmethod
    def side_and_lots(row):
        """Lots stand in the column of their side."""
        if ("买入" in row) == ("卖出" in row):
            raise PrintError(f"bought or sold? {row}")
        return ("买", int(row["买入"])) if "买入" in row else ("卖", int(row["卖出"]))

    def currency_records(self):
        for name, money in self.money.items():
            if name.endswith("*"):  # made of amounts that were rounded one by one
                continue
            agree(f"{name}: equity", money["当前权益"], money["期初资金"] + money["出入金"] - money["手续费"]
                  + money["平仓盈亏"] + money["浮动盈亏"])
            for label, title in (("手续费", "成交"), ("平仓盈亏", "平仓"), ("浮动盈亏", "持仓")):
                rows = [row for row in self.tables[title] if row["币种"] == name]
                agree(f"{name}: {label}", money[label], total(rows, label))
        return {name: {field: money[label] for field, label in FOREIGN_MONEY.items()}
                for name, money in self.money.items()}

    def money_record(self):
        """The account as a whole: the block whose currency bears a star."""
        return next(record for name, record in self.currency_records().items() if name.endswith("*"))

    def records(self, store):
        if store == "closed":
            return self.closed_records()
        found = []
        for row in self.tables[{"matches": "成交", "positions": "持仓"}[store]] if store in FOREIGN_COLUMNS else []:
            side, held = self.side_and_lots(row)
            found.append({**{field: row[name] for field, name in FOREIGN_COLUMNS[store].items()},
                          "BID": side, "MATCH_VOL" if store == "matches" else "POSITION_VOL": str(held)})
        return found

    def closed_pairs(self):
        """A closed position is two rows, opened and closed; the second one shows the P/L."""
        for opened, closed in zip(self.tables["平仓"][::2], self.tables["平仓"][1::2]):
            agree("closed pair", (opened["方式"], opened["合约"], self.side_and_lots(opened)[1], closed["方式"]),
                  ("开仓", closed["合约"], self.side_and_lots(closed)[1], "平仓"))
            yield opened, closed

    def closed_records(self):
        """The side is the closing trade's."""
        found = []
        for opened, closed in self.closed_pairs():
            side, held = self.side_and_lots(closed)
            found.append({"MATCH_DATE": closed["成交日期"], "OPEN_DATE": opened["成交日期"], "CONTRACT": closed["合约"],
                          "BID": side, "MATCH_VOL": str(held), "MATCH_PRICE": closed["价格"],
                          "OFFSETPL": closed["平仓盈亏"], "CURRENCY": closed["币种"]})
        return found

    def closings(self, _units):
        for _, closed in self.closed_pairs():
            yield closed["合约"], "", "买", self.side_and_lots(closed)[1], number(closed["平仓盈亏"])
