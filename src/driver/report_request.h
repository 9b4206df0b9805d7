/* tradebill: the public face of the module.
 *
 * A host fills a GenerateBillRequest and calls GenerateBill, which blocks until the page TradeBill.html is written.
 * Then the results stay in memory until the next call. One run at a time: the module's state is static. Plain C99, also
 * read by C++.
 */
#ifndef TRADEBILL_REPORT_REQUEST_H
#define TRADEBILL_REPORT_REQUEST_H

#include <stdint.h>

#include "report/money_record.h"

#if defined(_WIN32)
#if defined(TRADEBILL_BUILDING)
#define TRADEBILL_API /* tradebill.def names the exports */
#else
#define TRADEBILL_API __declspec(dllimport)
#endif
typedef void* HostWindowHandle; /* HWND */
typedef void* HostEventHandle;  /* HANDLE of an event */
#else
#define TRADEBILL_API __attribute__((visibility("default")))
typedef struct HostWindowObject* HostWindowHandle;
typedef struct HostEventObject* HostEventHandle;
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Sizes in pixels of the four charts that the last run painted, and the number of days with money figures. */
typedef struct ChartSizeReport {
    int32_t EquityWidth, EquityHeight;
    int32_t RealisedWidth, RealisedHeight;
    int32_t AccountYieldWidth, AccountYieldHeight;
    int32_t TradeYieldWidth, TradeYieldHeight;
    int32_t MoneyRecordCount;
} ChartSizeReport;

/* The unit (multiplier) of a contract. The three texts are zero-terminated GBK, valid during the call; contract and
 * delivery are cut to 63 bytes. Called in the middle of a run: it mustn't start another, or wait for one. */
typedef int32_t (*ContractUnitFunction)(const char* account, const char* contract, const char* delivery);

/* Receives the chart sizes once per run, while the page is still growing. The report is valid during the call. */
typedef void (*ChartSizeFunction)(const ChartSizeReport* report);

/* Writes the code of the product called `name` (zero-terminated GBK, 32 bytes) into `code` (32 bytes, cleared, to stay
 * zero-terminated) and returns 1. Any other result leaves the name as it is. */
typedef int32_t (*ProductNameFunction)(const char* name, char* code);

enum { kCurrencyMoneyCapacity = 100 };

/* One report. All texts are zero-terminated. The record is copied at the start of GenerateBill, and not read again. */
/* clang-format off */
typedef struct GenerateBillRequest {
    HostWindowHandle HostWindow;               /* told at the end of the run; null: nobody is told, and no chart sizes */
    int32_t Dpi;                               /* screen resolution; 0: no scaling */
    int32_t StatementFormat;                   /* the broker's layout: 0, 1, 2, 3, 6 or 201 */
    int32_t StatementKind;                     /* 2: foreign family; anything else (1 in practice): domestic */
    int32_t MarginOffsetFlag;                  /* 1: net the margin of opposite positions in one chain (domestic only) */
    char TemplateName[11];                     /* base name of the statement template, or empty */
    uint32_t NotifyMessage;                    /* message number of the final notification */
    ContractUnitFunction ContractUnitCallback; /* null: every unit is 1 */
    ChartSizeFunction ChartSizeCallback;       /* may be null; called only if HostWindow is set */
    ProductNameFunction ProductNameCallback;   /* may be null */
    HostEventHandle StopEvent;                 /* signalled by the host to stop the run; may be null */
    HostEventHandle AckEvent;                  /* set by the module when it has seen the stop */
    char StartDate[64];                        /* year-month-day; if one of the two dates is empty, the day is today */
    char EndDate[64];
    char Account[17];                          /* part of the statements' file names */
    char UserFolder[128];                      /* folder below "Users" in the root folder */
    MoneyRecord BaseMoney;                     /* live figures in base currency; used when the range ends today */
    MoneyRecord CurrencyMoney[kCurrencyMoneyCapacity]; /* live figures per further currency (foreign family) */
    int32_t CurrencyCount;                     /* entries of CurrencyMoney in use, held to 0..100 */
} GenerateBillRequest;
/* clang-format on */

/* Makes the report: reads the statements, fills the stores, writes the page, and as its last act sends HostWindow the
 * message NotifyMessage with wParam 4 and lParam 0. What is missing is passed over. A date out of bounds leaves as an
 * error: on Windows as a structured exception, on Linux as the C++ exception tradebill::CReportError, with the code
 * 0x80004005 for bad numbers, 0x80070057 for a day that has no time value (and for a null request). */
TRADEBILL_API void GenerateBill(const GenerateBillRequest* request);

/* GenerateBill for hosts whose language can't catch: returns 0, or the error's code. */
TRADEBILL_API uint32_t TryGenerateBill(const GenerateBillRequest* request);

/* What the last run counted. The caller sets Size to sizeof(TradeBillCounts): what lies behind it isn't written, so
 * that a host and a module of different ages fit together. */
typedef struct TradeBillCounts {
    uint32_t Size;       /* bytes of this record, as the caller knows it */
    uint32_t Days;       /* days walked */
    uint32_t Statements; /* statements read */
    uint32_t Unreadable; /* files of statements that can't be opened or read, or are no files */
    uint32_t Records;    /* money figures, trades, closed positions, positions and position sums */
    uint32_t Pictures;   /* pictures saved */
} TradeBillCounts;

/* What went wrong in the last call of GenerateBill, TryGenerateBill or ResetTradeBillFile on any thread, as UTF-8, a
 * line for each problem: an error, and what else keeps the report from being whole, which leaves the code 0. Empty if
 * the call went well. Valid until the next of these calls. May be asked on any thread. */
TRADEBILL_API const char* TradeBillLastError(void);

/* Fills `counts`, within its Size, with what that call counted: zeros for ResetTradeBillFile and for a null request.
 * Null is passed over. May be asked on any thread. */
TRADEBILL_API void TradeBillLastCounts(TradeBillCounts* counts);

/* The folder that holds "Users", "sys" and "BillTemplate"; at most 259 bytes, copied.
 * Default: the executable's folder. */
TRADEBILL_API void SetRootFolder(const char* path);

/* Writes a placeholder page to `path` (the full path of the page, zero-terminated, at most 259 bytes, copied), for the
 * host to show before (`finished` not 0) or while a report is made. A path that can't be written is passed over, and
 * told by TradeBillLastError. */
TRADEBILL_API void ResetTradeBillFile(const char* path, int32_t finished);

/* Left, top, right and bottom in pixels, as a RECT. */
typedef struct ChartRect {
    int32_t Left, Top, Right, Bottom;
} ChartRect;

/* What a chart is repainted on. On Windows `target` is the host's Gdiplus::Graphics object. */
#if defined(_WIN32)
typedef void ChartTarget;
#else
typedef struct ChartTarget {
    uint32_t* Pixels;   /* 0xAARRGGBB, the top row first; painted ones become opaque */
    int32_t Width;      /* pixels */
    int32_t Height;     /* rows */
    int32_t Stride;     /* bytes from one row to the next, at least 4 * Width */
    int32_t LastStatus; /* one of ChartStatus, if not kChartDone; never cleared */
} ChartTarget;
#endif

/* Numbers as GDI+ has them. */
enum ChartStatus {
    kChartDone = 0,
    kChartInvalidParameter = 2, /* a painting area or target that can't be */
    kChartOutOfMemory = 3,
    kChartWrongState = 8 /* there has been no report */
};

/* Repaint one chart from what the last run left, at any size, on the host's target: a painting area of `width` by
 * `height` pixels is made (at most 2^28 of them), the chart fills `rect` of it, and that part is drawn with its middle
 * where the middle of the area would be; what lies outside of the target is cut off. An account without days shows an
 * empty frame. Nothing is drawn if `target` or `rect` is null, if `rect` is empty or reversed, or, with a status, if
 * there has been no report. Not to be called during a run. */
/* The equity. */
TRADEBILL_API void StretchZjGraph(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height);
/* The account yield. */
TRADEBILL_API void StretchRiskAndProfit(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height);
/* The trading yield. */
TRADEBILL_API void StretchRisk(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height);
/* The realised P/L. */
TRADEBILL_API void StretchOffsetGraph(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height);

#if !defined(_WIN32)
/* The display's width in pixels, which the distances of value labels in charts follow; below 1: the usual 1920. */
TRADEBILL_API void SetScreenWidth(int32_t width);

/* Stand-ins for the windows and events of a Windows host. Objects belong to the caller, who destroys them after the
 * run. */

/* Receives what is sent to a window, on the thread that runs GenerateBill. */
typedef void (*HostWindowFunction)(void* context, uint32_t message, uint64_t wParam, int64_t lParam);

TRADEBILL_API HostWindowHandle CreateHostWindow(HostWindowFunction function, void* context);
TRADEBILL_API void DestroyHostWindow(HostWindowHandle window); /* null is allowed */

/* A manual-reset event stays signalled until reset; an auto-reset one until one wait has seen it. Unsignalled at first.
 */
TRADEBILL_API HostEventHandle CreateHostEvent(int32_t manualReset);
TRADEBILL_API void SignalHostEvent(HostEventHandle event);
TRADEBILL_API void ResetHostEvent(HostEventHandle event);
/* Waits up to `milliseconds` (negative: without end); returns 1 if the event was signalled, 0 if time ran out. */
TRADEBILL_API int32_t WaitForHostEvent(HostEventHandle event, int32_t milliseconds);
TRADEBILL_API void DestroyHostEvent(HostEventHandle event); /* null is allowed */
#endif

#ifdef __cplusplus
}
#endif

#endif
