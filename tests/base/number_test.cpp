#include "base/number.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cfloat>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <system_error>

namespace tradebill::number_test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ParseAmount, ReadsTheNumberAtTheStartAndPassesOverTheRest) {
    const struct {
        const char* text;
        double amount;
    } cases[] = {
        {"12.5", 12.5},  {"12.5abc", 12.5}, {" \t\n\v\f\r-3.25", -3.25},
        {"+7", 7},       {"1,234.00", 1},   {"1 2", 1},
        {"5.", 5},       {".5", 0.5},       {"-.5x", -0.5},
        {"1.2.3", 1.2},  {"007", 7},        {"1e3", 1000},
        {"1E-2x", 0.01}, {"1e+2", 100},     {"1e", 1},
        {"1e+", 1},      {"2.5%", 2.5},
    };
    for (const auto& row : cases) EXPECT_EQ(ParseAmount(row.text), row.amount) << row.text;
}

TEST(ParseAmount, IsZeroWhereThereIsNoNumber) {
    for (const char* const text : {"",
                                   " ",
                                   "abc",
                                   ".",
                                   "-",
                                   "+",
                                   "-.",
                                   "--5",
                                   "+-5",
                                   "-+5",
                                   "- 5",
                                   "e5",
                                   ".e5",
                                   "inf",
                                   "-inf",
                                   "Infinity",
                                   "nan",
                                   "-NaN",
                                   "\xA1\xA1"
                                   "5",
                                   "\xA3\xB5",
                                   "$5"}) {
        EXPECT_EQ(ParseAmount(text), 0.0) << text;
    }
}

TEST(IsAmount, TakesADecimalAsAWhole) {
    for (const char* const text : {"0", "12.5", "-3.25", "+7", "5.", ".5", "-.5", "007", " 12", "1234567890.12"}) {
        EXPECT_TRUE(IsAmount(text)) << text;
    }
}

TEST(IsAmount, RefusesWhatIsReadInPart) {
    for (const char* const text :
         {"",    " ",   "-",   "+",   ".",   "--",   "-.",  "--5", "1,234.00", "1.2.3",     "..5",
          "5..", "12a", "12 ", "1 2", "1e3", "0x10", "inf", "nan", "2.5%",     "2024-01-02"}) {
        EXPECT_FALSE(IsAmount(text)) << text;
    }
}

TEST(ParseAmount, TakesNoHexadecimalForms) {
    EXPECT_EQ(ParseAmount("0x10"), 0.0);
    EXPECT_EQ(ParseAmount("0X1p4"), 0.0);
    EXPECT_EQ(ParseAmount("-0x10"), 0.0);
}

TEST(ParseAmount, KeepsTheSignOfZero) {
    EXPECT_TRUE(std::signbit(ParseAmount("-0.00")));
    EXPECT_FALSE(std::signbit(ParseAmount("0.00")));
}

TEST(ParseAmount, RoundsToTheNearestDouble) {
    EXPECT_EQ(ParseAmount("0.1"), 0.1);
    EXPECT_EQ(ParseAmount("9007199254740993"), 9007199254740992.0);  // 2^53 + 1 lies between two doubles
    EXPECT_EQ(ParseAmount("1.7976931348623157e308"), DBL_MAX);
    EXPECT_EQ(ParseAmount("2.2250738585072014e-308"), DBL_MIN);
    EXPECT_EQ(ParseAmount("4.9406564584124654e-324"), 4.9406564584124654e-324);
}

TEST(ParseAmount, OverflowsToInfinityAndUnderflowsToZero) {
    EXPECT_EQ(ParseAmount("1e309"), kInfinity);
    EXPECT_EQ(ParseAmount("-1e309"), -kInfinity);
    EXPECT_EQ(ParseAmount("1e99999999999999999999"), kInfinity);
    EXPECT_EQ(ParseAmount(std::string(400, '9')), kInfinity);
    EXPECT_EQ(ParseAmount("1e-400"), 0.0);
    EXPECT_EQ(ParseAmount("1e-99999999999999999999"), 0.0);
    EXPECT_EQ(ParseAmount("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(ParseAmount("0e999999"), 0.0);
    EXPECT_EQ(ParseAmount("0." + std::string(400, '0') + "1e401"), 1.0);
}

TEST(ParseAmount, ReadsNoFurtherThanItsText) {
    const std::string_view text("12345");
    EXPECT_EQ(ParseAmount(text.substr(0, 3)), 123.0);
    EXPECT_EQ(ParseAmount(std::string_view()), 0.0);
}

TEST(ParseAmount, AgreesWithTheLibraryOnDecimalNumbers) {
    std::mt19937 random(20240102);
    std::uniform_int_distribution<int> digit(0, 9);
    std::uniform_int_distribution<int> length(1, 18);
    for (int i = 0; i < 5000; ++i) {
        std::string text = digit(random) < 3 ? "-" : "";
        for (int k = length(random); k > 0; --k) text += static_cast<char>('0' + digit(random));
        text += '.';
        for (int k = length(random); k > 0; --k) text += static_cast<char>('0' + digit(random));
        EXPECT_EQ(ParseAmount(text), std::strtod(text.c_str(), nullptr)) << text;
    }
}

/// Short decimals are read in a way of their own; on both sides of their bounds they must be the nearest doubles.
TEST(ParseAmount, ReadsShortAndLongDecimalsToTheSameBits) {
    std::mt19937_64 random(11);
    const auto below = [&random](std::uint64_t bound) { return static_cast<std::size_t>(random() % bound); };
    for (int i = 0; i < 200000; ++i) {
        std::string text;
        const std::size_t digits = 1 + below(19);
        const std::size_t point = below(digits + 1);  // behind this many digits; half the time none at the end
        for (std::size_t k = 0; k < digits; ++k) {
            if (k == point) text += '.';
            text += static_cast<char>('0' + below(10));
        }
        if (point == digits && below(2) == 0) text += '.';
        if (below(20) == 0) text += "e-" + std::to_string(below(30));
        double expected = 0;
        ASSERT_EQ(std::from_chars(text.data(), text.data() + text.size(), expected).ec, std::errc{}) << text;
        for (const char* const behind : {"", " ", "x", ",5", "-"}) {
            ASSERT_EQ(std::bit_cast<std::uint64_t>(ParseAmount(text + behind)), std::bit_cast<std::uint64_t>(expected))
                << text << behind;
        }
        ASSERT_EQ(std::bit_cast<std::uint64_t>(ParseAmount(" -" + text)), std::bit_cast<std::uint64_t>(-expected));
    }
}

TEST(ParseInteger, ReadsTheWholeNumberAtTheStart) {
    const struct {
        const char* text;
        std::int32_t number;
    } cases[] = {
        {"12", 12},      {"12x", 12},  {" \t\n\v\f\r-7", -7},
        {"+7", 7},       {"1.9", 1},   {"-1.9", -1},
        {"1e3", 1},      {"1,000", 1}, {"007", 7},
        {"", 0},         {" ", 0},     {"-", 0},
        {"--5", 0},      {"+-5", 0},   {"- 5", 0},
        {"x5", 0},       {"0x10", 0},  {".5", 0},
        {"\xA3\xB5", 0},
    };
    for (const auto& row : cases) EXPECT_EQ(ParseInteger(row.text), row.number) << row.text;
}

TEST(ParseInteger, IsHeldAtTheEndsOfTheRange) {
    EXPECT_EQ(ParseInteger("2147483646"), 2147483646);
    EXPECT_EQ(ParseInteger("2147483647"), INT32_MAX);
    EXPECT_EQ(ParseInteger("2147483648"), INT32_MAX);
    EXPECT_EQ(ParseInteger("4294967297"), INT32_MAX);
    EXPECT_EQ(ParseInteger("-2147483647"), -2147483647);
    EXPECT_EQ(ParseInteger("-2147483648"), INT32_MIN);
    EXPECT_EQ(ParseInteger("-2147483649"), INT32_MIN);
    EXPECT_EQ(ParseInteger(std::string(100, '9')), INT32_MAX);
    EXPECT_EQ(ParseInteger("-" + std::string(100, '9')), INT32_MIN);
}

TEST(FieldNumbers, EndWithTheirField) {
    const char unterminated[3] = {'1', '2', '3'};
    EXPECT_EQ(AmountIn(unterminated), 123);
    EXPECT_EQ(IntegerIn(unterminated), 123);
    const char field[16] =
        "-1.5\0"
        "9";
    EXPECT_EQ(AmountIn(field), -1.5);
    EXPECT_EQ(IntegerIn(field), -1);
    const char empty[16] = {};
    EXPECT_EQ(AmountIn(empty), 0);
    EXPECT_EQ(IntegerIn(empty), 0);
}

TEST(WrapArithmetic, WrapsAtThirtyTwoBits) {
    EXPECT_EQ(WrapAdd(INT32_MAX, 1), INT32_MIN);
    EXPECT_EQ(WrapAdd(2, -5), -3);
    EXPECT_EQ(WrapSubtract(INT32_MIN, 1), INT32_MAX);
    EXPECT_EQ(WrapSubtract(2, 5), -3);
    EXPECT_EQ(WrapMultiply(65536, 65536), 0);
    EXPECT_EQ(WrapMultiply(65536, 32768), INT32_MIN);
    EXPECT_EQ(WrapMultiply(-3, 5), -15);
    EXPECT_EQ(WrapMultiply(INT32_MIN, -1), INT32_MIN);
}

TEST(SaturatingArithmetic, StopsAtTheEndsOfTheRange) {
    EXPECT_EQ(ClampToInt32(INT32_MAX), INT32_MAX);
    EXPECT_EQ(ClampToInt32(std::int64_t{INT32_MAX} + 1), INT32_MAX);
    EXPECT_EQ(ClampToInt32(INT32_MIN), INT32_MIN);
    EXPECT_EQ(ClampToInt32(std::int64_t{INT32_MIN} - 1), INT32_MIN);
    EXPECT_EQ(ClampToInt32(-7), -7);
}

TEST(SaturatingArithmetic, CutsTowardsZero) {
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    EXPECT_EQ(TruncateToInt32(1.99), 1);
    EXPECT_EQ(TruncateToInt32(-1.99), -1);
    EXPECT_EQ(TruncateToInt32(2147483647.5), INT32_MAX);
    EXPECT_EQ(TruncateToInt32(2147483648.0), INT32_MAX);
    EXPECT_EQ(TruncateToInt32(-2147483648.5), INT32_MIN);
    EXPECT_EQ(TruncateToInt32(kEndless), INT32_MAX);
    EXPECT_EQ(TruncateToInt32(-kEndless), INT32_MIN);
    EXPECT_EQ(TruncateToInt32(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(SmallestAmount, IsTheSinglePrecisionEpsilon) {
    EXPECT_EQ(kSmallestAmount, std::numeric_limits<float>::epsilon());
}

TEST(WholeNumber, IsANumberAndNothingElse) {
    EXPECT_EQ(WholeNumber("0"), 0);
    EXPECT_EQ(WholeNumber("-5"), -5);
    EXPECT_EQ(WholeNumber("0010"), 10);
    EXPECT_EQ(WholeNumber("2147483647"), 2147483647);
    for (const char* const text : {"", " 1", "1 ", "1.0", "1e3", "0x10", "2147483648", "-", "one"}) {
        EXPECT_EQ(WholeNumber(text), std::nullopt) << text;
    }
}

TEST(NumberText, WritesAmountsWithTwoDecimals) {
    const struct {
        double amount;
        std::string_view text;
    } cases[] = {
        {0, "0.00"},
        {1234567.891, "1234567.89"},
        {-0.5, "-0.50"},
        {0.004, "0.00"},
        {0.006, "0.01"},
        {-0.001, "-0.00"},
        {2.675, "2.67"},
        {66.666666666666667, "66.67"},
        {1e15, "1000000000000000.00"},
        {99.999, "100.00"},
        {kInfinity, "inf"},
        {-kInfinity, "-inf"},
    };
    for (const auto& row : cases) EXPECT_EQ(CNumberText(row.amount).View(), row.text);
    EXPECT_EQ(CNumberText(std::nan("")).View(), "nan");
}

TEST(NumberText, HoldsTheLongestAmount) {
    const CNumberText text(-DBL_MAX);
    EXPECT_EQ(text.View().size(), 1U + 309U + 3U);
    EXPECT_TRUE(text.View().starts_with("-17976931348623157"));
    EXPECT_TRUE(text.View().ends_with("8368.00"));
}

TEST(NumberText, AgreesWithTheLibrary) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_int_distribution<int> exponent(-30, 70);
    for (int i = 0; i < 5000; ++i) {
        const double amount = std::ldexp(mantissa(random), exponent(random));
        std::array<char, 64> expected{};
        std::snprintf(expected.data(), expected.size(), "%.2f", amount);
        EXPECT_EQ(CNumberText(amount).View(), expected.data());
    }
}

TEST(NumberText, WritesCounts) {
    EXPECT_EQ(CNumberText(0).View(), "0");
    EXPECT_EQ(CNumberText(-5).View(), "-5");
    EXPECT_EQ(CNumberText(INT32_MAX).View(), "2147483647");
    EXPECT_EQ(CNumberText(INT32_MIN).View(), "-2147483648");
}

}  // namespace
}  // namespace tradebill::number_test
