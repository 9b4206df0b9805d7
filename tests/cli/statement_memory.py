#!/usr/bin/env python3
"""Reads statements of many bytes: the program takes twice their bytes at most, and the records that it keeps.

Usage: statement_memory.py PROGRAM SAMPLES
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

BYTES = 24 << 20
TRADE_BYTES = 400   # of a record; records_test tells its fields
ROOT_FILE = "root/Users/demo/Data/Bill/D90010002.20240102o.txt"


def peak(program, folder, command):
    """Bytes of memory at the most."""
    days = ("--from", "2024-01-02", "--to", "2024-01-02")
    account = ("--root", "root", "--user", "demo", "--account", "90010002", "--format", "1", "--units", "none", *days)
    arguments = ("explain", ROOT_FILE) if command == "explain" else (command, *account)
    process = subprocess.Popen([program, *arguments], cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode not in (0, 3):     # 3: check has found what was put between the rows
        sys.exit(f"{command} ended with {process.returncode}")
    return usage.ru_maxrss * 1024


def write(path, *parts):
    """Texts, each with what stands behind it so often that it is of BYTES. This process stays small: what it forks
    begins with its memory."""
    with path.open("wb") as file:
        for text, repeated in parts:
            file.write(text)
            piece = repeated * (65536 // max(1, len(repeated)))
            for _ in range(BYTES // max(1, len(piece)) if repeated else 0):
                file.write(piece)


def main():
    program, samples = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    folder = pathlib.Path(tempfile.mkdtemp(prefix="statement-memory."))
    shutil.copytree(samples / "fund-status/root", folder / "root")
    statement = folder / ROOT_FILE
    usual = statement.read_bytes()
    trade = next(line for line in usual.splitlines(keepends=True) if line.startswith(b"20240102"))
    begin = usual.index(trade)
    # Each as what stands before the trades, behind all, and how many records that is.
    texts = {
        "rows of one byte": (b"", b"1\n", 0),
        "blank rows": (b"", b"\r\n", 0),
        "one row": (b"", b"1", 0),
        "trades": (trade, b"", BYTES // len(trade)),
    }
    faults = []
    try:
        for command in ("report", "check", "explain"):
            statement.write_bytes(usual)
            least = peak(program, folder, command)
            for name, (inside, behind, trades) in texts.items():
                write(statement, (usual[:begin], inside), (usual[begin:], behind))
                most = least + 2 * statement.stat().st_size + trades * TRADE_BYTES
                taken = peak(program, folder, command)
                if taken > most:
                    faults.append(f"{command}, {name}: {taken >> 20} MiB, {most >> 20} at the most")
    finally:
        shutil.rmtree(folder)
    print("\n".join(faults) or "no statement takes more")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
