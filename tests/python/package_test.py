#!/usr/bin/env python3
"""The Python package as somebody has it who installed it: against the program's own JSON of the same account.

Usage: package_test.py LIBRARY PROGRAM SOURCE
Installs the package from SOURCE/python into a folder of the test's own, and tests it there.
"""

import json
import os
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import threading
import unittest

SAMPLE = None  # the root of a sample, copied: a page is written beside its statements
PROGRAM = None


def setUpModule():
    global SAMPLE
    folder = tempfile.mkdtemp()
    unittest.addModuleCleanup(shutil.rmtree, folder)
    SAMPLE = shutil.copytree(pathlib.Path(SOURCE, "samples/fund-status/root"), pathlib.Path(folder, "root"))


def read(**options):
    return tradebill.read(SAMPLE, **options)


def report_of_program(folder):
    path = pathlib.Path(folder, "report.json")
    command = [PROGRAM, "report", "--root", SAMPLE, "--out", folder, "--quiet", "--json", path]
    subprocess.run(command, check=True, stderr=subprocess.DEVNULL)
    return json.loads(path.read_text(encoding="utf-8"))


class Reading(unittest.TestCase):
    def test_has_all_that_the_program_has(self):
        with tempfile.TemporaryDirectory() as folder:
            wanted = report_of_program(folder)
        account = read()
        found = account.json()
        del wanted["run"]["page"], found["run"]["page"]  # nothing is written here
        self.assertEqual(found, wanted)
        self.assertEqual(account.totals.statements, len(wanted["run"]["statements"]))
        self.assertIsNone(account.page)
        self.assertIn("format 1", " ".join(account.notes))

    def test_writes_no_file(self):
        before = sorted(SAMPLE.rglob("*"))
        read()
        self.assertEqual(sorted(SAMPLE.rglob("*")), before)

    def test_takes_days(self):
        account = read(from_day="2024-01-04", to_day="2024-01-05")
        self.assertEqual(account.totals.days, 2)
        self.assertEqual(account.table("days")["day"], ["2024-01-04", "2024-01-05"])

    def test_gives_findings(self):
        account = read()
        wanted = account.json()["findings"]
        self.assertEqual([(f.code, f.severity) for f in account.findings], [(f["code"], f["severity"]) for f in wanted])
        totals = account.totals
        self.assertEqual(totals.errors + totals.warnings + totals.notes, len(wanted))


class Tables(unittest.TestCase):
    def test_have_rows_and_columns(self):
        table = read().table("trades")
        wanted = read().json()["matches"]
        self.assertEqual(len(table), len(wanted))
        self.assertEqual(len(table.rows()), len(wanted))
        for row, of_json in zip(table.rows(), wanted):
            self.assertEqual(row["CONTRACT"] if "CONTRACT" in row else None, of_json.get("CONTRACT"))
        self.assertIn("trades", repr(table))

    def test_are_frames_with_pandas(self):
        import pandas
        account = read()
        days = account.days
        self.assertIsInstance(days, pandas.DataFrame)
        self.assertEqual(len(days), account.totals.statements)
        self.assertEqual(str(days["KHQY"].dtype), "float64")
        self.assertEqual(list(days["day"])[0], account.table("days")["day"][0])
        self.assertEqual(str(account.units["unit"].dtype), "Int64")
        for name in tradebill.Account.tables():
            frame = account.table(name).frame()
            self.assertEqual(len(frame), len(account.table(name)), name)
            self.assertEqual(list(frame.columns), list(account.table(name).columns), name)

    def test_are_named(self):
        self.assertIn("trades", tradebill.Account.tables())
        self.assertIn("trades", dir(read()))
        with self.assertRaises(AttributeError):
            read().trade

    def test_outlive_the_account(self):
        with read() as account:
            table = account.table("days")
        self.assertGreater(len(table), 0)

    def test_need_no_pandas(self):
        code = ("import sys; sys.modules['pandas'] = None\n"
                "import tradebill\n"
                "table = tradebill.read(sys.argv[1]).days\n"
                "assert type(table) is tradebill.Table and len(table) > 0\n"
                "try: table.frame()\n"
                "except ImportError: sys.exit(0)\n"
                "sys.exit(1)")
        subprocess.run([sys.executable, "-c", code, SAMPLE], check=True)


class Charts(unittest.TestCase):
    def test_are_png_files(self):
        for name in tradebill.Account.charts():
            chart = read().chart(name, 320, 200)
            self.assertEqual(chart.png[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual(struct.unpack(">II", chart.png[16:24]), (320, 200))
            self.assertEqual(chart._repr_png_(), chart.png)

    def test_are_saved(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "equity.png")
            read().chart("equity").save(path)
            self.assertGreater(path.stat().st_size, 1000)


class Reports(unittest.TestCase):
    def test_write_the_page(self):
        with tempfile.TemporaryDirectory() as folder:
            report_of_program(folder)
            page = pathlib.Path(folder, "TradeBill.html").read_bytes()
            account = tradebill.report(SAMPLE, out=pathlib.Path(folder, "other"))
            self.assertEqual(account.page, str(pathlib.Path(folder, "other/TradeBill.html")))
            self.assertEqual(pathlib.Path(account.page).read_bytes(), page)
            self.assertGreater(account.totals.pictures, 10)

    def test_tell_how_far_they_are(self):
        told = []
        read(from_day="2024-01-02", to_day="2024-01-03", watch=lambda *progress: told.append(progress))
        self.assertIn(("days", 1, 2), told)
        self.assertIn(("days", 2, 2), told)

    def test_stop(self):
        with tempfile.TemporaryDirectory() as folder:
            with self.assertRaises(tradebill.TradeBillError) as caught:
                tradebill.report(SAMPLE, out=folder, watch=lambda stage, *_: stage == "pictures")
            self.assertEqual(caught.exception.name, "STOPPED")
            self.assertEqual([path for path in pathlib.Path(folder).rglob("*") if path.is_file()], [])

    def test_hand_on_what_the_watcher_raises(self):
        def fail(*_):
            raise ZeroDivisionError
        with self.assertRaises(ZeroDivisionError):
            read(watch=fail)

    def test_run_beside_each_other(self):
        wanted = read().json()
        found = []
        threads = [threading.Thread(target=lambda: found.append(read().json())) for _ in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(found, [wanted] * 4)


class Failures(unittest.TestCase):
    def expect(self, name, root, **options):
        with self.assertRaises(tradebill.TradeBillError) as caught:
            tradebill.read(root, **options)
        self.assertEqual(caught.exception.name, name)
        return str(caught.exception)

    def test_say_what_is_wrong(self):
        self.assertIn("From: expected a date", self.expect("WRONG_REQUEST", SAMPLE, from_day="yesterday"))
        self.assertIn("RootUtf8", self.expect("WRONG_REQUEST", SAMPLE / "nowhere"))
        self.expect("NOTHING_READ", SAMPLE, from_day="2020-01-01", to_day="2020-01-02")

    def test_know_no_other_options(self):
        with self.assertRaises(TypeError):
            read(colour="red")

    def test_have_what_is_there_of_an_incomplete_report(self):
        with tempfile.TemporaryDirectory() as folder:
            root = shutil.copytree(SAMPLE, pathlib.Path(folder, "root"))
            first = sorted(root.glob("Users/*/Data/Bill/D*.txt"))[0]
            first.unlink()
            first.mkdir()
            with self.assertRaises(tradebill.IncompleteError) as caught:
                tradebill.read(root)
            self.assertIn(first.name, str(caught.exception))
            self.assertEqual(caught.exception.account.totals.unreadable, 1)

    def test_are_told_of_unknown_names(self):
        account = read()
        for ask in (lambda: account.table("nothing"), lambda: account.chart("nothing")):
            with self.assertRaises(tradebill.TradeBillError) as caught:
                ask()
            self.assertEqual(caught.exception.name, "NO_SUCH_NAME")

    def test_name_a_library_that_is_not_there(self):
        environment = dict(os.environ, TRADEBILL_LIBRARY="/nowhere/libtradebill.so")
        ended = subprocess.run([sys.executable, "-c", "import tradebill; tradebill.version()"], env=environment,
                               capture_output=True, text=True, check=False)
        self.assertNotEqual(ended.returncode, 0)
        self.assertIn("TRADEBILL_LIBRARY", ended.stderr)


class Version(unittest.TestCase):
    def test_is_the_library_s(self):
        self.assertEqual(tradebill.version(), tradebill.__version__)
        self.assertRegex(tradebill.source_id(), "^[0-9a-f]{16}$")


def install(folder):
    """The package as pip installs it, from a copy: building leaves folders beside the sources."""
    sources = shutil.copytree(pathlib.Path(SOURCE, "python"), pathlib.Path(folder, "sources"))
    command = [sys.executable, "-m", "pip", "install", "--quiet", "--no-index", "--no-build-isolation", "--no-deps",
               "--root-user-action=ignore", "--target", pathlib.Path(folder, "site"), sources]
    subprocess.run(command, check=True)
    return str(pathlib.Path(folder, "site"))


if __name__ == "__main__":
    LIBRARY, PROGRAM, SOURCE = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
    with tempfile.TemporaryDirectory() as place:
        site = install(place)
        sys.path.insert(0, site)
        os.environ["PYTHONPATH"] = site
        os.environ["TRADEBILL_LIBRARY"] = str(LIBRARY)
        import tradebill
        assert tradebill.__file__.startswith(site), tradebill.__file__
        unittest.main(argv=sys.argv[:1])
