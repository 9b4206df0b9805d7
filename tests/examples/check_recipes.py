#!/usr/bin/env python3
"""Runs the recipes of docs/recipes.md: those under one heading must print the same, and something.

Usage: check_recipes.py SOURCE PROGRAM

Blocks of Python are run by a Python that has pandas, those of the shell by sh with the program in its path. Exits with 77 where pandas or
the shell of SQLite is missing.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"```(python|sh)\n(.*?)```", re.DOTALL)
LEAST = 9       # blocks that there are at least, so that none is lost unseen


def python_with_pandas():
    """This Python, or Debian's, which has Debian's packages."""
    for python in (sys.executable, "/usr/bin/python3"):
        if subprocess.run([python, "-c", "import pandas"], capture_output=True, check=False).returncode == 0:
            return python
    sys.exit(77)


def run(language, text, folder, path, python):
    command = [python, "-c", text] if language == "python" else ["sh", "-ec", text]
    done = subprocess.run(command, cwd=folder, env={**os.environ, "PATH": path, "PYTHONIOENCODING": "utf-8"}, capture_output=True,
                          text=True, encoding="utf-8", check=False)
    if done.returncode != 0:
        raise SystemExit(f"a recipe ends with {done.returncode}:\n{text}\n{done.stderr}")
    return done.stdout


def check_heading(title, blocks, *place):
    printed = [run(language, text, *place) for language, text in blocks]
    if title and any(not output.strip() for output in printed):
        raise SystemExit(f"{title}: a recipe prints nothing")
    if title and len(set(printed)) > 1:
        raise SystemExit(f"{title}: the recipes print {printed}")


def main():
    source, program = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve()
    python = python_with_pandas()
    if not shutil.which("sqlite3"):
        sys.exit(77)
    sections = re.split(r"^## ", (source / "docs" / "recipes.md").read_text(encoding="utf-8"), flags=re.MULTILINE)
    found = [(index and section.splitlines()[0], BLOCK.findall(section)) for index, section in enumerate(sections)]
    if sum(len(blocks) for _, blocks in found) < LEAST:
        sys.exit("there are fewer recipes than there were")
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(source / "samples", pathlib.Path(folder) / "samples")
        for title, blocks in found:
            check_heading(title, blocks, folder, f"{program.parent}:{os.environ['PATH']}", python)
    print("all recipes work")


if __name__ == "__main__":
    main()
