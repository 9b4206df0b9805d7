#include "analysis/exact_power.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace tradebill::exact_power_test {
namespace {

double PowerLessOne(double excess, std::int64_t exponent) {
    const Precise power = PrecisePower(PreciseSum({1, 0}, excess), exponent);
    return (power.high - 1) + power.low;
}

TEST(ExactPower, KeepsWhatADoubleCant) {
    const Precise sum = PreciseSum({1, 0}, 1e-20);
    EXPECT_EQ(sum.high, 1);
    EXPECT_EQ(sum.low, 1e-20);
    // (1 + e)^2 = 1 + 2e + e^2
    EXPECT_DOUBLE_EQ(PowerLessOne(1e-20, 2), 2e-20);
    EXPECT_DOUBLE_EQ(PowerLessOne(1e-9, 2), 2e-9 + 1e-18);
}

TEST(ExactPower, IsExactForWholeNumbers) {
    EXPECT_EQ(PrecisePower({3, 0}, 0).high, 1);
    EXPECT_EQ(PrecisePower({3, 0}, 1).high, 3);
    EXPECT_EQ(PrecisePower({3, 0}, 13).high, 1594323);
    const Precise large = PrecisePower({10, 0}, 30);  // 10^30 is no double: 2^30 * 5^30 has 70 digits of its own
    EXPECT_EQ(large.high, 1e30);
    EXPECT_NE(large.low, 0);
}

TEST(ExactPower, LeavesTheRangeAsDoublesDo) {
    EXPECT_EQ(PrecisePower({10, 0}, 400).high, std::numeric_limits<double>::infinity());
    EXPECT_EQ(PrecisePower({0.1, 0}, 400).high, 0);
    EXPECT_EQ(PreciseProduct({1e200, 0}, {1e150, 0}).high, std::numeric_limits<double>::infinity());
    EXPECT_EQ(PreciseSum({1e308, 0}, 1e308).high, std::numeric_limits<double>::infinity());
}

TEST(ExactPower, InvertsToTheLastDigits) {
    const Precise third = PreciseInverse({3, 0});
    EXPECT_EQ(third.high, 1.0 / 3);
    const Precise one = PreciseProduct(third, {3, 0});
    EXPECT_LT(std::fabs((one.high - 1) + one.low), 1e-30);
}

TEST(ExactPower, HasRoots) {
    EXPECT_EQ(RootLessOne(1, 250), 0);
    EXPECT_DOUBLE_EQ(RootLessOne(1.21, 2), 0.1);
    EXPECT_DOUBLE_EQ(RootLessOne(0.81, 2), -0.1);
    EXPECT_DOUBLE_EQ(RootLessOne(1e6, 6), 9);
    for (const double value : {1e-6, 0.3, 0.999999, 1.000001, 1.5, 1e6}) {
        EXPECT_NEAR(PrecisePower(PreciseSum({1, 0}, RootLessOne(value, 365)), 365).high, value, value * 1e-13);
        EXPECT_NEAR(RootLessOne(value, 365), std::expm1(std::log(value) / 365), 1e-16);
    }
}

}  // namespace
}  // namespace tradebill::exact_power_test
