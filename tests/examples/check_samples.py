#!/usr/bin/env python3
"""Makes the report of every sample and compares it with figures that sample_statements.py reads in the statements.

Usage: check_samples.py PROGRAM SAMPLES
"""

import collections
import configparser
import decimal
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

from sample_statements import ForeignStatement, PrintError, Statement, lots, number

Decimal = decimal.Decimal
CENT = Decimal("0.01")

# The headings under which a person looks for a field.
CONTRACT = {"EXCH_NAME": "交易所", "CONTRACT": "合约 品种", "DELIVERY": "交割期", "HEDGE": "投保"}
COLUMNS = {
    "matches": {**CONTRACT, "MATCH_DATE": "成交日期", "BID": "买卖", "MATCH_PRICE": "成交价", "MATCH_VOL": "手数",
                "TURNOVER": "成交额", "OFFSET": "开平", "POUNDAGE": "手续费", "OFFSETPL": "平仓盈亏",
                "MATCHNO": "成交编号 成交号 成交序号", "ROYALTY": "权利金收支 期权收支"},
    "closed": {**CONTRACT, "MATCH_DATE": "平仓日期", "BID": "买卖", "MATCH_PRICE": "平仓价 成交价",
               "MATCH_VOL": "手数", "OPEN_DATE": "开仓日期", "OPEN_PRICE": "开仓价", "SETTLE_PRICE": "昨结算价 昨结算",
               "POUNDAGE": "手续费", "OFFSETPL": "平仓盈亏 盯市盈亏"},
    "positions": {**CONTRACT, "OPEN_DATE": "开仓日期", "BID": "买卖", "POSITION_VOL": "持仓量 手数",
                  "OPEN_PRICE": "开仓价", "YSETTLE_PRICE": "昨结算", "SETTLE_PRICE": "结算价 今结算",
                  "FLOATPL": "浮动盈亏", "DSYK": "盯市盈亏", "DEPOSIT": "保证金"},
    "positionSums": {**CONTRACT, "BID": "买卖", "POSITION_VOL": "手数", "POSITION_PRICE": "均价",
                     "YSETTLE_PRICE": "昨结算 昨结算价", "SETTLE_PRICE": "今结算 今结算价",
                     "DSYK": "盯市盈亏 持仓盯市盈亏 持仓盈亏", "DEPOSIT": "保证金 保证金占用"},
}
MONEY = {"QCQY": "上日结存 期初结存", "CRJ": "出入金 当日出入金", "QMJC": "当日结存 期末结存",
         "KYZJ": "可用资金 可用", "PCYK": "平仓盈亏 盯市平仓盈亏", "CCDSYK": "持仓盯市盈亏 盯市盈亏 持仓盈亏",
         "KHQY": "客户权益 权益", "SXF": "手续费", "BZJZY": "保证金占用 占用保证金 总保证金占用 保证金",
         "XQSXF": "行权手续费 行权费用 行权费", "QLJSZ": "权利金收支 期权收支"}
FOREIGN_MONEY = {"QCQY": "期初资金", "CRJ": "出入金", "QMJC": "当前权益", "KYZJ": "可用资金", "PCYK": "平仓盈亏",
                 "KHQY": "当前权益", "SXF": "手续费", "BZJZY": "维持保证金", "HOST_CURRENT": "浮动盈亏"}


def first_of(printed, names):
    return next((printed[name] for name in names.split() if name in printed), "")


def domestic_money(statement):
    printed = dict(statement.money)
    record = {"BILL_DATE": statement.day, **{field: first_of(printed, names) for field, names in MONEY.items()}}
    if record["CRJ"] == "":
        record["CRJ"] = printed["入金"] - printed["出金"]
    if record["QLJSZ"] == "" and "权利金收入" in printed:
        record["QLJSZ"] = printed["权利金收入"] - printed["权利金支出"]
    if record["PCYK"] == "":
        record["PCYK"] = total(closed_rows(statement), "OFFSETPL")
        record["CCDSYK"] = printed["当日盈亏"] - record["PCYK"]
    if record["KHQY"] == "":
        record["KHQY"] = record["QMJC"]
    return record


def closed_rows(statement):
    """Closed positions: the side is that of the position, the opposite of the closing trade's."""
    rows = records(statement, "closed")
    for row in rows:
        row["BID"] = "卖" if row["BID"] == "买" else "买"
    return rows


def records(statement, store):
    return [{"BILL_DATE": statement.day, **{field: first_of(row, names) for field, names in COLUMNS[store].items()}}
            for row in statement.rows(store)]


def sum_rows(statement):
    """One record for each side of a row that has lots."""
    rows = []
    for row, record in zip(statement.rows("positionSums"), records(statement, "positionSums")):
        if "买持" not in row:
            rows.append(record)
            continue
        for side in ("买", "卖"):
            if int(row[side + "持"]) > 0:
                rows.append({**record, "BID": side, "POSITION_VOL": row[side + "持"],
                             "POSITION_PRICE": row[side + "均价"]})
    return rows


def total(rows, field):
    return sum((number(row[field]) for row in rows if row[field]), Decimal(0))
