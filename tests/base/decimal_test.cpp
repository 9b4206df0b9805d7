#include "base/decimal.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace tradebill::decimal_test {
namespace {

TEST(ParseDecimal, ReadsAmountsAsStatementsPrintThem) {
    const struct {
        const char* text;
        std::int64_t steps;
        int places;
    } cases[] = {
        {"0", 0, 0},
        {"12", 120000, 0},
        {"12.5", 125000, 1},
        {"-12.50", -125000, 2},
        {"+7.125", 71250, 3},
        {"0.0001", 1, 4},
        {".5", 5000, 1},
        {"-.5", -5000, 1},
        {"5.", 50000, 0},
        {"1,234.50", 12345000, 2},
        {"1,234,567", 12345670000, 0},
        {" \t42.00 \r", 420000, 2},
        {"007", 70000, 0},
        {"-0.00", 0, 2},
    };
    for (const auto& row : cases) {
        const auto decimal = ParseDecimal(row.text);
        ASSERT_TRUE(decimal) << row.text;
        EXPECT_EQ(decimal->steps, row.steps) << row.text;
        EXPECT_EQ(decimal->places, row.places) << row.text;
    }
}

TEST(ParseDecimal, CutsWhatStandsBehindTheFourthPlace) {
    const auto decimal = ParseDecimal("1.23459999");
    ASSERT_TRUE(decimal);
    EXPECT_EQ(decimal->steps, 12345);
    EXPECT_EQ(decimal->places, 4);
}

TEST(ParseDecimal, ReadsThirteenWholeDigitsAndNoMore) {
    const auto most = ParseDecimal("9999999999999.9999");
    ASSERT_TRUE(most);
    EXPECT_EQ(most->steps, 99999999999999999);
    EXPECT_EQ(ParseDecimal("-9999999999999.9999").value_or(Decimal{}).steps, -99999999999999999);
    EXPECT_FALSE(ParseDecimal("10000000000000"));
}

TEST(Decimals, WrapAndLieApartWithoutAFault) {
    EXPECT_EQ(WrappingSum(2, -3), -1);
    EXPECT_EQ(WrappingSum(INT64_MAX, 1), INT64_MIN);
    EXPECT_EQ(DistanceOf(5, -3), 8U);
    EXPECT_EQ(DistanceOf(-3, 5), 8U);
    EXPECT_EQ(DistanceOf(INT64_MIN, INT64_MAX), UINT64_MAX);
}

TEST(ParseDecimal, ReadsNothingElse) {
    for (const char* const text : {"", " ", "-", "+", ".", "-.", "abc", "12a", "a12", "1.2.3", "1 2", "12%", "1e3",
                                   "--1", "+-1", ",123", "0x1", "1.2,3"}) {
        EXPECT_FALSE(ParseDecimal(text)) << text;
    }
}

TEST(Decimal, IsRoundedByHalfAUnitOfItsLastPlace) {
    EXPECT_EQ(ParseDecimal("3").value_or(Decimal{}).Rounding(), 5000);
    EXPECT_EQ(ParseDecimal("3.0").value_or(Decimal{}).Rounding(), 500);
    EXPECT_EQ(ParseDecimal("3.00").value_or(Decimal{}).Rounding(), 50);
    EXPECT_EQ(ParseDecimal("3.000").value_or(Decimal{}).Rounding(), 5);
    EXPECT_EQ(ParseDecimal("3.0000").value_or(Decimal{}).Rounding(), 0);
    EXPECT_EQ(Decimal::HalfUnit(2), 50);
}

TEST(DecimalText, HasTwoPlacesOrAsManyMoreAsItTakes) {
    const struct {
        std::int64_t steps;
        const char* text;
    } cases[] = {{0, "0.00"},           {1, "0.0001"},         {10, "0.001"},         {100, "0.01"},
                 {1200, "0.12"},        {10000, "1.00"},       {-5000, "-0.50"},      {-1, "-0.0001"},
                 {12345000, "1234.50"}, {12345600, "1234.56"}, {12345670, "1234.567"}};
    for (const auto& row : cases) EXPECT_EQ(DecimalText(row.steps), row.text);
    EXPECT_EQ(DecimalText(std::numeric_limits<std::int64_t>::min()), "-922337203685477.5808");
    EXPECT_EQ(DecimalText(std::numeric_limits<std::int64_t>::max()), "922337203685477.5807");
}

TEST(DecimalText, IsReadAsWhatItIs) {
    for (std::int64_t steps = -30011; steps < 30011; steps += 7) {
        EXPECT_EQ(ParseDecimal(DecimalText(steps)).value_or(Decimal{}).steps, steps);
    }
}

TEST(Decimal, MakesThreeTenthsOfOneAndTwo) {
    EXPECT_EQ(ParseDecimal("0.1")->steps + ParseDecimal("0.2")->steps, ParseDecimal("0.3")->steps);
}

}  // namespace
}  // namespace tradebill::decimal_test
