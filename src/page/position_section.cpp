// The section of open positions: a summary by contract and side for formats that print full contract codes, single lots
// grouped by day for the others.
#include <ctime>
#include <span>
#include <string_view>

#include "base/day.h"
#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "images/picture_names.h"
#include "page/page_sections.h"
#include "page/table_columns.h"
#include "page/table_section.h"
#include "platform/local_time.h"
#include "report/records.h"
#include "report/report.h"
#include "report/request_copy.h"

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

/// The sums of one day, or of the whole summary, written out.
struct PositionSums {
    CNumberText profitText;
    CNumberText margin;
    double profit;
};

struct SummaryRow {
    const OpiSum& record;
    double profit;
};

struct SummaryContent {
    CCellContent<SummaryRow> side;  ///< of one contract
    CCellContent<PositionSums> total = {};
};

/// A lot takes two rows: as it was opened, and as it stands on the day of its statement.
struct LotRow {
    const OpiDetail& record;
    CContractText contract;
    bool bought;
    double profit;
};

struct LotContent {
    CCellContent<LotRow> opened;
    CCellContent<LotRow> held = {};
    CCellContent<PositionSums> subtotal = {};
};

using LotColumn = PageColumn<LotContent>;

constexpr CCellContent<PositionSums> kProfitSum{TextOf<&PositionSums::profitText>, BySign<&PositionSums::profit>};

// The foreign form has blank texts where the other leaves cells empty.
constexpr std::string_view kBlank = " ";
constexpr std::string_view kThreeBlanks = "   ";

// clang-format off
constexpr PageColumn<SummaryContent> kSummaryColumns[] = {
    {{"合约　　　　　"_gbk,              "12%"}, {TrimmedFieldOf<&OpiSum::CONTRACT>, "总计"_gbk}},
    {{"手数　　　　　"_gbk,              "8%"},  {FieldOf<&OpiSum::POSITION_VOL>}},
    {{"买卖　　　　　"_gbk,              "8%"},  {FieldOf<&OpiSum::BID>}},
    {{"价格　　　　　"_gbk,              "12%"}, {FieldOf<&OpiSum::POSITION_PRICE>}},
    {{"昨结　　　　　"_gbk,              "12%"}, {FieldOf<&OpiSum::YSETTLE_PRICE>}},
    {{"今结　　　　　"_gbk,              "12%"}, {FieldOf<&OpiSum::SETTLE_PRICE>}},
    {{"持仓盈亏　　　　　　　　　"_gbk,  "18%"}, {{FieldOf<&OpiSum::DSYK>, BySign<&SummaryRow::profit>},
                                                 TextOf<&PositionSums::profitText>}},
    {{"占用保证金　　　　　　　　"_gbk,  "18%"}, {FieldOf<&OpiSum::DEPOSIT>, TextOf<&PositionSums::margin>}},
};

constexpr LotColumn kDetailColumns[] = {
    {{"交易所　　　"_gbk,            "9%"},  {TrimmedFieldOf<&OpiDetail::EXCH_NAME>, {}, "小计"_gbk}},
    {{"合约　　　　　　　"_gbk,      "13%"}, {TextOf<&LotRow::contract>}},
    {{"手数　　　　"_gbk,            "9%"},  {FieldOf<&OpiDetail::POSITION_VOL>}},
    {{"日期　　　　　"_gbk,          "10%"}, {FieldOf<&OpiDetail::OPEN_DATE>, FieldOf<&OpiDetail::BILL_DATE>}},
    {{"买入　　　　　"_gbk,          "10%"}, {BuyPrice<&OpiDetail::OPEN_PRICE>}},
    {{"卖出　　　　　　"_gbk,        "12%"}, {SellPrice<&OpiDetail::OPEN_PRICE>}},
    {{"浮动盈亏　　　　　　"_gbk,    "15%"}, {{}, {FieldOf<&OpiDetail::DSYK>, BySign<&LotRow::profit>}, kProfitSum}},
    {{"占用保证金　　　　　　"_gbk,  "15%"}, {{}, FieldOf<&OpiDetail::DEPOSIT>, TextOf<&PositionSums::margin>}},
    {{"投保　　"_gbk,                "7%"},  {{}, FieldOf<&OpiDetail::HEDGE>}},
};

constexpr LotColumn kForeignColumns[] = {
    {{"交易所　　　　　"_gbk,                  "12%"}, {TrimmedFieldOf<&OpiDetail::EXCH_NAME>, kBlank, "小计"_gbk}},
    {{"合约　　　　　　"_gbk,                  "12%"}, {TextOf<&LotRow::contract>, kBlank, kThreeBlanks}},
    {{"手数　　　 　"_gbk,                     "10%"}, {FieldOf<&OpiDetail::POSITION_VOL>, kBlank, kThreeBlanks}},
    {{"日期　　　　　　    "_gbk,              "14%"}, {FieldOf<&OpiDetail::OPEN_DATE>, FieldOf<&OpiDetail::BILL_DATE>,
                                                      kThreeBlanks}},
    {{"买入　　　　　　"_gbk,                  "12%"}, {BuyPrice<&OpiDetail::OPEN_PRICE>, kBlank, kThreeBlanks}},
    {{"卖出　　　　　　"_gbk,                  "12%"}, {SellPrice<&OpiDetail::OPEN_PRICE>, kBlank, kThreeBlanks}},
    {{"浮动盈亏　　　　　　　        "_gbk,    "18%"}, {kBlank, {FieldOf<&OpiDetail::FLOATPL>, BySign<&LotRow::profit>},
                                                      kProfitSum}},
    {{"币种　　        "_gbk,                  "10%"}, {kBlank, FieldOf<&OpiDetail::CURRENCY>, kBlank}},
};
// clang-format on

bool AddSummaryTable(CHtmlBuilder& page, const CReport& report) {
    CColumnTable<SummaryContent> table(page, report, kSection, kSummaryColumns);
    int counter = 0;
    double profit = 0;
    double margin = 0;
    for (const OpiSum& side : report.OpiSumStore.Rows) {
        if (table.StopRequested()) return false;
        const SummaryRow row{.record = side, .profit = AmountIn(side.DSYK)};
        table.Add(&SummaryContent::side, row, BandClass(++counter));
        table.AddDashRow({});
        profit += row.profit;
        margin += AmountIn(side.DEPOSIT);
    }
    const PositionSums total{.profitText = CNumberText(profit), .margin = CNumberText(margin), .profit = profit};
    table.AddSums(&SummaryContent::total, total, {});
    table.Close();
    return true;
}

/// A form of the table of single lots.
struct LotForm {
    std::span<const LotColumn> columns;
    char (OpiDetail::*profit)[16];  ///< that is shown and added up
    bool ofReportDaysOnly = false;  ///< lots of other days are passed over
};

constexpr LotForm kDetailForm{.columns = kDetailColumns, .profit = &OpiDetail::DSYK};
constexpr LotForm kForeignForm{.columns = kForeignColumns, .profit = &OpiDetail::FLOATPL, .ofReportDaysOnly = true};

/// Two rows for each lot, one day in one band.
class CLotLayout {
public:
    /// A report of today alone begins at the time of its call; what is of today belongs to it all the same.
    CLotLayout(const LotForm& form, const ReportRange& days)
        : form_(form), firstDay_(MidnightOf(LocalDayOf(days.first))), lastDay_(days.last) {}

    [[nodiscard]] bool Counts(const OpiDetail& lot) const {
        if (!form_.ofReportDaysOnly) return true;
        const std::time_t day = MidnightOf(ParsePackedDay(FieldText(lot.BILL_DATE)));
        return day >= firstDay_ && day <= lastDay_;
    }

    void ResetSums() { profit_ = margin_ = 0; }

    void WriteRecord(CColumnTable<LotContent>& table, const OpiDetail& lot, std::string_view band) {
        const LotRow row{.record = lot,
                         .contract = CContractText(lot.CONTRACT, lot.DELIVERY),
                         .bought = Contains(FieldText(lot.BID), "买"_gbk),
                         .profit = AmountIn(lot.*form_.profit)};
        table.Add(&LotContent::opened, row, band);
        table.Add(&LotContent::held, row, band);
        table.AddDashRow(band);
        profit_ += row.profit;
        margin_ += AmountIn(lot.DEPOSIT);
    }

    void WriteSubtotal(CColumnTable<LotContent>& table, std::string_view band) const {
        const PositionSums sums{.profitText = CNumberText(profit_), .margin = CNumberText(margin_), .profit = profit_};
        table.AddSums(&LotContent::subtotal, sums, band);
        table.AddDashRow(band);
    }

private:
    const LotForm& form_;
    std::time_t firstDay_;
    std::time_t lastDay_;
    double profit_ = 0;
    double margin_ = 0;
};

bool AddLotTable(CHtmlBuilder& page, const CReport& report, const LotForm& form) {
    CColumnTable<LotContent> table(page, report, kSection, form.columns);
    CLotLayout layout(form, report.ReportDays);
    if (!WriteDayGroups(table, report.OpiDetailStore.Rows, layout)) return false;
    table.Close();
    return true;
}

}  // namespace

bool AddPositionSection(CHtmlBuilder& page, const CReport& report) {
    return report.Format().namesDeliveryApart ? AddLotTable(page, report, kDetailForm) : AddSummaryTable(page, report);
}

bool AddForeignPositionSection(CHtmlBuilder& page, const CReport& report) {
    return AddLotTable(page, report, kForeignForm);
}

}  // namespace tradebill
