// The section of closed positions: each as its opening and its closing leg, with a P/L made of prices and the
// contract's unit.
#include <cstdint>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "images/picture_names.h"
#include "page/page_sections.h"
#include "page/section_title.h"
#include "page/table_columns.h"
#include "page/table_section.h"
#include "report/records.h"
#include "report/report.h"
#include "report/statement_format.h"

namespace tradebill {
namespace {

constexpr TableSection kSection{
    .title = {.title = "平仓记录"_gbk,
              .handler = "clickOfferset",
              .buttonId = "Offersetbtn",
              .picture = kOffsetRecords,
              .titleTail = " </div>\r\n",
              .heightTail = " "},
    .tableId = "tabOffset",
    .classes = {.normal = "offsetspannormal", .bid = "offsetspanbid", .ask = "offsetspanask"},
    .sums = {.normal = "offsetsumnormal", .bid = "offsetsumbid", .ask = "offsetsumask"},
};

/// The trade that opened a position.
struct OpeningLeg {
    const PingDetail& record;
    std::string_view exchange;
    CContractText contract;
    bool bought;
};

/// The trade that closed it: the opposite one, a long position is closed by a sale.
struct ClosingLeg {
    const PingDetail& record;
    bool bought;
    CNumberText profitText;
    double profit;
};

/// The sums of the whole table, written out.
struct OffsetSums {
    CNumberText profitText;
    CNumberText fees;
    double profit;
};

struct OffsetContent {
    CCellContent<OpeningLeg> opening;
    CCellContent<ClosingLeg> closing = {};
    CCellContent<OffsetSums> total = {};
};

// clang-format off
constexpr PageColumn<OffsetContent> kColumns[] = {
    {{"交易所　　　　　"_gbk,      "10%"}, {TextOf<&OpeningLeg::exchange>, {}, "总计"_gbk}},
    {{"合约　　　　　　　　"_gbk,  "12%"}, {TextOf<&OpeningLeg::contract>}},
    {{"手数　　　　　　"_gbk,      "10%"}, {FieldOf<&PingDetail::MATCH_VOL>}},
    {{"日期　　　　　　　　"_gbk,  "13%"}, {FieldOf<&PingDetail::OPEN_DATE>, FieldOf<&PingDetail::MATCH_DATE>}},
    {{"买入　　　　　　　　"_gbk,  "13%"}, {BuyPrice<&PingDetail::OPEN_PRICE>, BuyPrice<&PingDetail::MATCH_PRICE>}},
    {{"卖出　　　　　　　　"_gbk,  "13%"}, {SellPrice<&PingDetail::OPEN_PRICE>, SellPrice<&PingDetail::MATCH_PRICE>}},
    {{"逐笔平仓盈亏　　　　"_gbk,  "14%"}, {{}, {TextOf<&ClosingLeg::profitText>, BySign<&ClosingLeg::profit>},
                                          {TextOf<&OffsetSums::profitText>, BySign<&OffsetSums::profit>}}},
    {{"手续费              "_gbk,  "12%"}, {{}, FieldOf<&PingDetail::POUNDAGE>, TextOf<&OffsetSums::fees>}},
};
// clang-format on

bool IsLong(const PingDetail& position) {
    return Contains(FieldText(position.BID), "买"_gbk);
}

OpeningLeg OpeningOf(const PingDetail& position, const StatementFormat& format) {
    return {.record = position,
            .exchange = format.showsExchangeOfClosed ? TrimForPage(FieldText(position.EXCH_NAME)) : std::string_view(),
            .contract = CContractText(position.CONTRACT, format.namesDeliveryApart ? position.DELIVERY : ""),
            .bought = IsLong(position)};
}

ClosingLeg ClosingOf(const PingDetail& position, double profit) {
    return {.record = position, .bought = !IsLong(position), .profitText = CNumberText(profit), .profit = profit};
}

std::int32_t UnitOf(const CReport& report, const PingDetail& row) {
    std::string_view contract = Trim(FieldText(row.CONTRACT));
    if (!report.Format().printsNames) return report.AskContractUnit(contract, "");
    contract = TrimByte(contract, kFullWidthBlankByte);
    const std::string_view delivery = Trim(FieldText(row.DELIVERY));
    // Stock index futures go by a name where the unit is asked for by code.
    if (Contains(contract, "股指"_gbk)) return report.AskContractUnit("IF" + std::string(delivery), delivery);
    return report.AskContractUnit(contract, delivery);
}

double ProfitOf(const PingDetail& row, std::int32_t unit) {
    const double openPrice = AmountIn(row.OPEN_PRICE);
    const double closePrice = AmountIn(row.MATCH_PRICE);
    const std::int32_t quantity = WrapMultiply(IntegerIn(row.MATCH_VOL), unit);
    const double profit = (IsLong(row) ? closePrice - openPrice : openPrice - closePrice) * quantity;
    return profit == 0 ? 0 : profit;  // never "-0.00"
}

}  // namespace

bool AddOffsetSection(CHtmlBuilder& page, const CReport& report) {
    CColumnTable<OffsetContent> table(page, report, kSection, kColumns);
    int counter = 0;
    double profit = 0;
    double fees = 0;
    for (const PingDetail& row : report.PingDetailStore.Rows) {
        if (table.StopRequested()) return false;
        table.Add(&OffsetContent::opening, OpeningOf(row, report.Format()), BandClass(counter + 1));
        const double rowProfit = ProfitOf(row, UnitOf(report, row));
        table.Add(&OffsetContent::closing, ClosingOf(row, rowProfit), BandClass(counter + 2));
        table.AddDashRow({});
        profit += rowProfit;
        fees += AmountIn(row.POUNDAGE);
        counter += 2;
    }
    const OffsetSums total{.profitText = CNumberText(profit), .fees = CNumberText(fees), .profit = profit};
    table.AddSums(&OffsetContent::total, total, {});
    table.CloseTable();
    AddOffsetFigure(page, report);
    page.ClosePage();
    return true;
}

}  // namespace tradebill
