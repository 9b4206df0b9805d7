#include "platform/local_time.h"

#include <gtest/gtest.h>

#include <limits>

namespace tradebill::linux_local_time_test {
namespace {

TEST(LinuxLocalDayOf, IsNothingForATimeBeyondTheCalendar) {
    constexpr std::time_t kSecondsPerYear = 31556952;  // on average
    constexpr std::time_t kLastYear = std::numeric_limits<int>::max();
    EXPECT_EQ(LocalDayOf(std::numeric_limits<std::time_t>::max()), CalendarDay{});
    EXPECT_EQ(LocalDayOf((kLastYear + 1000 - 1970) * kSecondsPerYear), CalendarDay{});
    EXPECT_GT(LocalDayOf((kLastYear - 10 - 1970) * kSecondsPerYear).year, kLastYear - 20);
}

}  // namespace
}  // namespace tradebill::linux_local_time_test
