"""The library, as ctypes sees it: its records, functions and where it is."""

from __future__ import annotations

import ctypes
import ctypes.util
import functools
import os
import pathlib
import sys
from typing import Iterator

ProgressFunction = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, ctypes.c_void_p)


class Progress(ctypes.Structure):
    _fields_ = [("Size", ctypes.c_uint32), ("Day", ctypes.c_int32), ("Days", ctypes.c_int32), ("Stage", ctypes.c_char_p)]


class Request(ctypes.Structure):
    _fields_ = [
        ("Size", ctypes.c_uint32),
        ("RootUtf8", ctypes.c_char_p),
        ("UserUtf8", ctypes.c_char_p),
        ("AccountUtf8", ctypes.c_char_p),
        ("From", ctypes.c_char_p),
        ("To", ctypes.c_char_p),
        ("Today", ctypes.c_char_p),
        ("Format", ctypes.c_char_p),
        ("Kind", ctypes.c_char_p),
        ("TemplateUtf8", ctypes.c_char_p),
        ("RequestUtf8", ctypes.c_char_p),
        ("UnitsUtf8", ctypes.c_char_p),
        ("ProductsUtf8", ctypes.c_char_p),
        ("LiveUtf8", ctypes.c_char_p),
        ("LargestStatement", ctypes.c_char_p),
        ("Dpi", ctypes.c_int32),
        ("OffsetsMargins", ctypes.c_int32),
        ("OutUtf8", ctypes.c_char_p),
        ("WaitSeconds", ctypes.c_int32),
        ("TradingDays", ctypes.c_int32),
        ("Progress", ProgressFunction),
        ("Context", ctypes.c_void_p),
    ]


class CTotals(ctypes.Structure):
    _fields_ = [
        (name, ctypes.c_uint32)
        for name in ("Size", "Days", "Statements", "Unreadable", "Records", "Pictures", "Errors", "Warnings", "Notes")
    ]


DONE = 0
INCOMPLETE = 1
TEXT, NUMBER, COUNT, DAY = 1, 2, 3, 4

_REPORT = ctypes.c_void_p
_TABLE = ctypes.c_void_p
_NAME = ctypes.c_char_p
_INT = ctypes.c_int32
_TEXTS = ctypes.POINTER(ctypes.c_char_p)

# Each function with what it returns and takes.
_FUNCTIONS = {
    "TradeBillVersion": (_INT, []),
    "TradeBillVersionText": (_NAME, []),
    "TradeBillSourceId": (_NAME, []),
    "TradeBillResultName": (_NAME, [_INT]),
    "TradeBillOpen": (_INT, [ctypes.POINTER(_REPORT)]),
    "TradeBillClose": (None, [_REPORT]),
    "TradeBillMake": (_INT, [_REPORT, ctypes.POINTER(Request)]),
    "TradeBillRead": (_INT, [_REPORT, ctypes.POINTER(Request)]),
    "TradeBillErrorUtf8": (_NAME, [_REPORT]),
    "TradeBillNotesUtf8": (_NAME, [_REPORT]),
    "TradeBillPageUtf8": (_NAME, [_REPORT]),
    "TradeBillTotal": (_INT, [_REPORT, ctypes.POINTER(CTotals)]),
    "TradeBillJson": (_INT, [_REPORT, ctypes.POINTER(ctypes.c_void_p), ctypes.POINTER(ctypes.c_size_t)]),
    "TradeBillFree": (None, [ctypes.c_void_p]),
    "TradeBillTableCount": (_INT, []),
    "TradeBillTableName": (_NAME, [_INT]),
    "TradeBillColumnCount": (_INT, [_INT]),
    "TradeBillColumnName": (_NAME, [_INT, _INT]),
    "TradeBillColumnKindOf": (_INT, [_INT, _INT]),
    "TradeBillOpenTable": (_INT, [_REPORT, _NAME, ctypes.POINTER(_TABLE)]),
    "TradeBillCloseTable": (None, [_TABLE]),
    "TradeBillRowCount": (ctypes.c_int64, [_TABLE]),
    "TradeBillNumbers": (ctypes.POINTER(ctypes.c_double), [_TABLE, _INT]),
    "TradeBillWholeNumbers": (ctypes.POINTER(ctypes.c_int64), [_TABLE, _INT]),
    "TradeBillTextsUtf8": (_TEXTS, [_TABLE, _INT]),
    "TradeBillChartCount": (_INT, []),
    "TradeBillChartName": (_NAME, [_INT]),
    "TradeBillPng": (_INT, [_REPORT, _NAME, _INT, _INT, ctypes.POINTER(ctypes.c_void_p), ctypes.POINTER(ctypes.c_size_t)]),
}
_VERSION_MAJOR = 0  # of the library whose records these are


class LibraryError(OSError):
    """The library isn't there, or is of another version."""


def _places() -> Iterator[str]:
    """Where the library may be, the first choice first."""
    is_windows = sys.platform == "win32"
    names = ["TradeBill.dll"] if is_windows else ["libtradebill.so.0", "libtradebill.so"]
    told = os.environ.get("TRADEBILL_LIBRARY")
    if told:
        yield told
        return
    for name in names:
        beside = pathlib.Path(__file__).parent / name
        if beside.exists():
            yield str(beside)
    found = ctypes.util.find_library("TradeBill" if is_windows else "tradebill")
    if found:
        yield found
    yield from names


def _load() -> ctypes.CDLL:
    reasons = []
    for place in _places():
        try:
            return ctypes.CDLL(place)
        except OSError as error:
            reasons.append(str(error))
    raise LibraryError("the tradebill library can't be loaded (TRADEBILL_LIBRARY may name it): " + "; ".join(reasons))


@functools.lru_cache(maxsize=None)
def library() -> ctypes.CDLL:
    """The library, loaded once."""
    loaded = _load()
    try:
        for name, (result, arguments) in _FUNCTIONS.items():
            function = getattr(loaded, name)
            function.restype = result
            function.argtypes = arguments
    except AttributeError as error:
        raise LibraryError(f"the tradebill library is too old: {error}") from None
    if loaded.TradeBillVersion() // 10000 != _VERSION_MAJOR:
        raise LibraryError(f"the tradebill library is of version {loaded.TradeBillVersionText().decode()}")
    return loaded


def version() -> str:
    """Of the library: "0.1.0"."""
    return library().TradeBillVersionText().decode()


def source_id() -> str:
    """What the library was built from: the same for the same sources."""
    return library().TradeBillSourceId().decode()
