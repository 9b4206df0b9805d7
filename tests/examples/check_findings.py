#!/usr/bin/env python3
"""Damages copies of samples and looks at what `tradebill check` finds in them, one damage for each code and more for all
layouts; docs/findings.md shows the first of them.

Usage: check_findings.py PROGRAM SAMPLES DOCUMENT [--write]

Fails if a sample is not clean, if a damage is not found or more is found than follows from it, or if the document isn't
what it makes. --write writes the document.
"""

import concurrent.futures
import datetime
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

LAYOUTS = ("fund-class", "fund-status", "fund-status-premium", "tabulated", "client-bill", "client-bill-premium",
           "spaced-title", "spaced-title-premium", "bilingual", "bilingual-new", "template-pairs", "template-row",
           "foreign")
# Codes of what a run is asked: they have no day.
WITHOUT_DAY = {"unit", "template", "live"}
# What is told of a whole account, by layouts.
OF_THE_ACCOUNT = {"spaced-title": "identity"}  # it keeps no cash flow
DAMAGED = 10  # the statement that is damaged, of 25; its day is the 16th, a Tuesday
DAY = "20240116"
NEXT_DAY = "20240117"
DAY_BEFORE = "20240115"
# A row of a table begins with a date, or with a contract and a side.
ROW = re.compile(r"\|?2024\d{4}[ |]|[A-Za-z]+\d{3,4}\S*\s+[买卖] ")
MONEY_TITLE = re.compile("资金状况|资金类别|资金汇总|资 金 清 单|资金清单|资金结算表|资金情况")
WORDS = re.compile(r"[^\s|]+")


class Copy:
    """A sample that may be damaged: its statements as lines of text."""

    def __init__(self, samples, name, folder):
        self.name = name
        self.folder = folder / name
        shutil.copytree(samples / name, self.folder)
        for path in [self.folder, *self.folder.rglob("*")]:
            path.chmod(0o755 if path.is_dir() else 0o644)
        self.more_options = []
        self.files = sorted((self.folder / "root/Users/demo/Data/Bill").glob("*.txt"))
        self.file = self.files[DAMAGED]

    def options(self):
        options = ["--root", self.folder / "root", "--request", self.folder / "request.ini"]
        for kind in ("units", "products"):
            if (self.folder / f"{kind}.ini").exists():
                options += [f"--{kind}", self.folder / f"{kind}.ini"]
        return options + self.more_options

    def lines(self):
        return self.file.read_bytes().decode("gbk").split("\r\n")

    def write(self, lines):
        self.file.write_bytes("\r\n".join(lines).encode("gbk"))

    def rows(self, lines):
        """The numbers of the rows of the first table."""
        first = next(number for number, line in enumerate(lines) if ROW.match(line.strip()))
        last = first
        while ROW.match(lines[last].strip()):
            last += 1
        return list(range(first, last))


def set_word(line, place, text):
    """Puts `text` in the place of a word, and keeps what stands behind it where it is."""
    word = list(WORDS.finditer(line))[place]
    width = len(word.group().encode("gbk")) - len(text.encode("gbk"))
    return line[:word.start()] + " " * width + text + line[word.end():]


def change(line, pattern, make):
    changed, times = re.subn(pattern, make, line, count=1)
    if times == 0:
        raise ValueError(f"{pattern} doesn't match {line}")
    return changed


# The damages. Each is a function of the copy; its docstring tells what it does to the statement of DAY.

def remove(copy):
    """the statement is missing"""
    copy.file.unlink()


def make_loop(copy):
    """its name is a link to itself, which nobody can open"""
    copy.file.unlink()
    copy.file.symlink_to(copy.file.name)


def make_empty(copy):
    """it has 0 bytes"""
    copy.file.write_bytes(b"")


def make_folder(copy):
    """a folder bears its name"""
    copy.file.unlink()
    copy.file.mkdir()


def save_as_utf8(copy):
    """it is saved as UTF-8"""
    copy.file.write_text("\r\n".join(copy.lines()), encoding="utf-8", newline="")


def put_other_layout(copy):
    """it is one of another layout"""
    other = "client-bill" if "bill" not in copy.name and "spaced" not in copy.name else "bilingual"
    bills = copy.samples / other / "root/Users/demo/Data/Bill"
    shutil.copyfile(next(bills.glob(f"*.{DAY}o.txt")), copy.file)


def cut_in_half(copy):
    """the second half of it is missing"""
    content = copy.file.read_bytes()
    copy.file.write_bytes(content[:len(content) // 2])


def remove_money(copy):
    """its money section is missing"""
    lines = copy.lines()
    start = next(number for number, line in enumerate(lines) if MONEY_TITLE.search(line))
    end = start + 1
    while not re.search(r"成\s*交|借贷成本", lines[end]):
        end += 1
    copy.write(lines[:start] + lines[end:])


def remove_later_currencies(copy):
    """the block of its later currencies is missing"""
    lines = copy.lines()
    copy.write(lines[:next(number for number, line in enumerate(lines) if "借贷成本" in line)])


def put_page_mark(copy):
    """a line of a page break stands between two rows of trades"""
    lines = copy.lines()
    lines.insert(copy.rows(lines)[0] + 1, "第2页 续上页")
    copy.write(lines)


def empty_cell(copy):
    """a cell of its first trade is empty"""
    lines = copy.lines()
    row = copy.rows(lines)[0]
    lines[row] = set_word(lines[row], 2, "")
    copy.write(lines)


def drop_row(copy):
    """the last of its trades is missing"""
    lines = copy.lines()
    del lines[copy.rows(lines)[-1]]
    copy.write(lines)


def change_total(copy):
    """a total of its trades is another"""
    lines = copy.lines()
    row = next(number for number, line in enumerate(lines) if number > copy.rows(lines)[-1] and
               re.match(r"\s*\|?(合计|小计|总计|共)", line))
    word = next(place for place, word in enumerate(WORDS.findall(lines[row])) if place > 0 and
                re.fullmatch(r"\d+(\.\d+)?", word))
    old = WORDS.findall(lines[row])[word]
    lines[row] = set_word(lines[row], word, str(int(old.split(".")[0]) + 1) + old[len(old.split(".")[0]):])
    copy.write(lines)


def change_fees(copy):
    """its fees are higher by 100"""
    change_money(copy, "手续费|手 续 费")


def change_available(copy):
    """its available funds are higher by 100"""
    change_money(copy, "可用资金")


def add_deposit(copy):
    """a deposit of 100 stands in a table behind its last one, and not among its money figures"""
    lines = copy.lines()
    while not lines[-1]:
        lines.pop()
    copy.write(lines + ["", "出入金明细 Deposit/Withdrawal", "|发生日期|出入金类型|入金|出金|说明|",
                        f"|{DAY}|银期转账|100.00|0.00||", "|共   1条||100.00|0.00||", ""])


def add_currency(copy):
    """a money section in USD stands behind its last table"""
    lines = copy.lines()
    while not lines[-1]:
        lines.pop()
    copy.write(lines + ["", "资金状况  币种：美元  Account Summary  Currency：USD", "-" * 80, "期初结存 Balance b/f：    100.00", ""])


def change_opening(copy):
    """it opens with 100 more"""
    change_money(copy, "上日结存|期初结存|期初资金")


def raised(text):
    """100 more, with the same number of bytes if that can be."""
    whole, _, places = text.partition(".")
    more = f"{int(whole.replace(',', '')) + 100:,}" if "," in whole else str(int(whole) + 100)
    return f"{more}.{places}"


def change_money(copy, label):
    """The figure is behind its label, or under it."""
    lines = copy.lines()
    start = next(number for number, line in enumerate(lines) if MONEY_TITLE.search(line))
    for number in range(start, start + 20):
        found = re.search(rf"(?<![\u4e00-\u9fff])({label})([^\d|]*?)(-?[\d,]+\.\d\d)", lines[number])
        if found:
            lines[number] = lines[number][:found.start(3)] + raised(found.group(3)) + lines[number][found.end(3):]
            return copy.write(lines)
        heading = lines[number].split()
        if [word for word in heading if re.fullmatch(label, word)]:
            place = next(place for place, word in enumerate(heading) if re.fullmatch(label, word))
            old = WORDS.findall(lines[number + 1])[place]
            word = list(WORDS.finditer(lines[number + 1]))[place]
            lines[number + 1] = lines[number + 1][:word.start()] + raised(old) + lines[number + 1][word.end():]
            return copy.write(lines)
    raise ValueError(f"no {label} in {copy.name}")


def put_day_before(copy):
    """it is that of the day before"""
    shutil.copyfile(copy.files[DAMAGED - 1], copy.file)


def change_account(copy):
    """it states another account"""
    lines = copy.lines()
    row = next(number for number, line in enumerate(lines) if "客户" in line and re.search(r"\b[69]00\d{5}\b", line))
    copy.write([change(line, r"\b[69]00\d{5}\b", "80000007") if number >= row and "客户" in line and
                re.search(r"\b[69]00\d{5}\b", line) else line for number, line in enumerate(lines)])


def change_day(copy):
    """it states another day, which isn't read"""
    lines = copy.lines()
    copy.write([re.sub(rf"(日\s*期|结算日|制表时间)([^\d]*){DAY}", r"\g<1>\g<2>20240106", line) for line in lines])


def double_row(copy):
    """the first of its trades stands there twice"""
    lines = copy.lines()
    row = copy.rows(lines)[0]
    copy.write(lines[:row] + lines[row:row + 1] + lines[row:])


def change_unit(copy):
    """its file of contract units gives iron ore (`i`) 10 instead of 100"""
    path = copy.folder / "units.ini"
    path.write_text(re.sub(r"^i=100$", "i=10", path.read_text(encoding="utf-8"), flags=re.MULTILINE), encoding="utf-8")


def misspell_key(copy):
    """its template has `MATCH_PRIZE` where it should have `MATCH_PRICE`"""
    path = next((copy.folder / "root/BillTemplate").glob("*.ini"))
    path.write_bytes(path.read_bytes().replace(b"MATCH_PRICE=", b"MATCH_PRIZE="))


def end_today(copy):
    """the report ends today (`--to`), and `--live` isn't given"""
    copy.more_options = ["--to", datetime.date.today().isoformat()]


class Damage:
    """`must` be found, on DAY unless they have a day of their own; `may` be found beside it, on DAY or the next."""

    def __init__(self, do, must, may="", layouts=LAYOUTS, options=()):
        self.do = do
        self.must = must.split()
        self.may = may.split()
        self.layouts = layouts
        self.options = options


# The first layout of a damage is the sample that the document shows.
SHOWN = {
    "unreadable": Damage(make_loop, "unreadable"),
    "empty": Damage(make_empty, "empty"),
    "not-a-file": Damage(make_folder, "not-a-file"),
    "encoding": Damage(save_as_utf8, "encoding"),
    "unrecognised": Damage(put_other_layout, "unrecognised", layouts=tuple(
        name for name in LAYOUTS if not name.startswith("template"))),
    "cut-off": Damage(cut_in_half, "cut-off"),
    # The foreign layout's money ends its open positions.
    "section-missing": Damage(remove_money, "section-missing", layouts=LAYOUTS[:-1]),
    "row-skipped": Damage(put_page_mark, "row-skipped"),
    "shifted": Damage(empty_cell, "shifted", "totals lots identity"),
    "totals": Damage(change_total, "totals"),
    "identity": Damage(change_fees, "identity"),
    "available": Damage(change_available, "available"),
    "money-rows": Damage(add_deposit, "money-rows", layouts=("bilingual", "bilingual-new")),
    "currency": Damage(add_currency, "currency", layouts=("bilingual", "bilingual-new")),
    "continuity": Damage(change_opening, "continuity identity"),
    "gap": Damage(remove, "gap"),
    "lots": Damage(drop_row, "totals lots", "identity"),
    "wrong-account": Damage(change_account, "wrong-account"),
    "wrong-day": Damage(change_day, "wrong-day"),
    "repeated": Damage(put_day_before, "repeated wrong-day", "continuity lots identity"),
    "unit": Damage(change_unit, "unit", layouts=("fund-status",)),
    "template": Damage(misspell_key, "template", layouts=("template-pairs", "template-row")),
    "live": Damage(end_today, "live"),
}

# What only an import finds, in workbooks, and the line that it prints.
OF_IMPORT = {
    "opening": "20240103 D90010009.20240103o.txt, closed: The trade 00071551 that opened lc2402 stands in no imported "
               "statement.",
}

# What the document doesn't show.
MORE = {
    "cut-off-money": Damage(remove_money, "cut-off", layouts=("foreign",)),
    "later-currencies": Damage(remove_later_currencies, "section-missing", layouts=("foreign",)),
    "double-row": Damage(double_row, "totals", "lots identity"),
}


def check(program, copy, options=()):
    """Exit status, findings and what is printed for people."""
    done = subprocess.run([program, "check", *copy.options(), *options, "--json", copy.folder / "found.json"],
                          capture_output=True, text=True, check=False, env={**os.environ, "LC_ALL": "C"})
    with open(copy.folder / "found.json", encoding="utf-8") as found:
        return done.returncode, json.load(found)["findings"], done.stdout


def check_clean(program, samples, name, folder):
    status, findings, _ = check(program, Copy(samples, name, folder))
    warnings = [finding for finding in findings if finding["severity"] != "note"]
    if status == 0 and not warnings:
        return []
    return [f"{name}: a clean sample ends with {status} and " + "; ".join(
        f"{finding['code']} {finding['day']} {finding['text']}" for finding in warnings[:5])]


def check_damage(program, samples, name, folder, code, damage):
    copy = Copy(samples, name, folder)
    copy.samples = samples
    damage.do(copy)
    status, findings, text = check(program, copy, damage.options)
    found = {finding["code"] for finding in findings if finding["severity"] != "note"}
    what = f"{name}, {damage.do.__doc__}"
    wrong = []
    if status != 3:
        wrong.append(f"{what}: ends with {status}")
    for missing in sorted(set(damage.must) - found):
        wrong.append(f"{what}: no {missing}")
    for finding in findings:
        if finding["day"] is None and finding["severity"] == "note" and finding["code"] == OF_THE_ACCOUNT.get(name):
            continue
        if finding["code"] not in damage.must + damage.may and finding["severity"] != "note":
            wrong.append(f"{what}: {finding['code']} {finding['day']} too: {finding['text']}")
        elif finding["day"] not in (DAY, NEXT_DAY) and finding["code"] not in WITHOUT_DAY:
            wrong.append(f"{what}: {finding['code']} of {finding['day']}: {finding['text']}")
    line = re.search(rf"^(?:error|warning) {code}: [^\n]*\n  ([^\n]*)", text, re.MULTILINE)
    return wrong, line.group(1) if line else None


def codes_of(program):
    """All codes: name, severity, when and what to do."""
    printed = subprocess.run([program, "check", "--codes"], capture_output=True, text=True, check=True).stdout
    return re.findall(r"^(\S+) \((\w+)\)\n  (.*)\n  (.*)$", printed, re.MULTILINE)


# The document's texts.
HEAD = """# What `tradebill check` finds

`tradebill check` reads the statements of a range as `report` does and tells what is wrong or doubtful in them. It writes
no page, and changes nothing. `report` shows the worst of the same findings and puts all of them into its JSON. The tables of
deposits, exercises and deliveries it reads with `--json` and `--strict` alone: no page shows them.

Errors make figures of a report false, warnings make them doubtful; a note says that something is worth knowing.
`check` ends with 3 if there is an error or a warning, with 0 otherwise. A finding tells its day (that of the file's
name; of two files the later), its file, its line counted from 1, its section, what was expected and what was found.

This document is made by `tests/examples/check_findings.py` from the program's own list, `tradebill check --codes`, and
from the damaged samples below, which it tries in all layouts.

## Codes

| code | severity | when | what to do |
|---|---|---|---|
"""

SAMPLES_HEAD = """
## Damaged samples

Each is a sample of `samples/` with one thing done to its statement of the 16th of January 2024, or to what the run is asked,
and the line of that code that `check` prints, with the other codes that follow from it.
"""


def document(codes, lines):
    text = HEAD
    for name, severity, when, advice in codes:
        text += f"| `{name}` | {severity} | {when} | {advice} |\n"
    text += SAMPLES_HEAD
    for name, _, _, _ in codes:
        if name in OF_IMPORT:
            text += f"\n### `{name}`\n\nOnly `tradebill import` finds it, in a workbook.\n\n```\n{OF_IMPORT[name]}\n```\n"
            continue
        damage = SHOWN[name]
        others = [f"`{other}`" for other in damage.must if other != name]
        follows = f" Found with it: {', '.join(others)}." if others else ""
        text += (f"\n### `{name}`\n\n`samples/{damage.layouts[0]}`: {damage.do.__doc__}.{follows}\n\n"
                 f"```\n{lines[name]}\n```\n")
    return text


def main():
    program, samples, path = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    codes = codes_of(program)
    names = [name for name, _, _, _ in codes]
    wrong = []
    if set(names) != set(SHOWN) | set(OF_IMPORT):
        wrong.append(f"codes without a damaged sample: {sorted(set(names) - set(SHOWN) - set(OF_IMPORT))}")
    lines = {}
    with tempfile.TemporaryDirectory() as scratch, concurrent.futures.ThreadPoolExecutor(2) as pool:
        scratch = pathlib.Path(scratch)
        clean = [pool.submit(check_clean, program, samples, name, scratch / "clean")
                 for name in sorted(path.name for path in samples.iterdir() if (path / "request.ini").exists())]
        damaged = {(code, name): pool.submit(check_damage, program, samples, name, scratch / code, code, damage)
                   for code, damage in (SHOWN | MORE).items() for name in damage.layouts}
        for done in clean:
            wrong += done.result()
        for (code, name), done in damaged.items():
            found, line = done.result()
            wrong += found
            if code in SHOWN and name == SHOWN[code].layouts[0]:
                lines[code] = line
                if line is None:
                    wrong.append(f"{name}: no line of {code}")
    text = document(codes, lines)
    if "--write" in sys.argv:
        path.write_text(text, encoding="utf-8")
    elif not path.exists() or path.read_text(encoding="utf-8") != text:
        wrong.append(f"{path.name} isn't what {pathlib.Path(__file__).name} --write makes of the program's findings")
    for line in wrong:
        print(line)
    print(f"{len(clean)} samples, {len(damaged)} damaged ones: {'as they should be' if not wrong else f'{len(wrong)} faults'}")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
