"""Runs a room's tests with each of its mutants switched on, and says which the tests don't notice.

Usage: run_mutants.py TREE UNDETECTED.txt [--sample N] [--seed S] [--room ROOM] [--seconds S] [--mutant NUMBER...]

Of the tests that lie in the room's folder only those run that pass the mutant, the quickest first, until one fails; of slow ones as
many as take 5 s together without a mutant (--seconds). A mutant is killed by a failure, by a crash, or by a hang: ten times the
time that the tests take without a mutant, and 10 s more.

UNDETECTED.txt names mutants that no test can notice, and why: FILE | TEXT | MUTATION | REASON in each line, where TEXT stands in
the mutated line and MUTATION is shown beside it here. They count as any other. Ends with 1 if fewer than 90 % are killed, and
where a mutant is named and killed.
"""
import argparse
import collections
import json
import os
import random
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "support"))
import kept_list

LEAST = 0.9
TESTS_AT_ONCE = 400  # as the names of more make too long a command


class Tests:
    """Which tests of which room pass which mutant, quickest first."""

    def __init__(self, tree, seconds):
        self.program = os.path.join(tree, "build/bin/unit_tests")
        self.seconds = seconds
        self.milliseconds = {}
        self.by_mutant = collections.defaultdict(list)
        told = os.path.join(tree, "reached.txt")
        if not os.path.exists(told) or os.path.getmtime(told) < os.path.getmtime(self.program):
            self.tell_reached(told)
        with open(told, encoding="utf-8") as file:
            lines = [line.rstrip("\n").split("\t") for line in file]
        for name, source, milliseconds, numbers in sorted(lines, key=lambda line: int(line[2])):
            room = source.split("/tests/")[-1].split("/")[0]
            self.milliseconds[name] = int(milliseconds)
            for number in numbers.split():
                self.by_mutant[room, int(number)].append(name)

    def tell_reached(self, path):
        environment = dict(os.environ, TRADEBILL_MUTANT="-1", TRADEBILL_REACHED=path + ".part")
        if subprocess.run([self.program, "--gtest_brief=1"], env=environment, check=False).returncode != 0:
            sys.exit("the tests fail without a mutant")
        os.replace(path + ".part", path)

    def of(self, mutant):
        """The quickest ones, until they have taken their time."""
        names = []
        left = 1000 * self.seconds
        for name in self.by_mutant[room_of(mutant), mutant["number"]]:
            left -= self.milliseconds[name]
            if names and left < 0:
                break
            names.append(name)
        return names

    def outcome(self, mutant):
        """"killed", "timeout", "unreached" or "survived"."""
        names = self.of(mutant)
        if not names:
            return "unreached"
        for first in range(0, len(names), TESTS_AT_ONCE):
            some = names[first:first + TESTS_AT_ONCE]
            seconds = 10 + sum(self.milliseconds[name] for name in some) / 100
            command = [self.program, "--gtest_brief=1", "--gtest_fail_fast", "--gtest_filter=" + ":".join(some)]
            environment = dict(os.environ, TRADEBILL_MUTANT=str(mutant["number"]))
            with tempfile.TemporaryDirectory() as folder:
                environment["TMPDIR"] = folder  # what a mutant leaves behind goes with it
                try:
                    ended = subprocess.run(command, env=environment, timeout=seconds, check=False, stdin=subprocess.DEVNULL,
                                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                except subprocess.TimeoutExpired:
                    return "timeout"
            if ended.returncode != 0:
                return "killed"
        return "survived"


def room_of(mutant):
    return mutant["file"].split("/")[1]


def entries_of(mutant, entries):
    return [entry for entry in entries if entry[0] == mutant["file"] and entry[1] in mutant["text"] and entry[2] == mutant["shown"]]


def chosen(mutants, arguments):
    if arguments.mutant:
        return [mutant for mutant in mutants if mutant["number"] in arguments.mutant]
    if arguments.room:
        mutants = [mutant for mutant in mutants if room_of(mutant) == arguments.room]
    if arguments.sample and arguments.sample < len(mutants):
        print(f"{arguments.sample} of {len(mutants)} mutants, --seed {arguments.seed}", flush=True)
        mutants = random.Random(arguments.seed).sample(mutants, arguments.sample)
    return sorted(mutants, key=lambda mutant: mutant["number"])


def print_table(outcomes):
    kinds = ("killed", "timeout", "survived", "unreached")
    print(f"\n{'room':<12}{'mutants':>9}" + "".join(f"{kind:>11}" for kind in kinds) + f"{'% killed':>10}")
    for room in [*sorted({room for room, _ in outcomes}), None]:
        counts = collections.Counter()
        for (place, kind), number in outcomes.items():
            if room in (place, None):
                counts[kind] += number
        share = (counts["killed"] + counts["timeout"]) / counts.total()
        print(f"{room or 'all':<12}{counts.total():>9}" + "".join(f"{counts[kind]:>11}" for kind in kinds) + f"{100 * share:>10.1f}")
    return share


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("tree")
    parser.add_argument("undetected")
    parser.add_argument("--sample", type=int, default=0)
    parser.add_argument("--seed", type=int, default=time.time_ns() % 1000000)
    parser.add_argument("--room")
    parser.add_argument("--seconds", type=float, default=5)
    parser.add_argument("--mutant", type=int, nargs="+")
    arguments = parser.parse_args()
    with open(os.path.join(arguments.tree, "mutants.json"), encoding="utf-8") as file:
        mutants = chosen(json.load(file), arguments)
    if not mutants:
        sys.exit("no such mutants")
    entries = kept_list.entries(arguments.undetected, "FILE | TEXT | MUTATION | REASON")
    tests = Tests(arguments.tree, arguments.seconds)

    outcomes = collections.Counter()
    stale = set()
    for mutant in mutants:
        outcome = tests.outcome(mutant)
        outcomes[room_of(mutant), outcome] += 1
        named = entries_of(mutant, entries)
        if outcome in ("killed", "timeout"):
            stale.update(named)
        else:
            reason = f"  [{named[0][3]}]" if named else ""
            print(f"{outcome} {mutant['number']}: {mutant['file']}:{mutant['line']}: {mutant['shown']}{reason}\n    {mutant['text']}", flush=True)
    share = print_table(outcomes)
    for entry in sorted(stale):
        print("killed, but named in the list: " + " | ".join(entry))
    sys.exit(1 if share < LEAST or stale else 0)


if __name__ == "__main__":
    main()
