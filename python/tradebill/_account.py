"""An account's report: figures, rows, findings, charts."""

from __future__ import annotations

import ctypes
import dataclasses
import json
import os
import weakref
from typing import Any, Callable, Dict, List, Optional, Union

from ._errors import IncompleteError, TradeBillError
from ._library import COUNT, DONE, INCOMPLETE, NUMBER, CTotals, Progress, ProgressFunction, Request, library

try:
    import pandas
except ImportError:
    pandas = None

PathLike = Union[str, "os.PathLike[str]"]
Watcher = Callable[[str, int, int], Optional[bool]]
_NO_COUNT = -(2**63)


@dataclasses.dataclass(frozen=True)
class Totals:
    """What was read, and how much was found to be wrong or doubtful in it."""

    days: int
    statements: int
    unreadable: int
    records: int
    pictures: int
    errors: int
    warnings: int
    notes: int


@dataclasses.dataclass(frozen=True)
class Finding:
    """One thing that is wrong or doubtful in the statements."""

    code: str
    severity: str  # "error", "warning" or "note"
    day: Optional[str]
    file: Optional[str]
    row: Optional[int]
    section: Optional[str]
    expected: Optional[str]
    found: Optional[str]
    text: str


class Table:
    """Rows by column: `table["BILL_DATE"]` is the list of a column, `table.rows()` gives a dict a row."""

    def __init__(self, name: str, columns: Dict[str, List[Any]], kinds: Dict[str, int]) -> None:
        self.name = name
        self.columns = columns
        self._kinds = kinds

    def __len__(self) -> int:
        return len(next(iter(self.columns.values()), []))

    def __getitem__(self, column: str) -> List[Any]:
        return self.columns[column]

    def rows(self) -> List[Dict[str, Any]]:
        """A dict for each row."""
        return [dict(zip(self.columns, row)) for row in zip(*self.columns.values())]

    def frame(self) -> "pandas.DataFrame":
        """As a pandas frame: numbers are float64, whole numbers Int64, all others objects."""
        if pandas is None:
            raise ImportError("pandas isn't installed")
        types = {NUMBER: "float64", COUNT: "Int64"}
        series = {
            name: pandas.Series(values, dtype=types.get(self._kinds[name], "object"))
            for name, values in self.columns.items()
        }
        return pandas.DataFrame(series, columns=list(self.columns))

    def __repr__(self) -> str:
        return f"<Table {self.name}: {len(self)} rows of {', '.join(self.columns)}>"


class Chart:
    """A picture: PNG bytes, which a notebook shows."""

    def __init__(self, png: bytes) -> None:
        self.png = png

    def _repr_png_(self) -> bytes:
        return self.png

    def save(self, path: PathLike) -> None:
        """Writes the PNG file."""
        with open(path, "wb") as file:
            file.write(self.png)


def table_names() -> List[str]:
    """The tables that every account has."""
    lib = library()
    return [lib.TradeBillTableName(i).decode() for i in range(lib.TradeBillTableCount())]


def chart_names() -> List[str]:
    """The charts that every account has."""
    lib = library()
    return [lib.TradeBillChartName(i).decode() for i in range(lib.TradeBillChartCount())]


def _values(table: ctypes.c_void_p, column: int, kind: int, count: int) -> List[Any]:
    lib = library()
    if count == 0:
        return []
    if kind == NUMBER:
        numbers = lib.TradeBillNumbers(table, column)
        return [None if number != number else number for number in numbers[:count]]
    if kind == COUNT:
        return [None if number == _NO_COUNT else number for number in lib.TradeBillWholeNumbers(table, column)[:count]]
    texts = lib.TradeBillTextsUtf8(table, column)
    return [None if text is None else text.decode() for text in texts[:count]]


class Account:
    """An account of which a report was made or read.

    Each table is an attribute, a pandas frame if pandas is there and else a Table: days, trades, closed, positions,
    findings, products, months, drawdowns, figures, ... (`tradebill.Account.tables()` lists them). It may be used by one
    thread at a time.
    """

    def __init__(self) -> None:
        handle = ctypes.c_void_p()
        result = library().TradeBillOpen(ctypes.byref(handle))
        if result != DONE:
            raise MemoryError("no report can be opened")
        self._handle = handle
        self._close = weakref.finalize(self, library().TradeBillClose, handle)

    def close(self) -> None:
        """Frees the report's memory. Tables and charts that it gave stay."""
        self._close()
        self._handle = None

    def __enter__(self) -> "Account":
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def _check(self, result: int) -> None:
        if result == DONE:
            return
        lib = library()
        name = lib.TradeBillResultName(result).decode()
        message = lib.TradeBillErrorUtf8(self._handle).decode("utf-8", "replace")
        if result == INCOMPLETE:
            raise IncompleteError(result, name, message, self)
        raise TradeBillError(result, name, message)

    @property
    def totals(self) -> Totals:
        """How much was read and found."""
        totals = CTotals(Size=ctypes.sizeof(CTotals))
        self._check(library().TradeBillTotal(self._handle, ctypes.byref(totals)))
        return Totals(*(getattr(totals, name) for name, _ in CTotals._fields_[1:]))

    @property
    def notes(self) -> List[str]:
        """What was chosen for the caller, such as the layout that was found."""
        return library().TradeBillNotesUtf8(self._handle).decode("utf-8", "replace").splitlines()

    @property
    def page(self) -> Optional[str]:
        """Path of the page that `report` has written."""
        return library().TradeBillPageUtf8(self._handle).decode("utf-8", "replace") or None

    def json(self) -> Dict[str, Any]:
        """Everything that was read and worked out, as docs/json.md tells it."""
        lib = library()
        text, size = ctypes.c_void_p(), ctypes.c_size_t()
        self._check(lib.TradeBillJson(self._handle, ctypes.byref(text), ctypes.byref(size)))
        try:
            return json.loads(ctypes.string_at(text, size.value))
        finally:
            lib.TradeBillFree(text)

    @staticmethod
    def tables() -> List[str]:
        """The names of all tables."""
        return table_names()

    @staticmethod
    def charts() -> List[str]:
        """The names of all charts."""
        return chart_names()

    def table(self, name: str) -> Table:
        """A table by its name."""
        lib = library()
        handle = ctypes.c_void_p()
        self._check(lib.TradeBillOpenTable(self._handle, name.encode(), ctypes.byref(handle)))
        try:
            place = table_names().index(name)
            count = lib.TradeBillRowCount(handle)
            columns, kinds = {}, {}
            for i in range(lib.TradeBillColumnCount(place)):
                column = lib.TradeBillColumnName(place, i).decode()
                kinds[column] = lib.TradeBillColumnKindOf(place, i)
                columns[column] = _values(handle, i, kinds[column], count)
            return Table(name, columns, kinds)
        finally:
            lib.TradeBillCloseTable(handle)

    def __getattr__(self, name: str) -> Any:
        if name.startswith("_") or name not in table_names():
            raise AttributeError(f"an account has no {name}; its tables are {', '.join(table_names())}")
        table = self.table(name)
        return table if pandas is None else table.frame()

    def __dir__(self) -> List[str]:
        return sorted({*super().__dir__(), *table_names()})

    @property
    def findings(self) -> List[Finding]:
        """What is wrong or doubtful in the statements, the worst first."""
        return [Finding(**row) for row in self.table("findings").rows()]

    def chart(self, name: str, width: int = 0, height: int = 0) -> Chart:
        """A chart by its name; width and height of 0 are those that it has on the page."""
        lib = library()
        png, size = ctypes.c_void_p(), ctypes.c_size_t()
        self._check(lib.TradeBillPng(self._handle, name.encode(), width, height, ctypes.byref(png), ctypes.byref(size)))
        try:
            return Chart(ctypes.string_at(png, size.value))
        finally:
            lib.TradeBillFree(png)


_TEXT_FIELDS = {
    "root": "RootUtf8",
    "user": "UserUtf8",
    "account": "AccountUtf8",
    "from_day": "From",
    "to_day": "To",
    "today": "Today",
    "format": "Format",
    "kind": "Kind",
    "template": "TemplateUtf8",
    "request": "RequestUtf8",
    "units": "UnitsUtf8",
    "products": "ProductsUtf8",
    "live": "LiveUtf8",
    "largest_statement": "LargestStatement",
    "out": "OutUtf8",
}
_NUMBER_FIELDS = {"dpi": "Dpi", "offsets_margins": "OffsetsMargins", "wait": "WaitSeconds", "trading_days": "TradingDays"}


class _Watch:
    """Hands progress on, and keeps what the caller's function raises: it can't go through the library."""

    def __init__(self, watcher: Watcher) -> None:
        self._watcher = watcher
        self.error: Optional[BaseException] = None
        self.function = ProgressFunction(self._tell)

    def _tell(self, _context: Optional[int], record: int) -> int:
        progress = Progress.from_address(record)
        try:
            return 1 if self._watcher(progress.Stage.decode(), progress.Day, progress.Days) else 0
        except BaseException as error:  # KeyboardInterrupt too: it ends the run, and is raised behind it
            self.error = error
            return 1


def _request_of(options: Dict[str, Any]) -> Request:
    request = Request(Size=ctypes.sizeof(Request))
    for name, value in options.items():
        if value is None:
            continue
        if name in _NUMBER_FIELDS:
            setattr(request, _NUMBER_FIELDS[name], int(value))
        elif name in _TEXT_FIELDS:
            setattr(request, _TEXT_FIELDS[name], os.fspath(value).encode() if name != "format" else str(value).encode())
        else:
            raise TypeError(f"there is no option {name}")
    return request


def _run(function: str, root: PathLike, watch: Optional[Watcher], options: Dict[str, Any]) -> Account:
    account = Account()
    request = _request_of({"root": root, **options})
    watching = None if watch is None else _Watch(watch)
    if watching is not None:
        request.Progress = watching.function
    result = getattr(library(), function)(account._handle, ctypes.byref(request))
    if watching is not None and watching.error is not None:
        raise watching.error
    account._check(result)
    return account


def read(root: PathLike, *, watch: Optional[Watcher] = None, **options: Any) -> Account:
    """Reads an account's statements below `root`, the folder that holds "Users". No file is written.

    What isn't said is found: the only account, all days of its statements, and their layout.

    user, account, kind: whose they are; kind is "domestic" or "foreign"
    from_day, to_day, today: days, "2024-01-02"
    format: layout of the statements, a number or "auto"; template: a statement template's name
    request, units, products, live: INI files, as the program's options of these names take them
    largest_statement: no larger file is read: "512M"
    offsets_margins: True nets the margin of opposite positions of products in one chain
    trading_days: of a year, 242 if it isn't given
    watch: called with the stage, the day's number and how many days there are; returning True stops

    Raises TradeBillError, and IncompleteError where something is missing.
    """
    return _run("TradeBillRead", root, watch, options)


def report(root: PathLike, *, watch: Optional[Watcher] = None, **options: Any) -> Account:
    """Makes the page TradeBill.html with its pictures, and returns the account with the page's path (`page`).

    The options are those of `read`, and

    out: folder for page and pictures, made if missing (beside the statements if it isn't given)
    dpi: screen resolution, by which page and pictures grow
    wait: seconds to wait for another program that writes to the same place
    """
    return _run("TradeBillMake", root, watch, options)
