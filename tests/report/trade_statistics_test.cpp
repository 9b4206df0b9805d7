#include "report/trade_statistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "report/record_makers.h"
#include "support/store_fixture.h"

namespace tradebill {
namespace {

class DayFiguresTest : public StoreFixture {
protected:
    static std::vector<std::string> FigureDays() {
        std::vector<std::string> days;
        for (const auto& figure : TradeStatistics.DayFigures.Days) days.push_back(figure->Day);
        return days;
    }
    static const DayFigure& FigureOf(std::string_view day) {
        static const DayFigure none;
        const DayFigure* const figure = TradeStatistics.DayFigures.Find(day);
        EXPECT_NE(figure, nullptr) << day;
        return figure == nullptr ? none : *figure;
    }
    static const CDayUsage& UsageOf(std::string_view day) {
        static const CDayUsage none;
        const CDayUsage* const usage = TradeStatistics.DayUsages.Find(day);
        EXPECT_NE(usage, nullptr) << day;
        return usage == nullptr ? none : *usage;
    }
    /// Closing equity of a day and what was paid in on it.
    static void FeedDay(std::string_view day, double closing, double cashFlow) {
        TradeStatistics.SetCashFlow(day, cashFlow);
        TradeStatistics.SetEquity(day, closing, 0);
    }
};

TEST_F(DayFiguresTest, AreTheRecordsAmountsInBaseCurrency) {
    const MoneyRecord money = Money("20240102",
                                    {{"PCYK", "10"},
                                     {"CCDSYK", "-20"},
                                     {"CRJ", "30"},
                                     {"QCQY", "400"},
                                     {"QMJC", "500"},
                                     {"KHQY", "9999"},
                                     {"BZJZY", "125"}},
                                    2.0);
    TradeStatistics.FeedDayMoney(&money);
    const DayFigure& figure = FigureOf("20240102");
    EXPECT_EQ(figure.Day, "20240102");
    EXPECT_EQ(figure.ClosedPL, 5);
    EXPECT_EQ(figure.PositionPL, -10);
    EXPECT_EQ(figure.CashFlow, 15);
    EXPECT_EQ(figure.Opening, 200);
    EXPECT_EQ(figure.Closing, 250);
    EXPECT_EQ(figure.Yield, 0);
    const CDayUsage& usage = UsageOf("20240102");
    EXPECT_EQ(usage.Day, "20240102");
    EXPECT_EQ(usage.Equity, 250);
    EXPECT_EQ(usage.Margin, 62.5);
    EXPECT_EQ(usage.HasFigures, 1);
    EXPECT_EQ(usage.Risk, 0.25);  // BZJZY / QMJC
    EXPECT_TRUE(usage.Positions.empty());
}

TEST_F(DayFiguresTest, AreNoneForANullRecord) {
    TradeStatistics.FeedDayMoney(nullptr);
    EXPECT_TRUE(TradeStatistics.DayFigures.Days.empty());
    EXPECT_TRUE(TradeStatistics.DayUsages.Days.empty());
}

TEST_F(DayFiguresTest, AreOverwrittenWhenADayComesAgain) {
    const MoneyRecord first = Money("20240102", {{"PCYK", "10"}, {"CRJ", "1"}, {"QMJC", "500"}, {"BZJZY", "50"}});
    const MoneyRecord second = Money("20240102", {{"PCYK", "7"}, {"QMJC", "400"}, {"BZJZY", "100"}});
    TradeStatistics.FeedDayMoney(&first);
    TradeStatistics.FeedDayMoney(&second);
    EXPECT_EQ(FigureDays(), (std::vector<std::string>{"20240102"}));
    EXPECT_EQ(FigureOf("20240102").ClosedPL, 7);
    EXPECT_EQ(FigureOf("20240102").CashFlow, 0);
    EXPECT_EQ(FigureOf("20240102").Closing, 400);
    EXPECT_EQ(UsageOf("20240102").Risk, 0.25);
}

TEST_F(DayFiguresTest, CanBeReplacedOneByOne) {
    const MoneyRecord money = Money("20240102", {{"PCYK", "10"}, {"CCDSYK", "20"}, {"QMJC", "500"}});
    TradeStatistics.FeedDayMoney(&money);
    TradeStatistics.SetClosedPL("20240102", 11);
    TradeStatistics.SetPositionPL("20240102", 22);
    EXPECT_EQ(FigureOf("20240102").ClosedPL, 11);
    EXPECT_EQ(FigureOf("20240102").PositionPL, 22);
    EXPECT_EQ(FigureOf("20240102").Closing, 500);
}

TEST_F(DayFiguresTest, StartWithZerosOnANewDay) {
    TradeStatistics.SetOpening("20240102", 5);
    const DayFigure& figure = FigureOf("20240102");
    EXPECT_EQ(figure.Opening, 5);
    EXPECT_EQ(figure.ClosedPL, 0);
    EXPECT_EQ(figure.PositionPL, 0);
    EXPECT_EQ(figure.CashFlow, 0);
    EXPECT_EQ(figure.Closing, 0);
    EXPECT_TRUE(TradeStatistics.DayUsages.Days.empty());  // the other half is fed by SetEquity and position rows
}

TEST_F(DayFiguresTest, StandInOrderOfFirstAppearance) {
    TradeStatistics.SetClosedPL("20240104", 1);
    TradeStatistics.SetCashFlow("20240102", 1);
    TradeStatistics.SetOpening("20240103", 1);
    TradeStatistics.SetEquity("20240104", 1, 1);
    EXPECT_EQ(FigureDays(), (std::vector<std::string>{"20240104", "20240102", "20240103"}));
    EXPECT_EQ(TradeStatistics.DayUsages.Days.size(), 1U);
}

TEST_F(DayFiguresTest, AreInfiniteForARateOfZero) {
    const MoneyRecord money = Money("20240102", {{"QMJC", "500"}, {"BZJZY", "50"}}, 0.0);
    TradeStatistics.FeedDayMoney(&money);
    EXPECT_EQ(FigureOf("20240102").Closing, std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(FigureOf("20240102").ClosedPL));
    EXPECT_TRUE(std::isnan(UsageOf("20240102").Risk));
}

TEST_F(DayFiguresTest, HaveNoRiskWithoutEquity) {
    for (const char* const closing : {"0", "", "-500"}) {
        TradeStatistics.Clear();
        const MoneyRecord money = Money("20240102", {{"QMJC", closing}, {"BZJZY", "50"}});
        TradeStatistics.FeedDayMoney(&money);
        EXPECT_EQ(UsageOf("20240102").Risk, 0) << closing;
        EXPECT_EQ(UsageOf("20240102").HasFigures, 1) << closing;
        EXPECT_EQ(TradeStatistics.MaxRisk(), 0) << closing;
    }
}

TEST_F(DayFiguresTest, LeaveRiskAsItIsWhereEquityIsTooLow) {
    constexpr double kBound = 1.1754943508222875e-38;
    TradeStatistics.SetEquity("20240102", 100, 50);
    TradeStatistics.SetEquity("20240102", kBound, 60);
    EXPECT_EQ(UsageOf("20240102").Risk, 0.5);
    EXPECT_EQ(UsageOf("20240102").Equity, kBound);
    EXPECT_EQ(UsageOf("20240102").Margin, 60);
    const double above = std::nextafter(kBound, 1);
    TradeStatistics.SetEquity("20240102", above, 2 * above);
    EXPECT_EQ(UsageOf("20240102").Risk, 2);
}

TEST_F(DayFiguresTest, AreGoneAfterClear) {
    FeedDay("20240102", 100, 0);
    TradeStatistics.Clear();
    EXPECT_TRUE(TradeStatistics.DayFigures.Days.empty());
    EXPECT_TRUE(TradeStatistics.DayUsages.Days.empty());
    EXPECT_EQ(TradeStatistics.DayFigures.Find("20240102"), nullptr);
    EXPECT_EQ(TradeStatistics.DayUsages.Find("20240102"), nullptr);
}

class Yields : public DayFiguresTest {};

TEST_F(Yields, AreGainsOverTheOpeningEquity) {
    MoneyStore.OpeningEquity = 1000;
    FeedDay("20240102", 1100, 0);
    FeedDay("20240103", 750, 0);
    TradeStatistics.ComputeYields();
    EXPECT_EQ(FigureOf("20240102").Yield, 0.1);
    EXPECT_EQ(FigureOf("20240103").Yield, -0.25);
}

TEST_F(Yields, DontMoveWithMoneyPaidIn) {
    MoneyStore.OpeningEquity = 1000;
    FeedDay("20240102", 1250, 0);
    FeedDay("20240103", 1750, 500);
    FeedDay("20240104", 1550, -200);
    TradeStatistics.ComputeYields();
    for (const char* const day : {"20240102", "20240103", "20240104"}) EXPECT_EQ(FigureOf(day).Yield, 0.25) << day;
}

TEST_F(Yields, AreGainsOverTheMoneyPaidInWithoutAnOpeningEquity) {
    FeedDay("20240102", 0, 0);
    FeedDay("20240103", 500, 400);
    FeedDay("20240104", 1000, 400);
    FeedDay("20240105", 100, -900);
    TradeStatistics.ComputeYields();
    EXPECT_EQ(FigureOf("20240102").Yield, 0);
    EXPECT_EQ(FigureOf("20240103").Yield, 0.25);
    EXPECT_EQ(FigureOf("20240104").Yield, 0.25);  // (1000 - 800) / 800
    EXPECT_EQ(FigureOf("20240105").Yield, 0);     // more was paid out than in
}

TEST_F(Yields, TakeANegativeOpeningEquityOff) {
    MoneyStore.OpeningEquity = -100;
    FeedDay("20240102", 300, 400);
    TradeStatistics.ComputeYields();
    EXPECT_EQ(FigureOf("20240102").Yield, 0);  // (300 - 400 + 100) / 400
    FeedDay("20240102", 500, 400);
    TradeStatistics.ComputeYields();
    EXPECT_EQ(FigureOf("20240102").Yield, 0.5);
}

TEST_F(Yields, NeedABaseAboveTheirBound) {
    constexpr double kBound = 1.1920928955078125e-7;
    const double above = std::nextafter(kBound, 1);
    MoneyStore.OpeningEquity = kBound;
    FeedDay("20240102", 1, kBound);
    TradeStatistics.ComputeYields();
    EXPECT_EQ(FigureOf("20240102").Yield, 0);
    FeedDay("20240102", 1, above);
    TradeStatistics.ComputeYields();
    EXPECT_EQ(FigureOf("20240102").Yield, (1 - above - kBound) / above);
    MoneyStore.OpeningEquity = above;
    TradeStatistics.ComputeYields();
    EXPECT_EQ(FigureOf("20240102").Yield, (1 - above - above) / above);
}

TEST_F(Yields, AreWorkedOutFromLeftToRight) {
    MoneyStore.OpeningEquity = 0.3;
    FeedDay("20240102", 0.7, 0.1);
    FeedDay("20240103", 0.9, 0.2);
    TradeStatistics.ComputeYields();
    const double flow = 0.1 + 0.2;
    EXPECT_EQ(FigureOf("20240103").Yield, (0.9 - flow - 0.3) / 0.3);
}

TEST_F(Yields, CountFromTheFirstDayOnForTheHighest) {
    MoneyStore.OpeningEquity = 100;
    FeedDay("20240102", 90, 0);
    TradeStatistics.ComputeYields();
    EXPECT_EQ(TradeStatistics.MaxYield(), -0.1);
    FeedDay("20240103", 80, 0);
    TradeStatistics.ComputeYields();
    EXPECT_EQ(TradeStatistics.MaxYield(), -0.1);  // not 0
    FeedDay("20240104", 95, 0);
    FeedDay("20240105", 50, 0);
    TradeStatistics.ComputeYields();
    EXPECT_EQ(TradeStatistics.MaxYield(), -0.05);
}

TEST_F(Yields, HaveNoHighestWithoutDays) {
    TradeStatistics.ComputeYields();
    EXPECT_EQ(TradeStatistics.MaxYield(), 0);
    EXPECT_EQ(TradeStatistics.MaxRisk(), 0);
}

TEST_F(Yields, LeaveRisksAlone) {
    TradeStatistics.SetEquity("20240102", 100, -20);
    TradeStatistics.SetEquity("20240103", 100, -30);
    TradeStatistics.ComputeYields();
    EXPECT_EQ(TradeStatistics.MaxRisk(), -0.2);  // the first day's counts however low
    TradeStatistics.SetEquity("20240104", 100, 60);
    TradeStatistics.SetEquity("20240105", 100, 50);
    EXPECT_EQ(TradeStatistics.MaxRisk(), 0.6);
}

TEST_F(DayFiguresTest, AreToldByDayAndAreZeroForAnUnknownOne) {
    TradeStatistics.SetEquity("20240102", 200, 50);
    TradeStatistics.DayFigures.Find("20240102")->Yield = -0.5;
    TradeStatistics.SetEquity("20240103", 100, 75);
    EXPECT_EQ(TradeStatistics.RiskOf("20240102"), 0.25);
    EXPECT_EQ(TradeStatistics.RiskOf("20240103"), 0.75);
    EXPECT_EQ(TradeStatistics.YieldOf("20240102"), -0.5);
    EXPECT_EQ(TradeStatistics.RiskOf("20240104"), 0);
    EXPECT_EQ(TradeStatistics.YieldOf("20240104"), 0);
    EXPECT_EQ(TradeStatistics.DayUsages.Days.size(), 2u);  // asking makes no day
}

}  // namespace
}  // namespace tradebill
