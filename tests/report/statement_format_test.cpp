#include "report/statement_format.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace tradebill::statement_format_test {
namespace {

/// What the layouts of a number are like.
struct Expectation {
    std::int32_t number;
    bool namesDeliveryApart;
    bool printsNames;
    bool showsExchangeOfClosed;
    EquityRule equity;
    TradeColumns tradeColumns;
};

void ExpectFormat(const StatementFormat& format, const Expectation& expected) {
    EXPECT_EQ(format.namesDeliveryApart, expected.namesDeliveryApart) << expected.number;
    EXPECT_EQ(format.printsNames, expected.printsNames) << expected.number;
    EXPECT_EQ(format.showsExchangeOfClosed, expected.showsExchangeOfClosed) << expected.number;
    EXPECT_EQ(format.equity, expected.equity) << expected.number;
    EXPECT_EQ(format.tradeColumns, expected.tradeColumns) << expected.number;
}

TEST(StatementFormats, DifferInWhatTheirRowsSay) {
    // clang-format off
    constexpr Expectation kFormats[] = {
        {0,   true,  true,  true,  EquityRule::AsPrinted,          TradeColumns::FundClass},
        {1,   true,  false, true,  EquityRule::AsPrinted,          TradeColumns::FundStatus},
        {2,   false, false, true,  EquityRule::MarginAndAvailable, TradeColumns::Full},
        {3,   true,  false, true,  EquityRule::AsPrinted,          TradeColumns::Full},
        {6,   false, false, false, EquityRule::MarginAndAvailable, TradeColumns::Full},
        {201, false, false, true,  EquityRule::AsPrinted,          TradeColumns::Full},
    };
    // clang-format on
    for (const Expectation& expected : kFormats) {
        EXPECT_TRUE(IsKnownFormat(expected.number)) << expected.number;
        EXPECT_EQ(FormatOf(expected.number).number, expected.number);
        ExpectFormat(FormatOf(expected.number), expected);
    }
}

TEST(StatementFormats, OfAnyOtherNumberPrintFullCodesAndAnEquity) {
    for (const std::int32_t number : {-1, 4, 5, 7, 200, 202, INT32_MAX, INT32_MIN}) {
        EXPECT_FALSE(IsKnownFormat(number)) << number;
        ExpectFormat(FormatOf(number), {number, false, false, true, EquityRule::AsPrinted, TradeColumns::Full});
    }
}

TEST(StatementFormats, AreListedByNumber) {
    std::vector<std::int32_t> numbers;
    for (const StatementFormat& format : StatementFormats()) numbers.push_back(format.number);
    EXPECT_EQ(numbers, (std::vector<std::int32_t>{0, 1, 2, 3, 6, 201}));
    EXPECT_EQ(FormatNumbers(), "0, 1, 2, 3, 6, 201");
}

TEST(StatementFormats, NameTheDeliveryApartInThreeFormats) {
    for (const std::int32_t format : {0, 1, 3}) EXPECT_TRUE(FormatOf(format).namesDeliveryApart) << format;
    for (const std::int32_t format : {-1, 2, 4, 5, 6, 201}) {
        EXPECT_FALSE(FormatOf(format).namesDeliveryApart) << format;
    }
}

}  // namespace
}  // namespace tradebill::statement_format_test
