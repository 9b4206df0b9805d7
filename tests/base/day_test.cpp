#include "base/day.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "base/report_error.h"
#include "support/time_zone.h"

namespace tradebill::day_test {
namespace {

std::tm LocalParts(std::time_t time) {
    return *std::localtime(&time);
}

/// The code with which `day` is refused; 0 if it isn't.
std::uint32_t RefusalOf(const CalendarDay& day) {
    try {
        static_cast<void>(MidnightOf(day));
    } catch (const CReportError& error) {
        return error.Code();
    }
    return 0;
}

TEST(ParseDashedDay, ReadsThreeNumbersWithDashesBetween) {
    const struct {
        const char* text;
        CalendarDay day;
    } cases[] = {
        {"2024-01-02", {2024, 1, 2}},        {"2024-1-2", {2024, 1, 2}},    {" 2024- 1-\t2", {2024, 1, 2}},
        {"2024-1-2 and more", {2024, 1, 2}}, {"+2024-+1-+2", {2024, 1, 2}}, {"02024-00001-0002", {2024, 1, 2}},
        {"2011-2-30", {2011, 2, 30}},        {"-5-13-32", {-5, 13, 32}},    {"2024--1-2", {2024, -1, 2}},
    };
    for (const auto& row : cases) EXPECT_EQ(ParseDashedDay(row.text), row.day) << row.text;
}

TEST(ParseDashedDay, LeavesZerosFromWhereTheTextStopsMatching) {
    const struct {
        const char* text;
        CalendarDay day;
    } cases[] = {
        {"", {0, 0, 0}},
        {"today", {0, 0, 0}},
        {"2024", {2024, 0, 0}},
        {"2024-", {2024, 0, 0}},
        {"2024-1", {2024, 1, 0}},
        {"2024-1-", {2024, 1, 0}},
        {"2024/1/2", {2024, 0, 0}},
        {"2024-1/2", {2024, 1, 0}},
        {"2024 -1-2", {2024, 0, 0}},
        {"2024-x-2", {2024, 0, 0}},
        {"20240102", {20240102, 0, 0}},
        {"-", {0, 0, 0}},
    };
    for (const auto& row : cases) EXPECT_EQ(ParseDashedDay(row.text), row.day) << row.text;
}

TEST(ParsePackedDay, ReadsFourTwoAndTwoDigits) {
    const struct {
        const char* text;
        CalendarDay day;
    } cases[] = {
        {"20240102", {2024, 1, 2}},
        {"2024010299", {2024, 1, 2}},
        {"2024 1 2", {2024, 1, 2}},  // white space isn't counted in the width
        {"  20240102", {2024, 1, 2}},
        {"202412", {2024, 12, 0}},
        {"2024", {2024, 0, 0}},
        {"2024-1-2", {2024, -1, -2}},
        {"2024x102", {2024, 0, 0}},
        {"24", {24, 0, 0}},
        {"", {0, 0, 0}},
        {"abcdefgh", {0, 0, 0}},
    };
    for (const auto& row : cases) EXPECT_EQ(ParsePackedDay(row.text), row.day) << row.text;
}

TEST(MidnightOf, IsLocalMidnightOfTheDay) {
    for (const char* const zone : {"UTC0", "CST-8", "EST5EDT,M3.2.0,M11.1.0"}) {
        const CTimeZone inZone(zone);
        for (const CalendarDay& day : {CalendarDay{2024, 1, 15}, CalendarDay{2024, 7, 15}}) {
            const std::tm parts = LocalParts(MidnightOf(day));
            EXPECT_EQ((CalendarDay{parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday}), day) << zone;
            EXPECT_EQ(parts.tm_hour * 3600 + parts.tm_min * 60 + parts.tm_sec, 0) << zone;
        }
    }
}

TEST(MidnightOf, CountsSecondsFrom1970) {
    const CTimeZone inZone("UTC0");
    EXPECT_EQ(MidnightOf({1970, 1, 1}), 0);
    EXPECT_EQ(MidnightOf({1970, 1, 2}), kSecondsPerDay);
    EXPECT_EQ(MidnightOf({2000, 3, 1}), 951868800);
}

TEST(MidnightOf, RollsOverBeyondTheEndOfAMonth) {
    EXPECT_EQ(MidnightOf({2011, 2, 30}), MidnightOf({2011, 3, 2}));
    EXPECT_EQ(MidnightOf({2012, 2, 30}), MidnightOf({2012, 3, 1}));
    EXPECT_EQ(MidnightOf({2011, 4, 31}), MidnightOf({2011, 5, 1}));
}

TEST(MidnightOf, RefusesNumbersOutOfBounds) {
    const struct {
        CalendarDay day;
        std::uint32_t code;
    } cases[] = {
        {{1899, 12, 31}, 0x80004005}, {{0, 0, 0}, 0x80004005},
        {{2024, 0, 1}, 0x80004005},   {{2024, 1, 1}, 0},
        {{2024, 12, 1}, 0},           {{2024, 13, 1}, 0x80004005},
        {{2024, 1, 0}, 0x80004005},   {{2024, 1, 31}, 0},
        {{2024, 1, 32}, 0x80004005},  {{2024, -1, 1}, 0x80004005},
        {{2024, 1, -1}, 0x80004005},  {{-2024, 1, 1}, 0x80004005},
        {{1899, 13, 32}, 0x80004005},
    };
    for (const auto& row : cases) EXPECT_EQ(RefusalOf(row.day), row.code) << DashedDayText(row.day);
}

TEST(MidnightOf, RefusesDaysThatHaveNoTimeValue) {
    const CTimeZone inZone("UTC0");
    EXPECT_EQ(RefusalOf({1900, 1, 1}), 0x80070057U);
    EXPECT_EQ(RefusalOf({1969, 12, 31}), 0x80070057U);
    EXPECT_EQ(RefusalOf({1970, 1, 1}), 0U);
    EXPECT_EQ(RefusalOf({3000, 12, 31}), 0U);
    EXPECT_EQ(RefusalOf({3001, 1, 1}), 0x80070057U);
    EXPECT_EQ(RefusalOf({INT_MAX, 12, 31}), 0x80070057U);
}

TEST(MidnightOf, CountsTheYear1970FromMidnightAtGreenwich) {
    const CTimeZone inZone("CST-8");  // there 1 January 1970 began 8 hours before
    EXPECT_EQ(RefusalOf({1970, 1, 1}), 0x80070057U);
    EXPECT_EQ(MidnightOf({1970, 1, 2}), 16 * 3600);
}

TEST(TryMidnightOf, IsMidnightOrNothing) {
    EXPECT_EQ(TryMidnightOf({2024, 2, 30}), MidnightOf({2024, 3, 1}));
    for (const CalendarDay& day : {CalendarDay{2024, 13, 1}, {2024, 1, 32}, {1899, 1, 1}, {1960, 1, 1}, {3002, 1, 1}}) {
        EXPECT_EQ(TryMidnightOf(day), std::nullopt) << day.year;
        EXPECT_FALSE(HasMidnight(day)) << day.year;
    }
    EXPECT_TRUE(HasMidnight({2024, 12, 31}));
}

TEST(DayText, IsYearMonthAndDayInEightDigits) {
    EXPECT_EQ(DayText({2024, 1, 2}), "20240102");
    EXPECT_EQ(DayText({2024, 12, 31}), "20241231");
    EXPECT_EQ(DayText({900, 1, 2}), " 9000102");
}

TEST(DashedDayText, IsYearMonthAndDayWithDashes) {
    EXPECT_EQ(DashedDayText({2024, 1, 2}), "2024-01-02");
    EXPECT_EQ(DashedDayText({2024, 12, 31}), "2024-12-31");
}

}  // namespace
}  // namespace tradebill::day_test
