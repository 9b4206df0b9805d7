#!/usr/bin/env python3
"""Fails if a report without pictures takes a tenth more instructions than the reference, as callgrind counts them.

Counts don't suffer from what else a machine does, but each compiler and each C library has its own: with others than the
reference's the check is passed over (exit 77), saying so. String functions are held to those that every x86-64 has.
With --bless the count becomes the reference: after a change that is worth its price, one that made reports quicker, or a
new compiler.

Usage: check_instructions.py [--bless] COUNTED_REPORT REFERENCE COMPILER
"""

import os
import pathlib
import platform
import re
import shutil
import subprocess
import sys
import tempfile

MOST = 1.10
PASSED_OVER = 77
BLESS = "cmake --build --preset linux --target bless_instructions"
# The C library picks its functions by what the processor has, and its limits by the sizes of caches.
HIDDEN = ("AVX AVX2 AVX512F AVX512VL AVX512BW AVX_Fast_Unaligned_Load BMI1 BMI2 ERMS FMA FMA4 FSRM LZCNT MOVBE POPCNT RTM SSSE3 SSE4_1 "
          "SSE4_2 Fast_Copy_Backward Fast_Rep_String Prefer_ERMS Prefer_FSRM")
TUNABLES = ("glibc.cpu.hwcaps=" + ",".join("-" + name for name in HIDDEN.split())
            + ":glibc.cpu.x86_non_temporal_threshold=0xc0000")


def surroundings(compiler):
    """What a count depends on beside the code."""
    return {"compiler": compiler, "libc": " ".join(platform.libc_ver()), "processor": platform.machine()}


def read_reference(path):
    lines = path.read_text(encoding="utf-8").splitlines()
    return dict(line.split(" = ", 1) for line in lines if " = " in line)


def write_reference(path, values):
    text = path.read_text(encoding="utf-8")
    notes = [line for line in text.splitlines() if line.startswith("#")]
    path.write_text("\n".join(notes + [f"{name} = {value}" for name, value in values.items()]) + "\n", encoding="utf-8")


def count(program):
    """Instructions from the statements to the page."""
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(prefix="tradebill-counted.", dir=memory) as folder:
        subprocess.run([program, "make", folder], check=True)
        run = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null",
                              "--toggle-collect=*CountedReport*", program, "report", folder],
                             env={**os.environ, "GLIBC_TUNABLES": TUNABLES}, capture_output=True, text=True)
    collected = re.search(r"Collected : (\d+)", run.stderr)
    if run.returncode != 0 or collected is None:
        sys.exit(f"callgrind has failed:\n{run.stderr}")
    return int(collected.group(1))


def main():
    arguments = [a for a in sys.argv[1:] if a != "--bless"]
    bless = len(arguments) < len(sys.argv) - 1
    program, path, compiler = arguments[0], pathlib.Path(arguments[1]), arguments[2]
    here = surroundings(compiler)
    if shutil.which("valgrind") is None:
        print("passed over: valgrind isn't installed")
        return PASSED_OVER
    reference = read_reference(path)
    others = [f"{name} {value} (the reference is of {reference.get(name)})" for name, value in here.items()
              if value != reference.get(name)]
    if others and not bless:
        print("passed over: counts can't be compared with " + "; ".join(others))
        return PASSED_OVER

    counted = count(program)
    if bless:
        write_reference(path, {**here, "instructions": counted})
        print(f"{counted} instructions are the reference from now on")
        return 0
    expected = int(reference["instructions"])
    print(f"{counted} instructions, {counted / expected - 1:+.1%} of the reference's {expected}")
    if counted <= expected * MOST:
        return 0
    print(f"That is more than a tenth. Where they go: valgrind --tool=callgrind, callgrind_annotate.\n"
          f"If the change is worth it: {BLESS}")
    return 1


if __name__ == "__main__":
    sys.exit(main())
