#include "base/gbk.h"
#include "readers/columns.h"
#include "readers/fixed_layout.h"
#include "readers/fixed_readers.h"
#include "readers/money_labels.h"
#include "readers/record_sink.h"
#include "readers/scan_listener.h"
#include "readers/shared_columns.h"
#include "readers/statement_text.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {
namespace {

// clang-format off
constexpr MoneyLabel kLabels[] = {
    {Slot<&MoneyRecord::KHQY>,   LabelMatch::Contains, "客户权益"_gbk},
    {Slot<&MoneyRecord::BZJZY>,  LabelMatch::Contains, "保证金占用"_gbk},
    {Slot<&MoneyRecord::SXF>,    LabelMatch::Contains, "手续费"_gbk},  // exercise fees count too, and the later one stays
    {Slot<&MoneyRecord::KYZJ>,   LabelMatch::Contains, "可用资金"_gbk},
    {Slot<&MoneyRecord::CRJ>,    LabelMatch::Contains, "出入金"_gbk},
    {Slot<&MoneyRecord::QCQY>,   LabelMatch::Contains, "上日结存"_gbk},
    {Slot<&MoneyRecord::QMJC>,   LabelMatch::Contains, "当日结存"_gbk},
    {Slot<&MoneyRecord::PCYK>,   LabelMatch::Contains, "盯市平仓盈亏"_gbk},
    {Slot<&MoneyRecord::CCDSYK>, LabelMatch::Contains, "持仓盯市盈亏"_gbk},
};

constexpr Column<PingDetail> kClosedColumns[] = {
    {Slot<&PingDetail::MATCH_DATE>,    0},
    {Slot<&PingDetail::EXCH_NAME>,     1},
    {Slot<&PingDetail::CONTRACT>,      2},
    {Slot<&PingDetail::DELIVERY>,      3},
    {Slot<&PingDetail::BID>,           4, Treatment::InvertedSide},
    {Slot<&PingDetail::MATCH_PRICE>,   5},
    {Slot<&PingDetail::MATCH_VOL>,     6},
    {Slot<&PingDetail::OPEN_DATE>,     7},
    {Slot<&PingDetail::OPEN_PRICE>,    8},
    {Slot<&PingDetail::SETTLE_PRICE>,  9},
    {Slot<&PingDetail::POUNDAGE>,     10},
    {Slot<&PingDetail::HEDGE>,        11},
    {Slot<&PingDetail::OFFSETPL>,     12},
};

// clang-format on

constexpr FixedLayout kLayout{
    .dateWord = "日  期:"_gbk,
    .money = {.title = "资金类别"_gbk, .terminator = "---------", .terminatorOffset = 2, .firstRow = 2},
    .labels = kLabels,
    .premium = {.income = "权利金收入"_gbk, .payment = "权利金支出"_gbk},
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
                .minColumns = 13},
               kClosedColumns},
    .open =
        {{.kind = SectionKind::Open, .title = "持仓明细"_gbk, .terminator = "共"_gbk, .firstRow = 3, .minColumns = 13},
         kOpenDetailColumns},
};
static_assert(LastColumn(kFundTradeColumns) < kLayout.trades.section.minColumns);
static_assert(LastColumn(kClosedColumns) < kLayout.closed.section.minColumns);
static_assert(LastColumn(kOpenDetailColumns) < kLayout.open.section.minColumns);

}  // namespace

void ReadFundClassStatement(const StatementText& statement, CReport& report) {
    ReadFixedLayout(kLayout, statement, report);
}

}  // namespace tradebill
