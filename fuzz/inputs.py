#!/usr/bin/env python3
"""What fuzzing begins with: inputs made of the samples, and dictionaries made of the words in the sources.

    inputs.py seeds FOLDER      writes FOLDER/TARGET/..., for each target the inputs that it begins with
    inputs.py dictionaries      writes fuzz/dictionaries/TARGET.dict
    inputs.py check             fails if a dictionary isn't what it would write
"""
import itertools
import re
import struct
import sys
import zlib
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parent
SAMPLES = ROOT / "samples"
DICTIONARIES = HERE / "dictionaries"

# Places in the table of fuzz_statement.cpp.
FORMAT_CHOICES = {0: 0, 1: 1, 2: 2, 3: 3, 6: 4, 201: 5, 5: 6}
FOREIGN_CHOICE = 7
KEPT_ROWS = 2  # of those that look alike
NUL = b"\0"
EXTREMES = [b"1e308", b"0.00", b"-1e308", b"999999999999.99", b"-0.01", b"1e-300", b"2147483648.00"]


def settings_of(sample):
    return dict(re.findall(r"^(\w+)=(.*)$", (sample / "request.ini").read_text(), re.M))


def choice_of(sample):
    settings = settings_of(sample)
    choice = FOREIGN_CHOICE if settings["kind"] == "foreign" else FORMAT_CHOICES[int(settings["format"])]
    return bytes([choice])


def short(text):
    """A statement without most of the rows that only repeat what stands above them, and with short rules and gaps."""
    lines, shapes = [], {}
    for line in text.replace(b"\r\n", b"\n").split(b"\n"):
        line = re.sub(rb" {3,}", b"  ", re.sub(rb"-{9,}", b"-" * 8, line))
        word = re.sub(rb"[\d\s|.,:-]", b"", line)[:6]  # a label, or the name of a product
        shape = (line.count(b"|"), len(line.split()), word)
        shapes[shape] = shapes.get(shape, 0) + 1
        if shapes[shape] <= KEPT_ROWS or b":" in line or b"\xa3\xba" in line:
            lines.append(line)
    return b"\n".join(lines)


def extreme(text, first):
    """A statement with the ends of what an amount can be in the places of its amounts."""
    amounts = itertools.islice(itertools.cycle(EXTREMES), first, None)
    return re.sub(rb"\d+\.\d\d", lambda _: next(amounts), text)


def statements_of(sample):
    """Short statements of two days that follow each other, and of one further on."""
    files = sorted((sample / "root/Users").glob("*/Data/Bill/D*.txt"))
    return [short(files[i].read_bytes()) for i in (1, 2, min(19, len(files) - 1))]


def samples():
    return [sample for sample in sorted(SAMPLES.iterdir()) if (sample / "request.ini").exists()]


def templates():
    return [file.read_bytes() for file in sorted(SAMPLES.glob("*/root/BillTemplate/*.ini"))]


def read(path):
    return path.read_bytes() if path.exists() else b""


def head(text, lines):
    return b"\n".join(text.split(b"\n")[:lines])


def amount(number):
    return struct.pack(">d", number)


def png(width, height, bits, colour, rows, *chunks):
    """A PNG file; `rows` are raw rows, `chunks` stand before them."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    header = struct.pack(">IIBBBBB", width, height, bits, colour, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + b"".join(chunk(*made) for made in chunks)
            + chunk(b"IDAT", zlib.compress(b"".join(NUL + row for row in rows))) + chunk(b"IEND", b""))


def pictures():
    palette = (b"PLTE", bytes(range(48)))
    yield png(2, 2, 8, 2, [bytes(range(6))] * 2)
    yield png(2, 2, 8, 6, [bytes(range(8))] * 2)
    yield png(2, 2, 16, 6, [bytes(range(16))] * 2)
    yield png(2, 2, 8, 0, [b"\x10\xf0"] * 2, (b"tRNS", b"\0\x10"))
    yield png(4, 1, 2, 3, [b"\x1b"], palette, (b"tRNS", b"\x80\x40"))
    yield png(3, 3, 8, 4, [bytes(range(6))] * 3, (b"gAMA", b"\0\0\xb1\x8f"))
    jpeg = "ffd8ffe000104a46494600010101006000600000ffdb0043" + "00" + "10" * 64
    jpeg += "ffc0001108000200020301110002110103110" + "1" + "ffda000c03010002110311003f00"
    yield bytes.fromhex(jpeg)


# As chart_fuzz.cpp takes them.
CHART_SETTINGS = """numTicks graphType2 graphAlignment decimalDigits decimalDigits2 seriesSize seriesSize2 xAxisAlign
    xAxisLabelLength graphHasGridLines graphQuadType quadSetManually depthShiftX depthShiftY lineWidth fillArea midLineThick
    markerRadius avoidLabelOverlap showValues valueGapDivisor dualAxis legendKind2 topRowMode baseRow rightBorder swatchTitle
    dpi""".split()
CHART_SCALES = 9
CHART_PIES = (2, 9)


def chart(kind, settings, first):
    """Three groups and a second axis, with values from `first` on; if that is above 100 every other one is negative."""
    def series(positions, groups):
        values = (bytes([2, 256 - i]) if i % 2 and first > 100 else bytes([3, (first + 9 * i) % 256]) for i in range(positions * groups))
        return bytes([positions]) + b"".join(values)
    chosen = b"".join(b"\3\0" + bytes([settings[name]]) if name in settings else NUL for name in CHART_SETTINGS)
    positions = 1 if kind in CHART_PIES else 5
    return (b"\xff\0" + bytes([kind, 3, 1]) + series(positions, 3) + series(positions, 1) + NUL * CHART_SCALES + chosen
            + NUL.join(b"title|second|x|y|wan|%|one|two|three|four|five".split(b"|")))


def statement_seeds(seeds):
    for number, sample in enumerate(samples()):
        choice, days = choice_of(sample), statements_of(sample)
        for i, day in enumerate(days):
            seeds["readers"].append(choice + bytes([2 * i + 1]) + day)
        wild = [extreme(days[0], 0), extreme(days[1], 3), extreme(days[2], 5)]
        seeds["readers"].append(choice + b"\6" + wild[0])
        for account in (days, wild):
            seeds["anonymise"].append(choice + bytes([number, number]) + NUL.join(account))
            seeds["findings"].append(choice + b"\1" + NUL.join(account))
            seeds["run"].append(choice + b"\3" + NUL.join(account[:2]))
        name = sorted((sample / "root/Users").glob("*/Data/Bill/D*.txt"))[0].name.encode()
        for form in range(4):
            seeds["intake"].append(bytes([form]) + name + NUL + NUL + (days[0] + days[1] if form % 2 else days[2]))
        live = NUL.join(re.findall(rb"^\w+=(.*?)\r?$", read(sample / "live.ini"), re.M)[:18])
        chain = head(read(sample / "root/sys/chain.ini"), 8)
        seeds["run"].append(choice + b"\x0f" + chain + NUL + live + NUL + amount(1.0) + days[0])
        seeds["run"].append(choice + b"\x31" + struct.pack(">i", -96) + days[1])
        absurd = 7 + number % 3  # resolutions
        seeds["run_pictures"].append(choice + bytes([1, 0, absurd, 0]) + days[0] + NUL + b"\x60\x20")
        for screen in (number % 2, 2 + number % 2):
            seeds["run_pictures"].append(choice + bytes([1, screen, screen, 1]) + NUL.join(wild if screen > 1 else days) + NUL + b"\x90\x60")
        for template in templates():
            for day in range(3):
                seeds["template"].append(choice + bytes([day]) + template + NUL + days[2])
            if (sample / "root/BillTemplate").exists():
                seeds["findings"].append(choice + b"\3" + template + NUL + NUL.join(days))


def file_seeds(seeds):
    for sample in samples():
        request, units = read(sample / "request.ini"), head(read(sample / "units.ini"), 6)
        live, products = head(read(sample / "live.ini"), 24), head(read(sample / "products.ini"), 6)
        seeds["ini"] += [request, live, units, products, head(read(sample / "root/sys/chain.ini"), 20)]
        seeds["request"].append(b"\0" + request + NUL)
        seeds["request"].append(b"\7" + NUL.join([request, live, units, products, b"cu2403"]) + NUL)
    seeds["ini"] += templates()
    numbers = struct.pack(">ii", 96, 1) + b"\1\1\1\1"
    for dates in (b"2024-01-02\0" b"2024-01-04\0", NUL * 2, b"1969-13-01\0" b"3001-01-01\0"):
        seeds["host"].append(numbers + dates + b"1\0u\0t\0" + NUL.join(str(i).encode() for i in range(40)))


def small_seeds(seeds):
    numbers = NUL.join([b"1,234.50", b"-0.005", b"1e308", b".5", b"2147483648", b"20240229", b"2024-2-29", b"1e-400"])
    hostile = [b"\xc2\xf2<", b"a\"b", b"c\\d", b"\x1b\n", b"\x81", b"\xff\xff", b"plain"]
    for number in (0.005, -1234.565, 1e300, float("inf"), float("nan"), 5e-324):
        seeds["numbers"].append(b"\4" + amount(number) + numbers)
        seeds["tables"].append(b"\3" + amount(number) + b"\2" + b"20240102\0" + b"\4" + struct.pack(">ii", 7, -96))
        seeds["json"].append(amount(number) + b"\1\1" + NUL.join(hostile[i % len(hostile)] + str(i).encode() for i in range(90)))
    record = b'{"schema":1,"%s":[{"BILL_DATE":"20240102","CONTRACT":"%s","POUNDAGE":"%s","values":{"POUNDAGE":1.50}}],"money":{"Records":[]}}'
    for name, contract, fee in ((b"matches", b"cu2403", b"1.50"), (b"closed", b"cu2404", b"2"), (b"days", b"", b"")):
        seeds["diff"].append(record % (b"matches", b"cu2403", b"1.5") + NUL + record % (name, contract, fee))
    cells = hostile + [b"=1+1", b"'a", b"\xef\xbc\x9d1", b"a,b;c", b"\r\n", b"\t", b"\"\"", b"@", b""]
    for kind in range(2):
        seeds["tables"].append(b"".join(bytes([kind]) + cell + NUL for cell in cells))
    seeds["tables"].append(b"".join(b"\2" + day + NUL for day in (b"2024-01-02", b"20241301", b"2024-1-2", b"20240132")) + b"\5\5")
    for day in statements_of(SAMPLES / "bilingual"):
        seeds["text"].append(b"||\0" + day[:1200])
        seeds["text"].append(b" \xd3\xc3\0" + day[-400:])
    cells = NUL.join([b"a", b"b", b"<td>"])
    for cell in (b"</body>", b"<html>", b"a\nb", b"a\r\nb", b"</head>"):
        seeds["page"].append(b"\0\1\0" + cell + b"\0b\0c\0\x08\0\1\1a\0" + cell + b"\0c\0\0")
    seeds["page"] += [
        b"\2<script>\r\n\0" b"\3\1.c\0f f\0\x10red\0" b"\1\1" + cells + b"\0" b"\0" b"\1\0" + cells + b"\0\0\2</body>\r\n\0\0\x08",
        b"\4a\0b\0" b"\5\2</head>\0" b"\6 \tnote\0" b"\7\x20" b"\2\r\n</html>\0\0\x08\2x\n\0\0"]
    seeds["picture"] += list(pictures())
    for kind in range(12):
        for settings in ({}, {"fillArea": 1, "showValues": 1, "topRowMode": 1, "baseRow": 1, "swatchTitle": 1},
                         {"graphAlignment": 0, "showValues": 1, "avoidLabelOverlap": 1, "graphHasGridLines": 1, "xAxisAlign": 90},
                         {"dualAxis": 1, "graphType2": 0, "legendKind2": 2, "showValues": 1, "midLineThick": 2},
                         {"dualAxis": 1, "graphType2": 1, "lineWidth": 3, "markerRadius": 5, "dpi": 120, "depthShiftX": 4},
                         {"graphQuadType": 3, "quadSetManually": 0, "rightBorder": 1, "decimalDigits": 2}):
            for first in (10, 200):
                seeds["chart"].append(chart(kind, settings, first))


# A small day: label and value of the first sheet, and the other sheets by rows, headings first.
DAY_FIGURES = """资金账户 9001 交易日期 20240102 上日结存 1000.00 当日存取合计 -- 当日盈亏 10.00 当日手续费 1.00 当日结存 1009.00 客户权益 1009.00
    保证金占用 100.00 可用资金 909.00 风险度 9.91% 当日总权利金 0.00""".split()
DAY_SHEETS = {
    "成交明细": ["合约 成交序号 买/卖 投机/套保 成交价 手数 成交额 开/平 手续费 平仓盈亏", "lc2402 0071 买 投机 #97000 2 194000.00 开 1.00 --", "合计"],
    "平仓明细": ["合约 成交序号 买/卖 成交价 开仓价 手数 昨结算价 平仓盈亏 原成交序号", "lc2402 0072 卖 97005 97000 2 97000 10.00 0071", "合计"],
    "持仓明细": ["合约 成交序号 买持仓 买入价 卖持仓 卖出价 昨结算价 今结算价 持仓盈亏", "i2405 0073 -- -- 5 1000.0 1000 1000 0.00", "合计"],
    "期权成交明细": ["品种合约 流水号 买/卖 权利金单价 成交量 权利金 手续费", "SR405C6300 0074 卖 75 3 2250 1", "合计"],
    "期权持仓汇总": ["品种合约 期权类型 买持仓 买均价 卖持仓 卖均价 昨结算价 今结算价 交易保证金", "SR405C6300 看涨 3 75 1 76 70 74 50", "合计"],
}


def workbook_seeds(seeds):
    def cell(row, column, text):
        return bytes([row, column]) + text.encode() + NUL

    def xml(rows):
        def value(text):
            return f"<c><v>{text[1:]}</v></c>" if text.startswith("#") else f'<c t="inlineStr"><is><t>{text}</t></is></c>'
        return ("<w>" + "".join("<row>" + "".join(map(value, row)) + "</row>" for row in rows) + "</w>").encode()

    figures = [DAY_FIGURES[i:i + 2] for i in range(0, len(DAY_FIGURES), 2)]
    cells = b"".join(cell(i, 0, label) + cell(i, 2, value) for i, (label, value) in enumerate(figures))
    for sheet, rows in DAY_SHEETS.items():
        cells += b"\xff" + sheet.encode() + NUL
        cells += b"".join(cell(9 + i, j, text) for i, row in enumerate(rows) for j, text in enumerate(row.split()))
    seeds["workbook"].append(b"\2" + cells)
    positions = [row.split() for row in DAY_SHEETS["持仓明细"]]
    shared = '<sst><si><t>买</t></si><si><r><t>开</t></r><r><t> 仓</t></r></si></sst>'.encode()
    seeds["workbook"].append(b"\1" + NUL.join([shared, xml(figures), xml(positions)]))
    seeds["workbook"].append(b"\1" + NUL.join([shared, xml(figures), b'<w><row r="3"><c r="B3" t="s"><v>1</v></c><c><f>1</f><v>2</v></c></row></w>']))


def write_seeds(folder):
    targets = re.findall(r'\{"(\w+)", +Fuzz', (HERE / "fuzz_targets.cpp").read_text())
    seeds = {target: [] for target in targets}
    statement_seeds(seeds)
    file_seeds(seeds)
    small_seeds(seeds)
    workbook_seeds(seeds)
    for target, inputs in seeds.items():
        (folder / target).mkdir(parents=True, exist_ok=True)
        for i, data in enumerate(sorted(set(inputs))):
            (folder / target / f"seed{i:03}").write_bytes(data)


def literals(folder, pattern):
    found = set()
    for source in sorted((ROOT / "src" / folder).rglob("*.[ch]*")):
        found |= set(re.findall(pattern, source.read_text(encoding="utf-8")))
    return found


def dictionaries():
    """The words of each target, as bytes."""
    gbk = r'"([^"\\\n]+)"_gbk'
    titles = {word.encode("gbk") for word in literals("readers", gbk)}
    titles |= {b"|", b"\n", b"\r\n", b"--------\n", b"-", b"Base", b"1,234.50", b"-0.01", b"20240102"} | set(EXTREMES)
    keys = {word.encode() for word in literals("readers", r'"([A-Z][A-Z0-9_]{2,})"')}
    keys |= {b"[", b"]\n", b"=", b"\n", b";", b"\"", b"20240102", b"-1", b"99"}
    settings = {word.encode() for word in literals("cli", r'"([a-z_]{2,13}|[A-Z]{3,})"')}
    fields = {word.encode() for word in literals("report", r"TRADEBILL_\w+_FIELD\(MoneyRecord, (\w+)\)")}
    tags = {b"<html>", b"<body>", b"</body>", b"</html>", b"</head>", b"<head>", b"\r\n", b"\r\r\n", b"\n", b"\0", b"<td>"}
    ini = keys | {b"[REQUEST]\n", b"[UNITS]\n", b"[PRODUCTS]\n", b"[BASE]\n", b"[CURRENCY1]\n", b"2024-01-02", b"\xef\xbb\xbf"}
    numbers = {b"1e308", b"-1e-320", b".", b"e+", b"2147483647", b"-2147483648", b",", b"0x1p3", b"inf", b"nan", b"9999999999999"}
    chunks = {b"IHDR", b"IDAT", b"PLTE", b"tRNS", b"gAMA", b"sRGB", b"IEND", b"\x89PNG\r\n\x1a\n", b"\xff\xd8\xff", b"\xff\xc0"}
    doubles = {amount(number) for number in (1e300, -1e300, float("inf"), float("nan"), 0.0, 5e-324, 1e9)}
    labels = {word.encode("gbk") for word in literals("anonymise", gbk)}
    heads = {word.encode("gbk") for folder in ("findings", "intake") for word in literals(folder, gbk)}
    return {
        "anonymise": titles | labels, "readers": titles, "findings": titles, "run": titles, "run_pictures": titles, "template": titles | keys,
        "ini": ini, "request": ini | settings | fields, "host": {b"2024-01-02", b"3000-12-31", b"1970-1-1", b"\xff" * 4},
        "intake": titles | heads | {b"\r", b"20240102-20240131", b"\xef\xbb\xbf", b"\xff\xfe", b"\xfe\xff", b"\x81\x30\x81\x30"},
        "numbers": numbers | doubles | {b"1,234.50"}, "text": tags | {b"|", b" ", b"\xa1\xa1", b"\x80", b"\xef\xbf\xbd"},
        "diff": {b'"schema":1', b'"analysis"', b'"matches"', b'"BILL_DATE"', b'"values"', b'"money"', b'"Records"', b"null"},
        "tables": doubles | {b"\"", b",", b"=", b"'", b"\r\n", b"\t", b"\x80", b"\xef\xbc\x9d", b"2024-01-02", b"20240102", b"-"},
        "workbook": {word.encode() for row in DAY_SHEETS.values() for word in row[0].split()} | {word.encode() for word in DAY_FIGURES}
        | {b"--", b"\xff", b'<row r="', b"<c>", b"</row>", b't="s"', b"<v>", b"<f>", b"&amp;", b"\x09\x08\x10\x00", b"\x06\x00"},
        "json": doubles | {b"\"", b"\\", b"\x1f", b"\x80", b"\xff"}, "page": tags, "picture": chunks, "chart": doubles,
    }


def dictionary_text(words):
    def quoted(word):
        return "".join(chr(byte) if 32 < byte < 127 and byte not in b'"\\' else f"\\x{byte:02x}" for byte in word)
    return "".join(f'"{quoted(word)}"\n' for word in sorted(words))


def main():
    arguments = sys.argv[1:]
    if len(arguments) == 2 and arguments[0] == "seeds":
        write_seeds(Path(arguments[1]))
    elif arguments == ["dictionaries"]:
        DICTIONARIES.mkdir(exist_ok=True)
        for target, words in dictionaries().items():
            (DICTIONARIES / f"{target}.dict").write_text(dictionary_text(words), encoding="ascii")
    elif arguments == ["check"]:
        for target, words in dictionaries().items():
            if (DICTIONARIES / f"{target}.dict").read_text(encoding="ascii") != dictionary_text(words):
                sys.exit(f"fuzz/dictionaries/{target}.dict isn't up to date: run fuzz/inputs.py dictionaries")
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()
