"""Accounts for the tests of the recipes, and what a batch of them in one task comes to."""

import json
import pathlib
import shutil
import subprocess

NUMBER = "90010002"


def make_accounts(samples, root, count, days):
    """`count` accounts of the first `days` of a sample, each under a number of its own."""
    bills = pathlib.Path(root, "Users/demo/Data/Bill")
    bills.mkdir(parents=True)
    source = pathlib.Path(samples, "fund-status/root/Users/demo/Data/Bill")
    for path in sorted(source.glob(f"D{NUMBER}.*o.txt"))[:days]:
        text = path.read_bytes()
        for i in range(count):
            number = str(80_000_000 + i)
            name = path.name.replace(NUMBER, number)
            (bills / name).write_bytes(text.replace(NUMBER.encode(), number.encode()))


def results_in(path):
    """What a results file tells of each account, but for what hangs on the machine's mood."""
    results = {}
    for line in pathlib.Path(path).read_text(encoding="utf-8").splitlines():
        result = json.loads(line)
        del result["seconds"], result["peakMemory"]
        key = (result["user"], result["account"], result["kind"])
        if key in results:
            raise SystemExit(f"{path} has {key} twice")
        results[key] = result
    return results


def in_one_task(program, root, out, today):
    """The results of a batch in one task."""
    command = [program, "batch", "--root", root, "--discover", "--out", out, "--today", today, "--quiet"]
    subprocess.run(command, check=True)
    return results_in(pathlib.Path(out, "results.jsonl"))


def expect_same(out, wanted):
    """Fails unless the batch in `out` came to what is wanted, with all its files."""
    out = pathlib.Path(out)
    found = results_in(out / "results.jsonl")
    if found != wanted:
        raise SystemExit(f"{len(found)} results aren't the {len(wanted)} that were wanted")
    for result in found.values():
        for name in result["outputs"]:
            if not (out / name).exists():
                raise SystemExit(f"{name} isn't there")
    for name in ("index.html", "summary.csv"):
        if not (out / name).exists():
            raise SystemExit(f"{name} isn't there")


def found_program(name):
    """Ends the test as skipped where its engine isn't installed."""
    path = shutil.which(name, path="/usr/sbin:/usr/bin:/sbin:/bin")
    if path is None:
        print(f"{name} isn't installed")
        raise SystemExit(77)
    return path
