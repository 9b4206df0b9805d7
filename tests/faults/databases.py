"""What a SQLite database holds, whatever order its pages have."""

import functools
import os
import sqlite3
import tempfile

JOURNAL = "-journal"
FINDINGS = "findings"


def is_database(path):
    return path.endswith(".db")


@functools.lru_cache(maxsize=64)
def rows_of(content, journal=None):
    """Every row of every table, sorted; a journal left beside it is rolled back, as whoever opens it next does. None of a
    database that isn't sound."""
    with tempfile.TemporaryDirectory(prefix="databases-") as folder:
        path = os.path.join(folder, "copy.db")
        for name, content_of_file in ((path, content), (path + JOURNAL, journal)):
            if content_of_file is not None:
                with open(name, "wb") as file:
                    file.write(content_of_file)
        try:
            return read_rows(path)
        except sqlite3.Error:
            return None


def read_rows(path):
    database = sqlite3.connect(path)
    try:
        if database.execute("PRAGMA integrity_check").fetchall() != [("ok",)]:
            return None
        names = [name for name, in database.execute("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name")]
        return tuple((name, *sorted(map(repr, database.execute(f'SELECT * FROM "{name}"')))) for name in names)
    finally:
        database.close()


def rows_at(path, tree):
    """Those of a database in a tree of files."""
    return rows_of(tree[path], tree.get(path + JOURNAL))


def is_empty(path, tree):
    """Whether nothing came to be in a database."""
    return rows_at(path, tree) == ()


def are_of_one_run(path, tree, other):
    """Whether a database has the rows of another tree's, but for how the findings put it that a statement is not there."""
    one, two = rows_at(path, tree), rows_at(path, other)
    return None not in (one, two) and without_findings(one) == without_findings(two)


def without_findings(rows):
    return [table for table in rows if table[0] != FINDINGS]


def with_rows(tree):
    """A tree with the rows of its databases in the place of their bytes, to compare it with another."""
    return {path: rows_at(path, tree) if is_database(path) and content is not None else content for path, content in tree.items()}
