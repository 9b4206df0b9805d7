"""Reads the statements of samples/ as a person would: by printed titles, column headings, labels and totals rows.

Knows nothing of layout numbers, row offsets or column indices. What it can't place, it refuses with a PrintError.
"""

import collections
import decimal
import re

Decimal = decimal.Decimal

NUMBER = re.compile(r"-?[\d,]+(\.\d+)?$")
TITLE = re.compile(r"(?:客户帐单_|【)?(资金|借贷成本|成交|平仓|持仓|总览)[^\d|]*$")
TOTALS = re.compile(r"\|?\s*(合计|小计|总计|共\s*(\d+)\s*[条笔])")
LABELLED = re.compile(r"([^:：|]+)[:：|]+\s*(-?[\d,]+\.\d+)(?!\d*%)")


class PrintError(Exception):
    """A statement that can't be read, or whose figures contradict each other."""


def number(text):
    return Decimal(text.replace(",", ""))


def words(line):
    """The words of a line with their first and past-the-last print position; a Chinese character takes two."""
    wide = re.sub(r"([^\x00-\x7f])", "\\1\0", line)
    return [(found.group().replace("\0", ""), found.start(), found.end()) for found in re.finditer(r"\S+", wide)]


def chinese(label):
    return re.sub(r"[^\u4e00-\u9fff]", "", label)


class Headings:
    """One row of column headings; tells for a row below which word stands under which heading."""

    def __init__(self, line):
        self.framed = line.lstrip().startswith("|")
        self.words = [(name.replace("/", ""), first, last) for name, first, last in words(line)]
        self.names = [cell.strip().replace("/", "") for cell in line.strip().strip("|").split("|")] if self.framed \
            else [name for name, _, _ in self.words]

    def cells(self, line):
        if self.framed:
            found = zip(self.names, [cell.strip() for cell in line.strip().strip("|").split("|")])
            return {name: text for name, text in found if text}
        found = {}
        for text, first, last in words(line):
            name = self.above(text, first, last)
            if name in found:
                raise PrintError(f"two words under {name}: {line.strip()}")
            found[name] = text
        return found

    def above(self, text, first, last):
        """Numbers end where their heading ends and texts start with it; short texts stand in the middle."""
        best = max(self.words, key=lambda word: (last == word[2], first == word[1],
                                                 min(last, word[2]) - max(first, word[1])))
        if last != best[2] and first != best[1] and min(last, best[2]) <= max(first, best[1]):
            raise PrintError(f"{text} stands under no heading")
        return best[0]


class Section:
    """One printed table: its rows as {heading: text}, its totals row, and how many rows it says it has."""

    def __init__(self):
        self.headings = None
        self.rows = []
        self.totals = {}
        self.count = None
        self.closed = False

    def read(self, line):
        total = TOTALS.match(line)
        if self.headings is None:
            if line.strip() and not re.search(r"[:：]", line):
                self.headings = Headings(line)
        elif self.closed or not re.search(r"\d", line):
            return
        elif total:
            self.closed = True
            self.count = int(total.group(2)) if total.group(2) else None
            blank = "".join("  " if ord(letter) > 127 else " " for letter in total.group(0))
            self.totals = self.headings.cells(line if self.headings.framed else blank + line[total.end():])
            self.totals = {name: text for name, text in self.totals.items() if NUMBER.match(text)}
        else:
            self.rows.append(self.headings.cells(line))

    def check(self):
        """Every total that is printed is the sum of its column, every count that of the rows."""
        if self.headings is None or not self.closed:
            raise PrintError("a table without headings or totals row")
        if self.count is not None and self.count != len(self.rows):
            raise PrintError(f"{self.count} rows announced, {len(self.rows)} printed")
        for name, text in self.totals.items():
            added = sum((number(row[name]) for row in self.rows), Decimal(0))
            if added != number(text):
                raise PrintError(f"total of {name}: {text} printed, the rows make {added}")


class Statement:
    """A domestic statement: money figures by label, and its tables."""

    def __init__(self, path, day):
        self.day = day
        self.money = {}
        self.tables = {}
        section, self.moneyHeadings = None, None
        text = path.read_bytes().decode("gbk")
        if f"{day}" not in re.findall(r"(?:日\s*期|制表时间|结算日)[^\d\r\n]*(\d{8})", text):
            raise PrintError(f"doesn't say that it is the statement of {day}")
        for line in text.split("\r\n"):
            title = self.title(line)
            if title:
                section = "money" if title == "资金" else Section()
                if section != "money":
                    self.tables.setdefault(title, []).append(section)
            elif section is None or re.match(r"\s*[-=]{10,}$", line):
                continue
            elif section == "money":
                self.read_money(line)
            else:
                section.read(line)
        self.name_tables()

    @staticmethod
    def title(line):
        text = re.sub(r"\s", "", line)
        found = TITLE.match(text)
        if not found or "日期" in text or (re.search("[:：]", text) and not text.startswith("资金状况")):
            return None
        return found.group(1)

    def read_money(self, line):
        pairs = [(chinese(label), value) for label, value in LABELLED.findall(line)]
        if any(label for label, _ in pairs):
            self.money.update((label, number(value)) for label, value in pairs if label)
        elif re.search(r"[:：]", line) or len(line.split()) < 3:
            return
        elif not re.search(r"\d", line):
            self.moneyHeadings = Headings(line)
        elif self.moneyHeadings:
            found = self.moneyHeadings.cells(line)
            self.money.update((name, number(text)) for name, text in found.items() if NUMBER.match(text))
            self.moneyHeadings = None

    def name_tables(self):
        """Positions one by one have opening dates, positions in sum have average prices."""
        tables = {"matches": self.tables.get("成交", []), "closed": self.tables.get("平仓", []),
                  "positions": [], "positionSums": []}
        for table in self.tables.get("持仓", []) + self.tables.get("总览", []):
            table_name = "positions" if "开仓价" in table.headings.names else "positionSums"
            tables[table_name].append(table)
        if any(len(found) > 1 for found in tables.values()):
            raise PrintError("a table is printed twice")
        self.tables = {name: found[0] for name, found in tables.items() if found}
        for name, table in self.tables.items():
            try:
                table.check()
            except PrintError as error:
                raise PrintError(f"{name}: {error}") from None

    def rows(self, name):
        return self.tables[name].rows if name in self.tables else []


class ForeignStatement:
    """A foreign statement: money figures by currency and label; tables in which each exchange has its heading."""

    def __init__(self, path, day):
        self.day = day
        self.currencies = collections.defaultdict(dict)
        self.tables = {"成交": [], "平仓": [], "持仓": []}
        title, headings, exchange = None, None, None
        text = path.read_bytes().decode("gbk")
        if not re.search(rf"日期 Date：{day}\b", text):
            raise PrintError(f"doesn't say that it is the statement of {day}")
        for line in text.split("\r\n"):
            new_title = Statement.title(line)
            if new_title and "币种" not in line:
                title, headings, exchange = new_title, None, None
            elif title is None or not line.strip() or line.startswith("----"):
                continue
            elif headings is None:
                headings = Headings(line)
            elif title in ("资金", "借贷成本"):
                self.read_money(headings, line)
            elif re.match(r"\d{8} ", line):
                self.tables[title].append({**headings.cells(line), "交易所": exchange})
            elif TOTALS.match(line):
                self.check_total(title, line)
            elif re.match(r"[A-Z]+$", line):
                exchange = line
        self.pairs = list(zip(self.tables["平仓"][::2], self.tables["平仓"][1::2]))

    def read_money(self, headings, line):
        label = chinese(line)
        for text, first, last in words(line):
            if NUMBER.match(text):
                self.currencies[headings.above(text, first, last)][label] = number(text)

    def check_total(self, title, line):
        count = re.match(r"共 (\d+) 笔", line)
        if count and 2 * int(count.group(1)) != len(self.tables[title]):
            raise PrintError(f"{line.strip()}, but {len(self.tables[title])} rows")
        part = re.match(r"小计 Subtotal ([A-Z]+): (\d+) 手", line)
        if part:
            held = sum(lots(row)[1] for row in self.tables[title] if row["交易所"] == part.group(1))
            if held != int(part.group(2)):
                raise PrintError(f"{line.strip()}, but the rows make {held}")


def lots(row):
    """Side and lots of a foreign row: they stand in the column of their side."""
    if ("买入" in row) == ("卖出" in row):
        raise PrintError(f"neither bought nor sold: {row}")
    return ("买", int(row["买入"])) if "买入" in row else ("卖", int(row["卖出"]))
