#include "analysis/ratios.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "analysis/account_maker.h"

namespace tradebill::ratios_test {
namespace {

class RatioFigures : public AccountMaker {
protected:
    Ratios Of(std::int64_t tradingDays = kUsualTradingDays) const { return Analysed(tradingDays).ratios; }
};

TEST_F(RatioFigures, ArePerYearOfTheTradingDays) {
    AddIndexes({1.1, 0.99, 1.188, 1.188});  // + 10 %, - 10 %, + 20 %, 0
    const Ratios ratios = Of(100);
    // mean 0.05; distances 0.05 -0.15 0.15 -0.05; squares 0.0025 0.0225 0.0225 0.0025 = 0.05
    const double deviation = std::sqrt(0.05 / 3);
    EXPECT_NEAR(*ratios.annualReturn / (std::pow(1.188, 25) - 1), 1, 1e-12);  // 100 / 4
    EXPECT_NEAR(*ratios.volatility, deviation * 10, 1e-13);
    EXPECT_NEAR(*ratios.sharpe, 0.05 / deviation * 10, 1e-12);
    EXPECT_NEAR(*ratios.sortino, 10, 1e-12);                               // 0.05 / sqrt(0.01 / 4) x 10
    EXPECT_NEAR(*ratios.calmar / (*ratios.annualReturn / 0.1), 1, 1e-12);  // deepest: 10 %
    EXPECT_EQ(ratios.timeUnderWater, 0.25);
}

TEST_F(RatioFigures, TakeTheUsualYearWithoutBeingTold) {
    AddIndexes({1.01});
    EXPECT_NEAR(*Of().annualReturn, std::pow(1.01, 242) - 1, 1e-9);
    EXPECT_EQ(Analysed().tradingDays, 242);
}

TEST_F(RatioFigures, OfOneDayHaveNoRisk) {
    AddIndexes({1.01});
    const Analysis analysis = Analysed();
    EXPECT_FALSE(analysis.ratios.volatility || analysis.ratios.sharpe || analysis.ratios.sortino ||
                 analysis.ratios.calmar || analysis.ratios.moneyWeightedReturn);
    EXPECT_EQ(ReasonOf(analysis, "ratios.volatility"), "less than two days have a return");
    EXPECT_EQ(ReasonOf(analysis, "ratios.sharpe"), "less than two days have a return");
    EXPECT_EQ(ReasonOf(analysis, "ratios.sortino"), "no return is below 0");
    EXPECT_EQ(ReasonOf(analysis, "ratios.calmar"), "there is no drawdown");
    EXPECT_EQ(ReasonOf(analysis, "ratios.moneyWeightedReturn"), "less than 30 days");
}

TEST_F(RatioFigures, OfEqualReturnsHaveNoSharpe) {
    AddIndexes({1.1, 1.21, 1.331});
    const Analysis analysis = Analysed();
    EXPECT_EQ(analysis.ratios.volatility, 0);
    EXPECT_EQ(analysis.ratios.sharpe, std::nullopt);
    EXPECT_EQ(ReasonOf(analysis, "ratios.sharpe"), "all returns are equal");
    EXPECT_EQ(ReasonOf(analysis, "distribution.skewness"), "all returns are equal");
    EXPECT_EQ(ReasonOf(analysis, "distribution.kurtosis"), "all returns are equal");
}

TEST_F(RatioFigures, CountDaysWithAReturnForTheYearAndAllForTheTimeUnderWater) {
    AddDay("20240102", "900", "0", "1000");  // - 10 %
    AddDay("20240103", "0", "-900");         // 0
    AddDay("20240104", "0");                 // nothing to gain from
    AddDay("20240105", "110", "100");        // + 10 %
    const Ratios ratios = Of(6);
    EXPECT_NEAR(*ratios.annualReturn, 0.99 * 0.99 - 1, 1e-14);  // 0.9 x 1.1, six by three days
    EXPECT_EQ(ratios.timeUnderWater, 1);
}

TEST_F(RatioFigures, LoseAllWithTheIndex) {
    AddIndexes({0.5, 0.0});
    const Ratios ratios = Of();
    EXPECT_EQ(ratios.annualReturn, -1);
    EXPECT_EQ(ratios.calmar, -1);  // by a depth of 1
}

TEST_F(RatioFigures, BeyondAllNumbersAreNull) {
    AddDay("20240102", "100000", "0", "1");  // 1e5 to the 242nd
    const Analysis analysis = Analysed();
    EXPECT_EQ(analysis.ratios.annualReturn, std::nullopt);
    EXPECT_EQ(ReasonOf(analysis, "ratios.annualReturn"), "it is beyond the range of numbers");
    EXPECT_EQ(ReasonOf(analysis, "ratios.calmar"), "it is beyond the range of numbers");
}

TEST_F(RatioFigures, OfNoDaysAreNull) {
    const Analysis analysis = Analysed();
    EXPECT_FALSE(analysis.ratios.annualReturn || analysis.ratios.timeUnderWater);
    EXPECT_EQ(ReasonOf(analysis, "ratios.annualReturn"), "no day has a return");
    EXPECT_EQ(ReasonOf(analysis, "ratios.sharpe"), "no day has a return");
    EXPECT_EQ(ReasonOf(analysis, "ratios.timeUnderWater"), "there are no days");
    EXPECT_EQ(ReasonOf(analysis, "ratios.moneyWeightedReturn"), "the report has no days");
}

}  // namespace
}  // namespace tradebill::ratios_test
