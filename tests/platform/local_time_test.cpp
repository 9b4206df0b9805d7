#include "platform/local_time.h"

#include <gtest/gtest.h>

#include <limits>

namespace tradebill {
namespace {

TEST(PresentTime, IsTheSystemsClock) {
    const std::time_t before = std::time(nullptr);
    const std::time_t present = PresentTime();
    EXPECT_GE(present, before);
    EXPECT_LE(present, std::time(nullptr));
}

TEST(LocalDayOf, IsTheDayThatHasTheTime) {
    for (const CalendarDay& day : {CalendarDay{1990, 1, 1}, CalendarDay{2024, 2, 29}, CalendarDay{2024, 12, 31}}) {
        const std::time_t midnight = MidnightOf(day);
        EXPECT_EQ(LocalDayOf(midnight), day);
        EXPECT_EQ(LocalDayOf(midnight + kSecondsPerDay - 1), day);
        EXPECT_NE(LocalDayOf(midnight - 1), day);
        EXPECT_NE(LocalDayOf(midnight + kSecondsPerDay), day);
    }
}

TEST(LocalDayOf, IsNothingForATimeBeyondTheCalendar) {
    constexpr std::time_t kSecondsPerYear = 31556952;  // on average
    constexpr std::time_t kLastYear = std::numeric_limits<int>::max();
    EXPECT_EQ(LocalDayOf(std::numeric_limits<std::time_t>::max()), CalendarDay{});
    EXPECT_EQ(LocalDayOf((kLastYear + 1000 - 1970) * kSecondsPerYear), CalendarDay{});
    EXPECT_GT(LocalDayOf((kLastYear - 10 - 1970) * kSecondsPerYear).year, kLastYear - 20);
}

}  // namespace
}  // namespace tradebill
