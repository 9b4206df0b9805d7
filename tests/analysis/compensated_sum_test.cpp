#include "analysis/compensated_sum.h"

#include <gtest/gtest.h>

namespace tradebill::compensated_sum_test {
namespace {

TEST(CompensatedSum, KeepsWhatAdditionsRoundOff) {
    // Plain sums lose the ones behind 1e100 whichever way they come, Kahan's those before it.
    CCompensatedSum sum;
    for (const double value : {1.0, 1e100, 1.0, -1e100}) sum.Add(value);
    EXPECT_EQ(sum.Total(), 2);
}

TEST(CompensatedSum, DoesntDriftWithItsLength) {
    CCompensatedSum sum;
    for (int i = 0; i < 1'000'000; ++i) sum.Add(0.1);
    EXPECT_EQ(sum.Total(), 100000);
}

TEST(CompensatedSum, IsNothingAtFirst) {
    EXPECT_EQ(CCompensatedSum().Total(), 0);
}

}  // namespace
}  // namespace tradebill::compensated_sum_test
