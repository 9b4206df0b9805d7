#!/usr/bin/env python3
"""A batch whose machine's clock is set back by a year while accounts are in work, and before it goes on: its day of today
stays that of its beginning, no time is below zero, and every account is there once, as if the clock had been right.

Usage: batch_clock.py PROGRAM SAMPLES
"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "examples/batch"))
from made_batch import expect_same, found_program, in_one_task, make_accounts  # noqa: E402

ACCOUNTS = 60
BEFORE = "2026-03-05 12:00:00"
SET_BACK = "2025-03-01 08:00:00"
TODAY = "2026-03-05"
LONGEST = 100.0  # seconds that no account takes


class Batch:
    """Batches of one root into one folder, by a clock that can be set."""

    def __init__(self, program, folder):
        self.out = folder / "out"
        self.clock = folder / "clock"
        self.command = [program, "batch", "--root", folder / "root", "--discover", "--out", self.out, "--jobs", "1"]
        preload = "/usr/$LIB/faketime/libfaketimeMT.so.1"
        self.environment = dict(os.environ, LD_PRELOAD=preload, FAKETIME_TIMESTAMP_FILE=str(self.clock),
                                FAKETIME_NO_CACHE="1", FAKETIME_DONT_FAKE_MONOTONIC="1")

    def set_clock(self, moment):
        new = self.clock.with_suffix(".new")
        new.write_text(f"@{moment}\n", encoding="utf-8")
        new.rename(self.clock)

    def start(self, *options):
        return subprocess.Popen([*self.command, *options], env=self.environment, text=True, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE)

    def run(self, *options):
        batch = self.start(*options)
        return batch, *batch.communicate(timeout=120)

    def lines(self):
        results = self.out / "results.jsonl"
        return results.read_text(encoding="utf-8").splitlines() if results.exists() else []


def expect(is_true, what, told=""):
    if not is_true:
        raise SystemExit(f"{what}\n{told}")


def today_of(batch):
    return json.loads((batch.out / "batch.json").read_text(encoding="utf-8"))["today"]


def expect_whole(batch, wanted, ended, told):
    expect(ended.returncode == 0, f"exit {ended.returncode}", told)
    expect_same(batch.out, wanted)
    for line in batch.lines():
        expect(0 < json.loads(line)["seconds"] < LONGEST, "seconds of an account", line)
    expect(today_of(batch) == TODAY, "the batch's day of today", today_of(batch))


def main():
    found_program("faketime")
    program, samples = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        make_accounts(samples, folder / "root", ACCOUNTS, 5)
        wanted = in_one_task(program, folder / "root", folder / "wanted", TODAY)
        expect(len(wanted) == ACCOUNTS, "the batch by a right clock")

        batch = Batch(program, folder)
        batch.set_clock(BEFORE)
        begun = batch.start()
        until = time.monotonic() + 60
        while not batch.lines() and time.monotonic() < until:
            time.sleep(0.01)
        at_change = len(batch.lines())
        batch.set_clock(SET_BACK)
        told = "".join(begun.communicate(timeout=120))
        expect(0 < at_change < ACCOUNTS, f"{at_change} accounts were made before the clock was set back")
        expect_whole(batch, wanted, begun, told)

        lines = batch.lines()
        kept = lines[:ACCOUNTS // 2]
        (batch.out / "results.jsonl").write_text("\n".join(kept) + "\n", encoding="utf-8")
        ended, *told = batch.run("--resume")
        expect_whole(batch, wanted, ended, told)
        expect([line for line in batch.lines() if line in kept] == kept, "what was made before is kept", told)

        ended, *told = batch.run()
        expect(today_of(batch) == SET_BACK.split()[0], "a new batch goes by the clock that was set back", told)
    return 0


if __name__ == "__main__":
    sys.exit(main())
