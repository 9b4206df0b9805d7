"""What is run while calls fail. A command or an output that is new is a row more of SCENARIOS."""

import dataclasses

FIRST_DAYS = ("--from", "2024-01-02", "--to", "2024-01-04")
OTHER_DAYS = ("--from", "2024-01-05", "--to", "2024-01-08")
FUND_STATUS = ("--root", "root", "--user", "demo", "--account", "90010002", "--format", "1", "--units", "units.ini")
TEMPLATE = ("--root", "root", "--user", "demo", "--account", "90010011", "--format", "1", "--template", "songta",
            "--units", "units.ini")
FOREIGN = ("--root", "root", "--user", "demo", "--account", "60010001", "--kind", "foreign", "--live", "live.ini")
BILLS = "root/Users/demo/Data/Bill"
STATEMENT = BILLS + "/D90010002.20240102o.txt"
HOST = ("root", "demo", "90010002")
NEXT_REPORT = "next report"     # what library_host looks for between two reports
TABLES = ("--csv", "tables", "--sqlite", "tables.db", "--wait", "0")
DOCUMENTS = ("--json", "report.json", "--standalone", "report.html")
COPY = ("anonymise", "root", "--out", "copy", "--request", "request.ini", "--seed", "1")
COPIED = ("--root", "copy", "--request", "copy/request.ini", "--units", "copy/units.ini")


@dataclasses.dataclass(frozen=True)
class Scenario:
    """One command over a sample's first five days."""

    name: str
    arguments: tuple            # of the program, or of library_host behind the module
    sample: str = "fund-status"
    before: tuple = ()          # arguments of the runs that leave the older outputs
    of_library: bool = False
    stdin: str = ""             # file that is the standard input; none: the null device
    tells_on_stdout: bool = False
    every: int = 1              # of its failures one in so many is made
    hang_seconds: int = 10


def report(*options, days=FIRST_DAYS, account=FUND_STATUS):
    return ("report", *account, *days, *options)


def older(*options, account=FUND_STATUS):
    return (report(*options, "--quiet", days=OTHER_DAYS, account=account),)


def export(*options, days=FIRST_DAYS, account=FUND_STATUS):
    return ("export", *account, *days, *options)


# Of the same statements, under another user's name.
WITH_ANOTHER = ((*COPY, "--units", "units.ini"), ("export", *COPIED, *OTHER_DAYS, "--sqlite", "tables.db", "--quiet"))


# fmt: off
SCENARIOS = (
    Scenario("report",               report()),
    Scenario("report over older",    report(), before=older()),
    Scenario("documents",            report(*DOCUMENTS)),
    Scenario("documents over older", report(*DOCUMENTS), before=older(*DOCUMENTS)),
    Scenario("JSON of a short year", report("--json", "report.json", "--trading-days", "100"), before=older("--json", "report.json")),
    Scenario("report elsewhere",     report("--out", "out"), before=older("--out", "out")),
    Scenario("report, strict",       report("--strict"), before=older()),
    Scenario("margin offset",        report("--margin-offset"), before=older()),
    Scenario("JSON on stdout",       report("--json", "-")),
    Scenario("standalone on stdout", report("--standalone", "-")),
    Scenario("request on stdin",     ("report", "--root", "root", "--request", "-", "--units", "none", *FIRST_DAYS),
             stdin="request.ini"),
    Scenario("report by template",   report(account=TEMPLATE), "template-pairs", before=older(account=TEMPLATE)),
    Scenario("foreign report",       report(account=FOREIGN), "foreign", before=older(account=FOREIGN)),
    Scenario("chart, PNG",           ("chart", "equity", *FUND_STATUS, *FIRST_DAYS, "-o", "chart.png"),
             before=(("chart", "equity", *FUND_STATUS, *OTHER_DAYS, "-o", "chart.png"),)),
    Scenario("chart, JPEG",          ("chart", "account-yield", *FUND_STATUS, *FIRST_DAYS, "-o", "chart.jpg")),
    Scenario("chart on stdout",      ("chart", "equity", *FUND_STATUS, *FIRST_DAYS, "-o", "-")),
    Scenario("explain",              ("explain", STATEMENT)),
    Scenario("explain, JSON",        ("explain", STATEMENT, "--json")),
    Scenario("explain by template",  ("explain", BILLS + "/D90010011.20240102o.txt", "--template",
                                      "root/BillTemplate/songta.ini"), "template-pairs"),
    Scenario("explain stdin",        ("explain", "-", "--day", "20240102"), stdin=STATEMENT),
    Scenario("check",                ("check", *FUND_STATUS, *FIRST_DAYS), tells_on_stdout=True),
    Scenario("check, JSON",          ("check", *FUND_STATUS, *FIRST_DAYS, "--json", "findings.json"),
             before=(("check", *FUND_STATUS, *OTHER_DAYS, "--json", "findings.json"),), tells_on_stdout=True),
    Scenario("diff",                 ("diff", "one.json", "other.json"), before=(
                 report("--quiet", "--json", "one.json"), report("--quiet", "--json", "other.json", days=OTHER_DAYS)),
             tells_on_stdout=True),
    Scenario("diff of equals",       ("diff", "one.json", "other.json"), before=(
                 report("--quiet", "--json", "one.json"), report("--quiet", "--json", "other.json")), tells_on_stdout=True),
    Scenario("second page",          report("--explore", "explored.html"), before=older("--explore", "explored.html")),
    Scenario("second page alone",    ("explore", *FUND_STATUS, *FIRST_DAYS, "-o", "explored.html"), before=(
                 ("explore", *FUND_STATUS, *OTHER_DAYS, "-o", "explored.html", "--quiet"),)),
    Scenario("second page of two accounts", ("explore", "--root", "root", "--all-accounts", *FIRST_DAYS, "-o", "explored.html"), before=(
                 ("import", BILLS, "--root", "root", "--user", "other"), ("explore", "--root", "root", "--all-accounts", *OTHER_DAYS,
                  "-o", "explored.html", "--quiet"))),
    Scenario("second page of files", ("explore", STATEMENT, "--out", "out", "-o", "explored.html"), tells_on_stdout=True),
    Scenario("tables, CSV",          export("--csv", "tables")),
    Scenario("tables, database",     export("--sqlite", "tables.db")),
    Scenario("CSV over older",       export("--csv", "tables"), before=(export("--csv", "tables", "--quiet", days=OTHER_DAYS),),
             every=3),
    Scenario("tables over older",    export(*TABLES), before=(export(*TABLES, "--quiet", days=OTHER_DAYS),)),
    Scenario("second account in a database", export("--sqlite", "tables.db"), before=WITH_ANOTHER),
    Scenario("one account of two replaced", export("--sqlite", "tables.db"), before=(
                 *WITH_ANOTHER, export("--sqlite", "tables.db", "--quiet", days=OTHER_DAYS))),
    Scenario("foreign tables",       export(*TABLES, account=FOREIGN), "foreign",
             before=(export(*TABLES, "--quiet", days=OTHER_DAYS, account=FOREIGN),), every=5),
    Scenario("template check",       ("template", "check", "root/BillTemplate/songta.ini", "--against",
                                      BILLS + "/D90010011.20240102o.txt"), "template-pairs", tells_on_stdout=True),
    Scenario("anonymise",            (*COPY, "--units", "units.ini"), tells_on_stdout=True, every=7),
    Scenario("anonymise by template", COPY, "template-pairs", tells_on_stdout=True, every=7),
    Scenario("foreign anonymise",    COPY, "foreign", tells_on_stdout=True, every=7),
    Scenario("import",               ("import", BILLS, "--root", "new", "--user", "me"), tells_on_stdout=True),
    Scenario("import over older",    ("import", BILLS, "--root", "root", "--user", "demo", "--force", "--json", "import.json"),
             before=older(), tells_on_stdout=True),
    Scenario("import of workbooks",  ("import", "90010009_2024-01-02.xls", "90010009_2024-01-03.xlsx", "--root", "new", "--user", "me"),
             "field/workbook", tells_on_stdout=True),
    Scenario("report of files",      ("report", BILLS, "--out", "out"), tells_on_stdout=True),
    Scenario("report of files over older", ("report", STATEMENT, "--out", "out", "--json", "report.json"),
             before=(("report", BILLS, "--out", "out", "--json", "report.json", "--quiet"),), tells_on_stdout=True),
    Scenario("what isn't told is found", ("report", "--root", "root"), before=(("report", "--root", "root", "--quiet", *OTHER_DAYS),)),
    Scenario("layouts",              ("layouts",)),
    Scenario("layouts of a file",    ("layouts", "D103988.20260529o.txt"), "field/units"),
    Scenario("report by a carried template", ("report", "D103988.20260529o.txt", "--out", "out"), "field/units", tells_on_stdout=True),
    Scenario("reset",                ("reset", "TradeBill.html")),
    Scenario("reset over older",     ("reset", "--finished", BILLS + "/Image/TradeBill.html"), before=older()),
    Scenario("gallery",              ("gallery", "charts"), every=301, hang_seconds=60),  # 469 pictures, 4 s
    Scenario("library",              (*HOST, "2024-1-2", "2024-1-4", "1"), of_library=True),
    Scenario("library over older",   (*HOST, "2024-1-2", "2024-1-4", "1"), before=older(), of_library=True),
    Scenario("library twice",        (*HOST, "2024-1-2", "2024-1-4", "1", "2"), before=older(), of_library=True),
)
# fmt: on
