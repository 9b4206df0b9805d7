/* tradebill: reports of futures accounts, several at once.
 *
 * A host opens a report, has it made from the statements of an account, asks it for figures, rows and pictures, and
 * closes it. Nothing is shared between two reports: each may live on a thread of its own. One report is used by one
 * thread at a time.
 *
 * Names end in Utf8 where a text is UTF-8, zero-terminated; all other texts are ASCII. Numbers are in the machine's
 * own order. What a function hands out belongs to the report or to the library, unless its comment says that the
 * caller frees it. Records begin with their size, which the caller sets to sizeof: a host and a library of different
 * ages fit together. Plain C99, also read by C++.
 *
 * report_request.h, beside this file, is the interface of terminals that make one report at a time; both may be used.
 */
#ifndef TRADEBILL_TRADEBILL_H
#define TRADEBILL_TRADEBILL_H

#include <stddef.h>
#include <stdint.h>

#if !defined(TRADEBILL_API)
#if defined(_WIN32)
#if defined(TRADEBILL_BUILDING)
#define TRADEBILL_API /* tradebill.def names the exports */
#else
#define TRADEBILL_API __declspec(dllimport)
#endif
#else
#define TRADEBILL_API __attribute__((visibility("default")))
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Version ---------------------------------------------------------------------------------------------------- */

/* Of this header. Names and records of one first number fit together; a later second number has more of them. */
#define TRADEBILL_VERSION_MAJOR 0
#define TRADEBILL_VERSION_MINOR 1
#define TRADEBILL_VERSION_PATCH 0
#define TRADEBILL_VERSION_NUMBER \
    (TRADEBILL_VERSION_MAJOR * 10000 + TRADEBILL_VERSION_MINOR * 100 + TRADEBILL_VERSION_PATCH)

/* The same of the library that is loaded. */
TRADEBILL_API int32_t TradeBillVersion(void);

/* "0.1.0". */
TRADEBILL_API const char* TradeBillVersionText(void);

/* What the library was built from: 16 hexadecimal digits, the same for the same sources wherever they are built. */
TRADEBILL_API const char* TradeBillSourceId(void);

/* ---- Results ---------------------------------------------------------------------------------------------------- */

/* What functions return. Later versions may have more, all above 0. */
enum TradeBillResult {
    TRADEBILL_DONE = 0,            /* everything is there and right */
    TRADEBILL_INCOMPLETE = 1,      /* the report can be asked, but something is missing: TradeBillErrorUtf8 says what */
    TRADEBILL_WRONG_REQUEST = 2,   /* what was asked can't be meant so; nothing was done */
    TRADEBILL_NOTHING_READ = 3,    /* no statement is there, or none could be read; nothing was written */
    TRADEBILL_STOPPED = 4,         /* the progress function has stopped it; no page was written */
    TRADEBILL_PLACE_TAKEN = 5,     /* another program writes the same page; nothing was written */
    TRADEBILL_FAILED = 6,          /* an error ended it; an older page is as it was */
    TRADEBILL_OUT_OF_MEMORY = 7,   /* likewise */
    TRADEBILL_NO_REPORT = 8,       /* the report is empty: it hasn't been made or read yet, or that failed */
    TRADEBILL_NO_SUCH_NAME = 9,    /* no table, column or chart is called so */
    TRADEBILL_WRONG_ARGUMENT = 10, /* a null pointer, a record whose size is none, a size of no picture */
    TRADEBILL_BUSY = 11            /* called from the report's own progress function */
};

/* The name of a result as above, without "TRADEBILL_": "WRONG_REQUEST"; "UNKNOWN" for any other number. */
TRADEBILL_API const char* TradeBillResultName(int32_t result);

/* ---- A report --------------------------------------------------------------------------------------------------- */

typedef struct TradeBillReport TradeBillReport;

/* Puts an empty report into `*report`, which is the caller's to close; null if the result isn't 0. */
TRADEBILL_API int32_t TradeBillOpen(TradeBillReport** report);

/* Frees the report, and with it everything that it has handed out but tables and buffers. Null is passed over. */
TRADEBILL_API void TradeBillClose(TradeBillReport* report);

/* How far a report has come. Valid during the call. */
typedef struct TradeBillProgress {
    uint32_t Size;     /* bytes of this record, as the library knows it */
    int32_t Day;       /* counts the days from 1; 0 in the stages behind them */
    int32_t Days;      /* how many there are */
    const char* Stage; /* "days", "statistics", "pictures", "page", ... */
} TradeBillProgress;

/* Called on the thread of TradeBillMake and TradeBillRead, for each day and each stage. Anything but 0 stops the report
 * at its next stop point: between two days, and ahead of statistics, pictures and page. */
typedef int32_t (*TradeBillProgressFunction)(void* context, const TradeBillProgress* progress);

/* What a report is of. All but Size and RootUtf8 may stay 0: what is left open is found, the only account below the
 * root, the first and last day of its statements, and their layout; and the contract units are those that the library
 * carries and the account's own trades tell. Texts are read during the call alone. */
typedef struct TradeBillRequest {
    uint32_t Size;            /* sizeof(TradeBillRequest) */
    const char* RootUtf8;     /* the folder that holds "Users", "sys" and "BillTemplate" */
    const char* UserUtf8;     /* folder of the user below "Users" */
    const char* AccountUtf8;  /* account number, part of the statements' file names */
    const char* From;         /* first day, "2024-01-02", or "today" */
    const char* To;           /* last day */
    const char* Today;        /* the day that counts as today; null: by the clock */
    const char* Format;       /* layout of the statements: "0", "1", "2", "3", "6", "201" or "auto" */
    const char* Kind;         /* "domestic" or "foreign" */
    const char* TemplateUtf8; /* statement template below "BillTemplate", without ".ini" */
    const char* RequestUtf8;  /* INI file with the settings above under [REQUEST]; those that are given win over it */
    const char* UnitsUtf8;    /* INI file of contract units, or "none": all units are 1 */
    const char* ProductsUtf8; /* INI file of product codes, for layouts that print names */
    const char* LiveUtf8;     /* INI file of today's live figures */
    const char* LargestStatement; /* no larger file is read: bytes, or with K, M or G; null: "256M" */
    int32_t Dpi;                  /* screen resolution, by which page and pictures grow, up to 1200; 0: no scaling */
    int32_t OffsetsMargins;       /* 1: net the margin of opposite positions of products in one chain */
    const char* OutUtf8;          /* folder for page and pictures, made if missing; null: beside the statements */
    int32_t WaitSeconds;          /* how long to wait for another program that writes to the same place */
    int32_t TradingDays;          /* of a year, by which yearly figures are reckoned; 0: 242 */
    TradeBillProgressFunction Progress; /* may be null */
    void* Context;                      /* handed to it */
} TradeBillRequest;

/* Reads the statements, and writes the page TradeBill.html with its pictures, which is there whole or not at all.
 * Returns a TradeBillResult; behind 0 and TRADEBILL_INCOMPLETE the report can be asked. Statements are opened for
 * reading alone. */
TRADEBILL_API int32_t TradeBillMake(TradeBillReport* report, const TradeBillRequest* request);

/* The same without a page: no file is written. */
TRADEBILL_API int32_t TradeBillRead(TradeBillReport* report, const TradeBillRequest* request);

/* What kept the last call on this report from being done, a line each; empty if it was. Valid until the next call on
 * the report. Of null: empty. */
TRADEBILL_API const char* TradeBillErrorUtf8(const TradeBillReport* report);

/* What the last TradeBillMake or TradeBillRead chose for the caller, or didn't use, a line each: the layout that it
 * found, a setting that has no effect. Valid until the next of them. */
TRADEBILL_API const char* TradeBillNotesUtf8(const TradeBillReport* report);

/* Path of the page that TradeBillMake has written; empty if there is none. Valid until the next of these calls. */
TRADEBILL_API const char* TradeBillPageUtf8(const TradeBillReport* report);

/* What was read, and what was found to be wrong or doubtful in it. The table "findings" tells each finding. */
typedef struct TradeBillTotals {
    uint32_t Size;       /* sizeof(TradeBillTotals), set by the caller: what lies behind it isn't written */
    uint32_t Days;       /* walked */
    uint32_t Statements; /* read */
    uint32_t Unreadable; /* statements that are there and can't be read */
    uint32_t Records;    /* money figures, trades, closed positions, positions and position sums */
    uint32_t Pictures;   /* saved */
    uint32_t Errors;     /* findings: figures of the report are false or missing */
    uint32_t Warnings;   /* findings: figures are doubtful */
    uint32_t Notes;      /* findings: worth knowing, nothing is wrong */
} TradeBillTotals;

TRADEBILL_API int32_t TradeBillTotal(TradeBillReport* report, TradeBillTotals* totals);

/* ---- Everything as JSON ----------------------------------------------------------------------------------------- */

/* Puts everything that was read and worked out into `*jsonUtf8`, as one object of schema 1, and its length without the
 * zero behind it into `*bytes`, which may be null. The caller frees it with TradeBillFree. */
TRADEBILL_API int32_t TradeBillJson(TradeBillReport* report, char** jsonUtf8, size_t* bytes);

/* Frees a buffer that a function has handed out for it. Null is passed over. */
TRADEBILL_API void TradeBillFree(void* buffer);

/* ---- Rows, by column -------------------------------------------------------------------------------------------- */

/* The tables of a report are always the same ones, with the same columns, in this order; only their rows differ.
 * Tables and columns are counted from 0. */
TRADEBILL_API int32_t TradeBillTableCount(void);

/* "days", "trades", ...; null beyond the last. */
TRADEBILL_API const char* TradeBillTableName(int32_t table);

/* 0 beyond the last table. */
TRADEBILL_API int32_t TradeBillColumnCount(int32_t table);

/* Null beyond the last. */
TRADEBILL_API const char* TradeBillColumnName(int32_t table, int32_t column);

enum TradeBillColumnKind {
    TRADEBILL_NO_COLUMN = 0,
    TRADEBILL_TEXT = 1,   /* TradeBillTextsUtf8 */
    TRADEBILL_NUMBER = 2, /* TradeBillNumbers */
    TRADEBILL_COUNT = 3,  /* TradeBillWholeNumbers */
    TRADEBILL_DAY = 4     /* TradeBillTextsUtf8: "2024-01-02" */
};

TRADEBILL_API int32_t TradeBillColumnKindOf(int32_t table, int32_t column);

typedef struct TradeBillTable TradeBillTable;

/* Puts the rows of the table called `name` into `*table`, which is the caller's to close; null if the result isn't 0.
 * It stays as it is, whatever becomes of the report. */
TRADEBILL_API int32_t TradeBillOpenTable(TradeBillReport* report, const char* name, TradeBillTable** table);

TRADEBILL_API void TradeBillCloseTable(TradeBillTable* table); /* null is passed over */

/* 0 of null. */
TRADEBILL_API int64_t TradeBillRowCount(const TradeBillTable* table);

/* All values of a column, as many as there are rows; null for a column of another kind, and of a table without rows.
 * Valid until the table is closed. Nothing is a NaN, INT64_MIN, or a null text. */
TRADEBILL_API const double* TradeBillNumbers(const TradeBillTable* table, int32_t column);
TRADEBILL_API const int64_t* TradeBillWholeNumbers(const TradeBillTable* table, int32_t column);
TRADEBILL_API const char* const* TradeBillTextsUtf8(const TradeBillTable* table, int32_t column);

/* ---- Charts ----------------------------------------------------------------------------------------------------- */

TRADEBILL_API int32_t TradeBillChartCount(void);

/* "equity", ...; null beyond the last. */
TRADEBILL_API const char* TradeBillChartName(int32_t chart);

/* What a chart is painted on: the host's own pixels. */
typedef struct TradeBillPixels {
    uint32_t Size;    /* sizeof(TradeBillPixels) */
    uint32_t* Pixels; /* 0xAARRGGBB, the top row first; painted ones become opaque */
    int32_t Width;    /* pixels, at least 1; at most 2^24 together */
    int32_t Height;   /* rows */
    int32_t Stride;   /* bytes from one row to the next, at least 4 * Width, a multiple of 4 */
} TradeBillPixels;

/* Fills `pixels` with a chart of the report. */
TRADEBILL_API int32_t TradeBillPaint(TradeBillReport* report, const char* chart, const TradeBillPixels* pixels);

/* Puts the bytes of a PNG file of a chart into `*png`, and their number into `*bytes`; width and height of 0 are those
 * that it has on the page. The caller frees them with TradeBillFree. */
TRADEBILL_API int32_t TradeBillPng(TradeBillReport* report, const char* chart, int32_t width, int32_t height,
                                   void** png, size_t* bytes);

#ifdef __cplusplus
}
#endif

#endif
