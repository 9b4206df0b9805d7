#include <cstddef>
#include <string_view>
#include "base/gbk.h"
#include "readers/columns.h"
#include "readers/fixed_layout.h"
#include "readers/fixed_readers.h"
#include "readers/money_labels.h"
#include "readers/record_sink.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"
#include "readers/statement_text.h"
#include "readers/table_layout.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {
namespace {

// clang-format off
constexpr MoneyLabel kLabels[] = {
    {Slot<&MoneyRecord::KHQY>,   LabelMatch::Contains, "客户权益"_gbk},
    {Slot<&MoneyRecord::BZJZY>,  LabelMatch::Contains, "保证金占用"_gbk},
    {Slot<&MoneyRecord::SXF>,    LabelMatch::Spaced,   "手"_gbk, "续"_gbk},
    {Slot<&MoneyRecord::KYZJ>,   LabelMatch::Contains, "可用资金"_gbk},
    {Slot<&MoneyRecord::CRJ>,    LabelMatch::Spaced,   "出"_gbk, "入"_gbk},
    {Slot<&MoneyRecord::QCQY>,   LabelMatch::Contains, "期初结存"_gbk},
    {Slot<&MoneyRecord::QMJC>,   LabelMatch::Contains, "期末结存"_gbk},
    {Slot<&MoneyRecord::PCYK>,   LabelMatch::Contains, "平仓盈亏"_gbk},
    {Slot<&MoneyRecord::CCDSYK>, LabelMatch::Contains, "持仓盯市盈亏"_gbk},
};

constexpr Column<MatchRecord> kTradeColumns[] = {
    {Slot<&MatchRecord::MATCH_DATE>,   0},
    {Slot<&MatchRecord::EXCH_NAME>,    1},
    {Slot<&MatchRecord::CONTRACT>,     2},
    {Slot<&MatchRecord::DELIVERY>,     3},
    {Slot<&MatchRecord::BID>,          4},
    {Slot<&MatchRecord::HEDGE>,        5},
    {Slot<&MatchRecord::MATCH_PRICE>,  6},
    {Slot<&MatchRecord::MATCH_VOL>,    7},
    {Slot<&MatchRecord::TURNOVER>,     8},
    {Slot<&MatchRecord::OFFSET>,       9},
    {Slot<&MatchRecord::POUNDAGE>,    10},
    {Slot<&MatchRecord::OFFSETPL>,    11},
};

constexpr Column<PingDetail> kClosedColumns[] = {
    {Slot<&PingDetail::MATCH_DATE>,    0},
    {Slot<&PingDetail::EXCH_NAME>,     1},
    {Slot<&PingDetail::CONTRACT>,      2},
    {Slot<&PingDetail::DELIVERY>,      3},
    {Slot<&PingDetail::OPEN_DATE>,     4},
    {Slot<&PingDetail::BID>,           5, Treatment::InvertedSide},
    {Slot<&PingDetail::MATCH_VOL>,     6},
    {Slot<&PingDetail::OPEN_PRICE>,    7},
    {Slot<&PingDetail::SETTLE_PRICE>,  8},
    {Slot<&PingDetail::MATCH_PRICE>,   9},
    {Slot<&PingDetail::OFFSETPL>,     10},
};

constexpr Column<OpiDetail> kOpenColumns[] = {
    {Slot<&OpiDetail::EXCH_NAME>,      0},
    {Slot<&OpiDetail::CONTRACT>,       1},
    {Slot<&OpiDetail::DELIVERY>,       2},
    {Slot<&OpiDetail::OPEN_DATE>,      3},
    {Slot<&OpiDetail::HEDGE>,          4},
    {Slot<&OpiDetail::BID>,            5},
    {Slot<&OpiDetail::POSITION_VOL>,   6},
    {Slot<&OpiDetail::OPEN_PRICE>,     7},
    {Slot<&OpiDetail::YSETTLE_PRICE>,  8},
    {Slot<&OpiDetail::SETTLE_PRICE>,   9},
    {Slot<&OpiDetail::FLOATPL>,       10},
    {Slot<&OpiDetail::DSYK>,          11},
    {Slot<&OpiDetail::DEPOSIT>,       12},
};

constexpr Column<OpiSum> kSharedColumns[] = {
    {Slot<&OpiSum::CONTRACT>,       0},
    {Slot<&OpiSum::DELIVERY>,       1},
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

/// Rows framed by bars; a bar at either end makes no column. The row above the count is a rule.
constexpr SectionLayout BarTable(SectionKind kind, std::string_view title, std::size_t minColumns) {
    return {.kind = kind,
            .title = title,
            .terminator = "共"_gbk,
            .firstRow = 4,
            .endOffset = 1,
            .minColumns = minColumns,
            .delimiter = "|"};
}

constexpr FixedLayout kLayout{
    .dateWord = "制表时间："_gbk,
    .skipsStoredDay = true,
    .money = {.title = "资金状况"_gbk,
              .terminator = "---------",
              .terminatorOffset = 2,
              .firstRow = 2,
              .endOffset = 1,
              .cursorOffset = 1},  // the row above the dashed line is already the next section's title
    .labels = kLabels,
    .trades = {BarTable(SectionKind::Trades, "成交记录"_gbk, 12), kTradeColumns},
    .closed = {BarTable(SectionKind::Closed, "平仓明细"_gbk, 11), kClosedColumns},
    .open = {BarTable(SectionKind::Open, "持仓明细"_gbk, 13), kOpenColumns},
    .summary = {.kind = SectionKind::Summary,
                .title = "持仓汇总"_gbk,
                .terminator = "---------",
                .terminatorOffset = 2,
                .firstRow = 4,
                .minColumns = 11,
                .delimiter = "|"},
    .summarySides = {kSharedColumns, kSides},
};
static_assert(LastColumn(kTradeColumns) < kLayout.trades.section.minColumns);
static_assert(LastColumn(kClosedColumns) < kLayout.closed.section.minColumns);
static_assert(LastColumn(kOpenColumns) < kLayout.open.section.minColumns);
static_assert(LastColumn(kLayout.summarySides) < kLayout.summary.minColumns);

}  // namespace

void ReadTabulatedStatement(const StatementText& statement, CReport& report) {
    ReadFixedLayout(kLayout, statement, report);
}

}  // namespace tradebill
