#!/usr/bin/env python3
"""What the injector does to a program, and how outcomes are judged: both must be able to see what is wrong.

Usage: judging_test.py BUILD
"""

import dataclasses
import pathlib
import sqlite3
import subprocess
import sys
import tempfile
import unittest

import databases
import fault_table
import verdict
from sandbox import Call, Ending, read_calls

BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
PAGE, PICTURE, INPUT = "Image/TradeBill.html", "Image/Image_files/A.jpg", "D1.txt"
OLD_PAGE, NEW_PAGE = b"old</html>", b"new</html>"
OLD_PICTURE, NEW_PICTURE = b"\xff\xd8old\xff\xd9", b"\xff\xd8new\xff\xd9"
INPUTS = {INPUT: b"statement"}
BEGIN = {**INPUTS, PAGE: OLD_PAGE, PICTURE: OLD_PICTURE}
CLEAN = Ending(0, b"", "", {**INPUTS, PAGE: NEW_PAGE, PICTURE: NEW_PICTURE}, [])
TELLS = "can't write Image/TradeBill.html"


def judged(change, exit_code=1, said=TELLS, name=PAGE, alternatives=()):
    """The verdict on the clean run's files with some changed, or missing if None."""
    tree = {path: content for path, content in {**CLEAN.tree, **change}.items() if content is not None}
    ending = Ending(exit_code, b"", said, tree, [Call("write", "/box/" + name, "", True, 1)])
    return verdict.judge(ending, verdict.Case(INPUTS, BEGIN, CLEAN), alternatives).word


class Judging(unittest.TestCase):
    def test_same_is_every_byte_and_the_status(self):
        self.assertEqual(judged({}, 0, ""), verdict.SAME)
        self.assertEqual(judged({PICTURE: None}, 0, ""), verdict.SILENT)

    def test_a_failure_is_told_with_the_file(self):
        self.assertEqual(judged({PICTURE: None}), verdict.TOLD)
        self.assertEqual(judged({PICTURE: None}, said="something failed"), verdict.UNNAMED)
        above = Ending(1, b"", TELLS, BEGIN, [Call("newfstatat", "/dev/shm", "", False, 1)])
        self.assertEqual(verdict.judge(above, verdict.Case(INPUTS, BEGIN, CLEAN)).word, verdict.TOLD)
        self.assertEqual(judged({PICTURE: None}, said=""), verdict.SILENT)

    def test_all_of_the_older_run_or_of_the_new_one(self):
        self.assertEqual(judged({PAGE: OLD_PAGE, PICTURE: OLD_PICTURE}), verdict.TOLD)
        self.assertEqual(judged({PAGE: OLD_PAGE}), verdict.AHEAD)
        self.assertEqual(judged({PICTURE: OLD_PICTURE}), verdict.TORN)

    def test_what_is_cut_is_torn(self):
        self.assertEqual(judged({PAGE: b"ne"}), verdict.TORN)
        self.assertEqual(judged({PICTURE: b"\xff\xd8ne"}), verdict.TORN)
        self.assertEqual(judged({INPUT: b""}), verdict.TORN)
        self.assertEqual(judged({INPUT: None}), verdict.TORN)

    def test_a_run_without_the_file_may_look_like_a_run_without_it(self):
        without = {**CLEAN.tree, PAGE: b"less</html>", PICTURE: OLD_PICTURE}
        self.assertEqual(judged({PAGE: b"less</html>", PICTURE: OLD_PICTURE}), verdict.TORN)
        self.assertEqual(judged({PAGE: b"less</html>", PICTURE: OLD_PICTURE}, alternatives=[without]), verdict.TOLD)

    def test_nothing_else_stays(self):
        for name in ("Image/.tradebill-x1/lock", PICTURE + ".part", "elsewhere.html"):
            self.assertEqual(judged({name: b""}), verdict.LEFTOVER, name)

    def test_what_the_next_run_removes(self):
        case = verdict.Case(INPUTS, BEGIN, CLEAN)
        call = Call("unlink", "/box/Image/.tradebill-*/lock", "", True, 1)
        ending = Ending(1, b"", "can't remove Image/.tradebill-x", {**CLEAN.tree, "Image/.tradebill-x": None}, [call])
        self.assertEqual(verdict.left_to_the_next(ending, case, lambda: CLEAN).word, verdict.LEFT)
        self.assertIsNone(verdict.left_to_the_next(ending, case, lambda: ending))
        self.assertIsNone(verdict.left_to_the_next(dataclasses.replace(ending, exit=0), case, lambda: CLEAN))

    def test_crashes_and_hangs(self):
        self.assertEqual(judged({}, -11), verdict.CRASH)
        self.assertEqual(judged({}, 134), verdict.CRASH)
        self.assertEqual(judged({}, None), verdict.HANG)


def database(*rows, order="ASC"):
    """Bytes of a database with a row for each number; another order makes other bytes of the same rows."""
    made = sqlite3.connect(":memory:")
    made.execute("CREATE TABLE days (day INTEGER)")
    made.executemany("INSERT INTO days VALUES (?)", [(row,) for row in (rows if order == "ASC" else rows[::-1])])
    made.commit()
    return made.serialize()


class JudgingDatabases(unittest.TestCase):
    OLD, NEW = database(1, 2), database(3, 4)

    def judged(self, content, exit_code=1, begin=None, **others):
        begin = INPUTS | {"tables.db": self.OLD} if begin is None else begin
        clean = Ending(0, b"", "", INPUTS | {"tables.db": self.NEW}, [])
        ending = Ending(exit_code, b"", "can't write tables.db", INPUTS | {"tables.db": content, **others}, [])
        return verdict.judge(ending, verdict.Case(INPUTS, begin, clean)).word

    def test_rows_count_and_not_their_bytes(self):
        self.assertNotEqual(self.NEW, database(3, 4, order="DESC"))
        self.assertEqual(self.judged(database(3, 4, order="DESC")), verdict.TOLD)
        self.assertEqual(self.judged(database(1, 2, order="DESC")), verdict.TOLD)
        self.assertEqual(self.judged(self.OLD, 0), verdict.SILENT)

    def test_rows_of_both_runs_are_torn(self):
        self.assertEqual(self.judged(database(1, 4)), verdict.TORN)
        self.assertEqual(self.judged(b""), verdict.TORN)

    def test_what_is_cut_is_torn(self):
        self.assertEqual(self.judged(self.NEW[:-100]), verdict.TORN)
        self.assertEqual(self.judged(self.NEW[:100] + bytes(len(self.NEW) - 100)), verdict.TORN)

    def test_a_new_one_may_be_empty(self):
        self.assertEqual(self.judged(b"", begin=INPUTS), verdict.TOLD)

    def test_a_journal_is_rolled_back(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "tables.db")
            path.write_bytes(database(*range(2000)))
            half_way = sqlite3.connect(path)
            half_way.execute("PRAGMA cache_size = 1")
            half_way.execute("UPDATE days SET day = -day")
            tree = {"tables.db": path.read_bytes(), "tables.db-journal": pathlib.Path(str(path) + databases.JOURNAL).read_bytes()}
            half_way.close()
        self.assertNotEqual(databases.rows_of(tree["tables.db"]), databases.rows_of(database(*range(2000))))
        self.assertEqual(databases.rows_at("tables.db", tree), databases.rows_of(database(*range(2000))))

    def test_a_statement_that_is_not_there_may_be_told_in_other_words(self):
        self.assertEqual(databases.without_findings((("days", "1"), ("findings", "gap"))), [("days", "1")])
        self.assertFalse(databases.are_of_one_run("tables.db", {"tables.db": self.OLD}, {"tables.db": self.NEW}))


class Injecting(unittest.TestCase):
    """On the system's own copier, which takes 128 KiB at a time."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.source, self.log = pathlib.Path(folder.name, "source"), pathlib.Path(folder.name, "log")
        self.source.write_bytes(bytes(range(256)) * 1000)

    def run_cat(self, *options):
        done = subprocess.run([BUILD / "bin" / "fault_injector", self.log, *options, "--", "/bin/cat", self.source],
                              capture_output=True, check=False)
        lines = self.log.read_text().splitlines()
        return done, read_calls(lines), lines[-1]

    def at(self, call, number, way):
        return "--at", call, str(self.source), str(number), fault_table.errors_by_number(way)

    def test_lists_every_call(self):
        done, calls, end = self.run_cat()
        self.assertEqual((done.returncode, end), (0, "exit 0"))
        reads = [call.number for call in calls if (call.name, call.object) == ("read", str(self.source))]
        self.assertEqual(reads, [1, 2, 3])
        self.assertIn(("stdout", True), [(call.object, call.changes) for call in calls if call.name == "write"])

    def test_fails_one_call(self):
        done, calls, _ = self.run_cat(*self.at("read", 2, "once:EIO"))
        self.assertEqual((done.returncode, len(done.stdout), len(calls)), (1, 131072, 1))
        self.assertIn(b"Input/output error", done.stderr)

    def test_halves_without_a_loss(self):
        for way, times in (("half", 1), ("halves", 3)):
            done, calls, _ = self.run_cat(*self.at("read", 1, way))
            self.assertEqual((done.returncode, done.stdout), (0, self.source.read_bytes()))
            self.assertGreaterEqual(len(calls), times)

    def test_fills_a_disk(self):
        done, calls, _ = self.run_cat("--at", "write", "stdout", "1", fault_table.errors_by_number("full:ENOSPC"))
        self.assertEqual((done.returncode, len(done.stdout)), (1, 65536))
        self.assertIn(b"No space left", done.stderr)
        self.assertEqual(len(calls), 2)

    def test_kills_before_the_call(self):
        done, _, end = self.run_cat("--at", "write", "stdout", "2", "kill")
        self.assertEqual((len(done.stdout), end), (131072, "signal 9"))


if __name__ == "__main__":
    unittest.main()
