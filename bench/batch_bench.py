#!/usr/bin/env python3
"""Measures batches of many small accounts: accounts a second, what a second job adds, a worker's memory, and whether
manifest, resume and index grow with the number of accounts alone.

Usage: batch_bench.py PROGRAM SAMPLES [--accounts N] [--days N] [--runs N] [--many N] [--folder DIR]

The accounts are copies of a sample's first days (five to eight trades a day), each under a number of its own.
"""

import argparse
import json
import os
import pathlib
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

NUMBER = b"90010002"


def make_accounts(samples, root, count, days):
    """`count` accounts of a user each thousand, below `root`."""
    source = pathlib.Path(samples, "fund-status/root/Users/demo/Data/Bill")
    statements = [(path.name, path.read_bytes()) for path in sorted(source.glob("D*.txt"))[:days]]
    for i in range(count):
        number = f"{80000000 + i}"
        bills = pathlib.Path(root, f"Users/u{i // 1000:03d}/Data/Bill")
        bills.mkdir(parents=True, exist_ok=True)
        for name, text in statements:
            (bills / name.replace(NUMBER.decode(), number)).write_bytes(text.replace(NUMBER, number.encode()))


def batch(program, root, out, *options):
    """Seconds of a batch, of the clock and of all processors."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    begun = time.monotonic()
    subprocess.run([program, "batch", "--root", root, "--out", out, "--quiet", *options], check=True)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    used = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
    return time.monotonic() - begun, used


def results(out):
    with open(os.path.join(out, "results.jsonl"), encoding="utf-8") as file:
        return [json.loads(line) for line in file]


def rates(arguments, root, folder):
    seconds = {1: [], 2: []}
    for run in range(arguments.runs):
        for jobs in seconds:
            out = os.path.join(folder, f"out{run}-{jobs}")
            seconds[jobs].append(batch(arguments.program, root, out, "--discover", "--jobs", str(jobs))[0])
            if (run, jobs) != (0, 1):
                shutil.rmtree(out)
    for jobs, times in seconds.items():
        median = statistics.median(times)
        print(f"{jobs} job(s): {arguments.accounts / median:7.1f} accounts/s (median of {len(times)}: {median:.2f} s)")
    one, two = (statistics.median(seconds[jobs]) for jobs in (1, 2))
    print(f"two jobs are {one / two:.2f} times as fast as one")


def own_share(arguments, root, folder):
    """What is not the workers' work, as a share of all that one job takes."""
    out = os.path.join(folder, "share")
    whole, _ = batch(arguments.program, root, out, "--discover", "--jobs", "1")
    inside = sum(result["seconds"] for result in results(out))
    print(f"the batch's own share: {100 * (whole - inside) / whole:.1f} %")
    peaks = [result["peakMemory"] / 2**20 for result in results(out)]
    tenth = max(1, len(peaks) // 10)
    print(f"a worker's peak: first tenth {max(peaks[:tenth]):.1f} MiB, last tenth {max(peaks[-tenth:]):.1f} MiB")
    print(f"resume of all: {batch(arguments.program, root, out, '--discover', '--resume')[0]:.2f} s")


def many(arguments, folder):
    """A tenth and all of many accounts of two days, whose results alone are made."""
    for count in (arguments.many // 10, arguments.many):
        root = os.path.join(folder, f"many{count}")
        make_accounts(arguments.samples, root, count, 2)
        out = os.path.join(folder, f"many{count}-out")
        manifest = os.path.join(folder, "manifest.csv")
        with open(manifest, "w", encoding="utf-8") as file:
            file.write("user,account\n")
            file.writelines(f"u{i // 1000:03d},{80000000 + i}\n" for i in range(count))
        made, _ = batch(arguments.program, root, out, "--manifest", manifest, "--make", "json")
        resumed, _ = batch(arguments.program, root, out, "--manifest", manifest, "--make", "json", "--resume")
        found, _ = batch(arguments.program, root, out + "2", "--discover", "--make", "json", "--shard", "1/1000000")
        print(f"{count} accounts: made {made:.1f} s, resumed {resumed:.1f} s, discovered {found:.1f} s; "
              f"{1e6 * made / count:.0f}, {1e6 * resumed / count:.0f} and {1e6 * found / count:.0f} us each; "
              f"index {os.path.getsize(os.path.join(out, 'results.jsonl')) / count:.0f} bytes an account")
        for path in (root, out, out + "2"):
            shutil.rmtree(path)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("samples")
    parser.add_argument("--accounts", type=int, default=1000)
    parser.add_argument("--days", type=int, default=20)
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--many", type=int, default=0, help="accounts of the simulation; 0 leaves it out")
    parser.add_argument("--folder", help="where accounts and outputs go (default: in memory)")
    arguments = parser.parse_args()
    above = arguments.folder or ("/dev/shm" if os.access("/dev/shm", os.W_OK) else None)
    with tempfile.TemporaryDirectory(dir=above) as folder:
        root = os.path.join(folder, "root")
        make_accounts(arguments.samples, root, arguments.accounts, arguments.days)
        rates(arguments, root, folder)
        own_share(arguments, root, folder)
        if arguments.many:
            many(arguments, folder)
    return 0


if __name__ == "__main__":
    sys.exit(main())
