#include "paint/escapement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tradebill::escapement_test {
namespace {

TEST(Escapement, CountsTenthsOfADegree) {
    EXPECT_EQ(EscapementOfDegrees(0), 0);
    EXPECT_EQ(EscapementOfDegrees(45), 450);
    EXPECT_EQ(EscapementOfDegrees(90), kUpwardsEscapement);
    EXPECT_EQ(EscapementOfDegrees(-90), -kUpwardsEscapement);
}

TEST(Escapement, WrapsBeyondTheRange) {
    EXPECT_EQ(EscapementOfDegrees(214'748'364), 2'147'483'640);
    EXPECT_EQ(EscapementOfDegrees(214'748'365), std::numeric_limits<std::int32_t>::min() + 2);
    EXPECT_EQ(EscapementOfDegrees(std::numeric_limits<std::int32_t>::min()), 0);
}

TEST(Escapement, TurnsCounterClockwise) {
    EXPECT_EQ(EscapementRadians(0), 0.0);
    EXPECT_NEAR(std::sin(EscapementRadians(kUpwardsEscapement)), 1.0, 1e-12);
    EXPECT_NEAR(std::cos(EscapementRadians(1800)), -1.0, 1e-12);
    EXPECT_NEAR(std::sin(EscapementRadians(-300)), -0.5, 1e-12);
}

}  // namespace
}  // namespace tradebill::escapement_test
