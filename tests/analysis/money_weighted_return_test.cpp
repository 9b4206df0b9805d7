#include "analysis/money_weighted_return.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <vector>

#include "analysis/analysed_account.h"

namespace tradebill::money_weighted_return_test {
namespace {

using Payments = std::vector<Payment>;

TEST(InternalRate, IsThatAtWhichAllIsWorthNothing) {
    EXPECT_NEAR(*InternalRateOf(Payments{{0, -100}, {365, 110}}), 0.1, 1e-14);
    EXPECT_NEAR(*InternalRateOf(Payments{{0, -100}, {730, 121}}), 0.1, 1e-14);
    EXPECT_NEAR(*InternalRateOf(Payments{{0, -100}, {365, 75}}), -0.25, 1e-14);
    EXPECT_NEAR(*InternalRateOf(Payments{{0, -100}, {365, 100}}), 0, 1e-14);
    // 100 f^2 + 100 f - 231 = 0: f = 1.1, since 121 + 110 = 231
    EXPECT_NEAR(*InternalRateOf(Payments{{0, -100}, {365, -100}, {730, 231}}), 0.1, 1e-14);
    EXPECT_NEAR(*InternalRateOf(Payments{{0, -100}, {73, 110}}), std::pow(1.1, 5) - 1, 1e-13);  // a fifth of a year
}

TEST(InternalRate, AgreesWithTheExampleOfASpreadsheet) {
    // The example that manuals of spreadsheets print for XIRR: 0.373362535 on payments of 2008 and 2009.
    // Days from 1 January 2008: 1 March 60, 30 October 303, 15 February 2009 411, 1 April 456.
    EXPECT_NEAR(*InternalRateOf(Payments{{0, -10000}, {60, 2750}, {303, 4250}, {411, 3250}, {456, 2750}}), 0.373362535,
                1e-8);
}

TEST(InternalRate, IsNothingWithoutAChangeOfSign) {
    EXPECT_FALSE(InternalRateOf(Payments{{0, -100}, {365, -10}}));
    EXPECT_FALSE(InternalRateOf(Payments{{0, 100}, {365, 10}}));
    EXPECT_FALSE(InternalRateOf(Payments{{0, 0}, {365, 0}}));
    EXPECT_FALSE(InternalRateOf({}));
}

TEST(InternalRate, OfWhatIsPaidBackIsThatOfALoan) {
    EXPECT_NEAR(*InternalRateOf(Payments{{0, 100}, {365, -110}}), 0.1, 1e-12);
}

TEST(InternalRate, HasAFactorFromAMillionthToAMillion) {
    EXPECT_NEAR(*InternalRateOf(Payments{{0, -1}, {365, 999999}}) / 999998, 1, 1e-12);
    EXPECT_FALSE(InternalRateOf(Payments{{0, -1}, {365, 1000001}}));
    EXPECT_NEAR(*InternalRateOf(Payments{{0, -999999}, {365, 1}}), 1.0 / 999999 - 1, 1e-14);
    EXPECT_FALSE(InternalRateOf(Payments{{0, -1000001}, {365, 1}}));
}

TEST(InternalRate, DoesntOverflowInACentury) {
    EXPECT_NEAR(*InternalRateOf(Payments{{0, -1}, {36500, std::pow(1.1, 100)}}), 0.1, 1e-13);
    EXPECT_NEAR(*InternalRateOf(Payments{{0, -1}, {36500, std::pow(0.5, 100)}}), -0.5, 1e-13);
}

class MoneyWeighted : public AnalysedAccount {
protected:
    MoneyWeightedReturn Of() const { return MoneyWeightedReturnOf(Days()); }
};

TEST_F(MoneyWeighted, PaysTheOpeningEquityInOnTheDayBefore) {
    AddDay("20240102", "1000", "0", "1000");
    AddDay("20241231", "1100");  // 365 days behind 1 January
    EXPECT_NEAR(*Of().rate, 0.1, 1e-14);
}

TEST_F(MoneyWeighted, PaysCashFlowsOnTheirDay) {
    AddDay("20240102", "1000", "0", "1000");
    AddDay("20241231", "2100", "1000");
    AddDay("20251231", "2310");  // 1000 x 1.21 + 1000 x 1.1
    EXPECT_NEAR(*Of().rate, 0.1, 1e-14);
}

TEST_F(MoneyWeighted, TakesADepositOnTheFirstDay) {
    AddDay("20240102", "1000", "1000", "0");
    AddDay("20250101", "1100");  // 365 days behind 2 January
    EXPECT_NEAR(*Of().rate, 0.1, 1e-14);
}

TEST_F(MoneyWeighted, NeedsThirtyDays) {
    AddDay("20240102", "1000", "0", "1000");
    AddDay("20240130", "1100");  // 29 days behind the 1st
    EXPECT_EQ(Of().reason, "less than 30 days");
    AddDay("20240131", "1100");
    EXPECT_NEAR(*Of().rate, std::pow(1.1, 365.0 / 30) - 1, 1e-12);
}

TEST_F(MoneyWeighted, NeedsAChangeOfSign) {
    AddDay("20240102", "1000", "0", "1000");
    AddDay("20241231", "-100");
    EXPECT_EQ(Of().rate, std::nullopt);
    EXPECT_EQ(Of().reason, "the worth of all payments doesn't change its sign");
}

TEST_F(MoneyWeighted, NeedsAllPayments) {
    AddDay("20240102", "1000", "0", "1000");
    AddDay("20240103", "1000", "x");
    AddDay("20241231", "1100");
    EXPECT_EQ(Of().reason, "an equity or a cash flow isn't known");
}

TEST_F(MoneyWeighted, NeedsAClosingEquity) {
    AddDay("20240102", "1000", "0", "1000");
    AddDay("20241231", "1,100.00");
    EXPECT_EQ(Of().reason, "an equity or a cash flow isn't known");
}

TEST_F(MoneyWeighted, NeedsAnOpeningEquity) {
    AddDay("20240102", "1000");
    AddDay("20241231", "1100");
    EXPECT_EQ(Of().reason, "an equity or a cash flow isn't known");
}

}  // namespace
}  // namespace tradebill::money_weighted_return_test
