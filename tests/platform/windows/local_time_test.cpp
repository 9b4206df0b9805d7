#include "platform/local_time.h"

#include <gtest/gtest.h>

#include <limits>

namespace tradebill::windows_local_time_test {
namespace {

TEST(WindowsLocalDayOf, IsNothingForATimeBeyondTheCalendar) {
    constexpr std::time_t kYear3002 = std::time_t{32'566'000'000};
    EXPECT_EQ(LocalDayOf(std::numeric_limits<std::time_t>::max()), CalendarDay{});
    EXPECT_EQ(LocalDayOf(std::numeric_limits<std::time_t>::min()), CalendarDay{});
    EXPECT_EQ(LocalDayOf(kYear3002), CalendarDay{});
    EXPECT_EQ(LocalDayOf(MidnightOf({2999, 12, 31})), (CalendarDay{2999, 12, 31}));
}

}  // namespace
}  // namespace tradebill::windows_local_time_test
