#!/usr/bin/env python3
"""Makes each of the module's calls for files fail under Wine, and judges the outcome as faults.py does.

Usage: import_faults.py BUILD SAMPLES [--sample SECONDS] [--seed NUMBER] [--at NUMBER FUNCTION WAY]
       within tests/windows/in_wine.sh BUILD

BUILD holds bin/TradeBill.dll and bin/import_faults.exe. One process makes all reports, so a failure mustn't spoil the next run
either: each tenth run is one without a failure.
"""

import argparse
import collections
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import time

import fault_table
import seeds
import verdict
from sandbox import Call, Ending, Sandbox, Tools
from scenarios import HOST, Scenario

BETWEEN_CLEAN_RUNS = 10
HANG_SECONDS = 60  # Wine's own start included
NEW, OLD = (*HOST, "2024-1-2", "2024-1-4", "1"), (*HOST, "2024-1-5", "2024-1-8", "1")


class Host:
    """The program under Wine, which makes a report for each line that it is sent."""

    def __init__(self, build, box, arguments):
        self.box = box
        self.process = subprocess.Popen(
            ["wine", str(build / "bin" / "import_faults.exe"), "Z:" + str(build / "bin" / "TradeBill.dll"), *arguments], cwd=box,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def ask(self, line):
        """The exit that stands for the answer, the module's words, and the calls; an exit of None is a hang, -1 a crash."""
        late = threading.Event()
        watch = threading.Timer(HANG_SECONDS, lambda: (late.set(), self.process.kill()))
        watch.start()
        try:
            return self._answer(line) or (None if late.is_set() else -1, "", [])
        finally:
            watch.cancel()

    def _answer(self, line):
        calls = []
        self.process.stdin.write((line + "\n").encode())
        self.process.stdin.flush()
        for answer in self.process.stdout:
            answer = answer.decode("utf-8", "replace").strip()
            if answer.startswith("call "):
                calls.append(answer)
            elif answer.startswith("end "):
                _, code, *words = answer.split(" ", 2)
                return int(code != "0" or bool(words)), "".join(words), self._calls(calls)
        return None

    def _calls(self, lines):
        counts, calls = collections.Counter(), []
        for line in lines:
            _, name, *path = line.split(" ", 2)
            counts[name] += 1
            calls.append(Call(name, self._path("".join(path)), "", False, counts[name]))
        return calls

    def _path(self, path):
        """A path as the other scenarios have it: from the box, with a * for what is random."""
        path = re.sub(r"^(\\\\\?\\)?[A-Za-z]:", "", path).replace("\\", "/").removeprefix(str(self.box) + "/")
        return re.sub(r"(^|/)\.tradebill-[^/]*", r"\1.tradebill-*", path)

    def end(self):
        self.process.stdin.close()
        try:
            self.process.wait(HANG_SECONDS)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()


class Bench:
    """A box with an older report, and a host that makes a new one."""

    def __init__(self, build, samples, folder):
        self.build = build
        self.sandbox = Sandbox(folder, Tools(build, samples))
        self.sandbox.copy_sample(Scenario("library", NEW))
        self.host = self._start(OLD)
        if self.host.ask("list")[0] != 0:
            raise RuntimeError("the older report can't be made")
        self.host.end()
        self.sandbox.begin = self.sandbox.tree()
        self.host = self._start(NEW)
        self.clean = self.run("list")
        if self.clean.exit != 0:
            raise RuntimeError(f"the report can't be made: {self.clean.err}")
        self.case = verdict.Case(self.sandbox.inputs, self.sandbox.begin, self.clean)

    def _start(self, arguments):
        return Host(self.build, self.sandbox.box, arguments)

    def run(self, line, again=False):
        if not again:
            self.sandbox.restore()
        code, words, calls = self.host.ask(line)
        if code is None or code < 0:
            self.host.process.kill()
            self.host.process.wait()
            self.host = self._start(NEW)
        return Ending(code, b"", words, self.sandbox.tree(), calls)

    def is_spoiled(self):
        """Why a run without a failure isn't as the first was, or an empty text."""
        ending = self.run("list")
        if ending.exit == 0 and ending.tree == self.clean.tree:
            return ""
        self.host.end()
        self.host = self._start(NEW)
        return f"exit {ending.exit}: {verdict.difference(ending, self.clean)} {ending.err}"

    def judge(self, call, way):
        ending = self.run(f"{call.number} {call.name} {way}")
        if ending.exit is not None and ending.exit >= 0 and not ending.calls:
            return verdict.Verdict(verdict.MISSED), ending
        word = verdict.judge(ending, self.case)
        inputs = [path.object for path in ending.calls if self.sandbox.inputs.get(path.object) is not None]
        if word.word == verdict.TORN and inputs:
            word = verdict.judge(ending, self.case, [self._without(inputs)])
        if word.word == verdict.LEFTOVER and way == "ever":
            word = verdict.left_to_the_next(ending, self.case, lambda: self.run("list", again=True)) or word
        return word, ending

    def _without(self, inputs):
        begin = self.sandbox.begin
        self.sandbox.restore({path: content for path, content in begin.items() if path not in inputs})
        self.host.ask("list")
        return self.sandbox.tree() | {path: begin[path] for path in inputs}


def ways(call):
    return ("once", "ever", "half") if call.name in ("ReadFile", "WriteFile") else ("once", "ever")


def run_all(bench, settings):
    faults = [(call, way) for call in bench.clean.calls for way in ways(call)]
    if settings.sample:
        random.Random(settings.seed).shuffle(faults)
    counts, bad, since = collections.defaultdict(collections.Counter), 0, []
    end = time.monotonic() + (settings.sample or float("inf"))
    for call, way in faults:
        if time.monotonic() > end:
            break
        word, ending = bench.judge(call, way)
        kind = fault_table.kind("/" + call.object)
        counts[call.name, kind][word.word] += 1
        place = f"--at {call.number} {call.name} {way}"
        since.append(place)
        if word.word not in verdict.GOOD:
            bad += 1
            print(f"{word.word}: {place} [{kind}] {call.object}: {word.why[:160]}", flush=True)
        if len(since) == BETWEEN_CLEAN_RUNS:
            why = bench.is_spoiled()
            if why:
                bad += 1
                print(f"{verdict.SPOILED} after one of {'; '.join(since)}: {why[:160]}", flush=True)
            since = []
    print_counts(counts)
    print(f"{bad} bad outcomes")
    return bad != 0 or not counts


def print_counts(counts):
    words = [word for word in verdict.VERDICTS if any(row[word] for row in counts.values())]
    print(f"\n{'function':30}{'object':22}" + "".join(f"{word:>22}" for word in words))
    for (name, kind), row in sorted(counts.items()):
        print(f"{name:30}{kind:22}" + "".join(f"{row[word] or '.':>22}" for word in words))
    print(f"{sum(sum(row.values()) for row in counts.values())} runs")


def tell_one(bench, number, name, way):
    call = next(call for call in bench.clean.calls if (call.name, call.number) == (name, int(number)))
    word, ending = bench.judge(call, way)
    print(f"{call}\n{word}\nexit {ending.exit}\n{ending.err}")
    return word.word not in verdict.GOOD


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("samples", type=pathlib.Path)
    parser.add_argument("--sample", type=float, default=0, metavar="SECONDS")
    parser.add_argument("--seed", type=int, default=seeds.of_tree())
    parser.add_argument("--at", nargs=3, metavar=("NUMBER", "FUNCTION", "WAY"))
    settings = parser.parse_args()
    print(f"seed {settings.seed}", flush=True)
    folder = pathlib.Path(tempfile.mkdtemp(prefix="faults."))
    try:
        bench = Bench(settings.build.resolve(), settings.samples.resolve(), folder)
        try:
            return tell_one(bench, *settings.at) if settings.at else run_all(bench, settings)
        finally:
            bench.host.end()
    finally:
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main())
