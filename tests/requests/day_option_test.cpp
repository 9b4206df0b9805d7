#include "requests/day_option.h"

#include <gtest/gtest.h>

#include <optional>

#include "base/day.h"

namespace tradebill::requests_day_option_test {
namespace {

constexpr CalendarDay kSecondOfJanuary{.year = 2024, .month = 1, .day = 2};

TEST(DayOption, IsWrittenInThreeWays) {
    EXPECT_EQ(WrittenDay("2024-01-02"), kSecondOfJanuary);
    EXPECT_EQ(WrittenDay("2024-1-2"), kSecondOfJanuary);
    EXPECT_EQ(WrittenDay("20240102"), kSecondOfJanuary);
}

TEST(DayOption, RollsOverBehindItsMonthInEachOfThem) {
    constexpr CalendarDay kFirstOfMarch{.year = 2024, .month = 3, .day = 1};  // of a leap year
    EXPECT_EQ(WrittenDay("2024-02-30"), kFirstOfMarch);
    EXPECT_EQ(WrittenDay("20240230"), kFirstOfMarch);
}

TEST(DayOption, IsNothingElse) {
    for (const char* const text : {"", "today", "2024", "240102", "202401020", "2024010", "2024/01/02", "20241301",
                                   "20240100", "2024-00-02", "19691231", "30010101", "2O240102"}) {
        EXPECT_EQ(WrittenDay(text), std::nullopt) << text;
    }
}

TEST(DayOption, StaysAsItIsUnlessItIsEightDigits) {
    EXPECT_EQ(DashedText("20240102"), "2024-01-02");
    for (const char* const text : {"2024-1-2", "2024-01-02", "today", "2024010", "2024010x"}) {
        EXPECT_EQ(DashedText(text), text);
    }
}

}  // namespace
}  // namespace tradebill::requests_day_option_test
