#!/usr/bin/env python3
"""Has one allocation of the program or of the module fail, or all from one on, and judges what becomes of the run.

Usage: allocations.py BUILD SAMPLES [--all | --seconds N] [--seed N] [--only REGEX]

Of the allocations that are asked for in the same way through the code the first stands for all. Without --all some of
them are tried, for as long as --seconds says (25), chosen by a seed that is printed. What fontconfig and the loader of
programs do without memory is left: allocation_shim.cpp names them.
"""

import argparse
import collections
import concurrent.futures
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

import databases
import seeds
import verdict

HANG_SECONDS = 120
WAYS = ("", ",on")      # once, and for ever
GOOD = ("same", "told")
SHORT = (b"out of memory", b"Cannot allocate memory", b"too much time or memory")
LACKING = b"something may be missing"   # said of outputs that are whole, but lack what there was no memory for
COMMON = ("layouts",)   # what all commands do before they begin is tried with these alone


def account(sample, to="2024-01-04"):
    return ("--root", f"{sample}/root", "--request", f"{sample}/request.ini", "--from", "2024-01-02", "--to", to)


def export(sample, *places):
    return ("export", *account(sample), *places)


TABLES = ("--csv", "tables", "--sqlite", "tables.db", "--quiet")   # the summary has the folder's path
# Name, sample, arguments of the program.
COMMANDS = (
    ("report", "client-bill", ("report", *account("client-bill"), "--out", ".")),
    ("documents", "fund-class", ("report", *account("fund-class"), "--out", ".", "--json", "r.json",
                                 "--standalone", "r.html")),
    ("second page", "fund-status", ("explore", *account("fund-status"), "-o", "explored.html")),
    ("second page of a file", "field/units", ("explore", "field/units", "--out", ".", "-o", "explored.html")),
    ("foreign report", "foreign", ("report", *account("foreign"), "--out", ".", "--json", "-")),
    ("report by template", "template-pairs", ("report", *account("template-pairs"), "--out", ".")),
    ("tables", "fund-status", export("fund-status", *TABLES)),
    ("tables over older", "fund-class", export("fund-class", *TABLES, "--trading-days", "100")),
    ("foreign tables", "foreign", export("foreign", *TABLES)),
    ("diff", "client-bill", ("diff", "one.json", "other.json", "--all")),
    ("anonymise", "client-bill", ("anonymise", "client-bill/root", "--out", "copy", "--request", "client-bill/request.ini",
                                  "--seed", "1")),
    ("anonymise by template", "template-pairs", ("anonymise", "template-pairs/root", "--out", "copy", "--request",
                                                 "template-pairs/request.ini", "--seed", "1")),
    ("foreign anonymise", "foreign", ("anonymise", "foreign/root", "--out", "copy", "--request", "foreign/request.ini",
                                      "--seed", "1")),
    ("import", "tabulated", ("import", "tabulated/root/Users/demo/Data/Bill/D90010004.20240102o.txt", "--root", "new", "--user", "me",
                             "--json", "i.json")),
    ("import of workbooks", "field/workbook", ("import", "field/workbook", "--root", "new", "--user", "me", "--json", "i.json")),
    ("report of a file", "field/units", ("report", "field/units", "--out", ".", "--json", "r.json")),
    ("layouts of a file", "field/units", ("layouts", "field/units/D103988.20260529o.txt")),
    ("check", "tabulated", ("check", *account("tabulated"), "--json", "c.json")),
    ("chart", "client-bill", ("chart", "equity", *account("client-bill"), "-o", "c.png")),
    ("explain", "tabulated", ("explain", "STATEMENT")),
    ("explain, JSON", "tabulated", ("explain", "STATEMENT", "--json")),
    ("template check", "template-pairs", ("template", "check", "TEMPLATE")),
    ("layouts", "tabulated", ("layouts",)),
    ("reset", "tabulated", ("reset", "page.html")),
    ("wrong use", "tabulated", ("report", "--nonsense")),
    ("help", "tabulated", ("report", "--help")),
    ("gallery", "tabulated", ("gallery", "charts")),
)
# What the program has made before, without any failure.
BEFORE = {
    "tables over older": (export("fund-class", *TABLES),),
    "diff": tuple(("report", *account("client-bill", to), "--out", "pages", "--json", name)
                  for name, to in (("one.json", "2024-01-04"), ("other.json", "2024-01-03"))),
}
SLOW = {"gallery": 1999}  # a run of seconds: one failure in so many is made
# Name, sample, layout number, kind.
MODULE_RUNS = (("module", "client-bill", "2", "1"), ("foreign module", "foreign", "0", "2"))


class Scenario:
    """A command, or two runs of the module, in a folder that holds what it reads and what was made `before`."""

    def __init__(self, name, sample, command, before=()):
        self.name, self.sample, self.command, self.before = name, sample, command, before
        self.is_module = False
        self.beginning = {}

    def begin(self, samples, folder):
        """Puts into `folder` what there is before the command: the bytes of all files by their paths."""
        if not self.beginning:
            shutil.copytree(samples / self.sample, folder / self.sample, ignore=without_later_days)
            for command in self.before:
                subprocess.run(command, cwd=folder, capture_output=True, stdin=subprocess.DEVNULL, check=True)
            self.beginning = files_in(folder)
            return
        for path, content in self.beginning.items():
            (folder / path).parent.mkdir(parents=True, exist_ok=True)
            (folder / path).write_bytes(content)

    def run(self, samples, environment):
        """Exit code (None: it hung), both outputs, and all files that are new or others than before."""
        with tempfile.TemporaryDirectory(prefix="allocations-") as name:
            folder = pathlib.Path(name)
            self.begin(samples, folder)
            try:
                ended = subprocess.run(["env", *environment, *self.arguments(folder)], cwd=folder, timeout=HANG_SECONDS,
                                       capture_output=True, stdin=subprocess.DEVNULL, check=False)
            except subprocess.TimeoutExpired:
                return None, b"", b"", {}
            made = {path: content for path, content in files_in(folder).items() if self.beginning.get(path) != content}
            shown = ended.stdout.replace(name.encode(), b"FOLDER")  # in the addresses of pages
            return ended.returncode, shown, ended.stderr, made

    def arguments(self, folder):
        statement = next((folder / self.sample).rglob("*20240102o.txt"), folder).relative_to(folder)
        template = next((folder / self.sample).rglob("BillTemplate/*.ini"), folder).relative_to(folder)
        return [{"STATEMENT": str(statement), "TEMPLATE": str(template)}.get(word, word) for word in self.command]

    def judge(self, clean, ended):
        exit_code, out, err, made = ended
        if exit_code is None:
            return "hung"
        if exit_code < 0 or exit_code >= 128:
            return "crashed"
        if any(name.endswith(".part") or verdict.OF_A_RUN.search(name) for name in made):
            return "left half a file"
        if self.is_module:
            return judge_module(clean, ended)
        if ended[:2] == clean[:2] and databases.with_rows(made) == databases.with_rows(clean[3]):
            return "same"
        if LACKING not in err and are_torn(self.beginning, clean[3], made):
            return "tore the tables"
        told = err.strip() or any(word in out for word in SHORT)
        return "told" if exit_code not in (0, clean[0]) and told else "silent"


def files_in(folder):
    return {str(path.relative_to(folder)): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def are_torn(beginning, clean, made):
    """Whether CSV files are neither all of before nor all of the new run, or a database has rows of neither."""
    csv = {path: content for path, content in made.items() if path.endswith(".csv")}
    if csv and csv != {path: content for path, content in clean.items() if path.endswith(".csv")}:
        return True
    return any(not verdict.is_alike(path, made, clean) and not (path in beginning and verdict.is_alike(path, made, beginning))
               for path in made if databases.is_database(path))


def without_later_days(folder, names):
    if not folder.endswith("/Bill"):
        return []
    return [name for name in names if name.endswith("o.txt") and not re.search(r"\.2024010[2-4]o", name)]


def pages_of(made, folder):
    return {name.split(folder)[1]: content for name, content in made.items() if folder in name}


def judge_module(clean, ended):
    """The second run, without any failure, must be what it is in a process where none ever was."""
    exit_code, out, _err, made = ended
    if b"can't be loaded" in out:
        return "told"
    lines, clean_lines = (dict(line.split(b":", 1) for line in text.splitlines() if b": code " in line)
                          for text in (out, clean[1]))
    whole = pages_of(clean[3], "/Image/")
    if lines.get(b"second") != clean_lines[b"second"] or pages_of(made, "/Image/") != whole:
        return "spoilt the next run"
    if exit_code != 0:
        return "told"
    is_same = lines[b"first"] == clean_lines[b"first"] and pages_of(made, "/Image.first/") == whole
    return "same" if is_same else "silent"


def account_number(samples, sample):
    return re.search(r"^account=(\S+)", (samples / sample / "request.ini").read_text(), re.MULTILINE)[1]


def scenarios(build, samples):
    for name, sample, arguments in COMMANDS:
        program = str(build / "bin" / "tradebill")
        yield Scenario(name, sample, [program, *arguments], [(program, *before) for before in BEFORE.get(name, ())])
    for name, sample, layout, kind in MODULE_RUNS:
        scenario = Scenario(name, sample, [str(build / "bin" / "module_host"), str(build / "lib" / "libtradebill.so"),
                                           f"./././././{sample}/root", account_number(samples, sample), "2024-1-2", "2024-1-3",
                                           layout, kind])
        scenario.is_module = True
        yield scenario


def ways_of(scenario, samples, shim):
    """Numbers of the allocations that stand for all."""
    with tempfile.NamedTemporaryFile() as listed:
        scenario.run(samples, [f"LD_PRELOAD={shim}", f"TRADEBILL_LIST_ALLOCATIONS={listed.name}"])
        numbers = [int(line) for line in listed.read().split()]
    return numbers[:-1]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=lambda path: pathlib.Path(path).resolve())
    parser.add_argument("samples", type=lambda path: pathlib.Path(path).resolve())
    parser.add_argument("--all", action="store_true")
    parser.add_argument("--seconds", type=float, default=25)
    parser.add_argument("--seed", type=int, default=seeds.of_tree())
    parser.add_argument("--only", default="")
    options = parser.parse_args()
    shim = options.build / "lib" / "liballocation_shim.so"
    chosen = [each for each in scenarios(options.build, options.samples) if re.search(options.only, each.name)]
    clean = {each.name: each.run(options.samples, []) for each in chosen}
    jobs = []
    common = 0
    for each in sorted(chosen, key=lambda scenario: scenario.name not in COMMON):
        numbers = ways_of(each, options.samples, shim)
        if each.name in COMMON:
            common = len(numbers)
        skipped = 0 if each.is_module or each.name in COMMON else common * 9 // 10
        jobs += [(each, number, way) for number in numbers[skipped:] for way in WAYS][::SLOW.get(each.name, 1)]
    random.seed(options.seed)
    random.shuffle(jobs)
    print(f"{len(jobs)} failures of {len(chosen)} scenarios, seed {options.seed}")
    return try_all(jobs, clean, options, shim)


def try_all(jobs, clean, options, shim):
    end = float("inf") if options.all else time.monotonic() + options.seconds
    table = collections.defaultdict(collections.Counter)
    faults = []

    def attempt(job):
        scenario, number, way = job
        if time.monotonic() > end:
            return job, None
        ended = scenario.run(options.samples, [f"LD_PRELOAD={shim}", f"TRADEBILL_FAIL_ALLOCATION={number}{way}"])
        return job, scenario.judge(clean[scenario.name], ended)

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for (scenario, number, way), outcome in pool.map(attempt, jobs):
            if outcome is None:
                continue
            table[scenario.name][outcome] += 1
            if outcome not in GOOD:
                faults.append(f"{scenario.name}: {outcome} (TRADEBILL_FAIL_ALLOCATION={number}{way})")
    for name in sorted(table):
        print(f"{name:21}", ", ".join(f"{count} {outcome}" for outcome, count in sorted(table[name].items())))
    print("\n".join(faults) or "none silent, none crashed, none hung, nothing left")
    return 1 if faults or not table else 0


if __name__ == "__main__":
    sys.exit(main())
