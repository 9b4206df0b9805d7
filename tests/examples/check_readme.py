#!/usr/bin/env python3
"""Fails if the README no longer tells the truth: its C example must be the one that is built, its command lines must run.

Usage: check_readme.py SOURCE PROGRAM
"""

import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile


def blocks(readme, language):
    return re.findall(r"```" + language + r"\n(.*?)```", readme, re.DOTALL)


def check_c_example(source, readme):
    example = (source / "examples" / "c_host" / "host.c").read_text(encoding="utf-8")
    if example not in blocks(readme, "c"):
        raise SystemExit("the C example of the README is not examples/c_host/host.c")


def check_command_lines(source, readme, program):
    """Runs each call of the program that the README shows, in a copy of the samples."""
    commands = []
    for block in blocks(readme, "sh"):
        for line in block.replace("\\\n", " ").splitlines():
            if line.startswith("build/linux/bin/tradebill "):
                commands.append(shlex.split(line)[1:])
    if not commands:
        raise SystemExit("the README shows no call of the program")
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(source / "samples", pathlib.Path(folder) / "samples")
        for arguments in commands:
            print("tradebill", *arguments)
            end = subprocess.run([program, *arguments], cwd=folder, check=False).returncode
            if end != (3 if arguments[0] == "diff" else 0):  # the two that it compares differ
                raise SystemExit(f"it ends with {end}")


def main():
    source = pathlib.Path(sys.argv[1])
    readme = (source / "README.md").read_text(encoding="utf-8")
    check_c_example(source, readme)
    check_command_lines(source, readme, sys.argv[2])
    return 0


if __name__ == "__main__":
    sys.exit(main())
