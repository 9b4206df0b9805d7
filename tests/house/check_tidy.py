#!/usr/bin/env python3
"""Fails on what clang-tidy finds in src/, with the checks of .clang-tidy: in each source, and what it meets in headers.

With --headers each header is looked at as a file of its own too, so that it must compile alone and include what it names:
as much again, which tests/all.sh does. Sources of another system are left out, as in the build.
With --sample N those sources are looked at that the last commits have changed, and one of N others, which ones changes
with each commit.
With --fix, what clang-tidy can mend is mended, one file after the other; clang-format follows, and a look at what it did.

Usage: check_tidy.py [--headers] [--sample=N] [--fix] SOURCE BUILD [PATH...] (a file or folder; all of src/ without)
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

CLANG_TIDY = "clang-tidy-19"
# The build's own precompiled header hides what a file doesn't include; code generation is of no interest.
DROPPED = {"-Winvalid-pch", "-Werror", "-g1", "-O2", "-c"}
DROPPED_WITH_VALUE = {"-include", "-o"}
OTHER_SYSTEM = ("windows", "gdi")
LAST_COMMITS = 12


def flags_of(entry):
    flags, words = [], iter(shlex.split(entry["command"])[1:])
    for word in words:
        if word in DROPPED_WITH_VALUE:
            next(words)
        elif word not in DROPPED and word != entry["file"] and not word.startswith("-Wno-"):
            flags.append(word)
    return flags


def files_with_flags(source, build, paths, with_headers):
    """Pairs of file and flags: sources as they are built, headers as the program's own source is."""
    src = source / "src"
    entries = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    built = {pathlib.Path(entry["file"]): flags_of(entry) for entry in entries}
    sources = {path: flags for path, flags in built.items() if path.is_relative_to(src) and path.suffix == ".cpp"}
    of_headers = built[src / "cli" / "main.cpp"] + ["-xc++", "-Wno-pragma-once-outside-header", "-Wno-unused-const-variable"]
    headers = {path: of_headers for path in (src.rglob("*.h") if with_headers else [])
               if not set(OTHER_SYSTEM) & set(path.parts) and not path.name.startswith("gdiplus_")}
    for path, flags in sorted({**sources, **headers}.items()):
        if not paths or any(path.is_relative_to(chosen) for chosen in paths):
            yield path, flags


def git(source, *arguments):
    """What git says of the source's repository; nothing where there is none."""
    run = subprocess.run(["git", "-C", str(source), *arguments], capture_output=True, text=True)
    return run.stdout.split() if run.returncode == 0 else []


def sample_of(files, source, share):
    commit = "".join(git(source, "rev-parse", "HEAD"))
    changed = set(git(source, "log", f"-{LAST_COMMITS}", "--format=", "--name-only"))
    for path, flags in files:
        name = str(path.relative_to(source))
        digest = hashlib.sha256((commit + name).encode()).digest()
        if name in changed or int.from_bytes(digest[:8], "big") % share == 0:
            yield path, flags


def findings(path, flags, fix):
    """What clang-tidy says, or nothing."""
    command = [CLANG_TIDY, "--quiet"] + (["--fix", "--format-style=file"] if fix else []) + [str(path), "--"] + flags
    run = subprocess.run(command, capture_output=True, text=True)
    return run.stdout.strip() + ("" if run.returncode == 0 or run.stdout.strip() else run.stderr)


def main():
    arguments = sys.argv[1:]
    fix = "--fix" in arguments
    source, build, *paths = [pathlib.Path(a).resolve() for a in arguments if not a.startswith("--")]
    files = list(files_with_flags(source, build, paths, "--headers" in arguments))
    share = [int(a.removeprefix("--sample=")) for a in arguments if a.startswith("--sample=")]
    if share:
        files = list(sample_of(files, source, share[0]))
    # The longest first, so that the end isn't a wait for one.
    files.sort(key=lambda pair: -pair[0].stat().st_size)
    workers = 1 if fix else len(os.sched_getaffinity(0))
    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        found = set()
        for text in pool.map(lambda pair: findings(*pair, fix), files):
            if text and text not in found:
                found.add(text)
                print(text, flush=True)
    if not found:
        print(f"nothing in {len(files)} files")
    return 1 if found and not fix else 0


if __name__ == "__main__":
    sys.exit(main())
