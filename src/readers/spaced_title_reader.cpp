#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "readers/columns.h"
#include "readers/fixed_readers.h"
#include "readers/record_sink.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"
#include "readers/seen_columns.h"
#include "readers/shared_columns.h"
#include "readers/statement_text.h"
#include "readers/table_layout.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {
namespace {

/// What differs between the layout without options and the one with them: the columns.
struct SpacedTitleColumns {
    std::span<const Column<MoneyRecord>> money;
    std::span<const Column<MatchRecord>> trades;
    std::span<const Column<PingDetail>> closed;
    std::span<const Column<OpiSum>> sums;
};

// clang-format off
// Net deposits aren't read: they are 0 for such days.
constexpr Column<MoneyRecord> kMoneyColumns[] = {
    {Slot<&MoneyRecord::QCQY>,   0},
    {Slot<&MoneyRecord::CCDSYK>, 2},
    {Slot<&MoneyRecord::PCYK>,   3},
    {Slot<&MoneyRecord::SXF>,    4},
};

constexpr Column<MoneyRecord> kPremiumMoneyColumns[] = {
    {Slot<&MoneyRecord::QCQY>,   0},
    {Slot<&MoneyRecord::CRJ>,    1},
    {Slot<&MoneyRecord::CCDSYK>, 2},
    {Slot<&MoneyRecord::PCYK>,   3},
    {Slot<&MoneyRecord::SXF>,    4},
    {Slot<&MoneyRecord::QLJSZ>,  5, Treatment::MustExist},
};

constexpr Column<MoneyRecord> kClosingColumns[] = {
    {Slot<&MoneyRecord::QMJC>,   0},
    {Slot<&MoneyRecord::BZJZY>,  1},
    {Slot<&MoneyRecord::KYZJ>,   2},
};

constexpr Column<MatchRecord> kTradeColumns[] = {
    {Slot<&MatchRecord::MATCH_DATE>,  0},
    {Slot<&MatchRecord::CONTRACT>,    1},
    {Slot<&MatchRecord::MATCH_VOL>,   2},
    {Slot<&MatchRecord::BID>,         3},
    {Slot<&MatchRecord::OFFSET>,      4},
    {Slot<&MatchRecord::MATCH_PRICE>, 5},
    {Slot<&MatchRecord::TURNOVER>,    6},
    {Slot<&MatchRecord::POUNDAGE>,    7},
    {Slot<&MatchRecord::EXCH_NAME>,   8},
};

constexpr Column<MatchRecord> kPremiumTradeColumns[] = {
    {Slot<&MatchRecord::CONTRACT>,    0},
    {Slot<&MatchRecord::BID>,         1},
    {Slot<&MatchRecord::MATCH_DATE>,  2},
    {Slot<&MatchRecord::MATCH_VOL>,   3},
    {Slot<&MatchRecord::OFFSET>,      4},
    {Slot<&MatchRecord::MATCH_PRICE>, 5},
    {Slot<&MatchRecord::TURNOVER>,    6},
    {Slot<&MatchRecord::POUNDAGE>,    7},
    {Slot<&MatchRecord::EXCH_NAME>,   9, Treatment::MustExist},
};

constexpr Column<PingDetail> kClosedColumns[] = {
    {Slot<&PingDetail::MATCH_DATE>,   0},
    {Slot<&PingDetail::CONTRACT>,     1},
    {Slot<&PingDetail::MATCH_VOL>,    2},
    {Slot<&PingDetail::BID>,          3, Treatment::InvertedSide},
    {Slot<&PingDetail::MATCH_PRICE>,  4},
    {Slot<&PingDetail::SETTLE_PRICE>, 5},
    {Slot<&PingDetail::OPEN_DATE>,    7},
    {Slot<&PingDetail::OPEN_PRICE>,   8},
    {Slot<&PingDetail::OFFSETPL>,     9},
};

constexpr Column<PingDetail> kPremiumClosedColumns[] = {
    {Slot<&PingDetail::CONTRACT>,     0},
    {Slot<&PingDetail::BID>,          1, Treatment::InvertedSide},
    {Slot<&PingDetail::MATCH_DATE>,   2},
    {Slot<&PingDetail::MATCH_VOL>,    3},
    {Slot<&PingDetail::MATCH_PRICE>,  4},
    {Slot<&PingDetail::SETTLE_PRICE>, 5},
    {Slot<&PingDetail::OPEN_DATE>,    7},
    {Slot<&PingDetail::OPEN_PRICE>,   8},
    {Slot<&PingDetail::OFFSETPL>,     9},
};

constexpr Column<OpiSum> kSumColumns[] = {
    {Slot<&OpiSum::CONTRACT>,       0},
    {Slot<&OpiSum::POSITION_VOL>,   1},
    {Slot<&OpiSum::BID>,            2},
    {Slot<&OpiSum::SETTLE_PRICE>,   3},
    {Slot<&OpiSum::YSETTLE_PRICE>,  4},
    {Slot<&OpiSum::POSITION_PRICE>, 5},
    {Slot<&OpiSum::DSYK>,           6},
    {Slot<&OpiSum::DEPOSIT>,        7},
};

constexpr Column<OpiSum> kPremiumSumColumns[] = {
    {Slot<&OpiSum::CONTRACT>,       0},
    {Slot<&OpiSum::BID>,            1, Treatment::Side},
    {Slot<&OpiSum::POSITION_VOL>,   2},
    {Slot<&OpiSum::SETTLE_PRICE>,   3},
    {Slot<&OpiSum::YSETTLE_PRICE>,  4},
    {Slot<&OpiSum::POSITION_PRICE>, 5},
    {Slot<&OpiSum::DSYK>,           6},
    {Slot<&OpiSum::DEPOSIT>,        7},
};
// clang-format on

constexpr SectionLayout Sheet(SectionKind kind, std::string_view title, int terminatorOffset, std::size_t minColumns) {
    return {.kind = kind,
            .title = title,
            .terminator = "合计"_gbk,
            .terminatorOffset = terminatorOffset,
            .firstRow = 3,
            .minColumns = minColumns};
}

constexpr SectionLayout kTrades = Sheet(SectionKind::Trades, "成 交 记 录 单"_gbk, 0, 9);
constexpr SectionLayout kClosed = Sheet(SectionKind::Closed, "平 仓 盈 亏 单"_gbk, 0, 10);
constexpr SectionLayout kOpen = Sheet(SectionKind::Open, "持仓明细"_gbk, 0, 13);
constexpr SectionLayout kSums = Sheet(SectionKind::Summary, "持 仓 盈 亏 汇 总"_gbk, 2, 8);
constexpr SectionLayout kMoney{.title = "资 金 清 单"_gbk, .minColumns = 5};
constexpr SectionLayout kClosingMoney{.title = "资 金 清 单"_gbk, .minColumns = 3};

static_assert(LastColumn(kMoneyColumns) < kMoney.minColumns && LastColumn(kPremiumMoneyColumns) < kMoney.minColumns);
static_assert(LastColumn(kClosingColumns) < kClosingMoney.minColumns);
static_assert(LastColumn(kTradeColumns) < kTrades.minColumns && LastColumn(kPremiumTradeColumns) < kTrades.minColumns);
static_assert(LastColumn(kClosedColumns) < kClosed.minColumns);
static_assert(LastColumn(kPremiumClosedColumns) < kClosed.minColumns);
static_assert(LastColumn(kOpenDetailColumns) < kOpen.minColumns);
static_assert(LastColumn(kSumColumns) < kSums.minColumns && LastColumn(kPremiumSumColumns) < kSums.minColumns);

constexpr SpacedTitleColumns kPlain{kMoneyColumns, kTradeColumns, kClosedColumns, kSumColumns};
constexpr SpacedTitleColumns kPremium{kPremiumMoneyColumns, kPremiumTradeColumns, kPremiumClosedColumns,
                                      kPremiumSumColumns};

/// The second row of figures. Equity isn't printed: it is margin and available funds together.
void TakeClosingMoney(Row row, MoneyRecord& record) {
    FillRecord<MoneyRecord>(record, row, kClosingColumns);
    CopyField(record.KHQY, CNumberText(ParseAmount(row[2]) + ParseAmount(row[1])).View());
}

/// The money sheet stands last in the order of work, wherever it stands in the text. Both of its rows must be there.
void ReadMoney(std::string_view day, CSectionScan& scan, std::span<const Column<MoneyRecord>> columns,
               CRecordSink& sink) {
    constexpr int kOpeningRow = 3;
    constexpr int kClosingRow = 6;
    const auto found = scan.FindTitle(kMoney);
    if (!found) return;
    const auto title = static_cast<std::int64_t>(*found);
    TellColumns(columns, scan.Listener());
    const auto opening = scan.ReadRow(title + kOpeningRow, kMoney);
    if (!opening) return;
    auto record = MakeRecord(day, *opening, columns);
    TellColumns<MoneyRecord>(kClosingColumns, scan.Listener());
    if (const auto closing = scan.ReadRow(title + kClosingRow, kClosingMoney)) TakeClosingMoney(*closing, *record);
    sink.Add(std::move(record));
}

void ReadSpacedTitles(const SpacedTitleColumns& columns, const StatementText& statement, CReport& report) {
    CSectionScan scan(statement, SearchFrom::Cursor);
    CRecordSink sink(report, statement.listener);
    ReadTable(scan, TableLayout<MatchRecord>{kTrades, columns.trades}, statement.day, sink);
    ReadTable(scan, TableLayout<PingDetail>{kClosed, columns.closed}, statement.day, sink);
    ReadTable(scan, TableLayout<OpiDetail>{kOpen, kOpenDetailColumns}, statement.day, sink);
    ReadTable(scan, TableLayout<OpiSum>{kSums, columns.sums}, statement.day, sink);
    ReadMoney(statement.day, scan, columns.money, sink);
}

}  // namespace

void ReadSpacedTitleStatement(const StatementText& statement, CReport& report) {
    ReadSpacedTitles(kPlain, statement, report);
}

void ReadSpacedTitlePremiumStatement(const StatementText& statement, CReport& report) {
    ReadSpacedTitles(kPremium, statement, report);
}

}  // namespace tradebill
