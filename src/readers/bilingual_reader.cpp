#include <string_view>
#include "base/gbk.h"
#include "readers/columns.h"
#include "readers/fixed_layout.h"
#include "readers/fixed_readers.h"
#include "readers/money_labels.h"
#include "readers/record_sink.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"
#include "readers/statement_template.h"
#include "readers/statement_text.h"
#include "readers/table_layout.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {
namespace {

// Blanks stand inside the labels, so two blanks cut the row, and a label counts only to the letter: the old ones end in
// the full-width colon, that of the equity even in two.
// clang-format off
constexpr MoneyLabel kLabels[] = {
    {Slot<&MoneyRecord::KHQY>,   LabelMatch::Equals, "客户权益 Client Equity：："_gbk},
    {Slot<&MoneyRecord::BZJZY>,  LabelMatch::Equals, "保证金占用 Margin Occupied："_gbk},
    {Slot<&MoneyRecord::SXF>,    LabelMatch::Equals, "手 续 费 Commission："_gbk},
    {Slot<&MoneyRecord::KYZJ>,   LabelMatch::Equals, "可用资金 Fund Avail.："_gbk},
    {Slot<&MoneyRecord::CRJ>,    LabelMatch::Equals, "出 入 金 Deposit/Withdrawal："_gbk},
    {Slot<&MoneyRecord::QCQY>,   LabelMatch::Equals, "期初结存 Balance b/f："_gbk},
    {Slot<&MoneyRecord::QMJC>,   LabelMatch::Equals, "期末结存 Balance c/f："_gbk},
    {Slot<&MoneyRecord::PCYK>,   LabelMatch::Equals, "平仓盈亏 Realized P/L："_gbk},
    {Slot<&MoneyRecord::CCDSYK>, LabelMatch::Equals, "持仓盯市盈亏 MTM P/L："_gbk},
    {Slot<&MoneyRecord::XQSXF>,  LabelMatch::Equals, "行权手续费 Exercise Fee："_gbk},
};

constexpr MoneyLabel kNewLabels[] = {
    {Slot<&MoneyRecord::KHQY>,   LabelMatch::Equals, "客户权益 Client Equity:"_gbk},
    {Slot<&MoneyRecord::BZJZY>,  LabelMatch::Equals, "保证金占用 Margin Occupied:"_gbk},
    {Slot<&MoneyRecord::SXF>,    LabelMatch::Equals, "手 续 费 Commission:"_gbk},
    {Slot<&MoneyRecord::KYZJ>,   LabelMatch::Equals, "可用资金 Fund Avail.:"_gbk},
    {Slot<&MoneyRecord::CRJ>,    LabelMatch::Equals, "出 入 金 Deposit/Withdrawal:"_gbk},
    {Slot<&MoneyRecord::QCQY>,   LabelMatch::Equals, "期初结存 Balance b/f:"_gbk},
    {Slot<&MoneyRecord::QMJC>,   LabelMatch::Equals, "期末结存 Balance c/f:"_gbk},
    {Slot<&MoneyRecord::PCYK>,   LabelMatch::Equals, "平仓盈亏 Realized P/L:"_gbk},
    {Slot<&MoneyRecord::CCDSYK>, LabelMatch::Equals, "持仓盯市盈亏 MTM P/L:"_gbk},
    {Slot<&MoneyRecord::XQSXF>,  LabelMatch::Equals, "行权手续费 Exercise Fee:"_gbk},
};

constexpr Column<MatchRecord> kTradeColumns[] = {
    {Slot<&MatchRecord::MATCH_DATE>,     0},
    {Slot<&MatchRecord::EXCH_NAME>,      1},
    {Slot<&MatchRecord::CONTRACT>,       3},
    {Slot<&MatchRecord::BID>,            4, Treatment::Side},
    {Slot<&MatchRecord::HEDGE>,          5},
    {Slot<&MatchRecord::MATCH_PRICE>,    6},
    {Slot<&MatchRecord::MATCH_VOL>,      7},
    {Slot<&MatchRecord::TURNOVER>,       8},
    {Slot<&MatchRecord::OFFSET>,         9},
    {Slot<&MatchRecord::POUNDAGE>,      10},
    {Slot<&MatchRecord::OFFSETPL>,      11, Treatment::KeepIfPresent},
    {Slot<&MatchRecord::ROYALTY>,       12, Treatment::KeepIfPresent},
    {CutSlot<&MatchRecord::MATCHNO, 8>, 13, Treatment::KeepIfPresent},
};

constexpr Column<PingDetail> kClosedColumns[] = {
    {Slot<&PingDetail::MATCH_DATE>,    0},
    {Slot<&PingDetail::EXCH_NAME>,     1},
    {Slot<&PingDetail::CONTRACT>,      3},
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
    {Slot<&OpiDetail::CONTRACT>,       2},
    {Slot<&OpiDetail::OPEN_DATE>,      3},
    {Slot<&OpiDetail::HEDGE>,          4},
    {Slot<&OpiDetail::BID>,            5},
    {Slot<&OpiDetail::POSITION_VOL>,   6},
    {Slot<&OpiDetail::OPEN_PRICE>,     7},
    {Slot<&OpiDetail::YSETTLE_PRICE>,  8},
    {Slot<&OpiDetail::SETTLE_PRICE>,   9},
    {Slot<&OpiDetail::FLOATPL>,       10},
    {Slot<&OpiDetail::DSYK>,          11, Treatment::KeepIfPresent},
    {Slot<&OpiDetail::DEPOSIT>,       12, Treatment::KeepIfPresent},
};
// clang-format on

/// A money block that ends at the row of `terminator`.
constexpr SectionLayout Money(std::string_view terminator) {
    return {.title = "资金状况"_gbk, .terminator = terminator, .terminatorOffset = 2, .firstRow = 2, .delimiter = "  "};
}

/// Rows framed by bars under a heading in two languages.
constexpr SectionLayout BarTable(SectionKind kind, std::string_view title, int terminatorOffset) {
    return {.kind = kind,
            .title = title,
            .terminator = "共"_gbk,
            .terminatorOffset = terminatorOffset,
            .firstRow = 5,
            .endOffset = 1,
            .minColumns = 11,
            .delimiter = "|"};
}

constexpr TableLayout<MatchRecord> kTrades{BarTable(SectionKind::Trades, "成交记录"_gbk, 3), kTradeColumns};
constexpr TableLayout<PingDetail> kClosed{BarTable(SectionKind::Closed, "平仓明细"_gbk, 3), kClosedColumns};
constexpr TableLayout<OpiDetail> kOpen{BarTable(SectionKind::Open, "持仓明细"_gbk, 2), kOpenColumns};
static_assert(LastColumn(kTradeColumns) < kTrades.section.minColumns);
static_assert(LastColumn(kClosedColumns) < kClosed.section.minColumns);
static_assert(LastColumn(kOpenColumns) < kOpen.section.minColumns);

// The row of the premium paid ends the old block, so what stands in it is never read.
constexpr FixedLayout kLayout{
    .searchFrom = SearchFrom::Top,
    .money = Money("权利金支出"_gbk),
    .labels = kLabels,
    .premium = {"权利金收入 Premium received："_gbk, "权利金支出 Premium paid："_gbk, LabelMatch::Equals},
    .trades = kTrades,
    .closed = kClosed,
    .open = kOpen,
};

constexpr FixedLayout kNewLayout{
    .searchFrom = SearchFrom::Top,
    .money = Money("成交记录"_gbk),
    .labels = kNewLabels,
    .premium = {"权利金收入 premium received:"_gbk, "权利金支出 premium paid:"_gbk, LabelMatch::Equals},
    .trades = kTrades,
    .closed = kClosed,
    .open = kOpen,
};

}  // namespace

void ReadBilingualStatement(const StatementText& statement, CReport& report) {
    if (statement.byTemplate != nullptr && statement.byTemplate->HoldsNewScheme(statement.day)) {
        ReadBilingualStatementNew(statement, report);
        return;
    }
    ReadFixedLayout(kLayout, statement, report);
}

void ReadBilingualStatementNew(const StatementText& statement, CReport& report) {
    if (statement.listener != nullptr) statement.listener->OnReader("bilingual-new");
    ReadFixedLayout(kNewLayout, statement, report);
}

}  // namespace tradebill
