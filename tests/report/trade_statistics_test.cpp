#include "report/trade_statistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "report/record_makers.h"
#include "support/store_fixture.h"

namespace tradebill::trade_statistics_test {
namespace {

class DayFiguresTest : public StoreFixture {
protected:
    [[nodiscard]] std::vector<std::string> FigureDays() const {
        std::vector<std::string> days;
        for (const auto& figure : report.TradeStatistics.DayFigures.Days) days.push_back(figure->Day);
        return days;
    }
    [[nodiscard]] const DayFigure& FigureOf(std::string_view day) const {
        static const DayFigure none;
        const DayFigure* const figure = report.TradeStatistics.DayFigures.Find(day);
        EXPECT_NE(figure, nullptr) << day;
        return figure == nullptr ? none : *figure;
    }
    [[nodiscard]] const CDayUsage& UsageOf(std::string_view day) const {
        static const CDayUsage none;
        const CDayUsage* const usage = report.TradeStatistics.DayUsages.Find(day);
        EXPECT_NE(usage, nullptr) << day;
        return usage == nullptr ? none : *usage;
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
    report.TradeStatistics.FeedDayMoney(&money);
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
    report.TradeStatistics.FeedDayMoney(nullptr);
    EXPECT_TRUE(report.TradeStatistics.DayFigures.Days.empty());
    EXPECT_TRUE(report.TradeStatistics.DayUsages.Days.empty());
}

TEST_F(DayFiguresTest, AreOverwrittenWhenADayComesAgain) {
    const MoneyRecord first = Money("20240102", {{"PCYK", "10"}, {"CRJ", "1"}, {"QMJC", "500"}, {"BZJZY", "50"}});
    const MoneyRecord second = Money("20240102", {{"PCYK", "7"}, {"QMJC", "400"}, {"BZJZY", "100"}});
    report.TradeStatistics.FeedDayMoney(&first);
    report.TradeStatistics.FeedDayMoney(&second);
    EXPECT_EQ(FigureDays(), (std::vector<std::string>{"20240102"}));
    EXPECT_EQ(FigureOf("20240102").ClosedPL, 7);
    EXPECT_EQ(FigureOf("20240102").CashFlow, 0);
    EXPECT_EQ(FigureOf("20240102").Closing, 400);
    EXPECT_EQ(UsageOf("20240102").Risk, 0.25);
}

TEST_F(DayFiguresTest, CanBeReplacedOneByOne) {
    const MoneyRecord money = Money("20240102", {{"PCYK", "10"}, {"CCDSYK", "20"}, {"QMJC", "500"}});
    report.TradeStatistics.FeedDayMoney(&money);
    report.TradeStatistics.SetClosedPL("20240102", 11);
    report.TradeStatistics.SetPositionPL("20240102", 22);
    EXPECT_EQ(FigureOf("20240102").ClosedPL, 11);
    EXPECT_EQ(FigureOf("20240102").PositionPL, 22);
    EXPECT_EQ(FigureOf("20240102").Closing, 500);
}

TEST_F(DayFiguresTest, StartWithZerosOnANewDay) {
    report.TradeStatistics.SetOpening("20240102", 5);
    const DayFigure& figure = FigureOf("20240102");
    EXPECT_EQ(figure.Opening, 5);
    EXPECT_EQ(figure.ClosedPL, 0);
    EXPECT_EQ(figure.PositionPL, 0);
    EXPECT_EQ(figure.CashFlow, 0);
    EXPECT_EQ(figure.Closing, 0);
    EXPECT_TRUE(report.TradeStatistics.DayUsages.Days.empty());  // the other half is fed by SetEquity and position rows
}

TEST_F(DayFiguresTest, StandInOrderOfFirstAppearance) {
    report.TradeStatistics.SetClosedPL("20240104", 1);
    report.TradeStatistics.SetCashFlow("20240102", 1);
    report.TradeStatistics.SetOpening("20240103", 1);
    report.TradeStatistics.SetEquity("20240104", 1, 1);
    EXPECT_EQ(FigureDays(), (std::vector<std::string>{"20240104", "20240102", "20240103"}));
    EXPECT_EQ(report.TradeStatistics.DayUsages.Days.size(), 1U);
}

TEST_F(DayFiguresTest, AreInfiniteForARateOfZero) {
    const MoneyRecord money = Money("20240102", {{"QMJC", "500"}, {"BZJZY", "50"}}, 0.0);
    report.TradeStatistics.FeedDayMoney(&money);
    EXPECT_EQ(FigureOf("20240102").Closing, std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(FigureOf("20240102").ClosedPL));
    EXPECT_TRUE(std::isnan(UsageOf("20240102").Risk));
}

TEST_F(DayFiguresTest, HaveNoRiskWithoutEquity) {
    for (const char* const closing : {"0", "", "-500"}) {
        report.TradeStatistics.Clear();
        const MoneyRecord money = Money("20240102", {{"QMJC", closing}, {"BZJZY", "50"}});
        report.TradeStatistics.FeedDayMoney(&money);
        EXPECT_EQ(UsageOf("20240102").Risk, 0) << closing;
        EXPECT_EQ(UsageOf("20240102").HasFigures, 1) << closing;
        EXPECT_EQ(report.TradeStatistics.MaxRisk(), 0) << closing;
    }
}

TEST_F(DayFiguresTest, LeaveRiskAsItIsWhereEquityIsTooLow) {
    constexpr double kBound = 1.1754943508222875e-38;
    report.TradeStatistics.SetEquity("20240102", 100, 50);
    report.TradeStatistics.SetEquity("20240102", kBound, 60);
    EXPECT_EQ(UsageOf("20240102").Risk, 0.5);
    EXPECT_EQ(UsageOf("20240102").Equity, kBound);
    EXPECT_EQ(UsageOf("20240102").Margin, 60);
    const double above = std::nextafter(kBound, 1);
    report.TradeStatistics.SetEquity("20240102", above, 2 * above);
    EXPECT_EQ(UsageOf("20240102").Risk, 2);
}

TEST_F(DayFiguresTest, AreGoneAfterClear) {
    report.TradeStatistics.SetCashFlow("20240102", 0);
    report.TradeStatistics.SetEquity("20240102", 100, 0);
    report.TradeStatistics.Clear();
    EXPECT_TRUE(report.TradeStatistics.DayFigures.Days.empty());
    EXPECT_TRUE(report.TradeStatistics.DayUsages.Days.empty());
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("20240102"), nullptr);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Find("20240102"), nullptr);
}

TEST_F(DayFiguresTest, AreToldByDayAndAreZeroForAnUnknownOne) {
    report.TradeStatistics.SetEquity("20240102", 200, 50);
    report.TradeStatistics.DayFigures.Find("20240102")->Yield = -0.5;
    report.TradeStatistics.SetEquity("20240103", 100, 75);
    EXPECT_EQ(report.TradeStatistics.RiskOf("20240102"), 0.25);
    EXPECT_EQ(report.TradeStatistics.RiskOf("20240103"), 0.75);
    EXPECT_EQ(report.TradeStatistics.YieldOf("20240102"), -0.5);
    EXPECT_EQ(report.TradeStatistics.RiskOf("20240104"), 0);
    EXPECT_EQ(report.TradeStatistics.YieldOf("20240104"), 0);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Days.size(), 2u);  // asking makes no day
}

}  // namespace
}  // namespace tradebill::trade_statistics_test
