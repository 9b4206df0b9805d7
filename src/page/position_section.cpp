// The section of open positions: a summary by contract and side where the layout prints one, single lots grouped by day
// elsewhere.
#include <array>
#include <ctime>

#include "base/day.h"
#include "base/gbk.h"
#include "base/number.h"
#include "images/picture_names.h"
#include "page/page_sections.h"
#include "page/table_section.h"
#include "platform/local_time.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr TableSection kSection{
    .title = {.title = "期末持仓"_gbk,
              .handler = "clickPositions",
              .buttonId = "Positionsbtn",
              .picture = kLastPositions,
              .titleTail = "</div>\r\n",
              .heightTail = "  "},
    .tableId = "tabPositions",
    .classes = {.normal = "positionspannormal", .bid = "positionspanbid", .ask = "positionspanask"},
    .sums = {.normal = "positionsumnormal", .bid = "positionsumbid", .ask = "positionsumask"},
};

// clang-format off
constexpr Heading kSummaryHeadings[] = {
    {"合约　　　　　"_gbk,              "12%"},
    {"手数　　　　　"_gbk,              "8%"},
    {"买卖　　　　　"_gbk,              "8%"},
    {"价格　　　　　"_gbk,              "12%"},
    {"昨结　　　　　"_gbk,              "12%"},
    {"今结　　　　　"_gbk,              "12%"},
    {"持仓盈亏　　　　　　　　　"_gbk,  "18%"},
    {"占用保证金　　　　　　　　"_gbk,  "18%"},
};

constexpr Heading kDetailHeadings[] = {
    {"交易所　　　"_gbk,            "9%"},
    {"合约　　　　　　　"_gbk,      "13%"},
    {"手数　　　　"_gbk,            "9%"},
    {"日期　　　　　"_gbk,          "10%"},
    {"买入　　　　　"_gbk,          "10%"},
    {"卖出　　　　　　"_gbk,        "12%"},
    {"浮动盈亏　　　　　　"_gbk,    "15%"},
    {"占用保证金　　　　　　"_gbk,  "15%"},
    {"投保　　"_gbk,                "7%"},
};

constexpr Heading kForeignHeadings[] = {
    {"交易所　　　　　"_gbk,                  "12%"},
    {"合约　　　　　　"_gbk,                  "12%"},
    {"手数　　　 　"_gbk,                     "10%"},
    {"日期　　　　　　    "_gbk,              "14%"},
    {"买入　　　　　　"_gbk,                  "12%"},
    {"卖出　　　　　　"_gbk,                  "12%"},
    {"浮动盈亏　　　　　　　        "_gbk,    "18%"},
    {"币种　　        "_gbk,                  "10%"},
};
// clang-format on

constexpr std::size_t kProfitColumn = 6;  // in all three layouts

/// Plain cells, with the profit's column in the class of its sign.
template <std::size_t N>
std::array<Cell, N> Cells(const std::array<std::string_view, N>& texts, const CellClasses& classes, double profit) {
    std::array<Cell, N> cells;
    for (std::size_t i = 0; i < N; ++i) cells[i] = {texts[i], classes.normal};
    cells[kProfitColumn].className = SignClass(profit, classes);
    return cells;
}

template <std::size_t N>
std::array<Cell, N> PlainCells(const std::array<std::string_view, N>& texts, const CellClasses& classes) {
    return Cells(texts, classes, 0);
}

/// A price in the column of the position's side, the other column empty.
struct SidePrices {
    std::string_view buy;
    std::string_view sell;
};

SidePrices OpenPriceBySide(const OpiDetail& row) {
    const std::string_view price = FieldText(row.OPEN_PRICE);
    return Contains(FieldText(row.BID), "买"_gbk) ? SidePrices{price, ""} : SidePrices{"", price};
}

bool AddSummaryTable(CHtmlBuilder& page, const CReport& report) {
    CTableWriter table(page, report, kSection, kSummaryHeadings);
    int counter = 0;
    double profit = 0;
    double margin = 0;
    for (const auto& row : report.OpiSumStore.Rows) {
        if (table.StopRequested()) return false;
        const double rowProfit = AmountIn(row->DSYK);
        const std::array<std::string_view, 8> texts{TrimForPage(FieldText(row->CONTRACT)),
                                                    FieldText(row->POSITION_VOL),
                                                    FieldText(row->BID),
                                                    FieldText(row->POSITION_PRICE),
                                                    FieldText(row->YSETTLE_PRICE),
                                                    FieldText(row->SETTLE_PRICE),
                                                    FieldText(row->DSYK),
                                                    FieldText(row->DEPOSIT)};
        table.AddRow(Cells(texts, kSection.classes, rowProfit), BandClass(++counter));
        table.AddDashRow({});
        profit += rowProfit;
        margin += AmountIn(row->DEPOSIT);
    }
    const CNumberText profitText(profit);
    const CNumberText marginText(margin);
    const std::array<std::string_view, 8> total{"总计"_gbk, "", "", "", "", "", profitText, marginText};
    table.AddRow(PlainCells(total, kSection.sums), {});
    table.Close();
    return true;
}

/// Two rows for each lot, one day in one band.
class CDetailLayout {
public:
    [[nodiscard]] bool Counts(const OpiDetail& /*row*/) const { return true; }

    void ResetSums() { profit_ = margin_ = 0; }

    void WriteRecord(CTableWriter& table, const OpiDetail& row, std::string_view band) {
        const CContractText contract(row.CONTRACT, row.DELIVERY);
        const SidePrices price = OpenPriceBySide(row);
        const std::array<std::string_view, 9> first{TrimForPage(FieldText(row.EXCH_NAME)),
                                                    contract.View(),
                                                    FieldText(row.POSITION_VOL),
                                                    FieldText(row.OPEN_DATE),
                                                    price.buy,
                                                    price.sell,
                                                    "",
                                                    "",
                                                    ""};
        const std::array<std::string_view, 9> second{"",
                                                     "",
                                                     "",
                                                     FieldText(row.BILL_DATE),
                                                     "",
                                                     "",
                                                     FieldText(row.DSYK),
                                                     FieldText(row.DEPOSIT),
                                                     FieldText(row.HEDGE)};
        const double profit = AmountIn(row.DSYK);
        table.AddRow(PlainCells(first, kSection.classes), band);
        table.AddRow(Cells(second, kSection.classes, profit), band);
        table.AddDashRow(band);
        profit_ += profit;
        margin_ += AmountIn(row.DEPOSIT);
    }

    void WriteSubtotal(CTableWriter& table, std::string_view band) const {
        const CNumberText profit(profit_);
        const CNumberText margin(margin_);
        const std::array<std::string_view, 9> texts{"小计"_gbk, "", "", "", "", "", profit, margin, ""};
        table.AddRow(Cells(texts, kSection.sums, profit_), band);
        table.AddDashRow(band);
    }

private:
    double profit_ = 0;
    double margin_ = 0;
};

/// The foreign form: only lots of the report's days, and blank text where the other form leaves cells empty.
class CForeignLayout {
public:
    /// A report of today alone begins at the time of its call; what is of today belongs to it all the same.
    explicit CForeignLayout(const ReportRange& days)
        : firstDay_(MidnightOf(LocalDayOf(days.first))), lastDay_(days.last) {}

    [[nodiscard]] bool Counts(const OpiDetail& row) const {
        const std::time_t day = MidnightOf(ParsePackedDay(FieldText(row.BILL_DATE)));
        return day >= firstDay_ && day <= lastDay_;
    }

    void ResetSums() { profit_ = 0; }

    void WriteRecord(CTableWriter& table, const OpiDetail& row, std::string_view band) {
        const CContractText contract(row.CONTRACT, row.DELIVERY);
        const SidePrices price = OpenPriceBySide(row);
        const std::array<std::string_view, 8> first{TrimForPage(FieldText(row.EXCH_NAME)),
                                                    contract.View(),
                                                    FieldText(row.POSITION_VOL),
                                                    FieldText(row.OPEN_DATE),
                                                    price.buy,
                                                    price.sell,
                                                    " ",
                                                    " "};
        const std::array<std::string_view, 8> second{
            " ", " ", " ", FieldText(row.BILL_DATE), " ", " ", FieldText(row.FLOATPL), FieldText(row.CURRENCY)};
        const double profit = AmountIn(row.FLOATPL);
        table.AddRow(PlainCells(first, kSection.classes), band);
        table.AddRow(Cells(second, kSection.classes, profit), band);
        table.AddDashRow(band);
        profit_ += profit;
    }

    void WriteSubtotal(CTableWriter& table, std::string_view band) const {
        const CNumberText profit(profit_);
        const std::array<std::string_view, 8> texts{"小计"_gbk, "   ", "   ", "   ", "   ", "   ", profit, " "};
        table.AddRow(Cells(texts, kSection.sums, profit_), band);
        table.AddDashRow(band);
    }

private:
    std::time_t firstDay_;
    std::time_t lastDay_;
    double profit_ = 0;
};

template <class Layout>
bool AddDayTable(CHtmlBuilder& page, const CReport& report, std::span<const Heading> headings, Layout layout) {
    CTableWriter table(page, report, kSection, headings);
    if (!WriteDayGroups(table, report.OpiDetailStore.Rows, layout)) return false;
    table.Close();
    return true;
}

}  // namespace

bool AddPositionSection(CHtmlBuilder& page, const CReport& report) {
    if (!report.Format().namesDeliveryApart) return AddSummaryTable(page, report);
    return AddDayTable(page, report, kDetailHeadings, CDetailLayout{});
}

bool AddForeignPositionSection(CHtmlBuilder& page, const CReport& report) {
    return AddDayTable(page, report, kForeignHeadings, CForeignLayout(report.ReportDays));
}

}  // namespace tradebill
