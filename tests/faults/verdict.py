"""Judges what a run with a failed call left, against the run without one."""

import dataclasses
import json
import os
import re

import databases

SAME, TOLD, AHEAD, LEFT = "same", "told", "told, pictures ahead", "left to the next run"
UNNAMED = "told, unnamed"
SILENT, SPOILED, TORN, LEFTOVER = "silent", "spoiled", "torn", "leftover"
CRASH, HANG, MISSED = "crash", "hang", "missed"
# Nothing that is in its place is undone: pictures come first, so they lie under the old page if the page can't come.
GOOD = (SAME, TOLD, AHEAD, LEFT)
VERDICTS = (SAME, TOLD, AHEAD, LEFT, UNNAMED, SILENT, SPOILED, TORN, LEFTOVER, CRASH, HANG, MISSED)
# What even a failure of the system's own libraries may not lead to.
NEVER = (SPOILED, TORN, LEFTOVER, CRASH, HANG, MISSED)


@dataclasses.dataclass
class Verdict:
    word: str
    why: str = ""


def is_whole(path, content):
    """Whether a file is complete by what its kind ends with."""
    if content is None:
        return True
    if path.endswith(".json"):
        try:
            json.loads(content)
        except ValueError:
            return False
        return True
    if path.endswith((".jpg", ".jpeg")):
        return content.startswith(b"\xff\xd8") and content.endswith(b"\xff\xd9")
    if path.endswith(".png"):
        return content.startswith(b"\x89PNG") and content.endswith(b"IEND\xaeB`\x82")
    if path.endswith(".csv"):
        return content.startswith(b"\xef\xbb\xbf") and content.endswith(b"\r\n")
    if path.endswith("o.txt"):      # a statement may be another one: what isn't known of an earlier day is left open in it
        return content.endswith(b"\r\n")
    return content.rstrip().endswith(b"</html>")


def is_page(path):
    return os.path.basename(path) == "TradeBill.html"


def is_picture(path):
    return "Image_files/" in path


def state(path, tree, begin, clean):
    """What became of one path: absent, same (nothing was to change), old, new or other. A sound database has a run's rows."""
    if path not in tree:
        return "absent"
    if path in begin and path in clean and begin[path] == clean[path] == tree[path]:
        return "same"
    if path in clean and is_alike(path, tree, clean):
        return "new"
    return "old" if path in begin and is_alike(path, tree, begin) else "other"


def is_alike(path, tree, other):
    """Whether a file is that of another tree; of a database the rows count."""
    if tree[path] == other[path]:
        return True
    if not databases.is_database(path) or None in (tree[path], other[path]):
        return False
    rows = databases.rows_at(path, tree)
    return rows is not None and rows == databases.rows_at(path, other)


OF_A_RUN = re.compile(r"(^|/)\.tradebill|\.db-journal$|\.older$")


def leftovers(tree, begin, clean):
    return sorted(path for path in tree if path not in begin and path not in clean and tree[path] is not None
                  or (OF_A_RUN.search(path) or path.endswith(".part")) and path not in clean)


@dataclasses.dataclass
class Case:
    """What a scenario's outcomes are judged by."""

    inputs: dict                    # trees: what the sample has,
    begin: dict                     # what there is before the run,
    clean: object                   # and how the run ends without a failure
    tells_on_stdout: bool = False


def torn(tree, case, alternatives=(), left=frozenset()):
    """Why an output is torn, or an empty text; "ahead" if it is only that new pictures lie under the old page. What is `left` to the
    next run is no output."""
    begin, clean = case.begin, case.clean.tree
    states = {path: state(path, tree, begin, clean) for path in (begin.keys() | clean.keys() | tree.keys()) - left}
    for path, found in sorted(states.items()):
        if path in case.inputs and not (found == "same" or clean.get(path) != begin[path]):
            return f"input {path} is {found}"
        if found == "other" and databases.is_database(path):
            is_new = path not in begin and databases.is_empty(path, tree)
            if not is_new and not any(databases.are_of_one_run(path, tree, other) for other in alternatives):
                return f"{path} has rows of neither run"
        elif found == "other" and not is_whole(path, tree[path]):
            return f"{path} is cut: {len(tree[path])} bytes"
    tables = {found for path, found in states.items() if path.endswith(".csv")}
    if "old" in tables and tables & {"new", "other"}:
        return "tables are of two sets"
    pages = {found for path, found in states.items() if is_page(path)} - {"same", "absent"}
    pictures = {found: path for path, found in states.items() if is_picture(path) and found not in ("same", "absent")}
    if pages & {"new", "other"} and "old" in pictures:
        return f"{pictures['old']} is of the last run, the page is not"
    if "old" in pages and {"new", "other"} & pictures.keys():
        return "ahead"
    return ""


def names_of(path, tree):
    """What may stand for a file in a message: its name, its folder's, and for a folder what belongs into it."""
    if path in ("stdin", "stdout", "pipe"):     # by a pipe comes what a process of its own makes of a workbook, too
        return ["standard input"] if path == "stdin" else ["standard output", *([".xls"] if path == "pipe" else [])]
    parts = [part for part in re.sub(r"\.part[^/]*$|\.older$|-journal$", "", path).split("/") if part and not part.startswith(".tradebill-")]
    is_above = path.startswith("/") and "box" not in parts      # of a file's own folder, which a message leaves out
    inside = [name for name in tree if is_above or os.path.basename(os.path.dirname("box/" + name)) in parts[-1:]]
    pages = [name for name in tree if is_page(name)] if OF_A_RUN.search(path) else []
    return parts[-2:] + [os.path.basename(name) for name in inside + pages]


def names_one(said, paths, tree):
    """Whether the message names one of the files, or a shortage of files that may be open, whichever it met first."""
    return not paths or "too few files may be open" in said or any(name in said for path in paths for name in names_of(path, tree))


def alternatives_agree(tree, alternatives):
    """Whether the outputs are those of a run that did without the file."""
    return any(all(other.get(path) == content for path, content in tree.items()) for other in alternatives)


def judge(ending, case, alternatives=(), left=frozenset()):
    """`alternatives` are trees of runs to which the file was missing; `left` is what may stay for the next run."""
    if ending.exit is None:
        return Verdict(HANG)
    if ending.exit < 0 or ending.exit >= 128:
        return Verdict(CRASH, f"signal {abs(ending.exit)}: {ending.err[-200:]}")
    remains = [path for path in leftovers(ending.tree, case.begin, case.clean.tree) if path not in left]
    if remains:
        return Verdict(LEFTOVER, " ".join(remains[:3]))
    why = torn(ending.tree, case, alternatives, left)
    if why and why != "ahead" and not alternatives_agree(ending.tree, alternatives):
        return Verdict(TORN, why)
    if ending.exit == case.clean.exit and ending.tree == case.clean.tree and ending.out == case.clean.out:
        return Verdict(SAME)
    if ending.exit in (0, case.clean.exit):
        return Verdict(SILENT, difference(ending, case.clean))
    return judge_words(ending, case, why == "ahead")


def judge_words(ending, case, ahead):
    """Of a run that ended in another status than without a failure."""
    paths = [path for call in ending.calls for path in (call.object, call.second) if path]
    said = ending.said(case.tells_on_stdout)
    if said == case.clean.said(case.tells_on_stdout) and "stderr" not in paths:
        return Verdict(SILENT, f"exit {ending.exit} without a word")
    if "stderr" not in paths and not names_one(said, paths, case.clean.tree):
        return Verdict(UNNAMED, said)
    return Verdict(AHEAD if ahead else TOLD, said)


def left_to_the_next(ending, case, run_again):
    """For what fails for ever and so keeps a run from removing what it has for itself: right if that is told and the next run
    removes it. None if it isn't."""
    word = judge(ending, case, left={path for path in ending.tree if OF_A_RUN.search(path)})
    if word.word not in (TOLD, AHEAD) or databases.with_rows(run_again().tree) != databases.with_rows(case.clean.tree):
        return None
    return Verdict(LEFT, word.why)


def difference(ending, clean):
    for path in sorted(ending.tree.keys() | clean.tree.keys()):
        if path not in ending.tree:
            return f"{path} is absent"
        if ending.tree[path] != clean.tree.get(path):
            return f"{path} differs"
    return "standard output differs" if ending.out != clean.out else "exit status alone"
