"""Statements of accounts made by chance, by what makes trouble for figures more often than accounts do: days without an
amount, with nothing left, without trades, deposits at any time, options, rows without a day of opening.
"""

import datetime
import random

UNITS = {"rb": 10, "m": 10, "cu": 5, "SR": 10, "IF": 300}
PRODUCTS = [*UNITS, "PP"]  # the unit of the last is for the program to know
MONTHS = ("2405", "2409", "2501")
STRIKES = ("", "", "", "-C-3200", "P6400")
CURRENCIES = ("USD", "EUR", "HKD")
EXCHANGES = ("上期所", "大商所", "HKEX")
NOTHING = "--"  # no number
RULE = "-" * 120


def width(text):
    return len(text.encode("gbk"))


def left(text, size):
    return str(text) + " " * (size - width(str(text)))


def right(text, size):
    return " " * (size - width(str(text))) + str(text)


def cents(amount):
    return f"{'-' if amount < 0 else ''}{abs(amount) // 100}.{abs(amount) % 100:02}"


class Fundament:
    """What an account is made of, whichever layout prints it. The same seed makes the same account."""

    kind, format, number, start = "domestic", 0, "90010002", "D"

    def __init__(self, seed):
        self.random = random.Random(seed)
        self.isTrouble = self.happens(40)
        self.tradingDays = 200 + self.draw(100)
        self.startsWithNothing = self.happens(40)
        self.equity = 100_000_00 + self.draw(100_000_00)
        self.day = datetime.date(2023, 11, 1) + datetime.timedelta(self.draw(60))
        self.days = []
        self.printed = {"trades": 0, "closed": 0, "positions": 0, "cash": 0}

    def draw(self, below):
        return self.random.randrange(below)

    def happens(self, in_hundred):
        return self.draw(100) < in_hundred

    def one_of(self, choices):
        return choices[self.draw(len(choices))]

    def amount(self, least, most):
        return cents(least + self.draw(most - least))

    def or_nothing(self, in_hundred, text):
        return NOTHING if self.isTrouble and self.happens(in_hundred) else text

    def contract(self):
        return self.one_of(PRODUCTS) + self.one_of(MONTHS) + self.one_of(STRIKES)

    def day_before(self, most):
        return f"{self.day - datetime.timedelta(self.draw(most)):%Y%m%d}"

    def money(self):
        """Amounts of a day that follows the one before, by the fields of a record."""
        opening, flow = self.equity, 0
        if self.happens(5):
            flow = self.draw(40_000_00) - 20_000_00
        scale = max(opening // 50, 100_00)
        self.equity += flow + (0 if self.happens(5) else (self.draw(2001) - 1000) * scale // 1000)
        if self.isTrouble and self.happens(1):
            self.equity = self.draw(3) * -500_00
        return {"QCQY": cents(opening), "CRJ": cents(flow), "KHQY": self.or_nothing(1, cents(self.equity)),
                "QMJC": cents(self.equity), "SXF": self.amount(-20_00, 300_00), "XQSXF": self.amount(0, 50_00),
                "BZJZY": self.or_nothing(5, self.amount(0, 150_000_00)), "PCYK": self.amount(-99_00, 99_00)}

    def trade(self):
        return {"date": f"{self.day:%Y%m%d}", "exchange": self.one_of(EXCHANGES), "contract": self.contract(),
                "isBuy": self.happens(50), "price": self.amount(50_00, 90_000_00),
                "lots": 0 if self.happens(3) else 1 + self.draw(9), "fee": self.amount(0, 90_00),
                "turnover": self.or_nothing(2, self.amount(1_00, 900_000_00)), "currency": self.one_of(CURRENCIES)}

    def closing(self):
        price = self.amount(50_00, 90_000_00)
        return {"date": f"{self.day:%Y%m%d}", "exchange": self.one_of(EXCHANGES), "contract": self.contract(),
                "isBuy": self.happens(50), "lots": 1 + self.draw(9), "openPrice": price,
                "price": price if self.happens(5) else self.amount(50_00, 90_000_00),
                "profit": self.or_nothing(2, "0.00" if self.happens(5) else self.amount(-9_000_00, 9_000_00)),
                "openDay": self.or_nothing(5, self.day_before(1 if self.happens(40) else 40)),
                "currency": self.one_of(CURRENCIES)}

    def position(self):
        return {"exchange": self.one_of(EXCHANGES), "contract": self.contract(), "isBuy": self.happens(50),
                "lots": 1 + self.draw(9), "price": self.amount(50_00, 90_000_00),
                "openDay": self.or_nothing(10, self.day_before(20)),
                "floating": self.or_nothing(10, self.amount(-9_000_00, 9_000_00)),
                "margin": self.amount(0, 40_000_00), "currency": self.one_of(CURRENCIES)}

    def rows(self, table, most):
        make = {"trades": self.trade, "closed": self.closing, "positions": self.position}[table]
        if self.startsWithNothing and not self.days:
            return []
        rows = [make() for _ in range(self.draw(most))]
        self.printed[table] += len(rows)
        return rows

    def statement(self):
        raise NotImplementedError

    def write(self, folder):
        """Root folder, request and units below `folder`."""
        bills = folder / "root" / "Users" / "demo" / "Data" / "Bill"
        bills.mkdir(parents=True)
        for _ in range(1 + self.draw(3) if self.happens(10) else 1 + self.draw(300)):
            name = f"{self.start}{self.number}.{self.day:%Y%m%d}o.txt"
            text = "\r\n".join(self.statement()) + "\r\n"
            (bills / name).write_bytes(text.encode("gbk"))
            self.days.append(self.day)
            self.day += datetime.timedelta(1 if self.happens(80) else 3)
        (folder / "request.ini").write_text(
            f"[REQUEST]\nuser=demo\naccount={self.number}\nfrom={self.days[0]}\nto={self.days[-1]}\n"
            f"format={self.format}\nkind={self.kind}\n", encoding="utf-8")
        units = "".join(f"{product}={unit}\n" for product, unit in UNITS.items())
        (folder / "units.ini").write_text("[UNITS]\n" + units, encoding="utf-8")
        self.printed["days"] = len(self.days)


def table(title, heading, rows, total):
    return ["", f"          {title}", RULE, *heading, *rows, RULE, total, RULE]


class Bilingual(Fundament):
    """Cells between bars, contracts in one cell, sides of closing trades."""

    format = 3

    def statement(self):
        money = self.money()
        return ["某某期货有限公司", "交易结算单(盯市) Settlement Statement(MTM)", "",
                f"客户号 Client ID：  {self.number}          客户名称 Client Name：  某某",
                f"日期 Date：{self.day:%Y%m%d}", "", "          资金状况  币种：人民币  Account Summary  Currency：CNY", RULE,
                self.pair("期初结存 Balance b/f：", money["QCQY"], "基础保证金 Initial Margin：", "0.00"),
                self.pair("出 入 金 Deposit/Withdrawal：", money["CRJ"], "期末结存 Balance c/f：", money["QMJC"]),
                self.pair("平仓盈亏 Realized P/L：", money["PCYK"], "质 押 金 Pledge Amount：", "0.00"),
                self.pair("持仓盯市盈亏 MTM P/L：", "0.00", "客户权益 Client Equity：：", money["KHQY"]),
                self.pair("手 续 费 Commission：", money["SXF"], "保证金占用 Margin Occupied：", money["BZJZY"]),
                self.pair("行权手续费 Exercise Fee：", money["XQSXF"], "可用资金 Fund Avail.：", "0.00"),
                self.pair("权利金收入 Premium received：", "0.00", "追加保证金 Margin Call：", "0.00"),
                left("权利金支出 Premium paid：", 32) + right("0.00", 16), RULE,
                *self.bars("成交记录 Transaction Record", 14, [
                    (row["date"], row["exchange"], "某", row["contract"], "买" if row["isBuy"] else "卖", "投",
                     row["price"], row["lots"], row["turnover"], "开", row["fee"], "0.00", "0.00", "00069065")
                    for row in self.rows("trades", 6)]),
                *self.bars("平仓明细 Position Closed", 11, [
                    (row["date"], row["exchange"], "某", row["contract"], row["openDay"],
                     self.or_nothing(2, "买" if row["isBuy"] else "卖"), row["lots"], row["openPrice"], "0.00",
                     row["price"], row["profit"]) for row in self.rows("closed", 5)]),
                *self.bars("持仓明细 Positions Detail", 13, [
                    (row["exchange"], "某", row["contract"], row["openDay"], "投", "买" if row["isBuy"] else "卖",
                     row["lots"], row["price"], "0.00", "0.00", row["floating"], "0.00", row["margin"])
                    for row in self.rows("positions", 5)]),
                *self.cash()]

    def cash(self):
        """Deposits and withdrawals of all kinds, on some days; their columns in any order."""
        if not self.happens(30):
            return []
        rows = [{"发生日期": f"{self.day:%Y%m%d}", "出入金类型": self.one_of(("银期转账", "手续费返还", "利息")),
                 "入金": self.or_nothing(5, self.amount(0, 9_000_00)), "出金": self.amount(0, 9_000_00),
                 "说明": self.one_of(("", "某"))} for _ in range(1 + self.draw(4))]
        self.printed["cash"] += len(rows)
        columns = self.random.sample(list(rows[0]), len(rows[0]))
        total = ["共", str(len(rows)), "条"] + ["|"] * len(columns)
        return table("出入金明细 Deposit/Withdrawal", ["|" + "|".join(columns) + "|", RULE],
                     ["|" + "|".join(row[column] for column in columns) + "|" for row in rows], "|" + "".join(total))

    @staticmethod
    def pair(label, value, other, second):
        return left(label, 32) + right(value, 16) + "        " + left(other, 30) + right(second, 16)

    @staticmethod
    def bars(title, columns, rows):
        def bar(cells):
            return "|" + "|".join(map(str, cells)) + "|"
        return table(title, [bar(["某列"] * columns), bar(["Col"] * columns), RULE], map(bar, rows),
                     bar([f"共{len(rows)}条"] + [" "] * (columns - 1)))


class FundStatus(Fundament):
    """Cells between blanks, product and delivery month apart, both sides of a contract in a row of the summary."""

    format = 1

    def contract(self):
        return self.one_of(PRODUCTS) + " " + self.one_of(MONTHS)

    def statement(self):
        money = self.money()
        positions = self.rows("positions", 5)
        isDetailed = self.happens(70)
        self.printed["positions"] -= 0 if isDetailed else len(positions)
        return ["某某期货有限公司", "交易结算单（盯市）", "", f"客户号: {self.number}          客户名称: 某某",
                f"日  期:{self.day:%Y%m%d}", "", "          资金状况", RULE,
                self.pair("上日结存:", money["QCQY"], "当日结存:", money["QMJC"]),
                self.pair("出入金:", money["CRJ"], "客户权益:", money["KHQY"]),
                self.pair("平仓盈亏:", money["PCYK"], "保证金占用:", money["BZJZY"]),
                self.pair("持仓盯市盈亏:", "0.00", "可用资金:", "0.00"),
                self.pair("手续费:", money["SXF"], "风险度:", "0.00%"),
                self.pair("行权手续费:", money["XQSXF"], "追加保证金:", "0.00"), RULE,
                *self.blanks("成交记录", [
                    (row["date"], row["exchange"], row["contract"], "买" if row["isBuy"] else "卖", "开", row["price"],
                     row["lots"], row["turnover"], row["fee"], "0.00", "投") for row in self.rows("trades", 6)]),
                *self.blanks("平仓明细", [
                    (row["date"], row["exchange"], row["contract"], "00045943",
                     self.or_nothing(2, "买" if row["isBuy"] else "卖"), row["price"], row["openDay"], row["openPrice"],
                     row["lots"], "0.00", row["profit"]) for row in self.rows("closed", 5)]),
                *self.blanks("持仓明细", [
                    (row["exchange"], row["contract"], row["openDay"], "买" if row["isBuy"] else "卖", "投", row["lots"],
                     row["price"], "0.00", "0.00", row["floating"], "0.00", row["margin"])
                    for row in positions if isDetailed]),
                *self.blanks("持仓汇总", [
                    (row["exchange"], row["contract"], *self.lots_of_sides(row), "0.00", "0.00", row["floating"], "0.00",
                     row["margin"], "投") for row in positions])]

    def lots_of_sides(self, row):
        both = self.happens(30)
        bought = row["lots"] if row["isBuy"] or both else 0
        sold = 1 + self.draw(9) if both else 0 if row["isBuy"] else row["lots"]
        return bought, row["price"], sold, row["price"]

    @staticmethod
    def pair(label, value, other, second):
        return left(label, 18) + right(value, 16) + "          " + left(other, 16) + right(second, 16)

    @staticmethod
    def blanks(title, rows):
        return table(title, ["列1      列2"], ["  ".join(map(str, row)) for row in rows], f"共 {len(rows)}条")


class Foreign(Fundament):
    """Currencies, lots under the side of a trade, a closed position in two rows."""

    kind, number, start = "foreign", "60010001", "DWP"

    def contract(self):
        return self.one_of(PRODUCTS) + self.one_of(MONTHS)

    def statement(self):
        money = self.money()
        lines = [("期初资金 Balance B/F", "QCQY"), ("出入金 Deposit/Withdrawal", "CRJ"), ("手续费 Commission", "SXF"),
                 ("平仓盈亏 Realized P/L", "PCYK"), ("当前权益 Current Equity", "KHQY"),
                 ("维持保证金 Maintenance Margin", "BZJZY")]
        return ["某某期货有限公司", "外盘客户结算单 Daily Statement", "",
                f"客户账号 Account：{self.number}         客户姓名 Name：某某              日期 Date：{self.day:%Y%m%d}",
                *self.under_headings("成交记录 Trade Confirmation", [
                    (row["exchange"], self.cells(row["date"], row, row["price"], row["fee"]))
                    for row in self.rows("trades", 6)]),
                *self.block("平仓明细 Liquidation Statement", [
                    *(line for row in self.rows("closed", 5) for line in (
                        self.cells(row["openDay"], {**row, "isBuy": not row["isBuy"]}, row["openPrice"], "0.00"),
                        self.cells(row["date"], row, row["price"], row["profit"]))), "共 0 笔"]),
                *self.under_headings("持仓明细 Open Positions", [
                    (row["exchange"], self.cells(row["openDay"], row, row["price"], "0.00", row["floating"]))
                    for row in self.rows("positions", 5)]),
                "", "          资金汇总 Account Summary", "币种 Currency             Base               HKD*",
                *(left(label, 31) + right(money[field], 21) for label, field in lines),
                "可用资金 Available Funds" + right("0.00", 29), "追加保证金 Margin Call" + right("0.00", 30), RULE]

    @staticmethod
    def cells(day, row, price, *amounts):
        lots = right(row["lots"], 6) if row["isBuy"] else right(row["lots"], 12)
        return (left(day, 9) + left(row["contract"], 11) + "限价   77907335" + left(lots, 12) + right(price, 14)
                + "".join(right(amount, 14) for amount in amounts) + "  " + row["currency"])

    @staticmethod
    def block(title, rows):
        return ["", f"          {title}", RULE, "成交日期 合约       方式   成交编号   买入  卖出",
                "Date     Contract   Type   Trade No.   Buy  Sell", *rows, RULE]

    def under_headings(self, title, rows):
        return self.block(title, [line for exchange, row in rows for line in (exchange, row)])


LAYOUTS = (Bilingual, FundStatus, Foreign)


def make(seed, folder):
    """An account below `folder`: `tradingDays` of a year to ask for, and how many rows of each table are `printed`."""
    account = LAYOUTS[seed % len(LAYOUTS)](seed)
    account.write(folder)
    return account
