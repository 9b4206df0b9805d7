#include "base/gbk.h"
#include "readers/columns.h"
#include "readers/fixed_layout.h"
#include "readers/fixed_readers.h"
#include "readers/money_labels.h"
#include "readers/record_sink.h"
#include "readers/scan_listener.h"
#include "readers/shared_columns.h"
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
    {Slot<&MoneyRecord::SXF>,    LabelMatch::Equals,   "手续费:"_gbk},  // keeps exercise and delivery fees out
    {Slot<&MoneyRecord::KYZJ>,   LabelMatch::Contains, "可用资金"_gbk},
    {Slot<&MoneyRecord::CRJ>,    LabelMatch::Contains, "出入金"_gbk},
    {Slot<&MoneyRecord::QCQY>,   LabelMatch::Contains, "上日结存"_gbk},
    {Slot<&MoneyRecord::QMJC>,   LabelMatch::Contains, "当日结存"_gbk},
    {Slot<&MoneyRecord::PCYK>,   LabelMatch::Contains, "平仓盈亏"_gbk},
    {Slot<&MoneyRecord::CCDSYK>, LabelMatch::Contains, "持仓盯市盈亏"_gbk},
};

constexpr Column<PingDetail> kClosedColumns[] = {
    {Slot<&PingDetail::MATCH_DATE>,    0},
    {Slot<&PingDetail::EXCH_NAME>,     1},
    {Slot<&PingDetail::CONTRACT>,      2},
    {Slot<&PingDetail::DELIVERY>,      3},
    {Slot<&PingDetail::BID>,           5, Treatment::InvertedSide},
    {Slot<&PingDetail::MATCH_PRICE>,   6},
    {Slot<&PingDetail::OPEN_DATE>,     7},
    {Slot<&PingDetail::OPEN_PRICE>,    8},
    {Slot<&PingDetail::MATCH_VOL>,     9},
    {Slot<&PingDetail::SETTLE_PRICE>, 10},
    {Slot<&PingDetail::OFFSETPL>,     11},
};

constexpr Column<OpiSum> kSharedColumns[] = {
    {Slot<&OpiSum::EXCH_NAME>,      0},
    {Slot<&OpiSum::CONTRACT>,       1},
    {Slot<&OpiSum::DELIVERY>,       2},
    {Slot<&OpiSum::YSETTLE_PRICE>,  7},
    {Slot<&OpiSum::SETTLE_PRICE>,   8},
    {Slot<&OpiSum::DSYK>,          10},
    {Slot<&OpiSum::DEPOSIT>,       11},
    {Slot<&OpiSum::HEDGE>,         12},
};
constexpr Column<OpiSum> kBuyColumns[] = {
    {Slot<&OpiSum::BID_POSITION_VOL>, 3},
    {Slot<&OpiSum::POSITION_PRICE>,   4},
};
constexpr Column<OpiSum> kSellColumns[] = {
    {Slot<&OpiSum::ASK_POSITION_VOL>, 5},
    {Slot<&OpiSum::POSITION_PRICE>,   6},
};
constexpr PositionSide kSides[] = {
    {.lotsColumn = 3, .side = "买"_gbk, .columns = kBuyColumns},
    {.lotsColumn = 5, .side = "卖"_gbk, .columns = kSellColumns},
};
// clang-format on

constexpr FixedLayout kLayout{
    .dateWord = "日  期:"_gbk,
    .money = {.title = "资金状况"_gbk, .terminator = "---------", .terminatorOffset = 2, .firstRow = 2},
    .labels = kLabels,
    .trades = {{.kind = SectionKind::Trades,
                .title = "成交记录"_gbk,
                .terminator = "共"_gbk,
                .firstRow = 3,
                .minColumns = 12},
               kFundTradeColumns},
    .closed = {{.kind = SectionKind::Closed,
                .title = "平仓明细"_gbk,
                .terminator = "共"_gbk,
                .firstRow = 3,
                .minColumns = 12},
               kClosedColumns},
    .open =
        {{.kind = SectionKind::Open, .title = "持仓明细"_gbk, .terminator = "共"_gbk, .firstRow = 3, .minColumns = 13},
         kOpenDetailColumns},
    .summary = {.kind = SectionKind::Summary,
                .title = "持仓汇总"_gbk,
                .terminator = "共"_gbk,
                .terminatorOffset = 2,
                .firstRow = 3,
                .minColumns = 13},
    .summarySides = {kSharedColumns, kSides},
};
static_assert(LastColumn(kFundTradeColumns) < kLayout.trades.section.minColumns);
static_assert(LastColumn(kClosedColumns) < kLayout.closed.section.minColumns);
static_assert(LastColumn(kOpenDetailColumns) < kLayout.open.section.minColumns);
static_assert(LastColumn(kLayout.summarySides) < kLayout.summary.minColumns);

}  // namespace

void ReadFundStatusStatement(const StatementText& statement, CReport& report) {
    ReadFixedLayout(kLayout, statement, report);
}

}  // namespace tradebill
