#include "analysis/distribution.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <vector>

#include "analysis/account_maker.h"

namespace tradebill::distribution_test {
namespace {

TEST(Distribution, IsThatOfASample) {
    // mean 3; distances -2 -1 -1 0 4; squares 4 1 1 0 16 = 22, cubes -8 -1 -1 0 64 = 54, fourth 16 1 1 0 256 = 274
    const Distribution found = DistributionOf(std::vector<double>{1, 2, 2, 3, 7});
    EXPECT_NEAR(*found.mean, 3, 1e-14);
    EXPECT_NEAR(*found.deviation, std::sqrt(5.5), 1e-14);  // 22 / 4
    // n / ((n-1)(n-2)) x 54 / 5.5^1.5 = 5/12 x 54 / 12.898643339514...
    EXPECT_NEAR(*found.skewness, 5.0 / 12 * 54 / std::pow(5.5, 1.5), 1e-13);
    // n(n+1) / ((n-1)(n-2)(n-3)) x 274 / 5.5^2 - 3(n-1)^2 / ((n-2)(n-3)) = 30/24 x 274/30.25 - 48/6
    EXPECT_NEAR(*found.kurtosis, 1.25 * 274 / 30.25 - 8, 1e-13);
    EXPECT_NEAR(*found.quantile5, 1.2, 1e-14);  // 0.05 x 4 = 0.2 of the way from 1 to 2
}

TEST(Distribution, NeedsEnoughReturns) {
    const Distribution none = DistributionOf({});
    EXPECT_FALSE(none.mean || none.deviation || none.skewness || none.kurtosis || none.quantile5);
    const Distribution one = DistributionOf(std::vector<double>{0.5});
    EXPECT_EQ(one.mean, 0.5);
    EXPECT_EQ(one.quantile5, 0.5);
    EXPECT_FALSE(one.deviation || one.skewness || one.kurtosis);
    const Distribution two = DistributionOf(std::vector<double>{1, 3});
    EXPECT_NEAR(*two.deviation, std::sqrt(2.0), 1e-15);  // (1 + 1) / 1
    EXPECT_FALSE(two.skewness || two.kurtosis);
    const Distribution three = DistributionOf(std::vector<double>{1, 2, 3});
    EXPECT_NEAR(*three.skewness, 0, 1e-15);
    EXPECT_FALSE(three.kurtosis);
}

TEST(Distribution, OfEqualReturnsHasNoDeviation) {
    // one of them is off by rounding
    const Distribution equal = DistributionOf(std::vector<double>{0.1, 0.1, 0.1, 0.1 + 1e-14});
    EXPECT_EQ(equal.deviation, 0);
    EXPECT_FALSE(equal.skewness || equal.kurtosis);
    const Distribution nearly = DistributionOf(std::vector<double>{0.1, 0.1, 0.1, 0.1 + 1e-11});
    EXPECT_GT(*nearly.deviation, 0);
    EXPECT_TRUE(nearly.skewness && nearly.kurtosis);
    const Distribution nothing = DistributionOf(std::vector<double>{0, 0, 0, 0});
    EXPECT_EQ(nothing.deviation, 0);
    EXPECT_FALSE(nothing.skewness);
}

TEST(Quantile, LiesBetweenValues) {
    const std::vector<double> values = {1, 2, 4};
    EXPECT_EQ(QuantileOf(values, 0), 1);
    EXPECT_EQ(QuantileOf(values, 0.25), 1.5);
    EXPECT_EQ(QuantileOf(values, 0.75), 3);
    EXPECT_EQ(QuantileOf(values, 1), 4);
    EXPECT_EQ(QuantileOf(std::vector<double>{7}, 0.5), 7);
}

class DistributionReasons : public AccountMaker {};

TEST_F(DistributionReasons, TellWhatIsMissing) {
    EXPECT_EQ(ReasonOf(Analysed(), "distribution.mean"), "no day has a return");
    EXPECT_EQ(ReasonOf(Analysed(), "distribution.skewness"), "less than three days have a return");
    AddIndexes({1.1});
    EXPECT_EQ(ReasonOf(Analysed(), "distribution.deviation"), "less than two days have a return");
    EXPECT_EQ(ReasonOf(Analysed(), "distribution.mean"), "");
    AddDay("20240110", "1000");
    AddDay("20240111", "1200");
    EXPECT_EQ(ReasonOf(Analysed(), "distribution.skewness"), "");
    EXPECT_EQ(ReasonOf(Analysed(), "distribution.kurtosis"), "less than four days have a return");
}

}  // namespace
}  // namespace tradebill::distribution_test
