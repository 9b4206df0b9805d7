#!/usr/bin/python3
"""Works all figures of an analysis out again, from an account's tables alone, and compares.

Usage: check_figures.py PROGRAM SAMPLES [ACCOUNTS]

For every sample, and for ACCOUNTS (default: 24) accounts made by chance: their CSV comes to what their JSON says.
Figures agree to 1e-9 of their size; docs/figures.md defines them.
"""

import configparser
import json
import math
import pathlib
import re
import subprocess
import sys
import tempfile

import made_accounts
import pandas as pd

SAME_INDEX = 1e-12
FLAT_DAY = 0.00005
AGREEMENT = 1e-9
NOTHING = 1e-7  # of money: what sums that come to nothing are rounded by
TEXTS = {"day", "CONTRACT", "DELIVERY", "EXCH_NAME", "BID", "CURRENCY", "HEDGE", "OFFSET", "MATCHNO", "product",
         "CASH_TYPE"}
DAYS = {"BILL_DATE", "MATCH_DATE", "OPEN_DATE"}


# ---- products and contracts ------------------------------------------------------------------------------------------

def blanks_off(text):
    return text.strip(" \u3000")


def holds_month(contract, delivery):
    number = re.search(r"\d+", contract)
    return bool(number) and len(number[0]) >= 3 and blanks_off(delivery).endswith(number[0])


def printed_product(contract, delivery):
    """The future's product, of an option too."""
    text = blanks_off(re.match(r"\D*", contract)[0])
    bare = text.rstrip("-")
    if bare == contract or not re.search(r"\d", contract) or not re.fullmatch(r".+[CP]", bare):
        return bare
    before = bare[:-1]
    strike = blanks_off(delivery) and not holds_month(contract, delivery)
    if before[-1] == "-" or ord(before[-1]) > 127 or strike:
        return blanks_off(before).rstrip("-") or bare
    return bare


def contract_key(contract, delivery, apart):
    key = blanks_off(contract)
    return key + blanks_off(delivery) if apart and not holds_month(contract, delivery) else key


# ---- days ------------------------------------------------------------------------------------------------------------

def total(values):
    return math.fsum(values)


def none_if_nan(value):
    return None if value is None or pd.isna(value) else value


def account_days(frames, options):
    """The money records by days, each day once, with equity, cash flow and margin in base currency."""
    days = frames["days"].copy()
    undated = days["BILL_DATE"].isna()
    days.loc[undated & days["KHQY"].notna(), "BILL_DATE"] = options["lastDay"]
    days = days[days["BILL_DATE"].notna()]
    days = days.drop_duplicates("BILL_DATE", keep="first")  # those that another took the place of come last.sort_values("BILL_DATE").reset_index(drop=True)
    live = days["HOST_POSITION_MARGIN"].notna()
    rate = days["EXCHANGE_RATE"].where(days["EXCHANGE_RATE"] > 0)
    days["live"] = live
    days["equity"] = days["KHQY"] / rate
    days["margin"] = days["BZJZY"] / rate
    days["opening"] = days["QCQY"] / rate
    days["fees"] = (days["SXF"] / rate).abs().fillna(0) + (days["XQSXF"] / rate).abs().fillna(0)
    stated = days["CRJ"].notna()
    days["flow"] = (days["CRJ"] / rate).where(stated, 0)
    if not stated[~live].any() and not options["foreign"]:
        rest = days["QMJC"] - (days["QCQY"] + days["PCYK"].fillna(0) + days["CCDSYK"].fillna(0)
                               - days["SXF"].abs().fillna(0) - days["XQSXF"].abs().fillna(0)
                               + days["QLJSZ"].fillna(0))
        rest = rest.round(2)
        days.loc[~live, "flow"] = (rest.where(rest.abs() > 0.03, 0) / rate)[~live]
    return days


def held_before(frames, day):
    """Whether a foreign account may have held a position before its first day."""
    if day["live"]:
        return True
    of_day = {name: frame[frame["BILL_DATE"] == day["BILL_DATE"]] for name, frame in frames.items()
              if name in ("trades", "positions", "closed")}
    opened = pd.concat([of_day["positions"]["OPEN_DATE"], of_day["closed"]["OPEN_DATE"]])
    if (opened.isna() | (opened < day["BILL_DATE"])).any():
        return True
    lots = {}
    for name, field, sign in (("positions", "POSITION_VOL", 1), ("trades", "MATCH_VOL", -1)):
        for row in of_day[name].itertuples():
            if row.BID not in ("买", "卖"):
                return True
            signed = sign * getattr(row, field) * (1 if row.BID == "买" else -1)
            lots[row.CONTRACT] = lots.get(row.CONTRACT, 0) + signed
    return any(lots.values())


def day_results(days, frames, options):
    trades = frames["trades"]
    before = None
    if len(days) and not (options["foreign"] and held_before(frames, days.iloc[0])):
        before = none_if_nan(days.iloc[0]["opening"])
    opening, index, paid, results = before, 1.0, [], []
    for day in days.to_dict("records"):
        equity, flow, margin = (none_if_nan(day[name]) for name in ("equity", "flow", "margin"))
        pl = None if None in (before, equity, flow) else equity - before - flow
        base = None if pl is None else before + max(flow, 0)
        gain = pl / base if base is not None and base > 0 and index > 0 else None
        if gain is not None and not math.isfinite(index * (1 + gain)):
            gain = None
        index = max(index * (1 + (gain or 0)), 0.0)
        paid.append(flow)
        own = trades[trades["BILL_DATE"] == day["BILL_DATE"]]
        states_all = not options["foreign"] and own["TURNOVER"].notna().all()
        results.append({
            "day": f"{day['BILL_DATE']:%Y%m%d}", "equity": equity, "cashFlow": flow, "margin": margin, "pl": pl,
            "return": gain, "index": index,
            "moneyIndex": equity - total(paid) if equity is not None and None not in paid else None,
            "marginUse": margin / equity if margin is not None and equity is not None and equity > 0 else None,
            "fees": day["fees"], "turnover": total(own["TURNOVER"].abs()) if states_all else None,
            "lots": int(own["MATCH_VOL"].sum())})
        before = equity
    return results, opening


def drawdowns(results, days, opening):
    index = pd.Series([1.0] + [day["index"] for day in results])
    under = index < index.cummax() * (1 - SAME_INDEX)
    money = [opening] + [day["moneyIndex"] for day in results]
    names = [None] + [day["day"] for day in results]
    dates = [days.iloc[0]["BILL_DATE"]] + list(days["BILL_DATE"]) if len(days) else []
    found = []
    at = 0
    while at < len(index):
        if not under[at]:
            at += 1
            continue
        end = at
        while end < len(index) and under[end]:
            end += 1
        peak = at - 1
        low = index[at:end].min()
        valley = next(i for i in range(at, end) if index[i] <= low * (1 + SAME_INDEX))
        last = end if end < len(index) else len(index) - 1
        recovered = end < len(index)
        found.append({
            "peak": names[peak], "valley": names[valley], "recovery": names[end] if recovered else None,
            "depth": 1 - index[valley] / index[:at].max(),
            "money": None if None in (money[peak], money[valley]) else money[peak] - money[valley],
            "daysDown": valley - peak, "daysUp": end - valley if recovered else None,
            "calendarDays": (dates[last] - dates[peak]).days})
        at = end
    found.sort(key=lambda drawdown: -round(drawdown["depth"], 12))
    return found, under[1:].mean() if results else None


def of_period(results, before):
    returns = [day["return"] for day in results if day["return"] is not None]
    gains = [day["pl"] for day in results if day["pl"] is not None]
    return {"return": math.prod(1 + value for value in returns) - 1 if returns else None,
            "pl": total(gains) if gains else None, "fees": total(day["fees"] for day in results),
            "bestDay": max(returns, default=None), "worstDay": min(returns, default=None)}


def periods(results, length, name):
    groups = {}
    for day in results:
        groups.setdefault(day["day"][:length], []).append(day)
    found = [{name: key, **of_period(group, None)} for key, group in groups.items()]
    for period, group in zip(found, groups.values()):
        if period["return"] is not None and group[-1]["index"] == 0:
            period["return"] = -1.0  # nothing is less than nothing
    return found


def weekdays(results, days):
    found = []
    for weekday in range(7):
        group = [day for day, date in zip(results, days["BILL_DATE"]) if date.weekday() == weekday]
        if not group:
            continue
        figures = of_period(group, None)
        returns = [day["return"] for day in group if day["return"] is not None]
        figures["return"] = total(returns) / len(returns) if returns else None
        found.append({"weekday": weekday + 1, "days": len(group), **figures})
    return found


def streaks(results):
    def longest(sign):
        marks = "".join("x" if day["pl"] is not None and sign * day["pl"] > FLAT_DAY else " " for day in results)
        return max(map(len, marks.split()), default=0)
    return {"longestWin": longest(1), "longestLoss": longest(-1)}


def distribution(returns):
    values = pd.Series(returns, dtype=float)
    deviation = none_if_nan(values.std())
    if deviation is not None and deviation <= 1e-12 * values.abs().max():
        deviation = 0.0
    return {"mean": none_if_nan(values.mean()), "deviation": deviation,
            "skewness": none_if_nan(values.skew()) if deviation else None,
            "kurtosis": none_if_nan(values.kurt()) if deviation else None,
            "quantile5": none_if_nan(values.quantile(0.05)) if len(values) else None}


def money_weighted(results, days, opening):
    if not results:
        return None
    # With an opening that is no measure, a foreign account starts with what it has on its first day.
    start = opening if opening is not None else results[0]["equity"]
    if opening is None and not days.attrs["leavesOutFloating"]:
        return None
    first = days.iloc[0]["BILL_DATE"] - pd.Timedelta(days=1 if opening is not None else 0)
    flows = [-flow if flow is not None else None for flow in (day["cashFlow"] for day in results)]
    if opening is None:
        flows[0] = 0
    payments = [(0, -start if start is not None else None)]
    payments += [((date - first).days, flow) for date, flow in zip(days["BILL_DATE"], flows)]
    payments.append((payments[-1][0], results[-1]["equity"]))
    if any(amount is None for _, amount in payments) or payments[-1][0] < 30:
        return None

    def worth(log_factor):
        at = 0 if log_factor > 0 else payments[-1][0]
        return total(amount * math.exp(log_factor * (at - day) / 365) for day, amount in payments)
    low, high = -math.log(1e6), math.log(1e6)
    at_low, at_high = worth(low), worth(high)
    if at_low * at_high >= 0:
        return None
    for _ in range(200):
        middle = (low + high) / 2
        if (worth(middle) > 0) == (at_low > 0):
            low = middle
        else:
            high = middle
    return math.expm1((low + high) / 2)


def ratios(results, spread, falls, under_water, options):
    year = options["tradingDays"]
    returns = [day["return"] for day in results if day["return"] is not None]
    annual = None
    if returns:
        try:
            annual = results[-1]["index"] ** (year / len(returns)) - 1
        except OverflowError:
            pass
    deviation = spread["deviation"]
    downside = math.sqrt(total(min(value, 0) ** 2 for value in returns) / len(returns)) if returns else 0
    return {"annualReturn": annual, "volatility": deviation * math.sqrt(year) if deviation is not None else None,
            "sharpe": spread["mean"] / deviation * math.sqrt(year) if deviation else None,
            "sortino": spread["mean"] / downside * math.sqrt(year) if downside > 0 else None,
            "calmar": annual / falls[0]["depth"] if annual is not None and falls else None,
            "timeUnderWater": under_water}


# ---- closed positions ------------------------------------------------------------------------------------------------

def named(frame, options):
    """With product, contract and currency of each row."""
    frame = frame.copy()
    deliveries = frame["DELIVERY"] if "DELIVERY" in frame else [""] * len(frame)
    products = [printed_product(*pair) for pair in zip(frame["CONTRACT"], deliveries)]
    frame["product"] = [options["codes"].get(product, product) for product in products]
    frame["name"] = [product if product in options["codes"] else "" for product in products]
    frame["contract"] = [contract_key(*pair, options["deliveryApart"]) for pair in zip(frame["CONTRACT"], deliveries)]
    if not options["foreign"] or "CURRENCY" not in frame:
        frame["CURRENCY"] = ""
    return frame


def closed_rows(frames, options):
    rows = named(frames["closed"], options)
    trades = named(frames["trades"], options)
    fees = trades.groupby(["CURRENCY", "product", "BILL_DATE"]).agg({"POUNDAGE": lambda x: total(x.fillna(0)),
                                                                     "MATCH_VOL": "sum"})
    per_lot = (fees["POUNDAGE"].abs() / fees["MATCH_VOL"])[fees["MATCH_VOL"] > 0].to_dict() if len(fees) else {}
    exchanges = trades[trades["EXCH_NAME"].map(blanks_off) != ""].drop_duplicates("contract")
    exchanges = dict(zip(exchanges["contract"], exchanges["EXCH_NAME"].map(blanks_off)))
    units = dict(zip(frames["units"]["product"], frames["units"]["unit"])) if len(frames["units"]) else {}
    rows["long"] = rows["BID"].str.contains("卖" if options["foreign"] else "买")  # foreign rows name the closing trade's
    rows["short"] = rows["BID"].str.contains("买" if options["foreign"] else "卖")
    if options["foreign"]:
        rows["pl"] = rows["OFFSETPL"].fillna(0)
        rows["turnover"] = float("nan")
    else:
        rows = rows[rows["long"] | rows["short"]].copy()
        unit = rows["CONTRACT"].map(lambda text: units.get(blanks_off(re.match(r"\D*", text)[0]), 1))
        points = (rows["MATCH_PRICE"].fillna(0) - rows["OPEN_PRICE"].fillna(0)) * rows["long"].map({True: 1, False: -1})
        rows["pl"] = rows["MATCH_VOL"] * points * unit
        rows["turnover"] = rows["MATCH_VOL"] * rows["MATCH_PRICE"].fillna(0) * unit
    rows["side"] = ["long" if row.long else "short" if row.short else "" for row in rows.itertuples()]
    rows["exchange"] = [blanks_off(row.EXCH_NAME) or exchanges.get(row.contract, "") for row in rows.itertuples()]
    rows["closing"] = rows["BILL_DATE"].fillna(rows["MATCH_DATE"])
    rows["month"] = rows["closing"].dt.strftime("%Y%m")
    rows["held"] = (rows["closing"] - rows["OPEN_DATE"]).dt.days
    known = [[per_lot.get((row.CURRENCY, row.product, day)) for day in (row.closing, row.OPEN_DATE)]
             for row in rows.itertuples()]
    rows["fees"] = [lots * sum(fee or 0 for fee in pair) if pair != [None, None] else float("nan")
                    for lots, pair in zip(rows["MATCH_VOL"], known)]
    rows["lacksFees"] = [None in pair for pair in known]
    return rows


def group_figures(rows, options):
    wins, losses = rows["pl"][rows["pl"] > 0], rows["pl"][rows["pl"] < 0]
    held = rows["held"].dropna()
    stated = rows["OFFSETPL"]
    return {
        "count": len(rows), "lots": int(rows["MATCH_VOL"].sum()), "pl": total(rows["pl"]),
        "statedPl": total(stated) if stated.notna().all() else None,
        "wins": len(wins), "losses": len(losses), "flats": int((rows["pl"] == 0).sum()),
        "winRate": len(wins) / len(rows), "averageWin": none_if_nan(wins.mean()),
        "averageLoss": none_if_nan(losses.mean()),
        "profitFactor": total(wins) / -total(losses) if len(losses) else None, "expectancy": total(rows["pl"]) / len(rows),
        "largestWin": none_if_nan(wins.max()), "largestLoss": none_if_nan(losses.min()),
        "medianHoldingDays": none_if_nan(held.median()), "meanHoldingDays": none_if_nan(held.mean()),
        "intradayShare": float((held == 0).mean()) if len(held) else None,
        "fees": total(rows["fees"].dropna()) if rows["fees"].notna().any() else None,
        "lotsWithoutFees": int(rows["MATCH_VOL"][rows["lacksFees"]].sum()),
        "turnover": None if options["foreign"] else total(rows["turnover"])}


def groups(rows, by, name, options):
    found = []
    for (currency, key), group in rows[rows[by].notna()].groupby(["CURRENCY", by], sort=False):
        label = group.iloc[0]["name"] if by == "product" else ""
        found.append({name: key, "name": label, "currency": currency, **group_figures(group, options)})
    found.sort(key=lambda group: (group["currency"], group["pl"], group[name].encode("gbk")))
    return found


def concentration(rows, products, contracts):
    def share(values):
        sizes = sorted(map(abs, values), reverse=True)
        return total(sizes[:5]) / total(sizes) if total(sizes) > 0 else None
    return [{"currency": currency, "rows": share(rows["pl"][rows["CURRENCY"] == currency]),
             "products": share(group["pl"] for group in products if group["currency"] == currency),
             "contracts": share(group["pl"] for group in contracts if group["currency"] == currency)}
            for currency in sorted(rows["CURRENCY"].unique())]


# ---- margin and what is open -----------------------------------------------------------------------------------------

def summary_rows(frames):
    """With "shared" for rows of both sides, whose margin counts on the buy side alone."""
    sums = frames["position_sums"].copy()
    lots = sums["BID_POSITION_VOL"].where(sums["BID"] == "买", sums["ASK_POSITION_VOL"])  # in layouts of both sides
    sums["POSITION_VOL"] = sums["POSITION_VOL"].where(sums["POSITION_VOL"] != 0, lots)
    fields = ["BILL_DATE", "EXCH_NAME", "CONTRACT", "DELIVERY", "YSETTLE_PRICE", "SETTLE_PRICE", "DSYK", "DEPOSIT", "HEDGE"]
    fields = [field for field in fields if field in sums]
    before = sums.shift(1)
    same = pd.Series(True, index=sums.index)
    for field in fields:
        same &= (sums[field] == before[field]) | (sums[field].isna() & before[field].isna())
    second = same & (sums["BID"] == "卖") & (before["BID"] == "买") if len(sums) else same
    sums["shared"] = second | second.shift(-1, fill_value=False)
    sums.loc[second, "DEPOSIT"] = float("nan")
    return sums


def margin(results, days, frames, options):
    uses = pd.Series([day["marginUse"] for day in results if day["marginUse"] is not None], dtype=float)
    figures = {"mean": none_if_nan(uses.mean()), "max": none_if_nan(uses.max()),
               **{f"above{share}": int((uses > share / 100).sum()) for share in (50, 80, 100)}}
    details, sums = named(frames["positions"], options), named(summary_rows(frames), options)
    detailed = details.loc[details["DEPOSIT"].notna(), "BILL_DATE"].unique()
    rows = pd.concat([details, sums[~sums["BILL_DATE"].isin(detailed)]])
    rows = rows[rows["DEPOSIT"].notna() & rows["BILL_DATE"].notna()]
    equities = {date: day["equity"] for date, day in zip(days["BILL_DATE"], results)
                if day["equity"] is not None and day["equity"] > 0 and not options["foreign"]}
    products = []
    for (currency, product), group in rows.groupby(["CURRENCY", "product"], sort=False):
        by_day = group.groupby("BILL_DATE")["DEPOSIT"].apply(total)
        by_day = by_day[by_day > 0]
        if by_day.empty:
            continue
        shares = [amount / equities[day] for day, amount in by_day.items() if day in equities]
        products.append({"product": product, "name": group.iloc[0]["name"], "currency": currency, "days": len(by_day),
                         "mean": total(by_day) / len(by_day), "max": by_day.max(),
                         "maxDay": f"{by_day.idxmax():%Y%m%d}", "maxUse": max(shares, default=None)})
    products.sort(key=lambda product: -product["max"])
    return figures, products


def open_positions(days, frames, options):
    last = days.loc[~days["live"], "BILL_DATE"].max() if len(days) else pd.NaT
    for name in ("trades", "closed", "positions", "position_sums"):
        if len(frames[name]):
            last = max((day for day in (last, frames[name]["BILL_DATE"].iloc[-1]) if not pd.isna(day)), default=last)
    rows = frames["positions"][frames["positions"]["BILL_DATE"] == last]
    if rows.empty:
        sums = summary_rows(frames)
        rows = sums[sums["BILL_DATE"] == last].assign(OPEN_DATE=pd.NaT, FLOATPL=float("nan"))
        rows.loc[rows["shared"], "DEPOSIT"] = float("nan")
    found = []
    for row in named(rows, options).itertuples():
        opened = none_if_nan(row.OPEN_DATE)
        found.append({
            "contract": row.contract, "side": {"买": "long", "卖": "short"}.get(row.BID.strip(), ""),
            "currency": row.CURRENCY, "lots": int(row.POSITION_VOL),
            "openDay": f"{opened:%Y%m%d}" if opened is not None else None,
            "daysHeld": (last - opened).days if opened is not None else None,
            "floatPl": none_if_nan(row.FLOATPL), "margin": none_if_nan(row.DEPOSIT)})
    return found


def cash_kinds(frames):
    """Deposits and withdrawals by their kinds, in the order in which these come up; no amount counts as 0."""
    kinds = frames["cash"].fillna({"CASH_IN": 0, "CASH_OUT": 0}).groupby("CASH_TYPE", sort=False)
    return [{"CASH_TYPE": kind, "count": len(rows), "cashIn": total(rows["CASH_IN"]), "cashOut": total(rows["CASH_OUT"])}
            for kind, rows in kinds]


def figures_of(frames, options):
    """All figures, by the names of the JSON, from the frames days, trades, closed, positions, position_sums,
    cash and units."""
    days = account_days(frames, options)
    results, opening = day_results(days, frames, options)
    days.attrs["leavesOutFloating"] = bool(len(days)) and options["foreign"] and held_before(frames, days.iloc[0])
    falls, under_water = drawdowns(results, days, opening)
    spread = distribution([day["return"] for day in results if day["return"] is not None])
    rows = closed_rows(frames, options)
    by_kind = {name: groups(rows, by, key, options) for name, by, key in (
        ("products", "product", "product"), ("contracts", "contract", "contract"), ("sides", "side", "side"),
        ("exchanges", "exchange", "exchange"), ("closedMonths", "month", "month"))}
    use, by_product = margin(results, days, frames, options)
    return {"days": results, "drawdowns": falls, "months": periods(results, 6, "month"),
            "years": periods(results, 4, "year"), "weekdays": weekdays(results, days), "streaks": streaks(results),
            "distribution": spread,
            "ratios": {**ratios(results, spread, falls, under_water, options),
                       "moneyWeightedReturn": money_weighted(results, days, opening)},
            **by_kind, "concentration": concentration(rows, by_kind["products"], by_kind["contracts"]),
            "margin": {**use, "products": by_product}, "open": open_positions(days, frames, options),
            "cashKinds": cash_kinds(frames),
            "tradingDays": options["tradingDays"]}


# ---- comparison ------------------------------------------------------------------------------------------------------

def differences(found, expected, path=""):
    if isinstance(expected, dict):
        if set(found) != set(expected):
            yield f"{path}: fields {sorted(set(found) ^ set(expected))}"
        for key in expected.keys() & found.keys():
            yield from differences(found[key], expected[key], f"{path}.{key}" if path else key)
    elif isinstance(expected, list):
        if len(found) != len(expected):
            yield f"{path}: {len(found)} rows, expected {len(expected)}"
        for i, (one, other) in enumerate(zip(found, expected)):
            yield from differences(one, other, f"{path}[{i}]")
    elif isinstance(expected, (int, float)) and isinstance(found, (int, float)):
        nothing = NOTHING if path.rsplit(".", 1)[-1] in MONEY else 1e-13
        if abs(found - expected) > max(AGREEMENT * max(abs(found), abs(expected)), nothing):
            yield f"{path}: {found!r}, expected {expected!r}"
    elif found != expected:
        yield f"{path}: {found!r}, expected {expected!r}"


MONEY = {"equity", "cashFlow", "margin", "pl", "moneyIndex", "fees", "turnover", "money", "statedPl", "averageWin",
         "averageLoss", "expectancy", "largestWin", "largestLoss", "mean", "max", "floatPl", "cashIn", "cashOut"}


def null_paths(figures, path=""):
    if isinstance(figures, dict):
        for key, value in figures.items():
            yield from null_paths(value, f"{path}.{key}" if path else key)
    elif isinstance(figures, list):
        for i, value in enumerate(figures):
            yield from null_paths(value, f"{path}[{i}]")
    elif figures is None:
        yield path


def compare(found, expected):
    found = dict(found)
    reasons = found.pop("reasons", {}) or {}
    yield from differences(found, expected)
    for path in set(null_paths(found)) ^ set(reasons):
        yield f"{path}: a null without a reason, or a reason without a null"


# ---- what the program says -------------------------------------------------------------------------------------------

COLUMNS = {
    "days": ["day", "BILL_DATE", "QCQY", "CRJ", "QMJC", "KHQY", "PCYK", "CCDSYK", "SXF", "XQSXF", "QLJSZ", "BZJZY",
             "HOST_POSITION_MARGIN", "EXCHANGE_RATE"],
    "trades": ["BILL_DATE", "MATCH_DATE", "EXCH_NAME", "CONTRACT", "DELIVERY", "BID", "MATCH_VOL", "TURNOVER",
               "POUNDAGE", "CURRENCY"],
    "closed": ["BILL_DATE", "MATCH_DATE", "EXCH_NAME", "CONTRACT", "DELIVERY", "BID", "MATCH_PRICE", "MATCH_VOL",
               "OPEN_DATE", "OPEN_PRICE", "OFFSETPL", "CURRENCY"],
    "positions": ["BILL_DATE", "CONTRACT", "DELIVERY", "OPEN_DATE", "BID", "POSITION_VOL", "FLOATPL", "DEPOSIT",
                  "CURRENCY"],
    "position_sums": ["BILL_DATE", "EXCH_NAME", "CONTRACT", "DELIVERY", "BID", "BID_POSITION_VOL", "ASK_POSITION_VOL",
                      "POSITION_VOL", "YSETTLE_PRICE", "SETTLE_PRICE", "DSYK", "DEPOSIT", "HEDGE"],
    "cash": ["CASH_TYPE", "CASH_IN", "CASH_OUT"],
    "units": ["product", "unit"],
}


def table_of(folder, name):
    """All cells as texts, without the apostrophe that keeps spreadsheets from obeying them."""
    table = pd.read_csv(folder / f"{name}.csv", dtype=str, keep_default_na=False, encoding="utf-8-sig")
    return table.apply(lambda column: column.str.removeprefix("'"))


def frame_of(table, columns):
    frame = table[columns].copy()
    for column in columns:
        if column in DAYS:
            frame[column] = pd.to_datetime(frame[column], format="%Y-%m-%d")
        elif column not in TEXTS:
            frame[column] = frame[column].map(lambda text: float(text) if text else float("nan")).astype(float)
    for column in ("MATCH_VOL", "POSITION_VOL", "BID_POSITION_VOL", "ASK_POSITION_VOL"):
        if column in frame:
            frame[column] = frame[column].fillna(0).astype(int)
    return frame


def figures_in(table):
    """Names and values of the table "figures", and the reasons of those that have no value."""
    values = {row.name: float(row.value) if row.value else None for row in table.itertuples(index=False)
              if not row.name.startswith(("money.", "account."))}
    return values, {row.name: row.reason for row in table.itertuples(index=False) if row.reason}


def compare_tables(tables, analysis):
    """Whether the CSV has the figures that stand beside the rows, or in no row, as the JSON has them."""
    fields = list(analysis["days"][0]) if analysis["days"] else []
    rows = tables["days"][tables["days"]["day"] != ""]
    days = [{name: row[name].replace("-", "") if name == "day" else float(row[name]) if row[name] else None
             for name in fields} for row in rows.to_dict("records")]
    yield from differences(days, analysis["days"], "days.csv")
    values, reasons = figures_in(tables["figures"])
    told = {f"{name}.{field}": value for name in ("streaks", "distribution", "ratios", "margin")
            for field, value in analysis[name].items() if field != "products"}
    yield from differences(values, {"tradingDays": analysis["tradingDays"], **told}, "figures.csv")
    yield from differences(reasons, {name: analysis["reasons"][name] for name in values if values[name] is None},
                           "figures.csv")


class Account:
    """Rows and figures of an account, as the program writes them: tables by `export`, the analysis by `report`."""

    def __init__(self, program, folder, trading_days=None):
        self.folder = folder
        ini = configparser.ConfigParser()
        ini.read(folder / "request.ini", encoding="utf-8")
        self.request = ini["REQUEST"]
        arguments = ["--quiet", "--root", folder / "root", "--request", folder / "request.ini"]
        for name in ("units", "products", "live"):
            if (folder / f"{name}.ini").exists():
                arguments += [f"--{name}", folder / f"{name}.ini"]
        if trading_days:
            arguments += ["--trading-days", str(trading_days)]
        with tempfile.TemporaryDirectory() as out:
            out = pathlib.Path(out)
            for command in (["export", "--csv", out / "tables"], ["report", "--out", out, "--json", out / "run.json"]):
                subprocess.run([program, *command, *arguments], check=True, stderr=subprocess.PIPE)
            self.analysis = json.loads((out / "run.json").read_bytes())["analysis"]
            self.tables = {name: table_of(out / "tables", name) for name in [*COLUMNS, "figures"]}

    def codes(self):
        ini = configparser.ConfigParser(delimiters=("=",))
        ini.optionxform = str
        ini.read(self.folder / "products.ini", encoding="utf-8-sig")
        return dict(ini["PRODUCTS"]) if ini.has_section("PRODUCTS") else {}

    def problems(self, analysis):
        """What differs between `analysis` and what the tables come to."""
        options = {"foreign": self.request["kind"] == "foreign", "deliveryApart": self.request["format"] in "013",
                   "lastDay": pd.to_datetime(self.request["to"]), "codes": self.codes(),
                   "tradingDays": analysis["tradingDays"]}
        frames = {name: frame_of(self.tables[name], columns) for name, columns in COLUMNS.items()}
        return [*compare(analysis, figures_of(frames, options)), *compare_tables(self.tables, analysis)]

    def prove_that_faults_are_seen(self):
        """One figure off by 1e-8 of its size, one reason too few: each must be told."""
        def told(spoil):
            spoilt = json.loads(json.dumps(self.analysis))
            spoil(spoilt)
            return self.problems(spoilt)
        assert told(lambda figures: figures["days"][3].update(index=figures["days"][3]["index"] * (1 + 1e-8)))
        assert told(lambda figures: figures["products"][0].update(pl=figures["products"][0]["pl"] * (1 + 1e-8)))
        assert told(lambda figures: figures["ratios"].update(sharpe=None))
        assert told(lambda figures: figures["open"].pop())
        assert told(lambda figures: figures["reasons"].popitem())


def tell(name, found):
    for line in found[:10]:
        print(f"{name}: {line}")
    if len(found) > 10:
        print(f"{name}: {len(found) - 10} more")
    return not found


def check_samples(program, samples):
    folders = sorted(folder.parent for folder in samples.glob("*/request.ini"))
    if not folders:
        sys.exit(f"no samples in {samples}")
    for folder in folders:
        account = Account(program, folder)
        if folder == folders[0]:
            account.prove_that_faults_are_seen()
        yield tell(folder.name, account.problems(account.analysis))


def check_made(program, accounts):
    for seed in range(accounts):
        with tempfile.TemporaryDirectory() as folder:
            folder = pathlib.Path(folder)
            made = made_accounts.make(seed, folder)
            account = Account(program, folder, made.tradingDays)
            lost = [f"{len(account.tables[name])} rows of {rows} {name}" for name, rows in made.printed.items()
                    if len(account.tables[name]) != rows]
            yield tell(f"made by chance, {seed}", lost + account.problems(account.analysis))


def main():
    program, samples = sys.argv[1], pathlib.Path(sys.argv[2])
    accounts = int(sys.argv[3]) if len(sys.argv) > 3 else 24
    agree = [*check_samples(program, samples), *check_made(program, accounts)]
    print(f"{sum(agree)} of {len(agree)} accounts agree")
    return 0 if all(agree) else 1


if __name__ == "__main__":
    sys.exit(main())
