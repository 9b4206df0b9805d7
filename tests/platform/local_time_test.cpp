#include "platform/local_time.h"

#include <gtest/gtest.h>

namespace tradebill::local_time_test {
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

}  // namespace
}  // namespace tradebill::local_time_test
