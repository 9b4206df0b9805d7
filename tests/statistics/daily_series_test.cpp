#include "statistics/daily_series.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>
#include <tuple>

#include "report/report.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"
#include "support/temp_folder.h"

namespace tradebill::daily_series_test {
namespace {

class MarginOffset : public StoreFixture {
protected:
    /// A chain of `base` with these items.
    void LoadChain(std::string_view base, std::initializer_list<std::string_view> items) {
        std::string content = "[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=" + std::string(base) +
                              "\nNum=" + std::to_string(items.size()) + "\n";
        int number = 0;
        for (const std::string_view item : items) {
            content += "Item0" + std::to_string(++number) + "=" + std::string(item) + "\n";
        }
        EXPECT_FALSE(report.ChainTable.Load(folder_.Write("chain.ini", content)).has_value());
    }
    void AddLong(std::string_view product, std::int32_t lots, double margin) {
        usage_.AddRow(product, {.day = "20240102", .side = long_, .lots = lots, .margin = margin, .isSummary = false});
    }
    void AddShort(std::string_view product, std::int32_t lots, double margin) {
        usage_.AddRow(product, {.day = "20240102", .side = short_, .lots = lots, .margin = margin, .isSummary = false});
    }
    [[nodiscard]] double MarginAt(std::size_t index) const { return usage_.Positions.at(index)->Margin; }
    [[nodiscard]] double NetLotsAt(std::size_t index) const { return usage_.Positions.at(index)->NetLots; }

    void SetFigures(double equity, double margin) {
        usage_.Equity = equity;
        usage_.Margin = margin;
        usage_.Risk = margin / equity;
        usage_.HasFigures = 1;
    }

    CDayUsage& usage_ = report.TradeStatistics.DayUsages.FindOrCreate("20240102");

private:
    std::string long_ = Gbk("买");
    std::string short_ = Gbk("卖");
    CTempFolder folder_;
};

TEST_F(MarginOffset, NeedsMarginOnTheLargerLegOnly) {
    LoadChain("a", {"b"});
    AddLong("a", 10, 100);
    AddShort("b", 5, 60);
    SetFigures(200, 160);
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), 40);
    EXPECT_EQ(NetLotsAt(0), 4);  // 40 at 10 per lot
    EXPECT_EQ(MarginAt(1), 0);
    EXPECT_EQ(NetLotsAt(1), 0);
    EXPECT_EQ(usage_.Positions[0]->Lots, 10);
    EXPECT_EQ(usage_.Margin, 40);
    EXPECT_EQ(usage_.Risk, 0.2);
}

TEST_F(MarginOffset, TakesAnEarlierSmallerLegOffALaterLargerOne) {
    LoadChain("a", {"b"});
    AddShort("a", 10, 60);
    AddLong("b", 5, 100);
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), 0);
    EXPECT_EQ(NetLotsAt(0), 0);
    EXPECT_EQ(MarginAt(1), 40);
    EXPECT_EQ(NetLotsAt(1), 2);
}

TEST_F(MarginOffset, LeavesNothingOfEqualLegs) {
    LoadChain("a", {"b"});
    AddLong("a", 10, 60);
    AddShort("b", 5, 60);
    SetFigures(100, 120);
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), 0);
    EXPECT_EQ(MarginAt(1), 0);
    EXPECT_EQ(NetLotsAt(0), 0);
    EXPECT_EQ(usage_.Margin, 0);
    EXPECT_EQ(usage_.Risk, 0);
}

TEST_F(MarginOffset, NeedsTheHeadOfTheChainToComeFirst) {
    LoadChain("a", {"b"});
    AddShort("b", 5, 60);
    AddLong("a", 10, 100);
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), 60);
    EXPECT_EQ(MarginAt(1), 100);
    report.ChainTable.Clear();
    LoadChain("b", {"a"});
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), 0);
    EXPECT_EQ(MarginAt(1), 40);
}

TEST_F(MarginOffset, LeavesProductsOutsideTheChainAlone) {
    LoadChain("a", {"b"});
    AddLong("a", 1, 100);
    AddShort("c", 1, 60);
    AddShort("B", 1, 60);
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), 100);
    EXPECT_EQ(MarginAt(1), 60);
    EXPECT_EQ(MarginAt(2), 60);
}

TEST_F(MarginOffset, LeavesLegsOfOneSideAlone) {
    LoadChain("a", {"b"});
    AddLong("a", 1, 100);
    AddLong("b", 1, 60);
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), 100);
    EXPECT_EQ(MarginAt(1), 60);
}

TEST_F(MarginOffset, GoesOnUntilTheHeadIsUsedUp) {
    LoadChain("a", {"b", "c", "d"});
    AddLong("a", 10, 100);
    AddShort("b", 1, 60);
    AddShort("c", 1, 70);
    AddShort("d", 1, 5);
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), 0);
    EXPECT_EQ(MarginAt(1), 0);
    EXPECT_EQ(MarginAt(2), 30);  // less the 40 that a had left
    EXPECT_EQ(MarginAt(3), 5);
    EXPECT_EQ(NetLotsAt(3), 0);  // never looked at
}

TEST_F(MarginOffset, TakesEachHeadInTurn) {
    LoadChain("b", {"c"});
    AddLong("a", 1, 100);
    AddShort("b", 1, 60);
    AddLong("c", 1, 20);
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), 100);
    EXPECT_EQ(MarginAt(1), 40);
    EXPECT_EQ(MarginAt(2), 0);
}

TEST_F(MarginOffset, PassesOverAHeadWithoutMargin) {
    LoadChain("a", {"b"});
    AddLong("a", 1, -10);
    AddShort("b", 1, 60);
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), -10);
    EXPECT_EQ(MarginAt(1), 60);
}

TEST_F(MarginOffset, AddsMarginUpAnewWithoutAnyChainToo) {
    AddLong("a", 1, 100);
    AddShort("b", 1, 60);
    AddShort("c", 1, -5);  // not above 0
    AddShort("d", 0, 7);   // never opened: its margin is 1
    SetFigures(322, 9999);
    OffsetMargins(report);
    EXPECT_EQ(usage_.Margin, 161);
    EXPECT_EQ(usage_.Risk, 0.5);
}

TEST_F(MarginOffset, KeepsTheStatementsMarginWithoutPositions) {
    SetFigures(200, 50);
    OffsetMargins(report);
    EXPECT_EQ(usage_.Margin, 50);
    EXPECT_EQ(usage_.Risk, 0.25);
}

TEST_F(MarginOffset, KeepsMarginAndRiskWithoutFigures) {
    LoadChain("a", {"b"});
    AddLong("a", 1, 100);
    AddShort("b", 1, 60);
    SetFigures(200, 50);
    usage_.HasFigures = 0;
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), 40);
    EXPECT_EQ(usage_.Margin, 50);
    EXPECT_EQ(usage_.Risk, 0.25);
}

TEST_F(MarginOffset, KeepsMarginAndRiskWhereEquityIsTooLow) {
    constexpr double kBound = 1.1920928955078125e-7;
    AddLong("a", 1, 100);
    for (const double equity : {kBound, 0.0, -5.0, std::numeric_limits<double>::quiet_NaN()}) {
        SetFigures(100, 50);
        usage_.Equity = equity;
        OffsetMargins(report);
        EXPECT_EQ(usage_.Margin, 50) << equity;
        EXPECT_EQ(usage_.Risk, 0.5) << equity;
    }
    usage_.Equity = std::nextafter(kBound, 1);
    OffsetMargins(report);
    EXPECT_EQ(usage_.Margin, 100);
    EXPECT_EQ(usage_.Risk, 100 / std::nextafter(kBound, 1));
}

TEST_F(MarginOffset, ReachesEveryDay) {
    LoadChain("a", {"b"});
    for (const char* const day : {"20240102", "20240103"}) {
        report.TradeStatistics.SetEquity(day, 200, 999);
        for (const auto& [product, side, margin] : {std::tuple("a", "买", 100.0), std::tuple("b", "卖", 60.0)}) {
            report.TradeStatistics.DayUsages.Find(day)->AddRow(
                product, {.day = day, .side = Gbk(side), .lots = 1, .margin = margin, .isSummary = true});
        }
    }
    OffsetMargins(report);
    for (const auto& usage : report.TradeStatistics.DayUsages.Days) {
        EXPECT_EQ(usage->Margin, 40);
        EXPECT_EQ(usage->Risk, 0.2);
    }
    EXPECT_EQ(report.TradeStatistics.MaxRisk(), 0.2);
}

class Yields : public StoreFixture {
protected:
    /// Closing equity of a day and what was paid in on it.
    void FeedDay(std::string_view day, double closing, double cashFlow) {
        report.TradeStatistics.SetCashFlow(day, cashFlow);
        report.TradeStatistics.SetEquity(day, closing, 0);
    }
    [[nodiscard]] double YieldOf(std::string_view day) const {
        const DayFigure* const figure = report.TradeStatistics.DayFigures.Find(day);
        EXPECT_NE(figure, nullptr) << day;
        return figure == nullptr ? std::numeric_limits<double>::quiet_NaN() : figure->Yield;
    }
};

TEST_F(Yields, AreGainsOverTheOpeningEquity) {
    report.MoneyStore.OpeningEquity = 1000;
    FeedDay("20240102", 1100, 0);
    FeedDay("20240103", 750, 0);
    ComputeYields(report);
    EXPECT_EQ(YieldOf("20240102"), 0.1);
    EXPECT_EQ(YieldOf("20240103"), -0.25);
}

TEST_F(Yields, DontMoveWithMoneyPaidIn) {
    report.MoneyStore.OpeningEquity = 1000;
    FeedDay("20240102", 1250, 0);
    FeedDay("20240103", 1750, 500);
    FeedDay("20240104", 1550, -200);
    ComputeYields(report);
    for (const char* const day : {"20240102", "20240103", "20240104"}) EXPECT_EQ(YieldOf(day), 0.25) << day;
}

TEST_F(Yields, AreGainsOverTheMoneyPaidInWithoutAnOpeningEquity) {
    FeedDay("20240102", 0, 0);
    FeedDay("20240103", 500, 400);
    FeedDay("20240104", 1000, 400);
    FeedDay("20240105", 100, -900);
    ComputeYields(report);
    EXPECT_EQ(YieldOf("20240102"), 0);
    EXPECT_EQ(YieldOf("20240103"), 0.25);
    EXPECT_EQ(YieldOf("20240104"), 0.25);  // (1000 - 800) / 800
    EXPECT_EQ(YieldOf("20240105"), 0);     // more was paid out than in
}

TEST_F(Yields, TakeANegativeOpeningEquityOff) {
    report.MoneyStore.OpeningEquity = -100;
    FeedDay("20240102", 300, 400);
    ComputeYields(report);
    EXPECT_EQ(YieldOf("20240102"), 0);  // (300 - 400 + 100) / 400
    FeedDay("20240102", 500, 400);
    ComputeYields(report);
    EXPECT_EQ(YieldOf("20240102"), 0.5);
}

TEST_F(Yields, NeedABaseAboveTheirBound) {
    constexpr double kBound = 1.1920928955078125e-7;
    const double above = std::nextafter(kBound, 1);
    report.MoneyStore.OpeningEquity = kBound;
    FeedDay("20240102", 1, kBound);
    ComputeYields(report);
    EXPECT_EQ(YieldOf("20240102"), 0);
    FeedDay("20240102", 1, above);
    ComputeYields(report);
    EXPECT_EQ(YieldOf("20240102"), (1 - above - kBound) / above);
    report.MoneyStore.OpeningEquity = above;
    ComputeYields(report);
    EXPECT_EQ(YieldOf("20240102"), (1 - above - above) / above);
}

TEST_F(Yields, AreWorkedOutFromLeftToRight) {
    report.MoneyStore.OpeningEquity = 0.3;
    FeedDay("20240102", 0.7, 0.1);
    FeedDay("20240103", 0.9, 0.2);
    ComputeYields(report);
    const double flow = 0.1 + 0.2;
    EXPECT_EQ(YieldOf("20240103"), (0.9 - flow - 0.3) / 0.3);
}

TEST_F(Yields, CountFromTheFirstDayOnForTheHighest) {
    report.MoneyStore.OpeningEquity = 100;
    FeedDay("20240102", 90, 0);
    ComputeYields(report);
    EXPECT_EQ(report.TradeStatistics.MaxYield(), -0.1);
    FeedDay("20240103", 80, 0);
    ComputeYields(report);
    EXPECT_EQ(report.TradeStatistics.MaxYield(), -0.1);  // not 0
    FeedDay("20240104", 95, 0);
    FeedDay("20240105", 50, 0);
    ComputeYields(report);
    EXPECT_EQ(report.TradeStatistics.MaxYield(), -0.05);
}

TEST_F(Yields, HaveNoHighestWithoutDays) {
    ComputeYields(report);
    EXPECT_EQ(report.TradeStatistics.MaxYield(), 0);
    EXPECT_EQ(report.TradeStatistics.MaxRisk(), 0);
}

TEST_F(Yields, LeaveRisksAlone) {
    report.TradeStatistics.SetEquity("20240102", 100, -20);
    report.TradeStatistics.SetEquity("20240103", 100, -30);
    ComputeYields(report);
    EXPECT_EQ(report.TradeStatistics.MaxRisk(), -0.2);  // the first day's counts however low
    report.TradeStatistics.SetEquity("20240104", 100, 60);
    report.TradeStatistics.SetEquity("20240105", 100, 50);
    EXPECT_EQ(report.TradeStatistics.MaxRisk(), 0.6);
}

TEST_F(MarginOffset, TakesTheSmallestMarginToo) {
    LoadChain("a", {"b"});
    AddLong("a", 1, 0.5);
    AddShort("b", 1, 0.25);
    OffsetMargins(report);
    EXPECT_EQ(MarginAt(0), 0.25);
    EXPECT_EQ(MarginAt(1), 0);
}

}  // namespace
}  // namespace tradebill::daily_series_test
