#!/usr/bin/env python3
"""Holds what is made of statements titled 交易核算单 against what is made of the same ones titled 交易结算单.

Usage: check_titles.py PROGRAM SAMPLES

Of each sample account some statements are taken, of each layout and template thus; one without a title gets it for its
first line. Under either title `report` makes the same page and the same JSON, and `import` the same of each file.
"""

import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

TITLES = ("交易结算单", "交易核算单")
TITLE = re.compile("|".join(TITLES))
NEEDS_ITS_TEMPLATE = {"bilingual-new", "template-pairs", "template-row"}  # import knows the program's templates only


def titled(data, title):
    text = data.decode("gb18030")
    return (TITLE.sub(title, text) if TITLE.search(text) else f"{title}\r\n{text}").encode("gb18030")


def some_statements(bills):
    """The first and the last two: templates may change between them."""
    paths = sorted(bills.glob("D*.txt"))
    return paths[:2] + paths[-2:]


def told(program, *arguments):
    ended = subprocess.run([program, *map(str, arguments), "--quiet", "--json", "-"], capture_output=True, check=False)
    if not ended.stdout:
        raise SystemExit(f"{arguments}: {ended.stderr.decode(errors='replace')}")
    return ended.returncode, json.loads(ended.stdout)


def made_of(program, sample, title, folder):
    """(exit, JSON, page, exit of the import, what it tells) of a sample's statements under a title."""
    root = folder / "root"
    shutil.copytree(sample / "root", root, ignore=shutil.ignore_patterns("D*.txt", "Image"))
    bills = root / "Users" / "demo" / "Data" / "Bill"
    for path in some_statements(sample / "root" / "Users" / "demo" / "Data" / "Bill"):
        (bills / path.name).write_bytes(titled(path.read_bytes(), title))
    ended, report = told(program, "report", "--root", root, "--request", sample / "request.ini", "--out", folder / "page")
    for statement in report["run"]["statements"]:
        del statement["sha256"]
    page = (folder / "page" / "TradeBill.html").read_bytes()
    imported, answer = told(program, "import", bills, "--root", folder / "new", "--user", "me")
    for file in answer["files"]:
        file["file"] = pathlib.Path(file["file"]).name
        file["to"] = [pathlib.Path(path).name for path in file["to"]]
    return ended, report, page, imported, answer


def check(program, sample):
    made = []
    for title in TITLES:
        with tempfile.TemporaryDirectory(prefix="titles-") as name:
            made.append(made_of(program, sample, title, pathlib.Path(name)))
    ended, report, _, imported, answer = made[0]
    found = [f"under {' and '.join(TITLES)}, {what} differs"
             for what, one, other in zip(("the exit", "the JSON", "the page", "the import's exit", "the import"), *made)
             if one != other]
    if ended != 0 or not report["money"]["Records"] or not report["matches"]:
        found.append(f"the report ends with {ended}, or holds nothing")
    if sample.name not in NEEDS_ITS_TEMPLATE:
        if imported != 0 or any(file["outcome"] != "imported" for file in answer["files"]):
            found.append(f"the import ends with {imported}")
    return found, {statement["layout"] for statement in report["run"]["statements"]}


def main():
    if len(sys.argv) != 3:
        raise SystemExit(__doc__)
    program = sys.argv[1]
    samples = sorted(path.parent for path in pathlib.Path(sys.argv[2]).glob("*/root"))
    if not samples:
        raise SystemExit(f"no accounts in {sys.argv[2]}")
    failed = False
    for sample in samples:
        found, layouts = check(program, sample)
        failed = failed or bool(found)
        print(f"{sample.name} ({', '.join(sorted(layouts))}): {'; '.join(found) or 'the same under both titles'}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
