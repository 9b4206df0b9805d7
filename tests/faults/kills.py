#!/usr/bin/env python3
"""Kills the program at every point and at random moments, reads its page all the while, and runs two programs on one account.

Usage: kills.py BUILD SAMPLES [--random ROUNDS] [--steps ROUNDS] [--reads SECONDS] [--pairs ROUNDS] [--seed NUMBER]

Whatever the moment, page, pictures and documents are whole, each of the older run or of the new one, and no picture of the older
run is under the new page. New pictures under the older page are counted: they are right between the first rename of a run and its
last, which the kills at steps see to. A database is sound, and has the rows of the older run or of the new one. The next run makes
everything as if nobody had been killed, and leaves nothing else.
"""

import argparse
import collections
import multiprocessing
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
from sandbox import Sandbox, Tools
from scenarios import BILLS, FIRST_DAYS, OTHER_DAYS, SCENARIOS, report

PAGE = BILLS + "/Image/TradeBill.html"
DEAD_RUN = re.compile(r"(^|/)\.tradebill[^/]*(/|$)|\.part$|\.older$|\.db-journal$")
BY_NAME = {scenario.name: scenario for scenario in SCENARIOS}
DATABASES = ("tables, database", "second account in a database", "one account of two replaced")
AT_RANDOM = ("report over older", "import over older", "CSV over older", *DATABASES, "documents over older", "library over older", "reset over older")
# Those of few steps first, so that what they don't take is left to the others.
AT_STEPS = ("chart, PNG", "check, JSON", "import of workbooks", "import over older", "report of files over older", *DATABASES, "CSV over older", "reset over older", "report over older",
            "documents over older", "report elsewhere", "report by template", "foreign report", "library over older", "report")


def outputs(tree):
    """A tree without what a dead run may leave until the next."""
    return {path: content for path, content in tree.items() if not DEAD_RUN.search(path)}


class Killed:
    """A scenario that is killed again and again, and what it is without."""

    def __init__(self, scenario, sandbox):
        self.scenario, self.sandbox = scenario, sandbox
        sandbox.set_up(scenario)
        self.clean = sandbox.run(scenario)
        if self.clean.exit != 0:
            raise RuntimeError(f"{scenario.name} ends with {self.clean.exit}: {self.clean.err}")
        sandbox.restore()
        began = time.monotonic()
        self.start().wait()
        self.seconds = time.monotonic() - began

    def start(self):
        return subprocess.Popen(self.sandbox.tools.command(self.scenario), cwd=self.sandbox.box, stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, env=self.sandbox.surroundings)

    def after(self):
        """What the kill left: "old", "new", "pictures ahead", or what is wrong with it."""
        tree, begin, clean = self.sandbox.tree(), self.sandbox.begin, outputs(self.clean.tree)
        paths = begin.keys() | clean.keys() | outputs(tree).keys()
        states = {path: verdict.state(path, tree, begin, clean) for path in paths}
        for path, found in states.items():
            if found == "other" and path not in begin and databases.is_database(path) and databases.is_empty(path, tree):
                continue
            if found == "other" or (found == "absent" and path in begin and path in clean):
                return f"{path} is {found}"
        changed = {path: found for path, found in states.items() if found in ("old", "new")}
        pages = {found for path, found in changed.items() if verdict.is_page(path)}
        pictures = {found for path, found in changed.items() if verdict.is_picture(path)}
        if "new" in pages and "old" in pictures:
            return "pictures of the older run under the new page"
        if "old" in pages and "new" in pictures:
            return "pictures ahead"
        return "new" if "new" in changed.values() and "old" not in changed.values() else "old"

    def heal(self):
        """Runs once more, unharmed; says what isn't as if nobody had been killed."""
        if self.start().wait() != 0:
            return "the next run fails"
        tree, clean = databases.with_rows(self.sandbox.tree()), databases.with_rows(self.clean.tree)
        return "" if tree == clean else f"the next run leaves {sorted(tree.items() ^ clean.items())[0][0]}"


class Report:
    def __init__(self):
        self.counts, self.bad = collections.Counter(), 0

    def add(self, what, outcome, fine, detail):
        self.counts[what, outcome if fine else "WRONG"] += 1
        if not fine:
            self.bad += 1
            print(f"{what}: {detail}: {outcome}", flush=True)

    def print(self):
        for (what, outcome), count in sorted(self.counts.items()):
            print(f"{what:22}{outcome:22}{count:>8}")
        print(f"{self.bad} wrong")


FINE = ("old", "new", "pictures ahead")


def kill_at_random(rounds, dice, sandbox, result):
    for number, name in enumerate(AT_RANDOM):
        killed = Killed(BY_NAME[name], sandbox)
        for _ in range(rounds * (number + 1) // len(AT_RANDOM) - rounds * number // len(AT_RANDOM)):
            sandbox.restore()
            moment = dice.uniform(0, 1.2 * killed.seconds)
            program = killed.start()
            time.sleep(moment)
            program.kill()
            program.wait()
            judge_kill("kill at random", killed, f"{name}, after {moment:.4f} s", result)


def judge_kill(what, killed, detail, result):
    left = killed.after()
    unhealed = killed.heal()
    result.add(what, f"{left}; {unhealed}" if unhealed else left, left in FINE and not unhealed, detail)


def kill_at_steps(rounds, dice, sandbox, result):
    """Kills before each call that changes the disk, or before some if there are more than `rounds`."""
    for number, name in enumerate(AT_STEPS):
        killed = Killed(BY_NAME[name], sandbox)
        share = -(-rounds // (len(AT_STEPS) - number))
        steps = [call for call in killed.clean.calls if call.changes and call.object.startswith(str(sandbox.box))]
        renames = [at for at, call in enumerate(steps) if call.name.startswith("rename")]
        chosen = sorted(dice.sample(range(len(steps)), min(len(steps), share)))
        rounds -= len(chosen)
        for at in chosen:
            call = steps[at]
            sandbox.restore()
            sandbox.run(killed.scenario, call.options("kill"))
            detail = f"'{name}' before {call.name} {call.object} {call.number}"
            if killed.after() == "pictures ahead" and not renames[0] < at <= renames[-1]:
                result.add("kill at a step", "pictures ahead before or after the renames", False, detail)
            judge_kill("kill at a step", killed, detail, result)


def read_on(path, whole, stop, counts):
    """Reads a page again and again; counts what is whole and what isn't."""
    whole_reads = torn = 0
    while not stop.is_set():
        try:
            content = pathlib.Path(path).read_bytes()
        except FileNotFoundError:
            content = b""
        if content in whole:
            whole_reads += 1
        else:
            torn += 1
    counts.put((whole_reads, torn))


def program_over(sandbox, days):
    return subprocess.Popen([sandbox.tools.program, *report("--quiet", days=days)], cwd=sandbox.box, env=sandbox.surroundings,
                            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def trees_of_both(sandbox):
    """What each of two requests leaves alone."""
    trees = []
    for days in (OTHER_DAYS, FIRST_DAYS):
        sandbox.restore()
        program_over(sandbox, days).wait()
        trees.append(sandbox.tree())
    return trees


def read_beside(seconds, sandbox, result):
    sandbox.set_up(BY_NAME["report over older"])
    pages = [tree[PAGE] for tree in trees_of_both(sandbox)]
    stop, counts = multiprocessing.Event(), multiprocessing.Queue()
    reader = multiprocessing.Process(target=read_on, args=(sandbox.box / PAGE, pages, stop, counts))
    reader.start()
    end, runs = time.monotonic() + seconds, 0
    while time.monotonic() < end:
        program_over(sandbox, (OTHER_DAYS, FIRST_DAYS)[runs % 2]).wait()
        runs += 1
    stop.set()
    whole, torn = counts.get()
    reader.join()
    result.counts["page read beside", f"whole in {runs} runs"] += whole
    if torn or not whole:
        result.bad += 1
        result.counts["page read beside", "WRONG"] += torn


def run_pairs(rounds, dice, sandbox, result):
    sandbox.set_up(BY_NAME["report"])
    both = trees_of_both(sandbox)
    for number in range(rounds):
        sandbox.restore(dice.choice((sandbox.begin, *both)))
        first = program_over(sandbox, OTHER_DAYS)
        time.sleep(dice.uniform(0, 0.02))
        second = program_over(sandbox, FIRST_DAYS)
        ends = first.wait(), second.wait()
        tree = sandbox.tree()
        outcome = "page and pictures of the " + ("first" if tree == both[0] else "second")
        result.add("two programs", outcome if tree in both and ends == (0, 0) else f"ends {ends}, a mixture: {tree not in both}",
                   tree in both and ends == (0, 0), f"round {number}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("samples", type=pathlib.Path)
    parser.add_argument("--random", type=int, default=0)
    parser.add_argument("--steps", type=int, default=0)
    parser.add_argument("--reads", type=float, default=0)
    parser.add_argument("--pairs", type=int, default=0)
    parser.add_argument("--seed", type=int, default=seeds.of_tree())
    settings = parser.parse_args()
    print(f"seed {settings.seed}", flush=True)
    dice, result = random.Random(settings.seed), Report()
    folder = pathlib.Path(tempfile.mkdtemp(prefix="kills."))
    try:
        sandbox = Sandbox(folder, Tools(settings.build.resolve(), settings.samples.resolve()))
        if settings.steps:
            kill_at_steps(settings.steps, dice, sandbox, result)
        if settings.reads:
            read_beside(settings.reads, sandbox, result)
        if settings.pairs:
            run_pairs(settings.pairs, dice, sandbox, result)
        if settings.random:
            kill_at_random(settings.random, dice, sandbox, result)
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    result.print()
    return result.bad != 0 or not result.counts


if __name__ == "__main__":
    sys.exit(main())
