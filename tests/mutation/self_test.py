"""The mutator on a source of a few lines: every kind of place is found, and each mutant does what is shown when it is on."""
import os
import subprocess
import sys
import tempfile

import mutator

HERE = os.path.dirname(os.path.abspath(__file__))
SOURCE = """#include <cstdio>
constexpr int kWeight = 7;
static_assert(kWeight == 7);
constexpr int Twice(int value) { return value * 2; }
bool IsLess(int a, int b) { return a < b; }
bool IsEither(bool a, bool b) { return a || b; }
int Ten() { return 10; }
int Weight() { return kWeight; }
int Product(int a, int b) { return a * b; }
int Signed(int a, bool isUp) { return isUp ? a : -a; }
void Add(int& to, int what) { to += what; }
int Sum() {
    int sum = 0;
    Add(sum, 3);
    return sum;
}
template <typename T> bool IsSame(T a, T b) { return a == b; }
int main() {
    std::printf("%d %d %d %d %d %d %d %d %d %d", IsLess(1, 1), IsLess(1, 2), IsEither(true, false), Ten(), Weight(), Product(6, 3),
                Signed(2, true) + 10 * Signed(3, false), Sum(), IsSame(4, 4), Twice(4));
}
"""
CLEAN = "0 1 1 10 7 18 -28 3 1 8"
# What the program prints with each mutant above main(): by its line, and by what is shown of it.
EXPECTED = {
    (5, "< -> <="): "1 1 1 10 7 18 -28 3 1 8",
    (5, "< -> >="): "1 0 1 10 7 18 -28 3 1 8",
    (6, "|| -> &&"): "0 1 0 10 7 18 -28 3 1 8",
    (7, "10 -> 10 + 1"): "0 1 1 11 7 18 -28 3 1 8",
    (8, "kWeight -> kWeight + 1"): "0 1 1 10 8 18 -28 3 1 8",
    (8, "kWeight -> kWeight - 1"): "0 1 1 10 6 18 -28 3 1 8",
    (9, "* -> /"): "0 1 1 10 7 2 -28 3 1 8",
    (10, "isUp -> !(isUp)"): "0 1 1 10 7 18 28 3 1 8",
    (10, "- -> +"): "0 1 1 10 7 18 32 3 1 8",
    (11, "+= -> -="): "0 1 1 10 7 18 -28 -3 1 8",
    (13, "0 -> 0 + 1"): "0 1 1 10 7 18 -28 4 1 8",
    (14, "Add(sum, 3) -> nothing"): "0 1 1 10 7 18 -28 0 1 8",
    (14, "3 -> 3 + 1"): "0 1 1 10 7 18 -28 4 1 8",
    (17, "== -> !="): "0 1 1 10 7 18 -28 3 0 8",
}


def printed(program, number):
    return subprocess.run([program], env=dict(os.environ, TRADEBILL_MUTANT=str(number)), check=True, text=True, timeout=10,
                          stdout=subprocess.PIPE).stdout


def main():
    wrong = []
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(os.path.realpath(folder), "source.cpp")
        with open(path, "w", encoding="utf-8") as file:
            file.write(SOURCE)
        changes = mutator.find_changes([path], [], ["-xc++", "-std=c++20"])[path]
        end = SOURCE.index("int main")
        numbers = {change: place for place, change in enumerate(sorted(change for change in changes if change.start < end), 1)}
        mutated = os.path.join(folder, "mutated.cpp")
        with open(mutated, "w", encoding="utf-8") as file:
            file.write('#include "mutant_switch.h"\n#line 1\n' + mutator.written(SOURCE.encode(), changes, numbers))
        os.mkdir(os.path.join(folder, "base"))
        os.symlink(os.path.join(HERE, "mutant_switch.h"), os.path.join(folder, "base/mutant_switch.h"))
        program = os.path.join(folder, "mutated")
        subprocess.run(["clang++", "-std=c++20", "-w", f"-I{HERE}", f"-I{folder}", mutated, os.path.join(HERE, "mutant_switch.cpp"),
                        "-o", program], check=True)

        if printed(program, 0) != CLEAN:
            wrong.append(f"without a mutant: {printed(program, 0)}")
        found = {(SOURCE.count("\n", 0, change.start) + 1, change.shown): (number, change) for change, number in numbers.items()}
        for place in sorted(found.keys() ^ EXPECTED.keys()):
            wrong.append(f"{'found' if place in found else 'not found'}: {place}")
        for place in sorted(found.keys() & EXPECTED.keys()):
            text = printed(program, found[place][0])
            if text != EXPECTED[place]:
                wrong.append(f"{place}: {text} instead of {EXPECTED[place]}")
    print("\n".join(wrong))
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
