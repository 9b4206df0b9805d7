#include "statistics/account_figures.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "base/number.h"
#include "report/closed_rows.h"
#include "report/record_makers.h"
#include "report/report.h"
#include "statistics/daily_series.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"

namespace tradebill::account_figures_test {
namespace {

/// The definition: the largest fall over all pairs, never below 0.
double PairwiseDrawdown(std::span<const double> equities) {
    double drawdown = 0;
    for (std::size_t i = 0; i < equities.size(); ++i) {
        for (std::size_t j = i + 1; j < equities.size(); ++j) {
            const double fall = equities[i] - equities[j];
            if (fall > drawdown) drawdown = fall;
        }
    }
    return drawdown;
}

void ExpectAsPairwise(const std::vector<double>& equities) {
    const double linear = MaxDrawdownOf(equities);
    const double pairwise = PairwiseDrawdown(equities);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(linear), std::bit_cast<std::uint64_t>(pairwise))
        << linear << " instead of " << pairwise;
}

TEST(MaxDrawdown, IsTheLargestFallToALaterDay) {
    EXPECT_EQ(MaxDrawdownOf(std::vector<double>{100, 80, 120, 90}), 30);
    EXPECT_EQ(MaxDrawdownOf(std::vector<double>{100, 60, 120, 90}), 40);  // its peak isn't the highest of all
    EXPECT_EQ(MaxDrawdownOf(std::vector<double>{100, 90, 95, 70, 110}), 30);
    EXPECT_EQ(MaxDrawdownOf(std::vector<double>{10, -20}), 30);
}

TEST(MaxDrawdown, IsZeroWithoutAFall) {
    EXPECT_EQ(MaxDrawdownOf(std::vector<double>{}), 0);
    EXPECT_EQ(MaxDrawdownOf(std::vector<double>{100}), 0);
    EXPECT_EQ(MaxDrawdownOf(std::vector<double>{-100}), 0);
    EXPECT_EQ(MaxDrawdownOf(std::vector<double>{100, 100, 110, 120}), 0);
    EXPECT_EQ(MaxDrawdownOf(std::vector<double>{-30, -20, -10}), 0);
}

TEST(MaxDrawdown, IsThePairwiseOneToTheBitOnRandomAmounts) {
    std::mt19937 random(20240102);
    std::uniform_int_distribution<std::size_t> length(0, 60);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_int_distribution<int> exponent(-60, 60);
    std::uniform_int_distribution<int> cents(-2000, 2000);
    for (int round = 0; round < 2000; ++round) {
        std::vector<double> wide(length(random));
        for (double& equity : wide) equity = std::ldexp(mantissa(random), exponent(random));
        ExpectAsPairwise(wide);
        std::vector<double> close(length(random));
        for (double& equity : close) equity = 1e6 + cents(random) / 100.0;
        ExpectAsPairwise(close);
    }
}

TEST(MaxDrawdown, IsThePairwiseOneOnOddAmounts) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double odd[] = {kInfinity, -kInfinity, std::nan(""), 0.0, -0.0, 1.0, -1.0, 5e-324, 1e308, -1e308};
    std::mt19937 random(5);
    std::uniform_int_distribution<std::size_t> pick(0, std::size(odd) - 1);
    std::uniform_int_distribution<std::size_t> length(0, 6);
    for (int round = 0; round < 20000; ++round) {
        std::vector<double> equities(length(random));
        for (double& equity : equities) equity = odd[pick(random)];
        ExpectAsPairwise(equities);
    }
}

class AccountFigures : public StoreFixture {
protected:
    void AddDay(std::string_view day, std::string_view equity, double rate = 1.0) {
        report.MoneyStore.Add(CopyOf(Money(day, {{"KHQY", equity}}, rate)), MoneySource::Statement);
    }
};

TEST_F(AccountFigures, TakeEquitiesFromTheAccountsDays) {
    AddDay("20240102", "100");
    AddDay("20240103", "80");
    AddDay("20240104", "120");
    AddDay("20240105", "90");
    ComputeAccountStatistics(report);
    EXPECT_EQ(report.AccountStatistics.InitialEquity, 100);
    EXPECT_EQ(report.AccountStatistics.MaxEquity, 120);
    EXPECT_EQ(report.AccountStatistics.MinEquity, 80);
    EXPECT_EQ(report.AccountStatistics.MaxDrawdown, 30);
}

TEST_F(AccountFigures, DivideEachEquityByItsOwnRate) {
    AddDay("20240102", "300", 2.0);  // 150
    AddDay("20240103", "500", 5.0);  // 100
    AddDay("20240104", "110");
    ComputeAccountStatistics(report);
    EXPECT_EQ(report.AccountStatistics.InitialEquity, 150);
    EXPECT_EQ(report.AccountStatistics.MaxDrawdown, 50);
}

TEST_F(AccountFigures, CopyTheBoundsOfTheStore) {
    AddDay("20240102", "100");
    AddDay("20240102", "80");  // comes again: the bounds keep both
    ComputeAccountStatistics(report);
    EXPECT_EQ(report.AccountStatistics.MaxEquity, 100);
    EXPECT_EQ(report.AccountStatistics.InitialEquity, 80);
    EXPECT_EQ(report.AccountStatistics.MaxDrawdown, 0);
}

TEST_F(AccountFigures, TakeTheEquityThatAFormatWithoutOneWasGiven) {
    report.Request.StatementFormat = 6;
    report.MoneyStore.Add(CopyOf(Money("20240102", {{"KHQY", "1"}, {"BZJZY", "40"}, {"KYZJ", "60"}})),
                          MoneySource::Statement, report.Format().equity);
    ComputeAccountStatistics(report);
    EXPECT_EQ(report.AccountStatistics.InitialEquity, 100);
}

TEST_F(AccountFigures, AreZeroWithoutDaysAndRows) {
    ComputeAccountStatistics(report);
    EXPECT_EQ(report.AccountStatistics.InitialEquity, 0);
    EXPECT_EQ(report.AccountStatistics.MaxDrawdown, 0);
    EXPECT_EQ(report.AccountStatistics.WinRate, 0);
    EXPECT_EQ(report.AccountStatistics.ProfitRate, 0);
    EXPECT_EQ(report.AccountStatistics.MaxYield, 0);
    EXPECT_EQ(report.AccountStatistics.MaxRisk, 0);
}

TEST_F(AccountFigures, CountFlatRowsAsWon) {
    report.Request.StatementFormat = 2;
    for (const char* const close : {"105", "100", "95"}) {
        FoldClosedRow(Closed({{"CONTRACT", "cu1105"},
                              {"BID", Gbk("买")},
                              {"MATCH_VOL", "1"},
                              {"OPEN_PRICE", "100"},
                              {"MATCH_PRICE", close}}),
                      report);
    }
    ComputeAccountStatistics(report);
    EXPECT_EQ(CNumberText(report.AccountStatistics.WinRate).View(), "66.67");
    EXPECT_EQ(report.AccountStatistics.WinRate, 2.0 / 3 * 100);
}

TEST_F(AccountFigures, DontSeeAFirstShortRowWithoutGain) {
    report.Request.StatementFormat = 2;
    FoldClosedRow(Closed({{"CONTRACT", "cu1105"}, {"BID", Gbk("卖")}, {"MATCH_VOL", "1"}}), report);
    ComputeAccountStatistics(report);
    EXPECT_EQ(report.AccountStatistics.WinRate, 0);
}

TEST_F(AccountFigures, RateWinsOverAllRows) {
    const struct {
        std::int32_t wins, losses, flats;
        double rate;
    } cases[] = {{0, 0, 0, 0}, {1, 0, 0, 100}, {0, 1, 0, 0}, {0, 0, 1, 100}, {1, 3, 0, 25}, {1, 2, 1, 50}};
    for (const auto& row : cases) {
        report.Clear();
        report.AccountStatistics.WinCount = row.wins;
        report.AccountStatistics.LoseCount = row.losses;
        report.AccountStatistics.FlatCount = row.flats;
        ComputeAccountStatistics(report);
        EXPECT_EQ(report.AccountStatistics.WinRate, row.rate);
    }
}

TEST_F(AccountFigures, RateProfitOverTheInitialEquity) {
    AddDay("20240102", "400");
    AddDay("20240103", "999");
    report.AccountStatistics.TotalPL = -50;
    ComputeAccountStatistics(report);
    EXPECT_EQ(report.AccountStatistics.ProfitRate, -12.5);
}

TEST_F(AccountFigures, RateNoProfitWithoutInitialEquity) {
    for (const char* const equity : {"0", "", "-100"}) {
        report.Clear();
        AddDay("20240102", equity);
        AddDay("20240103", "500");
        report.AccountStatistics.TotalPL = 50;
        ComputeAccountStatistics(report);
        EXPECT_EQ(report.AccountStatistics.ProfitRate, 0) << equity;
    }
}

TEST_F(AccountFigures, TakeYieldAndRiskInPerCent) {
    report.MoneyStore.OpeningEquity = 100;
    report.TradeStatistics.SetEquity("20240102", 90, 45);
    report.TradeStatistics.SetEquity("20240103", 75, 15);
    ComputeYields(report);
    ComputeAccountStatistics(report);
    EXPECT_EQ(report.AccountStatistics.MaxYield, -10);  // the first day's, below 0 as it is
    EXPECT_EQ(report.AccountStatistics.MaxRisk, 50);
}

TEST_F(AccountFigures, LeaveTheCountersOfTheRowsAlone) {
    report.AccountStatistics.WinCount = 3;
    report.AccountStatistics.TotalPL = 7;
    report.AccountStatistics.MaxProfit = 5;
    report.AccountStatistics.MaxLoss = -4;
    ComputeAccountStatistics(report);
    EXPECT_EQ(report.AccountStatistics.WinCount, 3);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 7);
    EXPECT_EQ(report.AccountStatistics.MaxProfit, 5);
    EXPECT_EQ(report.AccountStatistics.MaxLoss, -4);
}

TEST_F(AccountFigures, RateProfitOverTheSmallestEquity) {
    AddDay("20240102", "0.5");
    report.AccountStatistics.TotalPL = 1;
    ComputeAccountStatistics(report);
    EXPECT_EQ(report.AccountStatistics.ProfitRate, 200);
}

}  // namespace
}  // namespace tradebill::account_figures_test
