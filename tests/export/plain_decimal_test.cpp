// Printed amounts as numbers.
#include "export/plain_decimal.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tradebill::plain_decimal_test {
namespace {

std::string Plain(std::string_view text) {
    return std::string(CPlainDecimal(text).View());
}

TEST(PlainDecimal, KeepsEveryDigit) {
    for (const char* const text : {"0", "7", "1234.50", "-1234.50", "0.10", "-0.00", "123456789012345"}) {
        EXPECT_EQ(Plain(text), text);
    }
}

TEST(PlainDecimal, IsWhatJsonTakes) {
    EXPECT_EQ(Plain("+5.25"), "5.25");
    EXPECT_EQ(Plain(".5"), "0.5");
    EXPECT_EQ(Plain("-.5"), "-0.5");
    EXPECT_EQ(Plain("5."), "5");
    EXPECT_EQ(Plain("007.50"), "7.50");
    EXPECT_EQ(Plain("-00"), "-0");
    EXPECT_EQ(Plain("00.5"), "0.5");
    EXPECT_EQ(Plain(" \t12.30 "), "12.30");
}

TEST(PlainDecimal, DropsCommasThatMarkThousands) {
    EXPECT_EQ(Plain("1,234.50"), "1234.50");
    EXPECT_EQ(Plain("-12,345,678"), "-12345678");
    EXPECT_EQ(Plain("123,456"), "123456");
    for (const char* const text : {",123", "1234,567", "1,23", "1,2345", "12,,345", "1,", "1.234,5", "1,234,"}) {
        EXPECT_EQ(Plain(text), "") << text;
    }
}

TEST(PlainDecimal, IsNothingElse) {
    for (const char* const text : {"", " ", "-", "+", ".", "-.", "--1", "+-1", "1-", "1e5", "0x10", "inf", "nan", "1 2",
                                   "12a", "1.2.3", "12%"}) {
        EXPECT_FALSE(CPlainDecimal(text).IsNumber()) << text;
    }
}

TEST(PlainDecimal, IsNoNumberBeyondFortyBytes) {
    EXPECT_EQ(Plain(std::string(40, '1')), std::string(40, '1'));
    EXPECT_EQ(Plain("." + std::string(39, '1')), "0." + std::string(39, '1'));
    EXPECT_FALSE(CPlainDecimal(std::string(41, '1')).IsNumber());
}

}  // namespace
}  // namespace tradebill::plain_decimal_test
