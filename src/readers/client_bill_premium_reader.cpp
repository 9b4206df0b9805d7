#include <cstddef>
#include <string_view>
#include "base/gbk.h"
#include "base/number.h"
#include "readers/columns.h"
#include "readers/fixed_readers.h"
#include "readers/money_row.h"
#include "readers/record_sink.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"
#include "readers/statement_text.h"
#include "readers/table_layout.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {
namespace {

constexpr int kMoneyRow = 4;  // rows from the title to the figures

// clang-format off
constexpr Column<MoneyRecord> kMoneyColumns[] = {
    {Slot<&MoneyRecord::QCQY>,   1},
    {Slot<&MoneyRecord::SXF>,    4},
    {Slot<&MoneyRecord::QMJC>,   6},
    {Slot<&MoneyRecord::KHQY>,   6},  // unless the row states the equity
    {Slot<&MoneyRecord::KHQY>,  15, Treatment::KeepIfPresent},
    {Slot<&MoneyRecord::KYZJ>,   7},
    {Slot<&MoneyRecord::BZJZY>,  9, Treatment::KeepIfPresent},
};
constexpr CashFlowColumns kCashFlow{.deposits = 2, .withdrawals = 3};

constexpr Column<MatchRecord> kTradeColumns[] = {
    {Slot<&MatchRecord::MATCH_DATE>,   0},
    {Slot<&MatchRecord::EXCH_NAME>,    1},
    {Slot<&MatchRecord::CONTRACT>,     2},
    {Slot<&MatchRecord::MATCHNO>,      3},
    {Slot<&MatchRecord::BID>,          4, Treatment::Side},
    {Slot<&MatchRecord::MATCH_PRICE>,  5},
    {Slot<&MatchRecord::MATCH_VOL>,    6},
    {Slot<&MatchRecord::TURNOVER>,     7},
    {Slot<&MatchRecord::OFFSET>,       8, Treatment::Opening},
    {Slot<&MatchRecord::POUNDAGE>,     9},
    {Slot<&MatchRecord::OFFSETPL>,    11},
    {Slot<&MatchRecord::ROYALTY>,     12},
    {Slot<&MatchRecord::HEDGE>,       13, Treatment::KeepIfPresent},
};

constexpr Column<PingDetail> kClosedColumns[] = {
    {Slot<&PingDetail::MATCH_DATE>,    0},
    {Slot<&PingDetail::EXCH_NAME>,     1},
    {Slot<&PingDetail::CONTRACT>,      2},
    {Slot<&PingDetail::BID>,           4, Treatment::InvertedSide},
    {Slot<&PingDetail::MATCH_PRICE>,   5},
    {Slot<&PingDetail::OPEN_PRICE>,    6},
    {Slot<&PingDetail::MATCH_VOL>,     7},
    {Slot<&PingDetail::SETTLE_PRICE>,  8},
    {Slot<&PingDetail::OFFSETPL>,      9},
    {Slot<&PingDetail::OPEN_DATE>,    12, Treatment::KeepIfPresent},
    {Slot<&PingDetail::HEDGE>,        13, Treatment::KeepIfPresent},
};

constexpr Column<OpiSum> kSharedColumns[] = {
    {Slot<&OpiSum::CONTRACT>,       2},
    {Slot<&OpiSum::YSETTLE_PRICE>,  8},
    {Slot<&OpiSum::SETTLE_PRICE>,   9},
    {Slot<&OpiSum::DSYK>,          10},
    {Slot<&OpiSum::DEPOSIT>,       11, Treatment::KeepIfPresent},
    {Slot<&OpiSum::HEDGE>,         12, Treatment::KeepIfPresent},
};
constexpr Column<OpiSum> kBuyColumns[] = {
    {Slot<&OpiSum::POSITION_VOL>,   4},
    {Slot<&OpiSum::POSITION_PRICE>, 5},
};
constexpr Column<OpiSum> kSellColumns[] = {
    {Slot<&OpiSum::POSITION_VOL>,   6},
    {Slot<&OpiSum::POSITION_PRICE>, 7},
};
constexpr PositionSide kSides[] = {
    {.lotsColumn = 4, .side = "买"_gbk, .columns = kBuyColumns},
    {.lotsColumn = 6, .side = "卖"_gbk, .columns = kSellColumns},
};
// clang-format on

constexpr SectionLayout kMoney{.title = "客户帐单_资金清单"_gbk, .minColumns = 9};

/// A sheet that ends in its row of totals.
constexpr SectionLayout Sheet(SectionKind kind, std::string_view title, int terminatorOffset, std::size_t minColumns) {
    return {.kind = kind,
            .title = title,
            .terminator = "合计"_gbk,
            .terminatorOffset = terminatorOffset,
            .firstRow = 4,
            .minColumns = minColumns};
}

constexpr TableLayout<MatchRecord> kTrades{Sheet(SectionKind::Trades, "客户帐单_成交记录单"_gbk, 3, 13), kTradeColumns};
constexpr TableLayout<PingDetail> kClosed{Sheet(SectionKind::Closed, "客户帐单_平仓盈亏单"_gbk, 3, 11), kClosedColumns};
constexpr SectionLayout kOpen = Sheet(SectionKind::Open, "客户帐单_持仓盈亏单"_gbk, 2, 11);
constexpr SidesLayout kOpenSides{kSharedColumns, kSides};
static_assert(LastColumn(kMoneyColumns) < kMoney.minColumns);
static_assert(LastColumn(kTradeColumns) < kTrades.section.minColumns);
static_assert(LastColumn(kClosedColumns) < kClosed.section.minColumns);
static_assert(LastColumn(kOpenSides) < kOpen.minColumns);

void ReadMoney(std::string_view day, CSectionScan& scan, CRecordSink& sink) {
    const auto title = scan.FindTitle(kMoney);
    if (!title) return;
    TellMoneyColumns(kMoneyColumns, kCashFlow, scan.Listener());
    const auto row = scan.ReadRowBelow(*title, kMoneyRow, kMoney);
    if (row) sink.Add(MakeMoneyRecord(day, *row, kMoneyColumns, kCashFlow));
}

void ReadClosed(std::string_view day, CSectionScan& scan, CRecordSink& sink) {
    const auto rows = scan.Find(kClosed.section);
    if (!rows) return;
    double total = 0;
    ReadTableRows(scan, kClosed, *rows, day, sink, [&](const PingDetail& row) { total += AmountIn(row.OFFSETPL); });
    sink.SetDayClosedPL(day, CNumberText::SixDecimals(total).View(), total);
}

/// A row with lots on both sides counts twice: its P/L joins the total with each record.
void ReadOpen(std::string_view day, CSectionScan& scan, CRecordSink& sink) {
    const auto rows = scan.Find(kOpen);
    if (!rows) return;
    double total = 0;
    TellColumns(kOpenSides, scan.Listener());
    scan.ReadRows(kOpen, *rows, [&](Row row) {
        return ReadBothSides(row, kOpenSides, day, SumFeed::Yes, sink,
                             [&](const OpiSum& sum) { total += AmountIn(sum.DSYK); });
    });
    sink.SetDayPositionPL(day, CNumberText::SixDecimals(total).View(), total);
}

}  // namespace

void ReadClientBillPremiumStatement(const StatementText& statement, CReport& report) {
    CSectionScan scan(statement, SearchFrom::Top);
    CRecordSink sink(report, statement.listener);
    ReadMoney(statement.day, scan, sink);
    ReadTable(scan, kTrades, statement.day, sink);
    ReadClosed(statement.day, scan, sink);
    ReadOpen(statement.day, scan, sink);
}

}  // namespace tradebill
