#include "platform/local_time.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <ctime>
#include <iterator>
#include <limits>
#include <string>

#include "support/time_zone.h"

namespace tradebill::linux_local_time_test {
namespace {

TEST(LinuxLocalDayOf, IsNothingForATimeBeyondTheCalendar) {
    constexpr std::time_t kSecondsPerYear = 31556952;  // on average
    constexpr std::time_t kLastYear = std::numeric_limits<int>::max();
    EXPECT_EQ(LocalDayOf(std::numeric_limits<std::time_t>::max()), CalendarDay{});
    EXPECT_EQ(LocalDayOf((kLastYear + 1000 - 1970) * kSecondsPerYear), CalendarDay{});
    EXPECT_GT(LocalDayOf((kLastYear - 10 - 1970) * kSecondsPerYear).year, kLastYear - 20);
}

TEST(KeepTimeZone, LeavesEveryTimeAsItWas) {
    const CTimeZone restored("CST-8");
    ::unsetenv("TZ");
    ::tzset();
    const CalendarDay days[] = {{1991, 7, 1}, {2024, 1, 1}, {2024, 7, 1}};
    std::time_t midnights[std::size(days)];
    for (std::size_t i = 0; i < std::size(days); ++i) midnights[i] = MidnightOf(days[i]);
    KeepTimeZone();
    for (std::size_t i = 0; i < std::size(days); ++i) {
        EXPECT_EQ(MidnightOf(days[i]), midnights[i]);
        EXPECT_EQ(LocalDayOf(midnights[i]), days[i]);
    }
}

TEST(KeepTimeZone, LeavesAZoneThatTheUserHasSet) {
    const CTimeZone zone("CST-8");
    const std::time_t midnight = MidnightOf({2024, 7, 1});
    KeepTimeZone();
    EXPECT_EQ(std::getenv("TZ"), std::string("CST-8"));
    EXPECT_EQ(MidnightOf({2024, 7, 1}), midnight);
}

}  // namespace
}  // namespace tradebill::linux_local_time_test
