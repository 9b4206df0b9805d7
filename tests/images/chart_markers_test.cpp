#include "images/chart_markers.h"

#include <gtest/gtest.h>

#include <climits>

namespace tradebill::chart_markers_test {
namespace {

TEST(ChartMarkers, AreSmallerWhereDaysLieCloserThanSixPixels) {
    const struct {
        std::int32_t width, days;
        std::int32_t radius;
    } cases[] = {
        {825, 0, 3}, {825, -1, 3}, {600, 100, 3}, {599, 100, 2}, {600, 101, 2}, {825, 137, 3}, {825, 138, 2},
        {500, 1, 3}, {0, 0, 3},    {0, 1, 2},     {-600, 1, 2},  {5, 1, 2},     {6, 1, 3},     {INT_MIN, INT_MAX, 2},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(MarkerRadius({.width = one.width, .days = one.days}), one.radius) << one.width << " " << one.days;
    }
}

TEST(ChartMarkers, GrowWithTheResolution) {
    const struct {
        std::int32_t dpi;
        std::int32_t large, small;
    } cases[] = {{0, 3, 2}, {96, 3, 2}, {120, 4, 3}, {192, 6, 4}};  // at 120: 3.75 and 2.5
    for (const auto& one : cases) {
        EXPECT_EQ(MarkerRadius({.width = 600, .days = 100, .dpi = one.dpi}), one.large) << one.dpi;
        EXPECT_EQ(MarkerRadius({.width = 600, .days = 101, .dpi = one.dpi}), one.small) << one.dpi;
        EXPECT_EQ(StretchedMarkerRadius({.width = 600, .days = 0, .dpi = one.dpi}, 600), one.large) << one.dpi;
    }
}

TEST(ChartMarkers, GrowByWholeTimesOfTheSavedWidth) {
    const struct {
        std::int32_t width, days;
        std::int32_t radius;
    } cases[] = {
        {825, 137, 3},   // days 6 apart
        {825, 138, 2},   // 5
        {1649, 137, 3},  // not twice yet, and far enough apart
        {1650, 137, 6},  // 12 apart, which is twice the radius
        {1650, 138, 3},  // 11
        {1650, 275, 3},  // 6
        {1650, 276, 2},  // 5
        {8250, 10, 30},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(StretchedMarkerRadius({.width = one.width, .days = one.days}, 825), one.radius)
            << one.width << " " << one.days;
    }
}

TEST(ChartMarkers, AreScaledByResolutionOnlyIfTheyDontGrow) {
    EXPECT_EQ(StretchedMarkerRadius({.width = 1650, .days = 137, .dpi = 192}, 1650), 3);  // step 12: one time, as it is
    EXPECT_EQ(StretchedMarkerRadius({.width = 3300, .days = 275, .dpi = 192}, 1650),
              6);  // step 12: two times, as it is
    EXPECT_EQ(StretchedMarkerRadius({.width = 3300, .days = 276, .dpi = 192}, 1650), 6);  // step 11: 3 scaled
    EXPECT_EQ(StretchedMarkerRadius({.width = 3300, .days = 551, .dpi = 192}, 1650), 4);  // step 5: 2 scaled
}

TEST(ChartMarkers, HaveNoSizeInANarrowerChart) {
    EXPECT_EQ(StretchedMarkerRadius({.width = 824, .days = 1}, 825), 0);
    EXPECT_EQ(StretchedMarkerRadius({.width = 824, .days = 10'000}, 825), 0);
    EXPECT_EQ(StretchedMarkerRadius({.width = 0, .days = 1}, 825), 0);
}

TEST(ChartMarkers, AreThoseOfTheReportWithoutDaysOrSavedWidth) {
    EXPECT_EQ(StretchedMarkerRadius({.width = 1650, .days = 0}, 825), 3);
    EXPECT_EQ(StretchedMarkerRadius({.width = 0, .days = 0}, 0), 3);
    for (const std::int32_t savedWidth : {0, -1, INT_MIN}) {
        EXPECT_EQ(StretchedMarkerRadius({.width = 600, .days = 100}, savedWidth), 3) << savedWidth;
        EXPECT_EQ(StretchedMarkerRadius({.width = 600, .days = 101}, savedWidth), 2) << savedWidth;
    }
}

TEST(ChartMarkers, AreNeverNegative) {
    EXPECT_EQ(StretchedMarkerRadius({.width = -1650, .days = 1}, 825), 2);
    EXPECT_EQ(StretchedMarkerRadius({.width = -1650, .days = 10'000}, 825), 0);
    EXPECT_EQ(StretchedMarkerRadius({.width = INT_MIN, .days = 1}, 1), 2);
    EXPECT_EQ(StretchedMarkerRadius({.width = INT_MAX, .days = 1}, 1), 3);  // its zoom doesn't fit the step
}

}  // namespace
}  // namespace tradebill::chart_markers_test
