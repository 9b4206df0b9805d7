#!/usr/bin/env python3
"""Makes each system call of each scenario fail in each way, and judges what the program makes of it.

Usage: faults.py BUILD SAMPLES [--scenario NAME]... [--sample SECONDS] [--seed NUMBER] [--apart ROWS] [--found FILE]
       faults.py BUILD SAMPLES --scenario NAME --at CALL OBJECT NUMBER WAY

BUILD holds bin/tradebill, bin/fault_injector, bin/library_host and lib/libtradebill.so. Without --sample every call is taken;
of the system's own libraries (fault_table.py names them) one of --apart ROWS (default: 7; 1: all; 0: none). With --at one failure
is made and everything about it said. Exits with 1 if an outcome isn't one of
verdict.GOOD; tests/README.md says what they are.
"""

import argparse
import collections
import concurrent.futures
import os
import pathlib
import random
import shutil
import sys
import tempfile
import threading
import time

import fault_table
import seeds
import verdict
from sandbox import Sandbox, Tools
from scenarios import NEXT_REPORT, SCENARIOS


class Bench:
    """One scenario in one worker's sandbox: the run without a failure and its calls."""

    def __init__(self, scenario, sandbox):
        self.scenario, self.sandbox = scenario, sandbox
        sandbox.set_up(scenario)
        self.clean = sandbox.run(scenario)
        sandbox.restore()
        again = sandbox.run(scenario)
        if (again.exit, again.out, again.err, again.tree) != (
                self.clean.exit, self.clean.out, self.clean.err, self.clean.tree):
            raise RuntimeError(f"{scenario.name}: two runs differ: {verdict.difference(again, self.clean)}")
        self.box = str(sandbox.box) + "/"
        self.case = verdict.Case(sandbox.inputs, sandbox.begin, self.clean, scenario.tells_on_stdout)
        self.without = {}

    def faults(self, apart):
        """All (call, way); of the system's own libraries every `apart`th call, in one way."""
        for row, call in enumerate(self.clean.calls):
            ways, is_apart = fault_table.ways(call.name), fault_table.apart(call.object)
            if is_apart and (not apart or row % apart != 0):
                continue
            yield from ((call, way) for way in ((ways[row // apart % len(ways)],) if is_apart else ways))
            if call.name in fault_table.SPELLS and self.is_before_next(call):
                yield call, fault_table.SPELLS[call.name]

    def alternatives(self, hits):
        """Trees of the runs to which the inputs that were hit were missing, or were folders."""
        hit = {call.object.removeprefix(self.box) for call in hits}
        inputs = tuple(sorted(path for path in hit if self.sandbox.inputs.get(path) is not None))
        if inputs and inputs not in self.without:
            self.without[inputs] = [self._run_without(inputs, {}), self._run_without(inputs, dict.fromkeys(inputs))]
        return self.without.get(inputs, [])

    def _run_without(self, inputs, instead):
        begin = self.sandbox.begin
        self.sandbox.restore({path: content for path, content in begin.items() if path not in inputs} | instead)
        return self.sandbox.run(self.scenario).tree | {path: begin[path] for path in inputs}

    def options(self, call, way):
        options = call.options(fault_table.errors_by_number(way))
        if way.startswith("spell"):
            return [*options, "--until", self.box + NEXT_REPORT]
        for prefix in (*fault_table.APART_FOLDERS, str(self.sandbox.cache)):
            options += ["--apart", prefix]
        return options

    def is_before_next(self, call):
        """Whether a call of ours, or for a font, belongs to an earlier report of the process."""
        if fault_table.apart(call.object) not in ("", fault_table.FONT) or fault_table.kind(call.object) == fault_table.PROGRAMS:
            return False
        calls = self.clean.calls
        return any(each.object.endswith("/" + NEXT_REPORT) for each in calls[calls.index(call) + 1:])

    def judge(self, call, way):
        """Makes the failure; returns the verdict and how the run ended, or None if the way doesn't apply."""
        self.sandbox.restore()
        ending = self.sandbox.run(self.scenario, self.options(call, way))
        if fault_table.apart(call.object):
            self.sandbox.restore_fonts()
        if not ending.calls:
            return None if way.startswith(("hal", "full")) else verdict.Verdict(verdict.MISSED), ending
        word = verdict.judge(ending, self.case)
        if word.word == verdict.TORN:
            word = verdict.judge(ending, self.case, self.alternatives(ending.calls))
        if word.word == verdict.LEFTOVER and way.startswith(("ever", "full")):
            word = verdict.left_to_the_next(ending, self.case, lambda: self.sandbox.run(self.scenario)) or word
        if word.word != verdict.SAME and not way.startswith(("ever", "full")) and self.is_before_next(call):
            word = verdict.Verdict(verdict.SPOILED, word.why)
        return word, ending


class Tally:
    """Counts of verdicts by call and kind of file, and the bad ones."""

    def __init__(self, found):
        self.counts = collections.defaultdict(collections.Counter)
        self.bad, self.found, self.lock = 0, found, threading.Lock()

    def add(self, bench, call, way, word, ending):
        kind, apart = fault_table.kind(call.object), bool(fault_table.apart(call.object))
        with self.lock:
            self.counts[apart, call.name, kind][word.word] += 1
            if word.word in (verdict.NEVER if apart else set(verdict.VERDICTS) - set(verdict.GOOD)):
                self.bad += 1
                self._write(bench, call, way, word, ending)

    def _write(self, bench, call, way, word, ending):
        place = f"{call.name} '{call.object.removeprefix(bench.box)}' {call.number} {way}"
        print(f"{word.word}: --scenario '{bench.scenario.name}' --at {place} [{fault_table.kind(call.object)}] exit {ending.exit}: "
              f"{' / '.join(word.why.splitlines())[:160]}", file=self.found, flush=True)

    def print(self):
        for apart, title in ((False, "The program's own calls"), (True, "Calls of the system's own libraries")):
            rows = sorted((row, counts) for row, counts in self.counts.items() if row[0] == apart)
            words = [word for word in verdict.VERDICTS if any(counts[word] for _, counts in rows)]
            print(f"\n{title}\n{'call':16}{'object':22}" + "".join(f"{word:>22}" for word in words))
            total = collections.Counter()
            for (_, call, kind), counts in rows:
                total += counts
                print(f"{call:16}{kind:22}" + "".join(f"{counts[word] or '.':>22}" for word in words))
            print(f"{'':38}" + "".join(f"{total[word]:>22}" for word in words), f"{sum(total.values()):>8} runs")


def work(queue, folder, tools, settings, tally, end):
    """Takes scenarios from the queue until it is empty or the time is over."""
    sandbox = Sandbox(folder, tools)
    while queue and time.monotonic() < end:
        scenario = queue.pop(0)
        bench = Bench(scenario, sandbox)
        faults = list(bench.faults(settings.apart))[::scenario.every]
        if settings.sample:
            random.Random(f"{settings.seed} {scenario.name}").shuffle(faults)
            faults = faults[:max(1, settings.sample_rows)]
        for call, way in faults:
            if time.monotonic() > end:
                return
            word, ending = bench.judge(call, way)
            if word:
                tally.add(bench, call, way, word, ending)
        if not settings.sample:
            print(f"{scenario.name}: {len(bench.clean.calls)} calls, {len(faults)} failures", flush=True)


def tell_one(bench, name, path, number, way):
    path = path if path.startswith("/") or path in ("stdin", "stdout", "stderr", "") else bench.box + path
    call = next((call for call in bench.clean.calls if (call.name, call.object, call.number) == (name, path, int(number))), None)
    if not call:
        sys.exit("there is no such call")
    word, ending = bench.judge(call, way)
    print(f"call {call}\nverdict {word}\nexit {ending.exit}\nfailed {ending.calls}\nstdout {ending.out[-2000:]!r}\n"
          f"stderr {ending.err}\ndiffering:")
    for path in sorted(ending.tree.keys() | bench.sandbox.begin.keys() | bench.clean.tree.keys()):
        found = verdict.state(path, ending.tree, bench.sandbox.begin, bench.clean.tree)
        if found not in ("same", "new"):
            print(f"  {path}: {found}")
    return word


def read_settings():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("samples", type=pathlib.Path)
    parser.add_argument("--scenario", action="append", default=[])
    parser.add_argument("--sample", type=float, default=0, metavar="SECONDS")
    parser.add_argument("--seed", type=int, default=seeds.of_tree())
    parser.add_argument("--apart", type=int, default=7)
    parser.add_argument("--workers", type=int, default=min(2, os.cpu_count() or 1))
    parser.add_argument("--found", type=argparse.FileType("w"), default=sys.stdout)
    parser.add_argument("--at", nargs=4, metavar=("CALL", "OBJECT", "NUMBER", "WAY"))
    return parser.parse_args()


def main():
    settings = read_settings()
    tools = Tools(settings.build.resolve(), settings.samples.resolve())
    unknown = set(settings.scenario) - {scenario.name for scenario in SCENARIOS}
    chosen = [scenario for scenario in SCENARIOS if not settings.scenario or scenario.name in settings.scenario]
    if unknown or not chosen:
        sys.exit(f"no such scenario: {', '.join(sorted(unknown))}")
    folder = pathlib.Path(tempfile.mkdtemp(prefix="faults."))
    try:
        if settings.at:
            word = tell_one(Bench(chosen[0], Sandbox(folder / "0", tools)), *settings.at)
            return word.word not in verdict.GOOD
        return run_all(settings, tools, chosen, folder)
    finally:
        shutil.rmtree(folder, ignore_errors=True)


def run_all(settings, tools, chosen, folder):
    end = time.monotonic() + (settings.sample or float("inf"))
    if settings.sample:
        print(f"seed {settings.seed}", flush=True)
        random.Random(settings.seed).shuffle(chosen)
        settings.sample_rows = int(settings.sample * 20 / len(chosen))
    tally = Tally(settings.found)
    with concurrent.futures.ThreadPoolExecutor(settings.workers) as pool:
        workers = [pool.submit(work, chosen, folder / str(i), tools, settings, tally, end)
                   for i in range(settings.workers)]
        for worker in workers:
            worker.result()
    tally.print()
    print(f"\n{tally.bad} bad outcomes")
    return tally.bad != 0 or not tally.counts


if __name__ == "__main__":
    sys.exit(main())
