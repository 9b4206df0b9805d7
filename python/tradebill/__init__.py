"""Reports of futures trading accounts, from their daily settlement statements.

>>> import tradebill
>>> account = tradebill.read("samples/fund-status/root")     # doctest: +SKIP
>>> account.trades                                           # a pandas frame, or a Table without pandas

All texts are str, days are "2024-01-02", what isn't there is None (in a frame NaN or NaT).
"""

from ._account import Account, Chart, Finding, Table, Totals, read, report
from ._errors import IncompleteError, TradeBillError
from ._library import LibraryError, source_id, version

__all__ = [
    "Account",
    "Chart",
    "Finding",
    "IncompleteError",
    "LibraryError",
    "Table",
    "Totals",
    "TradeBillError",
    "read",
    "report",
    "source_id",
    "version",
]
__version__ = "0.1.0"
