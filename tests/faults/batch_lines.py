#!/usr/bin/env python3
"""A manifest of a million lines: read in one go, each account in one of the shards, and a line at its end that is wrong.

Usage: batch_lines.py PROGRAM
"""

import pathlib
import subprocess
import sys
import tempfile

LINES = 1_000_000
SHARDS = 100_000


def batch(program, folder, *options):
    command = [program, "batch", "--root", "root", "--manifest", "manifest.csv", "--out", "out", *options]
    return subprocess.run(command, cwd=folder, capture_output=True, text=True, check=False)


def expect(is_true, what, answer):
    if not is_true:
        raise SystemExit(f"{what}: exit {answer.returncode}\n{answer.stdout}{answer.stderr[-2000:]}")


def main():
    program = pathlib.Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "root/Users/demo/Data/Bill").mkdir(parents=True)
        manifest = folder / "manifest.csv"
        rows = "".join(f"demo,{20_000_000 + i},2024-01-02,2024-01-02\n" for i in range(LINES))
        manifest.write_text("user,account,from,to\n" + rows, encoding="utf-8")
        answer = batch(program, folder, "--shard", f"1/{SHARDS}")
        failed = answer.stderr.count(": failed: no statement was found in the whole range\n")
        expect(answer.returncode == 1, "no account has a statement", answer)
        # Ten of a million, give or take: a shard that a spread of chance leaves out of these bounds isn't met in a lifetime.
        expect(1 <= failed <= 40, "accounts of one shard", answer)
        expect(answer.stdout.startswith(f"Shard 1-of-{SHARDS}, {failed} account"), "the summary counts them", answer)
        manifest.write_text(manifest.read_text(encoding="utf-8") + "demo,20000000,,\n", encoding="utf-8")
        answer = batch(program, folder, "--shard", f"2/{SHARDS}")
        place = f"line {LINES + 2}: the account --user demo --account 20000000 stands in line 2 already"
        expect(answer.returncode == 2 and place in answer.stderr, "the last line is told", answer)
    return 0


if __name__ == "__main__":
    sys.exit(main())
