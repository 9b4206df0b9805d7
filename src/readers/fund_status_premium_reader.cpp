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
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {
namespace {

// clang-format off
constexpr MoneyLabel kLabels[] = {
    {Slot<&MoneyRecord::KHQY>,   LabelMatch::Equals, "客户权益:"_gbk},
    {Slot<&MoneyRecord::BZJZY>,  LabelMatch::Equals, "总保证金占用:"_gbk},
    {Slot<&MoneyRecord::SXF>,    LabelMatch::Equals, "手续费:"_gbk},
    {Slot<&MoneyRecord::KYZJ>,   LabelMatch::Equals, "可用资金:"_gbk},
    {Slot<&MoneyRecord::CRJ>,    LabelMatch::Equals, "出入金:"_gbk},
    {Slot<&MoneyRecord::QCQY>,   LabelMatch::Equals, "上日结存:"_gbk},
    {Slot<&MoneyRecord::QMJC>,   LabelMatch::Equals, "当日结存:"_gbk},
    {Slot<&MoneyRecord::PCYK>,   LabelMatch::Equals, "平仓盈亏:"_gbk},
    {Slot<&MoneyRecord::CCDSYK>, LabelMatch::Equals, "持仓盯市盈亏:"_gbk},
    {Slot<&MoneyRecord::XQSXF>,  LabelMatch::Equals, "行权手续费:"_gbk},
    {Slot<&MoneyRecord::QLJSZ>,  LabelMatch::Equals, "权利金收支:"_gbk},
};

constexpr Column<MatchRecord> kTradeColumns[] = {
    {Slot<&MatchRecord::MATCH_DATE>,   0},
    {Slot<&MatchRecord::EXCH_NAME>,    1},
    {Slot<&MatchRecord::CONTRACT>,     3},
    {Slot<&MatchRecord::BID>,          4, Treatment::Side},
    {Slot<&MatchRecord::MATCH_PRICE>,  5},
    {Slot<&MatchRecord::MATCH_VOL>,    6},
    {Slot<&MatchRecord::OFFSET>,       7},
    {Slot<&MatchRecord::TURNOVER>,     8},
    {Slot<&MatchRecord::ROYALTY>,      9},
    {Slot<&MatchRecord::POUNDAGE>,    10},
    {Slot<&MatchRecord::HEDGE>,       11, Treatment::KeepIfPresent},
};

constexpr Column<PingDetail> kClosedColumns[] = {
    {Slot<&PingDetail::MATCH_DATE>,    0},
    {Slot<&PingDetail::EXCH_NAME>,     1},
    {Slot<&PingDetail::CONTRACT>,      3},
    {Slot<&PingDetail::BID>,           4, Treatment::InvertedSide},
    {Slot<&PingDetail::MATCH_PRICE>,   5},
    {Slot<&PingDetail::OPEN_DATE>,     6},
    {Slot<&PingDetail::OPEN_PRICE>,    7},
    {Slot<&PingDetail::MATCH_VOL>,     8},
    {Slot<&PingDetail::SETTLE_PRICE>,  9},
    {Slot<&PingDetail::OFFSETPL>,     10},
};

constexpr Column<OpiDetail> kOpenColumns[] = {
    {Slot<&OpiDetail::EXCH_NAME>,      0},
    {Slot<&OpiDetail::CONTRACT>,       2},
    {Slot<&OpiDetail::OPEN_DATE>,      3},
    {Slot<&OpiDetail::BID>,            4},
    {Slot<&OpiDetail::HEDGE>,          5},
    {Slot<&OpiDetail::POSITION_VOL>,   6},
    {Slot<&OpiDetail::OPEN_PRICE>,     7},
    {Slot<&OpiDetail::YSETTLE_PRICE>,  8},
    {Slot<&OpiDetail::SETTLE_PRICE>,   9},
    {Slot<&OpiDetail::FLOATPL>,       10},
    {Slot<&OpiDetail::DSYK>,          11, Treatment::KeepIfPresent},
    {Slot<&OpiDetail::DEPOSIT>,       12, Treatment::KeepIfPresent},
};
// clang-format on

/// A table that ends one row above its dashed line: that row holds the totals.
constexpr SectionLayout Table(SectionKind kind, std::string_view title, int terminatorOffset) {
    return {.kind = kind,
            .title = title,
            .terminator = "----------",
            .terminatorOffset = terminatorOffset,
            .firstRow = 3,
            .endOffset = 1,
            .minColumns = 11};
}

constexpr FixedLayout kLayout{
    .searchFrom = SearchFrom::Top,
    .money = {.title = "资金状况"_gbk, .terminator = "----------", .terminatorOffset = 4, .firstRow = 2},
    .labels = kLabels,
    .trades = {Table(SectionKind::Trades, "成交记录"_gbk, 3), kTradeColumns},
    .closed = {Table(SectionKind::Closed, "平仓明细"_gbk, 3), kClosedColumns},
    .open = {Table(SectionKind::Open, "持仓明细"_gbk, 2), kOpenColumns},
};
static_assert(LastColumn(kTradeColumns) < kLayout.trades.section.minColumns);
static_assert(LastColumn(kClosedColumns) < kLayout.closed.section.minColumns);
static_assert(LastColumn(kOpenColumns) < kLayout.open.section.minColumns);

}  // namespace

void ReadFundStatusPremiumStatement(const StatementText& statement, CReport& report) {
    ReadFixedLayout(kLayout, statement, report);
}

}  // namespace tradebill
