"""The module for ctypes: the records of report_request.h, field by field, and the functions.

Texts are bytes: GBK, but for paths, which are in the system's own encoding (file_bytes), and TradeBillLastError.
"""

import ctypes
import os
import sys
from ctypes import POINTER, c_char, c_char_p, c_double, c_int32, c_uint32, c_void_p

AMOUNTS = ("QCQY SPARE_MONEY_1 SPARE_MONEY_2 CRJ QMJC KYZJ PCYK SPARE_MONEY_3 SPARE_MONEY_4 CCDSYK HOST_CURRENT KHQY "
           "SPARE_MONEY_5 SXF BZJZY SPARE_MONEY_6 SPARE_MONEY_7 HOST_FROZEN_A HOST_FROZEN_B HOST_POSITION_MARGIN "
           "HOST_POSITION_PL XQSXF QLJSZ CURRENCY SPARE_MONEY_8").split()


class MoneyRecord(ctypes.Structure):
    _fields_ = [("BILL_DATE", c_char * 9), *((name, c_char * 16) for name in AMOUNTS), ("EXCHANGE_RATE", c_double)]


class ChartSizeReport(ctypes.Structure):
    _fields_ = [(chart + side, c_int32) for chart in ("Equity", "Realised", "AccountYield", "TradeYield")
                for side in ("Width", "Height")] + [("MoneyRecordCount", c_int32)]


ContractUnitFunction = ctypes.CFUNCTYPE(c_int32, c_char_p, c_char_p, c_char_p)
ChartSizeFunction = ctypes.CFUNCTYPE(None, POINTER(ChartSizeReport))
ProductNameFunction = ctypes.CFUNCTYPE(c_int32, c_char_p, c_void_p)  # name, 32 bytes for the code


class GenerateBillRequest(ctypes.Structure):
    _fields_ = [
        ("HostWindow", c_void_p),
        ("Dpi", c_int32),
        ("StatementFormat", c_int32),
        ("StatementKind", c_int32),
        ("MarginOffsetFlag", c_int32),
        ("TemplateName", c_char * 11),
        ("NotifyMessage", c_uint32),
        ("ContractUnitCallback", ContractUnitFunction),
        ("ChartSizeCallback", ChartSizeFunction),
        ("ProductNameCallback", ProductNameFunction),
        ("StopEvent", c_void_p),
        ("AckEvent", c_void_p),
        ("StartDate", c_char * 64),
        ("EndDate", c_char * 64),
        ("Account", c_char * 17),
        ("UserFolder", c_char * 128),
        ("BaseMoney", MoneyRecord),
        ("CurrencyMoney", MoneyRecord * 100),
        ("CurrencyCount", c_int32),
    ]


class TradeBillCounts(ctypes.Structure):
    _fields_ = [("Size", c_uint32), ("Days", c_uint32), ("Statements", c_uint32), ("Unreadable", c_uint32),
                ("Records", c_uint32), ("Pictures", c_uint32)]


class ChartRect(ctypes.Structure):
    _fields_ = [("Left", c_int32), ("Top", c_int32), ("Right", c_int32), ("Bottom", c_int32)]


class ChartTarget(ctypes.Structure):
    """What a chart is repainted on under Linux. On Windows it is a Gdiplus::Graphics object."""

    _fields_ = [("Pixels", POINTER(c_uint32)), ("Width", c_int32), ("Height", c_int32), ("Stride", c_int32),
                ("LastStatus", c_int32)]


CHARTS = ("StretchZjGraph", "StretchRiskAndProfit", "StretchRisk", "StretchOffsetGraph")


def file_bytes(path):
    """A path as the module takes it."""
    return str(path).encode("mbcs") if sys.platform == "win32" else os.fsencode(path)


def last_counts(module):
    """What the last call counted."""
    counts = TradeBillCounts(Size=ctypes.sizeof(TradeBillCounts))
    module.TradeBillLastCounts(counts)
    return counts


def load(path):
    """The module with the types of its functions set. GenerateBill is left out: Python can't catch what it raises."""
    module = ctypes.CDLL(str(path))
    module.TryGenerateBill.argtypes = [POINTER(GenerateBillRequest)]
    module.TryGenerateBill.restype = c_uint32
    module.TradeBillLastError.argtypes = []
    module.TradeBillLastError.restype = c_char_p  # UTF-8, copied by ctypes
    module.TradeBillLastCounts.argtypes = [POINTER(TradeBillCounts)]
    module.TradeBillLastCounts.restype = None
    module.SetRootFolder.argtypes = [c_char_p]
    module.SetRootFolder.restype = None
    module.ResetTradeBillFile.argtypes = [c_char_p, c_int32]
    module.ResetTradeBillFile.restype = None
    for name in CHARTS:
        getattr(module, name).argtypes = [c_void_p, POINTER(ChartRect), c_int32, c_int32]
        getattr(module, name).restype = None
    return module
