// The money section, changed by a factor of a half where nothing else is said: sums follow their rows, the rest
// follows.
#include "anonymise/money_amounts.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/hand_sheet.h"
#include "base/text.h"
#include "report/money_record.h"

namespace tradebill::money_amounts_test {
namespace {

using enum PrintedFigure;

const CAmountFactor kHalf(500000);
constexpr SheetRow kLabels{.firstCell = 0, .cells = 0, .table = 0, .isInTable = false};

/// The figures of a sheet whose reader told of a money record and, by the row that it begins with, of a section.
MoneyFigures FiguresBelow(CHandSheet& hand, std::string_view title, const MoneyRecord& record) {
    CSheetWatch watch(hand.Sheet().text);
    if (!title.empty()) {
        const std::string_view row = hand.Sheet().text.substr(hand.Sheet().text.find(title), title.size());
        watch.OnSection(SectionAs(SectionKind::Money, row));
    }
    watch.OnMoney(record, {});
    watch.Finish();
    return FiguresOf(hand.Sheet(), watch, EquityRule::AsPrinted).value();
}

TEST(MoneyAmounts, FindsCellsByTheFieldsThatAreFilledFromThem) {
    CHandSheet hand({{{{"1000.00", Meaning::Money, "QCQY"}, {"--", Meaning::Money, "SXF"}}, kLabels},
                     {{{"5.00", Meaning::Money, "SXF"}}, kLabels}});
    MoneyRecord record{};
    CopyField(record.QCQY, "1000.00");
    CopyField(record.SXF, "5.00");
    MoneyFigures figures = FiguresBelow(hand, {}, record);
    EXPECT_EQ(figures.money[Opening], 10000000);
    EXPECT_EQ(figures.CellsOf(Opening), std::vector<SheetCell*>{&hand.Cell(0, 0)});
    EXPECT_EQ(figures.CellsOf(Fees), std::vector<SheetCell*>{&hand.Cell(1, 0)}) << "-- is no number";
    EXPECT_TRUE(figures.CellsOf(Closing).empty());
}

TEST(MoneyAmounts, FindsNoCellOfAFigureThatIsCutOtherwise) {
    CHandSheet hand({{{{"MONEY"}}, kLabels},
                     {{{"上日结存: 1000.00"}}, kLabels},
                     {{{"手续费:"}, {"7.00"}, {"出入金:"}, {"500.00 元"}}, kLabels}});
    MoneyFigures figures = FiguresBelow(hand, "MONEY", {});
    EXPECT_EQ(figures.money[Opening], 10000000);
    EXPECT_EQ(figures.money[CashFlow], 5000000);
    EXPECT_TRUE(figures.CellsOf(Opening).empty()) << "no cell begins there";
    EXPECT_TRUE(figures.CellsOf(CashFlow).empty()) << "the one that begins there is no number";
    EXPECT_EQ(figures.CellsOf(Fees), std::vector<SheetCell*>{&hand.Cell(2, 1)});
}

TEST(MoneyAmounts, AddsUpTurnoversOfOptionsThatWereRead) {
    const auto option = [](const WatchedRow& row) {
        return SheetRow{.firstCell = 0, .cells = 0, .table = 0, .watched = &row};
    };
    WatchedRow sold = WatchedAs(SectionKind::Trades);
    sold.isOption = true;
    WatchedRow bought = sold;
    bought.isBuy = true;
    WatchedRow passedOver = sold;
    passedOver.fate = RowFate::NoLots;
    const WatchedRow future = WatchedAs(SectionKind::Trades);
    CHandSheet hand({{{{"100.00", Meaning::Turnover}}, option(sold)},
                     {{{"30.00", Meaning::Turnover}}, option(bought)},
                     {{{"7.00", Meaning::Turnover}}, option(passedOver)},
                     {{{"--", Meaning::Turnover}, {"2.00", Meaning::Money}}, option(sold)},
                     {{{"9.00", Meaning::Turnover}}, option(future)}});
    hand.Cell(0, 0).changed = 490000;
    const ChangedSum sum = OptionTurnoverOf(hand.Sheet());
    EXPECT_EQ(sum.before, 700000);
    EXPECT_EQ(sum.after, 190000);
}

/// Changes `figures` alone, whose cells are those of `hand`.
void Change(CHandSheet& hand, MoneyFigures figures, const std::vector<ColumnSum>& sums = {},
            const CAmountFactor& factor = kHalf) {
    CMoneyAmounts(factor, {}).ChangeDomestic(hand.Sheet(), std::move(figures), sums);
}

TEST(MoneyAmounts, LeavesCellsThatAreChangedAlreadyOrOfNoFigure) {
    CHandSheet hand({{{{"5.00", Meaning::Money}, {"9.99", Meaning::Money}, {"3.00", Meaning::Money}}, kLabels}});
    hand.Cell(0, 0).changed = 11100;
    MoneyFigures figures;
    figures.money[Fees] = 50000;
    figures.money[Margin] = 30000;
    figures.CellsOf(Fees) = {&hand.Cell(0, 0)};
    figures.CellsOf(Premium) = {&hand.Cell(0, 1)};
    figures.CellsOf(Margin) = {&hand.Cell(0, 2)};
    Change(hand, std::move(figures));
    EXPECT_EQ(hand.Becomes(0, 0), "1.11");
    EXPECT_EQ(hand.Becomes(0, 1), "9.99");
    EXPECT_EQ(hand.Becomes(0, 2), "1.50");
}

// The sums of both columns have their rounding: a half of the flow itself would be 1.50. Another table's column comes
// to the same by chance.
TEST(MoneyAmounts, TakeTheCashFlowFromTheTableOfDepositsAndWithdrawals) {
    CHandSheet hand({{{{"3.00", Meaning::Money}}, kLabels}});
    MoneyFigures figures;
    figures.money[CashFlow] = 30000;
    figures.CellsOf(CashFlow) = {&hand.Cell(0, 0)};
    const ColumnSum profit{.table = 1, .meaning = Meaning::ProfitLoss, .sum = {30000, 99900}};
    const ColumnSum in{.table = 2, .sum = {50100, 25100}};
    const ColumnSum elsewhere{.table = 3, .sum = {20100, 77700}};
    const ColumnSum out{.table = 2, .sum = {20100, 10000}};
    Change(hand, std::move(figures), {profit, in, elsewhere, out});
    EXPECT_EQ(hand.Becomes(0, 0), "1.51");
}

/// An opening of 100.00, deposits and withdrawals that no label tells apart, and what it closes with.
struct Flow {
    const char* in;
    const char* out;
    std::int64_t flow;  ///< in units of the money, as is what it closes with
    std::int64_t closing;
};

std::string ChangedFlow(const Flow& flow, const std::vector<ColumnSum>& sums) {
    CHandSheet hand({{{{flow.in, Meaning::Money}, {flow.out, Meaning::Money}, {"1000.00", Meaning::Money}}, kLabels}});
    MoneyFigures figures;
    figures.money[Opening] = 1000000;
    figures.money[CashFlow] = flow.flow * 10000;
    figures.money[Closing] = flow.closing * 10000;
    figures.CellsOf(CashFlow) = {&hand.Cell(0, 0), &hand.Cell(0, 1)};
    figures.CellsOf(Closing) = {&hand.Cell(0, 2)};
    Change(hand, std::move(figures), sums);
    return hand.Becomes(0, 0) + " " + hand.Becomes(0, 1) + " " + hand.Becomes(0, 2);
}

TEST(MoneyAmounts, ChangesBothPartsOfADifference) {
    EXPECT_EQ(ChangedFlow({"1300.00", "400.00", 900, 1000}, {}), "650.00 200.00 500.00");
    const ColumnSum deposits{.sum = {.before = 13000000, .after = 6300000}};
    EXPECT_EQ(ChangedFlow({"1300.00", "400.00", 900, 1000}, {deposits}), "630.00 200.00 480.00")
        << "the deposits are listed: 50.00 and 630.00 less 200.00";
    const ColumnSum nothing{.sum = {.before = 0, .after = 50000}};
    EXPECT_EQ(ChangedFlow({"900.00", "0.00", 900, 1000}, {nothing}), "450.00 0.00 500.00") << "nothing stays nothing";
}

TEST(MoneyAmounts, LeavesTwoCellsWhoseDifferenceAFigureIsNot) {
    EXPECT_EQ(ChangedFlow({"500.00", "401.00", 900, 1000}, {}), "500.00 401.00 500.00");
}

TEST(MoneyAmounts, KeepsTheRatioOfAnEquityThatBecomesNothing) {
    const auto ratio = [](std::int64_t equity) {
        CHandSheet hand({{{{"50.00", Meaning::Ratio}}, kLabels}});
        MoneyFigures figures;
        figures.money[Equity] = equity;
        figures.money[Margin] = equity / 2;
        Change(hand, std::move(figures), {}, CAmountFactor(400000));
        return hand.Becomes(0, 0);
    };
    EXPECT_EQ(ratio(40), "50.00") << "0.004 becomes 0.00";
    EXPECT_EQ(ratio(700), "33.33") << "0.07 becomes 0.03, and 0.035 becomes 0.01";
}

TEST(MoneyAmounts, OpensWithWhatItClosedWith) {
    CMoneyAmounts amounts(kHalf, {});
    const auto opening = [&](std::int64_t opens, std::optional<std::int64_t> closes) {
        CHandSheet hand({{{{"3.00", Meaning::Money}}, kLabels}});
        MoneyFigures figures;
        figures.money[Opening] = opens;
        figures.money[Closing] = closes;
        figures.CellsOf(Opening) = {&hand.Cell(0, 0)};
        amounts.ChangeDomestic(hand.Sheet(), std::move(figures), {});
        return hand.Becomes(0, 0);
    };
    EXPECT_EQ(opening(400, 300), "0.02");  // and 0.01 less, which half of it is rounded to: 0.03 becomes 0.01
    EXPECT_EQ(opening(300, std::nullopt), "0.01");
    EXPECT_EQ(opening(500, 500), "0.02") << "from 0.03 that became 0.01 still, and half of what is more";
}

}  // namespace
}  // namespace tradebill::money_amounts_test
