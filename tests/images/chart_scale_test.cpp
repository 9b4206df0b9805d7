#include "images/chart_scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tradebill::chart_scale_test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(FloorToStep, GoesDownByTenOrAHundredThousandAndEndsAtZero) {
    const struct {
        double equity;
        double step;
    } cases[] = {
        {-123456.0, 0},     {-0.01, 0},          {0.0, 0},           {9999.99, 0},
        {10000.0, 10000},   {19999.0, 10000},    {20000.0, 20000},   {99999.99, 90000},
        {100000.0, 100000}, {199999.99, 100000}, {200000.0, 200000}, {1234567.0, 1200000},
    };
    for (const auto& one : cases) EXPECT_EQ(FloorToStep(one.equity), one.step) << one.equity;
}

TEST(CeilToStep, GoesUpEvenFromAStep) {
    const struct {
        double equity;
        double step;
    } cases[] = {
        {-123456.0, 10000}, {0.0, 10000},        {9999.99, 10000},   {10000.0, 20000},
        {19999.0, 20000},   {20000.0, 30000},    {89999.0, 90000},   {99999.99, 100000},
        {100000.0, 200000}, {199999.99, 200000}, {200000.0, 300000}, {1234567.0, 1300000},
    };
    for (const auto& one : cases) EXPECT_EQ(CeilToStep(one.equity), one.step) << one.equity;
}

TEST(CeilToStep, LiesAboveFloorToStepWhateverTheEquity) {
    for (const double equity : {-kInfinity, -1e300, 0.0, 5e14, 1e300, kInfinity, kNoNumber}) {
        EXPECT_GT(CeilToStep(equity), FloorToStep(equity)) << equity;
        EXPECT_TRUE(std::isfinite(CeilToStep(equity))) << equity;
    }
    EXPECT_EQ(FloorToStep(1e300), 2147483647 * 100000.0);  // the last whole number of steps
    EXPECT_EQ(CeilToStep(1e300), 2147483648 * 100000.0);
}

TEST(TickIntervals, AreOneMoreIfTheyMissTheWholeRange) {
    EXPECT_EQ(TickIntervals(10000, 1000), 10);
    EXPECT_EQ(TickIntervals(20, 10), 2);
    EXPECT_EQ(TickIntervals(20.5, 10), 2);  // 20 is no less than 20
    EXPECT_EQ(TickIntervals(21, 10), 3);    // 20 is less than 21
    EXPECT_EQ(TickIntervals(19, 2.5), 8);   // 7 of them are 17.5
    EXPECT_EQ(TickIntervals(18.4, 2.3), 8);
    EXPECT_EQ(TickIntervals(0.25, 0.1), 2);     // under 1 nothing is missed
    EXPECT_EQ(TickIntervals(3e12, 2e9), 1500);  // beyond the integers both ends are the same
    EXPECT_EQ(TickIntervals(3e12, 1.7e9), 1764);
}

TEST(TickIntervals, AreTenIfTheyCantBeCounted) {
    EXPECT_EQ(TickIntervals(0, 0), 10);
    EXPECT_EQ(TickIntervals(1, 0), 10);
    EXPECT_EQ(TickIntervals(kInfinity, kInfinity), 10);
    EXPECT_EQ(TickIntervals(kNoNumber, kNoNumber), 10);
}

TEST(EquityScale, RunsFromStepToStepAroundAllEquities) {
    const struct {
        double opening, lowest, highest;
        double minTick, maxTick;
        std::int32_t decimals;
    } cases[] = {
        {0, 0, 0, 0, 10000, 3},
        {5000, 4000, 6000, 0, 10000, 3},
        {50000, 48000, 61000, 40000, 70000, 3},    // a tenth of 13000 beyond: 46700 and 62300
        {80000, 48000, 61000, 40000, 90000, 3},    // opening above: 44800 and 83200
        {20000, 48000, 61000, 10000, 70000, 3},    // opening below: 15900 and 65100
        {50000, 50000, 50000, 50000, 60000, 3},    // a step lies on the lowest tick
        {95000, 95000, 95000, 90000, 100000, 3},   // 100000 isn't over 100000
        {95000, 90000, 120000, 80000, 200000, 0},  // 87000 and 123000
        {100000, 100000, 100000, 100000, 200000, 0},
        {1000000, 900000, 1200000, 800000, 1300000, 0},  // 870000 and 1230000
        {1000000, 1000000, 1000000, 1000000, 1100000, 0},
        {5000, -30000, 5000, 0, 10000, 3},  // never below zero
        {-1, -2, -1, 0, 10000, 3},
    };
    for (const auto& one : cases) {
        const ChartScale scale = EquityScale(one.opening, one.lowest, one.highest);
        EXPECT_EQ(scale.minTick, one.minTick) << one.opening << " " << one.lowest;
        EXPECT_EQ(scale.maxTick, one.maxTick) << one.opening << " " << one.lowest;
        EXPECT_EQ(scale.tickSpace, (one.maxTick - one.minTick) / 10) << one.opening << " " << one.lowest;
        EXPECT_EQ(scale.numTicks, 10) << one.opening << " " << one.lowest;
        EXPECT_EQ(scale.decimals, one.decimals) << one.opening << " " << one.lowest;
    }
}

TEST(EquityScale, IsFiniteForAnyAmounts) {
    for (const double odd : {kInfinity, -kInfinity, kNoNumber, 1e308, -1e308}) {
        for (const ChartScale& scale :
             {EquityScale(odd, 0, 0), EquityScale(0, odd, 0), EquityScale(0, 0, odd), EquityScale(odd, odd, odd)}) {
            EXPECT_TRUE(std::isfinite(scale.minTick)) << odd;
            EXPECT_TRUE(std::isfinite(scale.maxTick)) << odd;
            EXPECT_GT(scale.tickSpace, 0) << odd;
            EXPECT_GE(scale.numTicks, 1) << odd;
        }
    }
}

TEST(YieldScale, IsSymmetricalInTwentiethsBeyondBothEnds) {
    const struct {
        double lowest, highest;
        double end;
    } cases[] = {
        {0.03, 0.12, 0.15},    // 0.129 up to 0.15, 0.021 down to -0.05
        {-0.045, 0.04, 0.10},  // 0.0485 up to 0.05, -0.0535 down to -0.10
        {-0.32, 0.0, 0.40},    // -0.352
        {0.05, 0.05, 0.10},    // a multiple moves up one
        {-1.0, 5.01, 5.65},    // 5.611; -1.601 would give 1.65
        {0.2, 0.21, 0.25},     // 0.211 up to 0.25; 0.199 down to (-1 + 3) / 20
    };
    for (const auto& one : cases) {
        const ChartScale scale = YieldScale(one.lowest, one.highest);
        EXPECT_DOUBLE_EQ(scale.maxTick, one.end);
        EXPECT_EQ(scale.minTick, -scale.maxTick);
        EXPECT_DOUBLE_EQ(scale.tickSpace, one.end / 5) << one.end;
        EXPECT_EQ(scale.numTicks, 10) << one.end;
        EXPECT_FALSE(scale.decimals) << one.end;
    }
}

TEST(YieldScale, IsSinglePrecisionFivePerCentForSmallYields) {
    const struct {
        double lowest, highest;
    } cases[] = {{0.0, 0.0}, {0.01, 0.02}, {-0.02, 0.01}, {-0.04, 0.04}};  // the last reaches 0.048
    for (const auto& one : cases) {
        const ChartScale scale = YieldScale(one.lowest, one.highest);
        EXPECT_EQ(scale.maxTick, 0.05000000074505806);
        EXPECT_EQ(scale.minTick, -0.05000000074505806);
        EXPECT_EQ(scale.numTicks, 10);
    }
    EXPECT_DOUBLE_EQ(YieldScale(-0.042, 0.042).maxTick, 0.10);  // 0.0504
    EXPECT_DOUBLE_EQ(YieldScale(-0.047, 0.0).maxTick, 0.10);    // one end beyond is enough: -0.0517
}

TEST(YieldScale, RunsToOneHundredAndFivePerCentFromItsSeeds) {
    const ChartScale scale = YieldScale(1.0, 0.0);  // ends crossed: -0.1 and 1.1
    EXPECT_DOUBLE_EQ(scale.maxTick, 1.05);
    EXPECT_DOUBLE_EQ(scale.minTick, -1.05);
    EXPECT_DOUBLE_EQ(scale.tickSpace, 0.21);
    EXPECT_EQ(scale.numTicks, 10);
}

TEST(YieldScale, IsFiniteForAnyYields) {
    for (const double odd : {kInfinity, -kInfinity, kNoNumber, 1e308, -1e308}) {
        for (const ChartScale& scale : {YieldScale(odd, 0), YieldScale(0, odd), YieldScale(odd, odd)}) {
            EXPECT_TRUE(std::isfinite(scale.maxTick)) << odd;
            EXPECT_GT(scale.tickSpace, 0) << odd;
            EXPECT_GE(scale.numTicks, 1) << odd;
        }
    }
    EXPECT_DOUBLE_EQ(YieldScale(0, kInfinity).maxTick, 2147483649.0 * 0.05);  // 1 less the lowest integer
}

TEST(RealisedScale, ReachesATasteBeyondTheWorstAndTheBestDay) {
    const struct {
        double worst, best;
        double minTick, maxTick;
    } cases[] = {
        {100, 200, 80, 240},     {100, 100, 80, 120},   {-100, 200, -120, 240}, {-300, -100, -360, -80},
        {-100, -100, -120, -80}, {0, 0, -0.001, 0.001}, {0, 50, -0.001, 60},    {-50, 0, -60, 0.001},
    };
    for (const auto& one : cases) {
        const ChartScale scale = RealisedScale(one.worst, one.best);
        EXPECT_DOUBLE_EQ(scale.minTick, one.minTick) << one.worst << " " << one.best;
        EXPECT_DOUBLE_EQ(scale.maxTick, one.maxTick) << one.worst << " " << one.best;
        EXPECT_DOUBLE_EQ(scale.tickSpace, (one.maxTick - one.minTick) / 10) << one.worst << " " << one.best;
        EXPECT_EQ(scale.numTicks, 10) << one.worst << " " << one.best;
        EXPECT_FALSE(scale.decimals) << one.worst << " " << one.best;
    }
}

TEST(RealisedScale, HasNoTickForAmountsNextToNothing) {
    constexpr double kLeast = std::numeric_limits<double>::denorm_min();
    const ChartScale scale = RealisedScale(kLeast, kLeast);  // both ends round back to the same amount
    EXPECT_EQ(scale.tickSpace, 0);
    EXPECT_EQ(scale.numTicks, 10);
}

TEST(RealisedScale, CountsTenTicksOfWhatCantBeMeasured) {
    for (const double odd : {kInfinity, -kInfinity, kNoNumber}) {
        EXPECT_EQ(RealisedScale(odd, odd).numTicks, 10) << odd;
        EXPECT_EQ(RealisedScale(0, odd).numTicks, 10) << odd;
    }
}

}  // namespace
}  // namespace tradebill::chart_scale_test
