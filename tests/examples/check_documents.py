#!/usr/bin/env python3
"""Fails if a document no longer tells the truth: its commands must run, its links must lead somewhere, its C host must be the one
that is built, and the guide must know the options of a report, in both languages.

Usage: check_documents.py SOURCE PROGRAM
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

# Blocks of commands that can't be run here, by document and beginning, and why.
NOT_RUN = {
    ("README.md", "./run"): "it installs packages and builds",
    ("README.zh.md", "./run"): "it installs packages and builds",
    ("docs/batch.md", "tradebill batch --root /data/"): "folders of a data centre; the guide has the call with a sample",
    ("docs/charts.md", "build/linux/bin/raster_vectors"): "programs of developers; tests and benchmarks run them",
    ("docs/embedding.md", "cl /I include"): "compilers of other systems; examples.guide_host builds the host",
    ("docs/guide.md", "cmake --install"): "examples.library_hosts installs",
    ("docs/guide.zh.md", "cmake --install"): "examples.library_hosts installs",
    ("docs/hosts.md", "cc host.c"): "examples.library_hosts builds it",
    ("docs/recipes.md", "tradebill export"): "examples.recipes runs all of them",
    ("docs/recipes.md", "sqlite3"): "examples.recipes runs all of them",
}
EXITS = {"tradebill diff": 3}  # the two that the documents compare differ
HOSTS = {"investorservice.cfmmc.com", "keepachangelog.com", "semver.org"}
DOWNLOADS = ("下载", "downloads")  # folders in which readers have statements
GUIDES = ("docs/guide.md", "docs/guide.zh.md")


class Untrue(Exception):
    """What a document says that isn't so."""


def documents(source):
    return sorted([*source.glob("README*.md"), *source.glob("docs/*.md")])


def blocks(text, language):
    return re.findall(r"^```" + language + r"\n(.*?)^```", text, re.DOTALL | re.MULTILINE)


def commands_of(block):
    return [line for line in block.replace("\\\n", " ").splitlines() if line.strip()]


def why_not_run(name, block):
    return next((why for (document, start), why in NOT_RUN.items() if document == name and block.startswith(start)), None)


def scratch(source, program, folder):
    """What a reader's folder has: the samples, the program by both of its names, and downloads."""
    shutil.copytree(source / "samples", folder / "samples")
    for place in ("build/linux/bin", "bin"):
        (folder / place).mkdir(parents=True)
        (folder / place / "tradebill").symlink_to(program)
    statements = folder / "samples/fund-status/root/Users/demo/Data/Bill"
    for name in DOWNLOADS:
        (folder / name).mkdir()
        for file in statements.glob("D*.txt"):
            shutil.copy(file, folder / name)


def run_commands(source, program, name, text):
    """Returns how many were run: those of a document share a folder."""
    wanted = [block for block in blocks(text, "sh") if why_not_run(name, block) is None]
    lines = [line for block in wanted for line in commands_of(block)]
    if not lines:
        return 0
    with tempfile.TemporaryDirectory() as path:
        folder = pathlib.Path(path)
        scratch(source, program, folder)
        environment = dict(os.environ, PATH=f"{folder}/bin:{os.environ['PATH']}", HOME=path, XDG_CONFIG_HOME=path)
        for line in lines:
            print(f"{name}: {line}", flush=True)
            end = subprocess.run(["bash", "-c", line], cwd=folder, env=environment, check=False, stdout=subprocess.DEVNULL)
            expected = next((exit for start, exit in EXITS.items() if line.startswith(start)), 0)
            if end.returncode != expected:
                raise Untrue(f"{name}: it ends with {end.returncode}: {line}")
    return len(lines)


def anchors(text):
    """As the hosts of repositories make them of headings."""
    outside = re.sub(r"^```.*?^```", "", text, flags=re.DOTALL | re.MULTILINE)
    headings = re.findall(r"^#+ +(.*)$", outside, re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def check_links(source, document):
    text = re.sub(r"^```.*?^```", "", document.read_text(encoding="utf-8"), flags=re.DOTALL | re.MULTILINE)
    for link in re.findall(r"\]\(([^)\s]+)\)", re.sub(r"`[^`\n]*`", "", text)):
        if "://" in link:
            if link.split("/")[2] not in HOSTS:
                raise Untrue(f"{document}: nobody has looked at {link}")
            continue
        path, _, anchor = link.partition("#")
        target = document if not path else document.parent / path
        if not target.exists():
            raise Untrue(f"{document}: there is no {path}")
        if anchor and anchor not in anchors(target.read_text(encoding="utf-8")):
            raise Untrue(f"{document}: {path} has no heading #{anchor}")


def check_c_host(source):
    host = (source / "examples/c_host/host.c").read_text(encoding="utf-8")
    if host not in blocks((source / "docs/embedding.md").read_text(encoding="utf-8"), "c"):
        raise Untrue("docs/embedding.md: its C host is not examples/c_host/host.c")


def options_of(text):
    return set(re.findall(r"(?<![\w-])--[a-z][a-z-]+", text))


def check_guide(source, program, name):
    """The table of a report's options has what the program has."""
    text = (source / name).read_text(encoding="utf-8")
    rows = [line.split("|")[1] for line in text.splitlines() if line.startswith("| `--")]
    told = {option for row in rows for option in options_of(row)}
    shown = subprocess.run([program, "report", "--help"], check=True, capture_output=True, text=True, encoding="utf-8").stdout
    there = {option for line in shown.splitlines() for option in re.findall(r"^  (?:-\w,)?(--[a-z-]+)", line)} - {"--help"}
    if told != there:
        raise Untrue(f"{name}: options that only it, or only the program, has: {sorted(told ^ there)}")


def check_same_guides(source):
    """What isn't language is the same in both."""
    one, other = ((source / name).read_text(encoding="utf-8") for name in GUIDES)
    for what, parts in (("commands", lambda text: blocks(text, "sh")),
                        ("configuration", lambda text: blocks(text, "ini")),
                        ("headings", lambda text: re.findall(r"^#+(?= )", text, re.MULTILINE)),
                        ("options", lambda text: sorted(options_of(text)))):
        if parts(one) != parts(other):
            raise Untrue(f"{GUIDES[1]}: other {what} than in {GUIDES[0]}")


def check_all(source, program):
    ran = 0
    for document in documents(source):
        name = document.relative_to(source).as_posix()
        text = document.read_text(encoding="utf-8")
        ran += run_commands(source, program, name, text)
    for document in [*documents(source), *source.glob("*.md"), *source.glob("*/README.md"), *source.glob("examples/*/README.md")]:
        check_links(source, document)
    for (name, start) in NOT_RUN:
        if not any(block.startswith(start) for block in blocks((source / name).read_text(encoding="utf-8"), "sh")):
            raise Untrue(f"{name}: it has no block {start} any more")
    check_c_host(source)
    for name in GUIDES:
        check_guide(source, program, name)
    check_same_guides(source)
    print(f"{ran} commands")


def main():
    try:
        check_all(pathlib.Path(sys.argv[1]).resolve(), str(pathlib.Path(sys.argv[2]).resolve()))
    except Untrue as what:
        raise SystemExit(str(what)) from what
    return 0


if __name__ == "__main__":
    sys.exit(main())
