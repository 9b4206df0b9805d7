#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
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

constexpr std::size_t kLongestTotal = 15;
constexpr int kMoneyRow = 4;  // rows from the title to the figures

// clang-format off
constexpr Column<MoneyRecord> kMoneyColumns[] = {
    {Slot<&MoneyRecord::QCQY>,        0},
    {Slot<&MoneyRecord::SXF>,         3},
    {Slot<&MoneyRecord::QMJC>,        5},
    {CutSlot<&MoneyRecord::KHQY, 14>, 5},
    {Slot<&MoneyRecord::KYZJ>,        6},
    {Slot<&MoneyRecord::BZJZY>,       8},
};
constexpr CashFlowColumns kCashFlow{.deposits = 1, .withdrawals = 2, .field = CutSlot<&MoneyRecord::CRJ, 14>};

constexpr Column<MatchRecord> kTradeColumns[] = {
    {Slot<&MatchRecord::MATCH_DATE>,   0},
    {Slot<&MatchRecord::EXCH_NAME>,    1},
    {Slot<&MatchRecord::CONTRACT>,     2},
    {Slot<&MatchRecord::BID>,          4},
    {Slot<&MatchRecord::MATCH_PRICE>,  5},
    {Slot<&MatchRecord::MATCH_VOL>,    6},
    {Slot<&MatchRecord::TURNOVER>,     7},
    {Slot<&MatchRecord::OFFSET>,       8},
    {Slot<&MatchRecord::POUNDAGE>,     9},
    {Slot<&MatchRecord::OFFSETPL>,    10},
    {Slot<&MatchRecord::HEDGE>,       11},
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
    {Slot<&PingDetail::OPEN_DATE>,    11},
};

constexpr Column<OpiSum> kSharedColumns[] = {
    {Slot<&OpiSum::CONTRACT>,       1},
    {Slot<&OpiSum::YSETTLE_PRICE>,  6},
    {Slot<&OpiSum::SETTLE_PRICE>,   7},
    {Slot<&OpiSum::DSYK>,           8},
    {Slot<&OpiSum::DEPOSIT>,        9},
    {Slot<&OpiSum::HEDGE>,         10},
};
constexpr Column<OpiSum> kBuyColumns[] = {
    {Slot<&OpiSum::POSITION_VOL>,   2},
    {Slot<&OpiSum::POSITION_PRICE>, 3},
};
constexpr Column<OpiSum> kSellColumns[] = {
    {Slot<&OpiSum::POSITION_VOL>,   4},
    {Slot<&OpiSum::POSITION_PRICE>, 5},
};
constexpr PositionSide kSides[] = {
    {.lotsColumn = 2, .side = "买"_gbk, .columns = kBuyColumns},
    {.lotsColumn = 4, .side = "卖"_gbk, .columns = kSellColumns},
};
// clang-format on

constexpr SectionLayout kMoney{.title = "客户帐单_资金清单"_gbk,
                               .terminator = "---------",
                               .terminatorOffset = 2,
                               .minColumns = 9,
                               .cursorOffset = 1};  // the row above the dashed line may be the next sheet's title

/// A sheet that ends in its row of totals.
constexpr SectionLayout Sheet(SectionKind kind, std::string_view title, std::size_t minColumns) {
    return {.kind = kind,
            .title = title,
            .terminator = "合计"_gbk,
            .firstRow = 4,
            .minColumns = minColumns,
            .stripsBars = true};
}

/// The rows of open positions keep their bars.
constexpr SectionLayout OpenSheet() {
    SectionLayout sheet = Sheet(SectionKind::Open, "客户帐单_持仓盈亏单"_gbk, 11);
    sheet.terminatorOffset = 2;
    sheet.stripsBars = false;
    return sheet;
}

constexpr TableLayout<MatchRecord> kTrades{Sheet(SectionKind::Trades, "客户帐单_成交记录单"_gbk, 12), kTradeColumns};
constexpr TableLayout<PingDetail> kClosed{Sheet(SectionKind::Closed, "客户帐单_平仓盈亏单"_gbk, 12), kClosedColumns};
constexpr SectionLayout kOpen = OpenSheet();
constexpr SidesLayout kOpenSides{kSharedColumns, kSides};
static_assert(LastColumn(kMoneyColumns) < kMoney.minColumns);
static_assert(LastColumn(kTradeColumns) < kTrades.section.minColumns);
static_assert(LastColumn(kClosedColumns) < kClosed.section.minColumns);
static_assert(LastColumn(kOpenSides) < kOpen.minColumns);

void ReadMoney(std::string_view day, CSectionScan& scan, CRecordSink& sink) {
    const auto section = scan.Find(kMoney);
    if (!section) return;
    TellMoneyColumns(kMoneyColumns, kCashFlow, scan.Listener());
    const auto row = scan.ReadRowBelow(section->title, kMoneyRow, kMoney);
    if (row) sink.Add(MakeMoneyRecord(day, *row, kMoneyColumns, kCashFlow));
}

/// The total that the sheet prints in `column` of its last row, if that row goes so far.
std::optional<std::string_view> SheetTotal(std::string_view totals, std::size_t column) {
    std::vector<std::string_view> columns;
    if (SplitText(TrimByte(totals, '|'), " ", columns) <= column) return std::nullopt;
    return columns[column].substr(0, kLongestTotal);
}

void ReadOpen(std::string_view day, CSectionScan& scan, CRecordSink& sink) {
    constexpr std::size_t kTotalColumn = 3;
    const auto rows = scan.Find(kOpen);
    if (!rows) return;
    if (const auto total = SheetTotal(scan.TerminatorText(*rows), kTotalColumn)) {
        sink.SetDayPositionPL(day, *total, ParseAmount(*total));
    }
    TellColumns(kOpenSides, scan.Listener());
    scan.ReadRows(kOpen, *rows, [&](Row row) {
        return ReadBothSides(row, kOpenSides, day, SumFeed::Yes, sink, [](const OpiSum&) {});
    });
}

void ReadClosed(std::string_view day, CSectionScan& scan, CRecordSink& sink) {
    constexpr std::size_t kTotalColumn = 2;
    const auto rows = scan.Find(kClosed.section);
    if (!rows) return;
    if (const auto total = SheetTotal(scan.TerminatorText(*rows), kTotalColumn)) {
        sink.SetDayClosedPL(day, *total, ParseAmount(*total));
    }
    ReadTableRows(scan, kClosed, *rows, day, sink);
}

}  // namespace

void ReadClientBillStatement(const StatementText& statement, CReport& report) {
    CSectionScan scan(statement, SearchFrom::Cursor);
    CRecordSink sink(report, statement.listener);
    ReadMoney(statement.day, scan, sink);
    ReadTable(scan, kTrades, statement.day, sink);
    ReadOpen(statement.day, scan, sink);
    ReadClosed(statement.day, scan, sink);
}

}  // namespace tradebill
