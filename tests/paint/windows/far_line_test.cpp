#include "paint/gdi/far_line.h"

#include <gtest/gtest.h>

#include <limits>

namespace tradebill::windows_far_line_test {
namespace {

using Line = std::pair<Point, Point>;

constexpr std::int32_t kLimit = 1 << 20;
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

TEST(FarLine, IsAllOfALineThatIsNear) {
    EXPECT_EQ(NearPartOf({-5, 7}, {60'000, 3}, kLimit), (Line{{-5, 7}, {60'000, 3}}));
    EXPECT_EQ(NearPartOf({kLimit, -kLimit}, {3, 3}, kLimit), (Line{{kLimit, -kLimit}, {3, 3}}));
    EXPECT_EQ(NearPartOf({4, 4}, {4, 4}, kLimit), (Line{{4, 4}, {4, 4}}));
}

TEST(FarLine, KeepsItsDirection) {
    EXPECT_EQ(NearPartOf({-kMost, -kMost}, {kMost, kMost}, kLimit), (Line{{-kLimit, -kLimit}, {kLimit, kLimit}}));
    EXPECT_EQ(NearPartOf({kMost, 9}, {0, 9}, kLimit), (Line{{kLimit, 9}, {0, 9}}));
    EXPECT_EQ(NearPartOf({3, kLeast}, {3, 5}, kLimit), (Line{{3, -kLimit}, {3, 5}}));
    // Twice as far along x as along y: it leaves at the right edge, halfway up.
    EXPECT_EQ(NearPartOf({0, 0}, {4 * kLimit, 2 * kLimit}, kLimit), (Line{{0, 0}, {kLimit, kLimit / 2}}));
}

TEST(FarLine, IsExactAtTheFarthestLimit) {
    EXPECT_EQ(NearPartOf({kLeast, kLeast}, {kMost, kMost}, kFarthestThin),
              (Line{{-kFarthestThin, -kFarthestThin}, {kFarthestThin, kFarthestThin}}));
}

TEST(FarLine, IsNothingIfAllOfItIsFar) {
    EXPECT_FALSE(NearPartOf({kLimit + 1, 0}, {kMost, 0}, kLimit).has_value());
    EXPECT_FALSE(NearPartOf({0, kLeast}, {5, -kLimit - 1}, kLimit).has_value());
    EXPECT_FALSE(NearPartOf({kMost, kMost}, {kMost, kMost}, kLimit).has_value());
    EXPECT_FALSE(NearPartOf({-3 * kLimit, 0}, {0, 3 * kLimit}, kLimit).has_value());  // past the corner
}

}  // namespace
}  // namespace tradebill::windows_far_line_test
