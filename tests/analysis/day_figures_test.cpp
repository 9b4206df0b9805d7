// What each day comes to: P/L, return and index. Expectations are worked out beside them.
#include "analysis/day_figures.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "analysis/analysed_account.h"
#include "analysis/day_results.h"

namespace tradebill::day_figures_test {
namespace {

using List = std::vector<std::optional<double>>;

class DayFigure : public AnalysedAccount {
protected:
    List Of(std::optional<double> DayResult::*figure) const {
        List list;
        for (const DayResult& day : Days().results) list.push_back(day.*figure);
        return list;
    }
    std::vector<double> Indexes() const {
        std::vector<double> list;
        for (const DayResult& day : Days().results) list.push_back(day.index);
        return list;
    }
    std::vector<std::string> Reasons(const std::string& field) const {
        const Analysis analysis = Analysed();
        std::vector<std::string> list;
        for (std::size_t i = 0; i < analysis.days.size(); ++i) {
            list.push_back(ReasonOf(analysis, "days[" + std::to_string(i) + "]." + field));
        }
        return list;
    }
};

void ExpectNear(const List& found, const List& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        ASSERT_EQ(found[i].has_value(), expected[i].has_value()) << i;
        EXPECT_NEAR(found[i].value_or(0), expected[i].value_or(0), 1e-14) << i;
    }
}

TEST_F(DayFigure, ProfitAndReturnAreAgainstTheDayBefore) {
    AddDay("20240102", "1100.00", "0.00", "1000.00");
    AddDay("20240103", "990.00");
    AddDay("20240104", "1188.00");
    EXPECT_EQ(Of(&DayResult::pl), (List{100, -110, 198}));
    ExpectNear(Of(&DayResult::dayReturn), {0.1, -0.1, 0.2});  // 100/1000, -110/1100, 198/990
    const std::vector<double> indexes = Indexes();
    EXPECT_NEAR(indexes[0], 1.1, 1e-14);
    EXPECT_NEAR(indexes[1], 0.99, 1e-14);   // 1.1 x 0.9
    EXPECT_NEAR(indexes[2], 1.188, 1e-14);  // 0.99 x 1.2
}

TEST_F(DayFigure, DepositsJoinTheBaseAndWithdrawalsDont) {
    AddDay("20240102", "1650.00", "500.00", "1000.00");
    AddDay("20240103", "1485.00", "-330.00");
    EXPECT_EQ(Of(&DayResult::pl), (List{150, 165}));            // 1650 - 1000 - 500, 1485 - 1650 + 330
    ExpectNear(Of(&DayResult::dayReturn), {0.1, 0.1});          // 150 / 1500, 165 / 1650
    EXPECT_EQ(Of(&DayResult::moneyIndex), (List{1150, 1315}));  // 1650 - 500, 1485 - 500 + 330
}

TEST_F(DayFigure, AnAccountMayBeOpenedByADepositOnItsFirstDay) {
    AddDay("20240102", "1010.00", "1000.00", "0.00");
    EXPECT_EQ(Of(&DayResult::pl), (List{10}));      // 1010 - 0 - 1000
    ExpectNear(Of(&DayResult::dayReturn), {0.01});  // 10 / (0 + 1000)
}

TEST_F(DayFigure, AmountsAreDividedByTheRecordsRate) {
    AddRecord(Money(
        "20240102",
        {{"KHQY", "2200"}, {"CRJ", "200"}, {"QCQY", "1800"}, {"BZJZY", "550"}, {"SXF", "-8"}, {"XQSXF", "2"}}, 2));
    AddDay("20240103", "1100");
    const DayResult first = Days().results.front();
    EXPECT_EQ(first.equity, 1100);
    EXPECT_EQ(first.cashFlow, 100);
    EXPECT_EQ(first.margin, 275);
    EXPECT_EQ(first.marginUse, 0.25);
    EXPECT_EQ(first.fees, 5);  // (8 + 2) / 2
    EXPECT_EQ(first.pl, 100);  // 1100 - 900 - 100
    EXPECT_EQ(Of(&DayResult::pl)[1], 0);
}

TEST_F(DayFigure, AReturnIsNullWhereItsBaseIsntAboveNothing) {
    AddDay("20240102", "-50.00", "0.00", "100.00");
    AddDay("20240103", "-20.00");
    AddDay("20240104", "30.00", "20.00");
    AddDay("20240105", "33.00");
    EXPECT_EQ(Of(&DayResult::pl), (List{-150, 30, 30, 3}));
    EXPECT_EQ(Of(&DayResult::dayReturn)[0], -1.5);
    EXPECT_EQ(Of(&DayResult::dayReturn), (List{-1.5, std::nullopt, std::nullopt, std::nullopt}));
}

TEST_F(DayFigure, AnIndexOfNothingStaysAndLaterReturnsAreNull) {
    AddDay("20240102", "0.00", "0.00", "100.00");
    AddDay("20240103", "100.00", "100.00");
    AddDay("20240104", "110.00");
    EXPECT_EQ(Indexes(), (std::vector<double>{0, 0, 0}));
    EXPECT_EQ(Of(&DayResult::pl), (List{-100, 0, 10}));
    EXPECT_EQ(Of(&DayResult::dayReturn), (List{-1, std::nullopt, std::nullopt}));
    EXPECT_EQ(Reasons("return"), (std::vector<std::string>{"", "the index is 0", "the index is 0"}));
}

TEST_F(DayFigure, AnIndexBelowNothingIsNothing) {
    AddDay("20240102", "-20.00", "0.00", "100.00");
    AddDay("20240103", "500.00", "500.00");
    EXPECT_EQ(Indexes(), (std::vector<double>{0, 0}));
}

TEST_F(DayFigure, ANullReturnLeavesTheIndex) {
    AddDay("20240102", "0.00", "0.00", "0.00");  // base 0
    AddDay("20240103", "105.00", "100.00");      // 5 / 100
    AddDay("20240104", "0.00", "-105.00");       // 0 - 105 + 105
    AddDay("20240105", "0.00");                  // base 0 again
    AddDay("20240108", "220.00", "200.00");      // 20 / 200
    ExpectNear(Of(&DayResult::dayReturn), {std::nullopt, 0.05, 0, std::nullopt, 0.1});
    const std::vector<double> indexes = Indexes();
    EXPECT_EQ(indexes[0], 1);
    EXPECT_NEAR(indexes[3], 1.05, 1e-14);
    EXPECT_NEAR(indexes[4], 1.155, 1e-14);  // 1.05 x 1.1
    EXPECT_EQ(Reasons("return")[3], "what it is measured by isn't above 0");
}

TEST_F(DayFigure, WhatIsntKnownIsNullForTheDayAndItsNext) {
    AddDay("20240102", "1100.00", "0.00", "1000.00");
    AddDay("20240103", "--");
    AddDay("20240104", "1210.00");
    AddDay("20240105", "1331.00");
    EXPECT_EQ(Of(&DayResult::equity)[1], std::nullopt);
    EXPECT_EQ(Of(&DayResult::pl), (List{100, std::nullopt, std::nullopt, 121}));
    EXPECT_NEAR(Indexes()[3], 1.21, 1e-14);  // 1.1 x 1.1
    EXPECT_EQ(Reasons("pl"), (std::vector<std::string>{"", "the record states no equity, or no rate above 0",
                                                       "the equity of the day before isn't known", ""}));
}

TEST_F(DayFigure, AnUnknownCashFlowIsNullInAllThatFollowsFromIt) {
    AddDay("20240102", "1100.00", "0.00", "1000.00");
    AddDay("20240103", "1100.00", "n/a");
    AddDay("20240104", "1210.00");
    EXPECT_EQ(Of(&DayResult::pl), (List{100, std::nullopt, 110}));
    EXPECT_EQ(Of(&DayResult::moneyIndex), (List{1100, std::nullopt, std::nullopt}));
    EXPECT_EQ(Reasons("pl")[1], "no cash flow is stated, or no rate above 0, and no identity of the balance tells it");
}

TEST_F(DayFigure, AnOpeningThatIsntStatedLeavesTheFirstDayWithoutResult) {
    AddDay("20240102", "1100.00");
    AddDay("20240103", "1210.00");
    EXPECT_EQ(Of(&DayResult::pl), (List{std::nullopt, 110}));
    EXPECT_EQ(Reasons("return")[0], "the opening balance isn't stated");
}

TEST_F(DayFigure, AReturnThatWouldTakeTheIndexBeyondAllNumbersIsNull) {
    // Each odd day multiplies by 1e14, all of which but 1 is withdrawn on the next without a return: the 23rd time is
    // too much, since 22 make 1e308.
    for (int i = 0; i < 56; ++i) {
        const int day = i % 28 + 1;
        const std::string text =
            (i < 28 ? "202401" : "202402") + std::string(day < 10 ? "0" : "") + std::to_string(day);
        const bool isUp = i % 2 == 0;
        AddDay(text, isUp ? "100000000000000" : "1.00", isUp ? "0.00" : "-99999999999999", i == 0 ? "1.00" : "");
    }
    const List returns = Of(&DayResult::dayReturn);
    EXPECT_EQ(returns[42], 99999999999999);  // the 22nd
    EXPECT_EQ(returns[43], 0);
    EXPECT_EQ(returns[44], std::nullopt);
    EXPECT_NEAR(Indexes()[55] / 1e308, 1, 1e-9);
    EXPECT_EQ(Reasons("return")[44], "the index would be beyond the range of numbers");
}

TEST_F(DayFigure, UseOfMarginIsNullWhereEquityIsntAboveNothing) {
    AddRecord(Money("20240102", {{"KHQY", "0"}, {"CRJ", "0"}, {"BZJZY", "50"}}));
    AddRecord(Money("20240103", {{"KHQY", "-10"}, {"CRJ", "0"}, {"BZJZY", "50"}}));
    AddRecord(Money("20240104", {{"KHQY", "40"}, {"CRJ", "0"}, {"BZJZY", "50"}}));
    AddRecord(Money("20240105", {{"KHQY", "40"}, {"CRJ", "0"}}));
    EXPECT_EQ(Of(&DayResult::marginUse), (List{std::nullopt, std::nullopt, 1.25, std::nullopt}));
    EXPECT_EQ(Reasons("marginUse"), (std::vector<std::string>{"the equity isn't above 0", "the equity isn't above 0",
                                                              "", "no margin is stated, or no rate above 0"}));
}

TEST_F(DayFigure, UseOfMarginIsByTheStatedMarginAlsoWhereMarginsAreOffset) {
    AddRecord(Money("20240102", {{"KHQY", "100"}, {"CRJ", "0"}, {"BZJZY", "50"}}));
    report.TradeStatistics.SetEquity("20240102", 100, 20);
    EXPECT_EQ(Of(&DayResult::marginUse), (List{0.5}));
}

TEST_F(DayFigure, TurnoverAndLotsAreThoseOfTheDaysTrades) {
    AddDay("20240102", "1000", "0", "1000");
    AddDay("20240103", "1000");
    AddDay("20240104", "1000");
    AddTrade({"20240102", "rb2405", "2", "1.00", "80000.50"});
    AddTrade({"20240102", "m2405", "3", "1.00", "-90000.25"});
    AddTrade({"20240104", "m2405", "1", "1.00", "30000"});
    AddTrade({"20240104", "m2405", "1", "1.00", ""});
    EXPECT_EQ(Of(&DayResult::turnover), (List{170000.75, 0, std::nullopt}));
    EXPECT_EQ(Days().results[0].lots, 5);
    EXPECT_EQ(Days().results[1].lots, 0);
    EXPECT_EQ(Reasons("turnover")[2], "a trade states no turnover");
}

TEST_F(DayFigure, OfNoDaysIsNone) {
    EXPECT_TRUE(Days().results.empty());
}

}  // namespace
}  // namespace tradebill::day_figures_test
