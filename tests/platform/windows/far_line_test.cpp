#include "platform/windows/far_line.h"

#include <gtest/gtest.h>

#include <limits>

namespace tradebill {
namespace {

using Line = std::pair<Point, Point>;

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

TEST(FarLine, IsAllOfALineThatIsNear) {
    EXPECT_EQ(NearPartOf({-5, 7}, {60'000, 3}), (Line{{-5, 7}, {60'000, 3}}));
    EXPECT_EQ(NearPartOf({kFarthest, -kFarthest}, {3, 3}), (Line{{kFarthest, -kFarthest}, {3, 3}}));
    EXPECT_EQ(NearPartOf({4, 4}, {4, 4}), (Line{{4, 4}, {4, 4}}));
}

TEST(FarLine, KeepsItsDirection) {
    EXPECT_EQ(NearPartOf({-kMost, -kMost}, {kMost, kMost}), (Line{{-kFarthest, -kFarthest}, {kFarthest, kFarthest}}));
    EXPECT_EQ(NearPartOf({kMost, 9}, {0, 9}), (Line{{kFarthest, 9}, {0, 9}}));
    EXPECT_EQ(NearPartOf({3, kLeast}, {3, 5}), (Line{{3, -kFarthest}, {3, 5}}));
    // Twice as far along x as along y: it leaves at the right edge, halfway up.
    EXPECT_EQ(NearPartOf({0, 0}, {4 * kFarthest, 2 * kFarthest}), (Line{{0, 0}, {kFarthest, kFarthest / 2}}));
}

TEST(FarLine, IsNothingIfAllOfItIsFar) {
    EXPECT_FALSE(NearPartOf({kFarthest + 1, 0}, {kMost, 0}).has_value());
    EXPECT_FALSE(NearPartOf({0, kLeast}, {5, -kFarthest - 1}).has_value());
    EXPECT_FALSE(NearPartOf({kMost, kMost}, {kMost, kMost}).has_value());
    EXPECT_FALSE(NearPartOf({-3 * kFarthest, 0}, {0, 3 * kFarthest}).has_value());  // past the corner
}

}  // namespace
}  // namespace tradebill
