// The section of closed positions: each as its opening and its closing leg, with a P/L made of prices and the
// contract's unit.
#include <array>
#include <cstdint>
#include <string>

#include "base/gbk.h"
#include "base/number.h"
#include "images/picture_names.h"
#include "page/page_sections.h"
#include "page/table_section.h"
#include "report/report.h"

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

// clang-format off
constexpr Heading kHeadings[] = {
    {"交易所　　　　　"_gbk,      "10%"},
    {"合约　　　　　　　　"_gbk,  "12%"},
    {"手数　　　　　　"_gbk,      "10%"},
    {"日期　　　　　　　　"_gbk,  "13%"},
    {"买入　　　　　　　　"_gbk,  "13%"},
    {"卖出　　　　　　　　"_gbk,  "13%"},
    {"逐笔平仓盈亏　　　　"_gbk,  "14%"},
    {"手续费              "_gbk,  "12%"},
};
// clang-format on

constexpr std::size_t kColumns = 8;
constexpr std::size_t kProfitColumn = 6;
using Texts = std::array<std::string_view, kColumns>;

std::array<Cell, kColumns> Cells(const Texts& texts, const CellClasses& classes, double profit) {
    std::array<Cell, kColumns> cells;
    for (std::size_t i = 0; i < kColumns; ++i) cells[i] = {texts[i], classes.normal};
    cells[kProfitColumn].className = SignClass(profit, classes);
    return cells;
}

/// The closing trade is the opposite of the position: a long one is closed by a sale.
bool IsClosedByBuying(const PingDetail& row) {
    return !Contains(FieldText(row.BID), "买"_gbk);
}

void WriteOpeningRow(CTableWriter& table, const StatementFormat& format, const PingDetail& row, std::string_view band) {
    const CContractText contract(row.CONTRACT, format.namesDeliveryApart ? row.DELIVERY : "");
    const std::string_view exchange =
        format.showsExchangeOfClosed ? TrimForPage(FieldText(row.EXCH_NAME)) : std::string_view();
    const std::string_view price = FieldText(row.OPEN_PRICE);
    const bool closedByBuying = IsClosedByBuying(row);
    const Texts texts{exchange,
                      contract.View(),
                      FieldText(row.MATCH_VOL),
                      FieldText(row.OPEN_DATE),
                      closedByBuying ? "" : price,
                      closedByBuying ? price : "",
                      "",
                      ""};
    table.AddRow(Cells(texts, kSection.classes, 0), band);
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
    const double profit = (IsClosedByBuying(row) ? openPrice - closePrice : closePrice - openPrice) * quantity;
    return profit == 0 ? 0 : profit;  // never "-0.00"
}

void WriteClosingRow(CTableWriter& table, const PingDetail& row, double profit, std::string_view band) {
    const std::string_view price = FieldText(row.MATCH_PRICE);
    const bool closedByBuying = IsClosedByBuying(row);
    const CNumberText profitText(profit);
    const Texts texts{"",
                      "",
                      "",
                      FieldText(row.MATCH_DATE),
                      closedByBuying ? price : "",
                      closedByBuying ? "" : price,
                      profitText,
                      FieldText(row.POUNDAGE)};
    table.AddRow(Cells(texts, kSection.classes, profit), band);
}

}  // namespace

bool AddOffsetSection(CHtmlBuilder& page, const CReport& report) {
    CTableWriter table(page, report, kSection, kHeadings);
    int counter = 0;
    double profit = 0;
    double fees = 0;
    for (const auto& row : report.PingDetailStore.Rows) {
        if (table.StopRequested()) return false;
        WriteOpeningRow(table, report.Format(), *row, BandClass(counter + 1));
        if (report.Products != nullptr) table.Flush();  // a host sees all rows before it is asked
        const double rowProfit = ProfitOf(*row, UnitOf(report, *row));
        WriteClosingRow(table, *row, rowProfit, BandClass(counter + 2));
        table.AddDashRow({});
        profit += rowProfit;
        fees += AmountIn(row->POUNDAGE);
        counter += 2;
    }
    const CNumberText profitText(profit);
    const CNumberText feesText(fees);
    table.AddRow(Cells({"总计"_gbk, "", "", "", "", "", profitText, feesText}, kSection.sums, profit), {});
    table.CloseTable();
    AddOffsetFigure(page, report);
    page.ClosePage();
    return true;
}

}  // namespace tradebill
