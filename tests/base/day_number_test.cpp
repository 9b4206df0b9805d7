#include "base/day_number.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>

namespace tradebill::day_number_test {
namespace {

TEST(DayNumber, CountsTheDaysSinceTheYear1970) {
    const struct {
        const char* day;
        std::int64_t number;
    } cases[] = {
        {"19700101", 0},     {"19700102", 1},     {"19691231", -1},
        {"19710101", 365},   {"20000301", 11017},  // 30 years of 365, 7 leap days before 2000, then 31 + 29 days
        {"20240229", 19782},                       // 54 years of 365, 13 leap days before 2024, then 31 + 28 days
        {"20240301", 19783},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(DayNumberOf(row.day), row.number) << row.day;
        EXPECT_EQ(NumberedDay(row.number), row.day);
    }
}

TEST(DayNumber, TakesTheFormsOfStatements) {
    for (const char* const day : {"2024-01-05", "2024/1/5", "2024.01.05", " 20240105 ", "2024-1-05"}) {
        EXPECT_EQ(DayNumberOf(day), DayNumberOf("20240105")) << day;
    }
}

TEST(DayNumber, IsNothingForWhatIsNoDay) {
    for (const char* const day :
         {"", "--", "20230229", "20241301", "20240100", "2024010", "202401055", "24-01-05", "2024-01", "2024-01-05x",
          "2024--05", "2024-01-", "2024-01/05", "2024-001-05", "yyyymmdd", "-2024-1-5"}) {
        EXPECT_EQ(DayNumberOf(day), std::nullopt) << day;
    }
}

TEST(DayNumber, KnowsTheWeekday) {
    EXPECT_EQ(WeekdayOf(0), 4);   // Thursday
    EXPECT_EQ(WeekdayOf(-3), 1);  // the Monday before
    EXPECT_EQ(WeekdayOf(3), 7);
    EXPECT_EQ(WeekdayOf(*DayNumberOf("20240102")), 2);  // Tuesday
}

}  // namespace
}  // namespace tradebill::day_number_test
