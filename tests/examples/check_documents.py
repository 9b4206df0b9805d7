#!/usr/bin/env python3
"""Fails if a document no longer tells the truth: its commands must run, its links must lead somewhere, its C host must be the one
that is built, and the guide must know the options of a report, in both languages.

Usage: check_documents.py SOURCE PROGRAM
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

# Blocks of commands that can't be run here, by document and beginning, and why.
NOT_RUN = {
    ("README.md", "./run"): "it installs packages and builds",
    ("README.zh.md", "./run"): "it installs packages and builds",
    ("docs/batch.md", "tradebill batch --root /data/"): "folders of a data centre; the guide has the call with a sample",
    ("docs/charts.md", "build/linux/bin/raster_vectors"): "programs of developers; tests and benchmarks run them",
    ("docs/embedding.md", "cl /I include"): "compilers of other systems; examples.guide_host builds the host",
    ("docs/guide.md", "cmake --install"): "examples.library_hosts installs",
    ("docs/guide.zh.md", "cmake --install"): "examples.library_hosts installs",
    ("docs/hosts.md", "cc host.c"): "examples.library_hosts builds it",
    ("docs/recipes.md", "tradebill export"): "examples.recipes runs all of them",
    ("docs/recipes.md", "sqlite3"): "examples.recipes runs all of them",
}
# Whole lines or their beginnings.
EXITS = {
    "tradebill diff": 3,  # the two that the documents compare differ
    "tradebill explain haichuan/Users/me/Data/Bill/D90010099.20240102o.txt\n": 2,  # before there is a template for it
}
HOSTS = {"investorservice.cfmmc.com", "keepachangelog.com", "semver.org"}
DOWNLOADS = ("下载", "downloads")  # folders in which readers have statements
GUIDES = ("docs/guide.md", "docs/guide.zh.md")


class Untrue(Exception):
    """What a document says that isn't so."""


def check_worked_template(folder):
    """What the report has is what the statement prints."""
    report = json.loads((folder / "report.json").read_text(encoding="utf-8"))
    statement = (folder / "statement.txt").read_text(encoding="utf-8")
    money = report["money"]["Records"][0]
    labels = {"QCQY": "上日结存", "QMJC": "当日结存", "CRJ": "出入金", "SXF": "手续费", "PCYK": "平仓盈亏", "CCDSYK": "盯市盈亏",
              "KHQY": "客户权益", "BZJZY": "占用保证金", "KYZJ": "可用资金"}
    for field, label in labels.items():
        printed = re.search(label + r"：  (\S+)", statement)[1]
        if money[field] != printed:
            raise Untrue(f"docs/templates.md: {label} is {printed}, and {money[field]} is read")
    rows = [line.split(";") for line in statement.splitlines() if line.startswith("20240102;")]
    trades = [[row["MATCH_DATE"], row["EXCH_NAME"], row["CONTRACT"], row["BID"], row["OFFSET"], row["MATCH_PRICE"], row["MATCH_VOL"],
               row["TURNOVER"], row["POUNDAGE"], row["OFFSETPL"], row["ROYALTY"], row["MATCHNO"], row["HEDGE"]]
              for row in report["matches"]]
    if trades != [row for row in rows if len(row) == 13]:
        raise Untrue("docs/templates.md: other trades are read than the statement has")
    closed = [(row["OPEN_DATE"], row["OPEN_PRICE"], row["MATCH_PRICE"], row["OFFSETPL"]) for row in report["closed"]]
    if closed != [(row[6], row[7], row[4], row[11]) for row in rows if len(row) == 12]:
        raise Untrue("docs/templates.md: another closed position is read than the statement has")


RESULTS = {"docs/templates.md": check_worked_template}
# What readers are told to save as a file: its name, and the block behind it.
SAVED = r"Save (?:it )?as UTF-8 in `([\w.]+)`:\n\n```\w+\n(.*?)^```"


def documents(source):
    return sorted([*source.glob("README*.md"), *source.glob("docs/*.md")])


def blocks(text, language):
    return re.findall(r"^```" + language + r"\n(.*?)^```", text, re.DOTALL | re.MULTILINE)


def commands_of(block):
    return [line for line in block.replace("\\\n", " ").splitlines() if line.strip()]


def why_not_run(name, block):
    return next((why for (document, start), why in NOT_RUN.items() if document == name and block.startswith(start)), None)


def scratch(source, program, folder):
    """What a reader's folder has: the samples, the program by both of its names, and downloads."""
    shutil.copytree(source / "samples", folder / "samples")
    for place in ("build/linux/bin", "bin"):
        (folder / place).mkdir(parents=True)
        (folder / place / "tradebill").symlink_to(program)
    statements = folder / "samples/fund-status/root/Users/demo/Data/Bill"
    for name in DOWNLOADS:
        (folder / name).mkdir()
        for file in statements.glob("D*.txt"):
            shutil.copy(file, folder / name)


def run_commands(source, program, name, text):
    """Returns how many were run: those of a document share a folder."""
    wanted = [block for block in blocks(text, "sh") if why_not_run(name, block) is None]
    lines = [line for block in wanted for line in commands_of(block)]
    if not lines:
        return 0
    with tempfile.TemporaryDirectory() as path:
        folder = pathlib.Path(path)
        scratch(source, program, folder)
        environment = dict(os.environ, PATH=f"{folder}/bin:{os.environ['PATH']}", HOME=path, XDG_CONFIG_HOME=path)
        for file, content in re.findall(SAVED, text, re.DOTALL | re.MULTILINE):
            (folder / file).write_text(content, encoding="utf-8")
        for line in lines:
            print(f"{name}: {line}", flush=True)
            end = subprocess.run(["bash", "-c", line], cwd=folder, env=environment, check=False, stdout=subprocess.DEVNULL)
            expected = next((exit for start, exit in EXITS.items() if (line + "\n").startswith(start)), 0)
            if end.returncode != expected:
                raise Untrue(f"{name}: it ends with {end.returncode}: {line}")
        if name in RESULTS:
            RESULTS[name](folder)
    return len(lines)


def anchors(text):
    """As the hosts of repositories make them of headings."""
    outside = re.sub(r"^```.*?^```", "", text, flags=re.DOTALL | re.MULTILINE)
    headings = re.findall(r"^#+ +(.*)$", outside, re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def check_links(source, document):
    text = re.sub(r"^```.*?^```", "", document.read_text(encoding="utf-8"), flags=re.DOTALL | re.MULTILINE)
    for link in re.findall(r"\]\(([^)\s]+)\)", re.sub(r"`[^`\n]*`", "", text)):
        if "://" in link:
            if link.split("/")[2] not in HOSTS:
                raise Untrue(f"{document}: nobody has looked at {link}")
            continue
        path, _, anchor = link.partition("#")
        target = document if not path else document.parent / path
        if not target.exists():
            raise Untrue(f"{document}: there is no {path}")
        if anchor and anchor not in anchors(target.read_text(encoding="utf-8")):
            raise Untrue(f"{document}: {path} has no heading #{anchor}")


def check_c_host(source):
    host = (source / "examples/c_host/host.c").read_text(encoding="utf-8")
    if host not in blocks((source / "docs/embedding.md").read_text(encoding="utf-8"), "c"):
        raise Untrue("docs/embedding.md: its C host is not examples/c_host/host.c")


def options_of(text):
    return set(re.findall(r"(?<![\w-])--[a-z][a-z-]+", text))


def check_guide(source, program, name):
    """The table of a report's options has what the program has."""
    text = (source / name).read_text(encoding="utf-8")
    rows = [line.split("|")[1] for line in text.splitlines() if line.startswith("| `--")]
    told = {option for row in rows for option in options_of(row)}
    shown = subprocess.run([program, "report", "--help"], check=True, capture_output=True, text=True, encoding="utf-8").stdout
    there = {option for line in shown.splitlines() for option in re.findall(r"^  (?:-\w,)?(--[a-z-]+)", line)} - {"--help"}
    if told != there:
        raise Untrue(f"{name}: options that only it, or only the program, has: {sorted(told ^ there)}")


def check_same_guides(source):
    """What isn't language is the same in both."""
    one, other = ((source / name).read_text(encoding="utf-8") for name in GUIDES)
    for what, parts in (("commands", lambda text: blocks(text, "sh")),
                        ("configuration", lambda text: blocks(text, "ini")),
                        ("headings", lambda text: re.findall(r"^#+(?= )", text, re.MULTILINE)),
                        ("options", lambda text: sorted(options_of(text)))):
        if parts(one) != parts(other):
            raise Untrue(f"{GUIDES[1]}: other {what} than in {GUIDES[0]}")


def check_all(source, program):
    ran = 0
    for document in documents(source):
        name = document.relative_to(source).as_posix()
        text = document.read_text(encoding="utf-8")
        ran += run_commands(source, program, name, text)
    for document in [*documents(source), *source.glob("*.md"), *source.glob("*/README.md"), *source.glob("examples/*/README.md")]:
        check_links(source, document)
    for (name, start) in NOT_RUN:
        if not any(block.startswith(start) for block in blocks((source / name).read_text(encoding="utf-8"), "sh")):
            raise Untrue(f"{name}: it has no block {start} any more")
    check_c_host(source)
    for name in GUIDES:
        check_guide(source, program, name)
    check_same_guides(source)
    print(f"{ran} commands")


def main():
    try:
        check_all(pathlib.Path(sys.argv[1]).resolve(), str(pathlib.Path(sys.argv[2]).resolve()))
    except Untrue as what:
        raise SystemExit(str(what)) from what
    return 0


if __name__ == "__main__":
    sys.exit(main())
