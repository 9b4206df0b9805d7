// The section of results per contract: one block of rows for each tally of closed positions, in order of first
// appearance.
#include <array>
#include <cstdint>
#include <string>

#include "base/gbk.h"
#include "base/number.h"
#include "images/picture_names.h"
#include "page/page_sections.h"
#include "page/table_section.h"
#include "report/offset_sides.h"
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

// clang-format off
constexpr Heading kHeadings[] = {
    {"合约　　　　　　　"_gbk,          "14%"},
    {"多空　　　　"_gbk,                "9%"},
    {"盈亏　　　　"_gbk,                "9%"},
    {"交易次数　　　　"_gbk,            "10%"},
    {"手数　　　　    "_gbk,            "10%"},
    {"利润　　　　　　　　　　　"_gbk,  "16%"},
    {"平均单次利润　　　　　　　"_gbk,  "16%"},
    {"平均每手利润　　　　　　　"_gbk,  "16%"},
};

constexpr Heading kForeignHeadings[] = {
    {"合约　　　　　　　　"_gbk,      "14%"},
    {"盈亏　　　　     "_gbk,         "10%"},
    {"交易次数　　　　"_gbk,          "12%"},
    {"手数　　　　    "_gbk,          "10%"},
    {"利润　　　　　　　　　　"_gbk,  "15%"},
    {"平均单次利润　　　　　　"_gbk,  "15%"},
    {"平均每手利润　　　　　　"_gbk,  "15%"},
    {"币种　　           "_gbk,       "9%"},
};
// clang-format on

constexpr std::size_t kColumns = 8;

/// Count, lots and profit of some trades.
struct Result {
    int32_t count = 0;
    int32_t lots = 0;
    double profit = 0;
};

/// A Result written out: count, lots, profit, profit per trade and per lot. A division by zero shows as it comes out.
class CResultTexts {
public:
    explicit CResultTexts(const Result& result)
        : CResultTexts(result, result.profit / result.count, result.profit / result.lots) {}

    CResultTexts(const Result& result, double perTrade, double perLot)
        : count_(result.count), lots_(result.lots), profit_(result.profit), perTrade_(perTrade), perLot_(perLot) {}

    [[nodiscard]] std::array<std::string_view, 5> Views() const { return {count_, lots_, profit_, perTrade_, perLot_}; }

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
    explicit CTradeRows(CTableWriter& table) : table_(table) {}

    void Add(const std::array<std::string_view, kColumns>& texts, std::size_t marked = kColumns,
             std::string_view markedClass = {}) {
        std::array<Cell, kColumns> cells;
        for (std::size_t i = 0; i < kColumns; ++i) {
            cells[i] = {texts[i], i == marked ? markedClass : kSection.classes.normal};
        }
        table_.AddRow(cells, BandClass(++counter_));
    }

    void AddTotal(const std::array<std::string_view, kColumns>& texts) {
        std::array<Cell, kColumns> cells;
        for (std::size_t i = 0; i < kColumns; ++i) cells[i] = {texts[i], kSection.sums.normal};
        table_.AddRow(cells, {});
    }

private:
    CTableWriter& table_;
    int counter_ = 0;
};

/// One side of a tally, as the page shows it.
struct SideResult {
    std::string_view name;
    std::string_view nameClass;
    Result all;
    Result wins;
    Result losses;
    double maxWin;
    double maxLoss;
};

SideResult SideOf(const ContractOffset& offset, const OffsetSide& side) {
    const bool isLong = &side == &kLongSide;
    return {.name = isLong ? "多头"_gbk : "空头"_gbk,
            .nameClass = isLong ? kSection.classes.bid : kSection.classes.ask,
            .all = {offset.*side.count, offset.*side.lots, offset.*side.winPL + offset.*side.losePL},
            .wins = {offset.*side.winCount, offset.*side.winLots, offset.*side.winPL},
            .losses = {offset.*side.loseCount, offset.*side.loseLots, offset.*side.losePL},
            .maxWin = offset.*side.maxWin,
            .maxLoss = offset.*side.maxLoss};
}

void WriteResultRow(CTradeRows& rows, std::string_view name, std::string_view nameClass, std::string_view outcome,
                    const CResultTexts& texts) {
    const auto [count, lots, profit, perTrade, perLot] = texts.Views();
    rows.Add({"", name, outcome, count, lots, profit, perTrade, perLot}, name.empty() ? kColumns : 1, nameClass);
}

void WriteSide(CTradeRows& rows, const SideResult& side) {
    const bool traded = side.all.count >= 1;
    WriteResultRow(rows, side.name, side.nameClass, "", TextsIf(traded, side.all));
    WriteResultRow(rows, "", {}, "盈利"_gbk, TextsIf(traded && side.wins.lots >= 1, side.wins));
    WriteResultRow(rows, "", {}, "亏损"_gbk, TextsIf(traded && side.losses.lots >= 1, side.losses));
    const CNumberText maxWin(side.maxWin);
    const CNumberText maxLoss(side.maxLoss);
    rows.Add({"", "", "最大盈利"_gbk, "", "", maxWin, "", ""});
    rows.Add({"", "", "最大亏损"_gbk, "", "", maxLoss, "", ""});
}

Result WriteContract(CTradeRows& rows, const ContractOffset& offset, bool withDelivery) {
    const CContractText contract(offset.CONTRACT, withDelivery ? offset.DELIVERY : "");
    const Result all{
        .count = WrapAdd(offset.LONG_COUNT, offset.SHORT_COUNT),
        .lots = WrapAdd(offset.LONG_VOL, offset.SHORT_VOL),
        .profit = offset.LONG_WIN_PL + offset.LONG_LOSE_PL + offset.SHORT_WIN_PL + offset.SHORT_LOSE_PL,
    };
    const CResultTexts texts(all);
    const auto [count, lots, profit, perTrade, perLot] = texts.Views();
    rows.Add({contract.View(), "", "", count, lots, profit, perTrade, perLot});
    WriteSide(rows, SideOf(offset, kLongSide));
    WriteSide(rows, SideOf(offset, kShortSide));
    return all;
}

void WriteForeignOutcome(CTradeRows& rows, std::string_view outcome, const Result& result, std::string_view currency) {
    const CResultTexts texts = TextsIf(result.lots >= 1, result);
    const auto [count, lots, profit, perTrade, perLot] = texts.Views();
    rows.Add({"", outcome, count, lots, profit, perTrade, perLot, currency});
}

Result WriteForeignContract(CTradeRows& rows, const ContractOffset& offset) {
    const SideResult side = SideOf(offset, kLongSide);
    const CContractText contract(offset.CONTRACT, "");
    const CResultTexts texts(side.all);
    const auto [count, lots, profit, perTrade, perLot] = texts.Views();
    rows.Add({contract.View(), "", count, lots, profit, perTrade, perLot, ""}, 1, kSection.classes.bid);
    WriteForeignOutcome(rows, "盈利"_gbk, side.wins, FieldText(offset.CURRENCY));
    WriteForeignOutcome(rows, "亏损"_gbk, side.losses, FieldText(offset.CURRENCY));
    const CNumberText maxWin(side.maxWin);
    const CNumberText maxLoss(side.maxLoss);
    rows.Add({"", "最大盈利"_gbk, "", "", maxWin, "", "", ""});
    rows.Add({"", "最大亏损"_gbk, "", "", maxLoss, "", "", ""});
    return side.all;
}

}  // namespace

bool AddTradeSection(CHtmlBuilder& page, const CReport& report) {
    CTableWriter table(page, report, kSection, kHeadings);
    CTradeRows rows(table);
    Result total;
    for (const auto& offset : report.ReportDocument.Offsets) {
        if (table.StopRequested()) return false;
        AddTo(total, WriteContract(rows, *offset, report.Format().namesDeliveryApart));
        table.AddDashRow({});
    }
    const CResultTexts texts = TotalTexts(total);
    const auto [count, lots, profit, perTrade, perLot] = texts.Views();
    rows.AddTotal({"总计"_gbk, "", "", count, lots, profit, perTrade, perLot});
    table.Close();
    return true;
}

bool AddForeignTradeSection(CHtmlBuilder& page, const CReport& report) {
    CTableWriter table(page, report, kSection, kForeignHeadings);
    CTradeRows rows(table);
    Result total;
    for (const auto& offset : report.ReportDocument.Offsets) {
        if (table.StopRequested()) return false;
        if (offset->LONG_COUNT < 1) continue;
        AddTo(total, WriteForeignContract(rows, *offset));
        table.AddDashRow({});
    }
    const CResultTexts texts = TotalTexts(total);
    const auto [count, lots, profit, perTrade, perLot] = texts.Views();
    rows.AddTotal({"总计"_gbk, "               ", count, lots, profit, perTrade, perLot, ""});
    table.Close();
    return true;
}

}  // namespace tradebill
