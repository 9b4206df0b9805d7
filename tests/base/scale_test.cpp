#include "base/scale.h"

#include <gtest/gtest.h>

#include <climits>

namespace tradebill::scale_test {
namespace {

TEST(MulDiv, RoundsToTheNearestWithHalvesAwayFromZero) {
    EXPECT_EQ(MulDiv(5, 1, 2), 3);
    EXPECT_EQ(MulDiv(-5, 1, 2), -3);
    EXPECT_EQ(MulDiv(5, -1, 2), -3);
    EXPECT_EQ(MulDiv(5, 1, -2), -3);
    EXPECT_EQ(MulDiv(-5, -1, 2), 3);
    EXPECT_EQ(MulDiv(4, 1, 3), 1);
    EXPECT_EQ(MulDiv(7, 3, 3), 7);
}

TEST(MulDiv, IsMinusOneWhereThereIsNoResult) {
    EXPECT_EQ(MulDiv(1, 1, 0), -1);
    EXPECT_EQ(MulDiv(INT_MAX, 2, 1), -1);
    EXPECT_EQ(MulDiv(INT_MIN, 2, 1), -1);
}

TEST(ScaleByDpi, LeavesSizesAloneWithoutResolution) {
    EXPECT_EQ(ScaleByDpi(13, 0), 13);
    EXPECT_EQ(ScaleByDpi(13, 96), 13);
}

TEST(ScaleByDpi, RoundsTheFactorToWholePerCentFirst) {
    EXPECT_EQ(ScaleByDpi(13, 120), 16);  // 16.25
    EXPECT_EQ(ScaleByDpi(14, 120), 18);  // 17.5
    EXPECT_EQ(ScaleByDpi(310, 120), 388);
    EXPECT_EQ(ScaleByDpi(825, 120), 1031);
    EXPECT_EQ(ScaleByDpi(1000, 100), 1040);  // 104.17 per cent are 104
}

}  // namespace
}  // namespace tradebill::scale_test
