"""Says how many branches of src/ the tests take, room by room, and which they don't.

Usage: branches.py SOURCE_DIR COVERAGE.json LEFT_OUT.txt

COVERAGE.json is what `llvm-cov export` writes. Each condition of the sources has two branches: that it was true, and that it was false.
A template's condition is one, however often the template is instantiated. What the compiler knows beforehand (`if constexpr`) has
none, and so has the way past all cases of a switch: of enumerations each value has a case.

LEFT_OUT.txt names the branches that no test takes, and why: FILE | TEXT | REASON in each line, where TEXT stands in the line of
the condition. Ends with 1 below 98 % of all rooms together or of one room but platform/, where a branch isn't taken and isn't
named, and where one is named and taken. What only a sample of failing calls takes, or doesn't, has a REASON with AT_TIMES before it.
"""
import collections
import json
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "support"))
import kept_list

LEAST = 0.98
AT_TIMES = "at times: "
ROOM_OF_THE_SYSTEM = "platform"


def taken_sides(coverage, root):
    """{file: {(line, column, end line, end column): [taken while true, taken while false]}} of the files below src/."""
    conditions = collections.defaultdict(dict)
    for entry in coverage["data"][0]["files"]:
        name = os.path.relpath(os.path.join(root, entry["filename"]), root)
        if not name.startswith("src/"):
            continue
        for branch in entry["branches"]:
            sides = conditions[name].setdefault(tuple(branch[:4]), [False, False])
            sides[0] |= branch[4] > 0
            sides[1] |= branch[5] > 0
    return conditions


class Sources:
    def __init__(self, root):
        self.root = root
        self.texts = {}

    def lines(self, name):
        if name not in self.texts:
            with open(os.path.join(self.root, name), encoding="utf-8") as text:
                self.texts[name] = text.read().split("\n")
        return self.texts[name]

    def line(self, name, number):
        return self.lines(name)[number - 1]

    def hold(self, name, text):
        return os.path.exists(os.path.join(self.root, name)) and any(text in line for line in self.lines(name))


def is_of_no_value(text, sides):
    """The way past all cases of a switch: the compiler sees to it that each value of an enumeration has one."""
    return text.lstrip().startswith("switch (") and not sides[0]


def count(conditions, sources, left_out):
    """Counts by room, the branches that aren't taken or named, and the entries that were of use."""
    totals = collections.Counter()
    taken = collections.Counter()
    missing = []
    used = set()
    for name in sorted(conditions):
        room = name.split("/")[1]
        for place, sides in sorted(conditions[name].items()):
            text = sources.line(name, place[0])
            if "if constexpr" in text or is_of_no_value(text, sides):
                continue
            totals[room] += 2
            taken[room] += sum(sides)
            if all(sides):
                continue
            entries = [entry for entry in left_out if entry[0] == name and entry[1] in text]
            used.update(entries)
            if not entries:
                never = " and ".join(word for word, side in zip(("true", "false"), sides) if not side)
                missing.append(f"{name}:{place[0]}:{place[1]}: never {never}: {text.strip()}")
    return totals, taken, missing, used


def may_be_taken(entry, sources):
    """Whether the entry is of a branch that is there, and that a sample of failing calls may take."""
    return entry[2].startswith(AT_TIMES) and sources.hold(entry[0], entry[1])


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    root = os.path.abspath(sys.argv[1])
    with open(sys.argv[2], encoding="utf-8") as file:
        conditions = taken_sides(json.load(file), root)
    left_out = kept_list.entries(sys.argv[3], "FILE | TEXT | REASON")
    sources = Sources(root)
    totals, taken, missing, used = count(conditions, sources, left_out)
    if not totals:
        sys.exit("no branch of src/ in " + sys.argv[2])

    failed = False
    print(f"{'room':<12}{'branches':>9}{'taken':>8}{'not':>6}{'%':>8}")
    for room in sorted(totals):
        share = taken[room] / totals[room]
        low = share < LEAST and room != ROOM_OF_THE_SYSTEM
        failed |= low
        print(f"{room:<12}{totals[room]:>9}{taken[room]:>8}{totals[room] - taken[room]:>6}{100 * share:>8.2f}{'  too few' if low else ''}")
    share = taken.total() / totals.total()
    failed |= share < LEAST
    print(f"{'src':<12}{totals.total():>9}{taken.total():>8}{totals.total() - taken.total():>6}{100 * share:>8.2f}")
    if missing:
        print("\nneither taken nor left out with a reason:", *missing, sep="\n  ")
    stale = [" | ".join(entry) for entry in left_out if entry not in used and not may_be_taken(entry, sources)]
    if stale:
        print("\nleft out, but taken or gone:", *stale, sep="\n  ")
    sys.exit(1 if failed or missing or stale else 0)


if __name__ == "__main__":
    main()
