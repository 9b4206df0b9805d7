// The section of results per contract: one block of rows for each tally of closed positions, in order of first
// appearance.
#include <cstdint>
#include <string_view>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "images/picture_names.h"
#include "page/page_sections.h"
#include "page/table_columns.h"
#include "page/table_section.h"
#include "report/offset_sides.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {
namespace {

using std::int32_t;

constexpr TableSection kSection{
    .title = {.title = "交易统计"_gbk,
              .handler = "clickStatistics",
              .buttonId = "Statisticsbtn",
              .picture = kTradeStatistics,
              .titleTail = " </div> \r\n",
              .heightTail = " "},
    .tableId = "tabTrade",
    .classes = {.normal = "tradespannormal", .bid = "tradespanbid", .ask = "tradespanask"},
    .sums = {.normal = "tradespansum", .bid = "tradespansum", .ask = "tradespansum"},
};

/// The texts of one row.
struct ResultRow {
    std::string_view contract = {};
    std::string_view side = {};
    std::string_view outcome = {};
    std::string_view count = {};
    std::string_view lots = {};
    std::string_view profit = {};
    std::string_view perTrade = {};
    std::string_view perLot = {};
    std::string_view currency = {};
    std::string_view CellClasses::*sideClass = &CellClasses::normal;
};

std::string_view BySide(const ResultRow& row, const CellClasses& classes) {
    return classes.*row.sideClass;
}

struct ResultContent {
    CCellContent<ResultRow> shown;
    CCellContent<ResultRow> total = {};
};

/// The total row shows what the others show.
template <auto Text>
constexpr ResultContent kAmount{TextOf<Text>, TextOf<Text>};

constexpr std::string_view kTotalBlanks = "               ";

// clang-format off
constexpr PageColumn<ResultContent> kColumns[] = {
    {{"合约　　　　　　　"_gbk,          "14%"}, {TextOf<&ResultRow::contract>, "总计"_gbk}},
    {{"多空　　　　"_gbk,                "9%"},  {{TextOf<&ResultRow::side>, BySide}}},
    {{"盈亏　　　　"_gbk,                "9%"},  {TextOf<&ResultRow::outcome>}},
    {{"交易次数　　　　"_gbk,            "10%"}, kAmount<&ResultRow::count>},
    {{"手数　　　　    "_gbk,            "10%"}, kAmount<&ResultRow::lots>},
    {{"利润　　　　　　　　　　　"_gbk,  "16%"}, kAmount<&ResultRow::profit>},
    {{"平均单次利润　　　　　　　"_gbk,  "16%"}, kAmount<&ResultRow::perTrade>},
    {{"平均每手利润　　　　　　　"_gbk,  "16%"}, kAmount<&ResultRow::perLot>},
};

// The row of a contract has no outcome, and its empty cell bears the side's class.
constexpr PageColumn<ResultContent> kForeignColumns[] = {
    {{"合约　　　　　　　　"_gbk,      "14%"}, {TextOf<&ResultRow::contract>, "总计"_gbk}},
    {{"盈亏　　　　     "_gbk,         "10%"}, {{TextOf<&ResultRow::outcome>, BySide}, kTotalBlanks}},
    {{"交易次数　　　　"_gbk,          "12%"}, kAmount<&ResultRow::count>},
    {{"手数　　　　    "_gbk,          "10%"}, kAmount<&ResultRow::lots>},
    {{"利润　　　　　　　　　　"_gbk,  "15%"}, kAmount<&ResultRow::profit>},
    {{"平均单次利润　　　　　　"_gbk,  "15%"}, kAmount<&ResultRow::perTrade>},
    {{"平均每手利润　　　　　　"_gbk,  "15%"}, kAmount<&ResultRow::perLot>},
    {{"币种　　           "_gbk,       "9%"},  {TextOf<&ResultRow::currency>}},
};
// clang-format on

/// Count, lots and profit of some trades.
struct Result {
    int32_t count = 0;
    int32_t lots = 0;
    double profit = 0;
};

/// A Result written out. A division by zero shows as it comes out.
class CResultTexts {
public:
    explicit CResultTexts(const Result& result)
        : CResultTexts(result, result.profit / result.count, result.profit / result.lots) {}

    CResultTexts(const Result& result, double perTrade, double perLot)
        : count_(result.count), lots_(result.lots), profit_(result.profit), perTrade_(perTrade), perLot_(perLot) {}

    /// `row` with the result's texts, which must outlive it.
    [[nodiscard]] ResultRow In(ResultRow row) const {
        row.count = count_;
        row.lots = lots_;
        row.profit = profit_;
        row.perTrade = perTrade_;
        row.perLot = perLot_;
        return row;
    }

private:
    CNumberText count_;
    CNumberText lots_;
    CNumberText profit_;
    CNumberText perTrade_;
    CNumberText perLot_;
};

/// Zeros all through if `exists` is false: then nothing is divided.
CResultTexts TextsIf(bool exists, const Result& result) {
    return exists ? CResultTexts(result) : CResultTexts(Result{}, 0, 0);
}

/// The total row alone guards its divisions.
CResultTexts TotalTexts(const Result& total) {
    return {total, total.count == 0 ? 0 : total.profit / total.count, total.lots == 0 ? 0 : total.profit / total.lots};
}

void AddTo(Result& total, const Result& result) {
    total.count = WrapAdd(total.count, result.count);
    total.lots = WrapAdd(total.lots, result.lots);
    total.profit += result.profit;
}

/// The rows of the table, with the band that runs through all of it.
class CTradeRows {
public:
    explicit CTradeRows(CColumnTable<ResultContent>& table) : table_(table) {}

    void Add(const ResultRow& row) { table_.Add(&ResultContent::shown, row, BandClass(++counter_)); }
    void AddTotal(const Result& total) { table_.AddSums(&ResultContent::total, TotalTexts(total).In({}), {}); }

private:
    CColumnTable<ResultContent>& table_;
    int counter_ = 0;
};

/// One side of a tally, as the page shows it.
struct SideResult {
    std::string_view name;
    std::string_view CellClasses::*nameClass;
    Result all;
    Result wins;
    Result losses;
    double maxWin;
    double maxLoss;
};

SideResult SideOf(const ContractOffset& offset, const OffsetSide& side) {
    const bool isLong = &side == &kLongSide;
    return {.name = isLong ? "多头"_gbk : "空头"_gbk,
            .nameClass = isLong ? &CellClasses::bid : &CellClasses::ask,
            .all = {offset.*side.count, offset.*side.lots, offset.*side.winPL + offset.*side.losePL},
            .wins = {offset.*side.winCount, offset.*side.winLots, offset.*side.winPL},
            .losses = {offset.*side.loseCount, offset.*side.loseLots, offset.*side.losePL},
            .maxWin = offset.*side.maxWin,
            .maxLoss = offset.*side.maxLoss};
}

/// The largest win and the largest loss.
void WriteExtremes(CTradeRows& rows, const SideResult& side) {
    const CNumberText maxWin(side.maxWin);
    const CNumberText maxLoss(side.maxLoss);
    rows.Add({.outcome = "最大盈利"_gbk, .profit = maxWin});
    rows.Add({.outcome = "最大亏损"_gbk, .profit = maxLoss});
}

void WriteSide(CTradeRows& rows, const SideResult& side) {
    const bool traded = side.all.count >= 1;
    rows.Add(TextsIf(traded, side.all).In({.side = side.name, .sideClass = side.nameClass}));
    rows.Add(TextsIf(traded && side.wins.lots >= 1, side.wins).In({.outcome = "盈利"_gbk}));
    rows.Add(TextsIf(traded && side.losses.lots >= 1, side.losses).In({.outcome = "亏损"_gbk}));
    WriteExtremes(rows, side);
}

Result WriteContract(CTradeRows& rows, const ContractOffset& offset, bool withDelivery) {
    const CContractText contract(offset.CONTRACT, withDelivery ? offset.DELIVERY : "");
    const Result all{
        .count = WrapAdd(offset.LONG_COUNT, offset.SHORT_COUNT),
        .lots = WrapAdd(offset.LONG_VOL, offset.SHORT_VOL),
        .profit = offset.LONG_WIN_PL + offset.LONG_LOSE_PL + offset.SHORT_WIN_PL + offset.SHORT_LOSE_PL,
    };
    rows.Add(CResultTexts(all).In({.contract = contract}));
    WriteSide(rows, SideOf(offset, kLongSide));
    WriteSide(rows, SideOf(offset, kShortSide));
    return all;
}

Result WriteForeignContract(CTradeRows& rows, const ContractOffset& offset) {
    const SideResult side = SideOf(offset, kLongSide);
    const CContractText contract(offset.CONTRACT, "");
    const std::string_view currency = FieldText(offset.CURRENCY);
    rows.Add(CResultTexts(side.all).In({.contract = contract, .sideClass = side.nameClass}));
    rows.Add(TextsIf(side.wins.lots >= 1, side.wins).In({.outcome = "盈利"_gbk, .currency = currency}));
    rows.Add(TextsIf(side.losses.lots >= 1, side.losses).In({.outcome = "亏损"_gbk, .currency = currency}));
    WriteExtremes(rows, side);
    return side.all;
}

}  // namespace

bool AddTradeSection(CHtmlBuilder& page, const CReport& report) {
    CColumnTable<ResultContent> table(page, report, kSection, kColumns);
    CTradeRows rows(table);
    Result total;
    for (const auto& offset : report.ReportDocument.Offsets) {
        if (table.StopRequested()) return false;
        AddTo(total, WriteContract(rows, *offset, report.Format().namesDeliveryApart));
        table.AddDashRow({});
    }
    rows.AddTotal(total);
    table.Close();
    return true;
}

bool AddForeignTradeSection(CHtmlBuilder& page, const CReport& report) {
    CColumnTable<ResultContent> table(page, report, kSection, kForeignColumns);
    CTradeRows rows(table);
    Result total;
    for (const auto& offset : report.ReportDocument.Offsets) {
        if (table.StopRequested()) return false;
        if (offset->LONG_COUNT < 1) continue;
        AddTo(total, WriteForeignContract(rows, *offset));
        table.AddDashRow({});
    }
    rows.AddTotal(total);
    table.Close();
    return true;
}

}  // namespace tradebill
