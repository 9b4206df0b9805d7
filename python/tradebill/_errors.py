"""What goes wrong."""

from __future__ import annotations

from typing import TYPE_CHECKING

if TYPE_CHECKING:
    from ._account import Account


class TradeBillError(Exception):
    """A report that can't be made, or a question that it can't answer.

    result: the number of the library's result; name: its name, such as "WRONG_REQUEST" or "NOTHING_READ".
    """

    def __init__(self, result: int, name: str, message: str) -> None:
        super().__init__(message or name)
        self.result = result
        self.name = name


class IncompleteError(TradeBillError):
    """A report in which something is missing; `account` has what is there."""

    def __init__(self, result: int, name: str, message: str, account: "Account") -> None:
        super().__init__(result, name, message)
        self.account = account
