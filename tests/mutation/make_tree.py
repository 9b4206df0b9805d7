"""Copies the sources, puts the mutants of some rooms into them, and builds their tests.

Usage: make_tree.py SOURCE_DIR TREE ROOM...

TREE/mutants.json lists the mutants that compile. Those that don't (a template's argument, a type that has no such operator) are
left out: the compiler says which, and the rest is built again.
"""
import glob
import json
import os
import re
import shutil
import subprocess
import sys

import mutator

HERE = os.path.dirname(os.path.abspath(__file__))
COPIED = ("src", "cmake", "resources")
PROBLEM = re.compile(r"^(\S+?):(\d+):(\d+): (?:fatal )?(error|note): ")
MOST_BUILDS = 8


def copy_tree(root, tree, rooms):
    """What is the same as before keeps its time, so that only what changed is built again."""
    for folder in [*COPIED, "tests"]:
        for directory, _, names in os.walk(os.path.join(root, folder)):
            is_of_room = folder != "tests" or os.path.relpath(directory, root).split("/")[1:2] in [[room] for room in rooms]
            for name in names:
                path = os.path.join(directory, name)
                if is_of_room or name.endswith(".h"):  # rooms share what helps them
                    write(os.path.join(tree, os.path.relpath(path, root)), read(path))
    os.makedirs(os.path.join(tree, "samples"), exist_ok=True)
    write(os.path.join(tree, "samples/units.ini"), read(os.path.join(root, "samples/units.ini")))
    for name, place in (("tree.cmake", "CMakeLists.txt"), ("mutant_switch.h", "src/base/mutant_switch.h"),
                        ("mutant_switch.cpp", "src/base/mutant_switch.cpp"), ("reached_mutants.cpp", "tests/reached_mutants.cpp")):
        write(os.path.join(tree, place), read(os.path.join(HERE, name)))


def read(path):
    with open(path, "rb") as file:
        return file.read()


def write(path, content):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    if not os.path.exists(path) or read(path) != content:
        with open(path, "wb") as file:
            file.write(content)


def sources_of(root, rooms):
    """Sources and headers of the rooms that are built on Linux."""
    found = [os.path.realpath(path) for room in rooms
             for path in sorted(glob.glob(f"{root}/src/{room}/**/*", recursive=True))
             if path.endswith((".cpp", ".h")) and "/windows/" not in path]
    return [path for path in found if path.endswith(".cpp")], [path for path in found if path.endswith(".h")]


class Tree:
    def __init__(self, root, tree, rooms):
        self.root = root
        self.tree = tree
        sources, headers = sources_of(root, rooms)
        self.changes = mutator.find_changes(sources, headers, ["-xc++", "-std=c++20", f"-I{root}/src"])
        self.numbers = {}
        for path in sorted(self.changes):
            for change in sorted(self.changes[path]):
                self.numbers[path, change] = len(self.numbers) + 1

    def write_sources(self):
        for path, changes in self.changes.items():
            source = read(path)
            numbers = {change: self.numbers[path, change] for change in changes if (path, change) in self.numbers}
            if numbers:
                text = '#include "base/mutant_switch.h"\n#line 1\n' + mutator.written(source, changes, numbers)
                write(os.path.join(self.tree, os.path.relpath(path, self.root)), text.encode())
            else:
                write(os.path.join(self.tree, os.path.relpath(path, self.root)), source)

    def leave_out(self, log):
        """Drops the mutants on the lines that the compiler complains of. Returns how many."""
        places = set()
        outside = False
        for line in log.splitlines():
            problem = PROBLEM.match(line)
            if not problem:
                continue
            path = os.path.relpath(os.path.realpath(problem[1]), self.tree)
            here = os.path.join(self.root, path)
            if problem[4] == "error":
                outside = here not in self.changes
            if here in self.changes and (problem[4] == "error" or outside):
                places.add((here, int(problem[2])))
                outside = False
        dropped = [key for key in self.numbers if (key[0], self.line_of(*key)) in places]
        for key in dropped:
            del self.numbers[key]
        return len(dropped)

    def line_of(self, path, change):
        return read_cached(path).count(b"\n", 0, change.start) + 1

    def list(self):
        return [{"number": number, "file": os.path.relpath(path, self.root), "line": self.line_of(path, change), "kind": change.kind,
                 "shown": change.shown, "text": read_cached(path).decode().split("\n")[self.line_of(path, change) - 1].strip()}
                for (path, change), number in self.numbers.items()]


CACHE = {}


def read_cached(path):
    if path not in CACHE:
        CACHE[path] = read(path)
    return CACHE[path]


def build(tree, root):
    """Returns the compiler's log if it fails."""
    configure = ["cmake", "-S", tree, "-B", f"{tree}/build", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O1",
                 "-DCMAKE_C_COMPILER=clang", "-DCMAKE_CXX_COMPILER=clang++", f"-DTRADEBILL_SOURCE_DIR={root}",
                 *(["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else [])]
    subprocess.run(configure, check=True, stdout=subprocess.DEVNULL)
    jobs = os.environ.get("JOBS", str(os.cpu_count()))
    built = subprocess.run(["ninja", "-C", f"{tree}/build", "-j", jobs, "-k", "0", "unit_tests"], text=True, stdout=subprocess.PIPE,
                           stderr=subprocess.STDOUT, check=False)
    with open(f"{tree}/build.log", "w", encoding="utf-8") as log:
        log.write(built.stdout)
    return "" if built.returncode == 0 else built.stdout


def main():
    root, tree = (os.path.realpath(path) for path in sys.argv[1:3])
    rooms = sys.argv[3:]
    made = Tree(root, tree, rooms)
    copy_tree(root, tree, rooms)
    print(f"{len(made.numbers)} places in {' '.join(rooms)}", flush=True)
    for _ in range(MOST_BUILDS):
        made.write_sources()
        log = build(tree, root)
        if not log:
            break
        dropped = made.leave_out(log)
        if dropped == 0:
            sys.exit(f"the mutants don't compile: {tree}/build.log")
        print(f"{dropped} left out, since they don't compile", flush=True)
    else:
        sys.exit(f"the mutants don't compile in {MOST_BUILDS} builds: {tree}/build.log")
    with open(f"{tree}/mutants.json", "w", encoding="utf-8") as file:
        json.dump(made.list(), file, indent=1, ensure_ascii=False)
    print(f"{len(made.numbers)} mutants")


if __name__ == "__main__":
    main()
