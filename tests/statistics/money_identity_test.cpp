// Which form of the balance an account's own days keep.
#include "statistics/money_identity.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <utility>

#include "base/decimal.h"
#include "report/money_identity.h"
#include "report/printed_money.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "support/store_fixture.h"

namespace tradebill::money_identity_test {
namespace {

using enum PrintedFigure;
using Amounts = std::initializer_list<std::pair<PrintedFigure, std::int64_t>>;

/// Amounts in whole units.
PrintedMoney MoneyOf(Amounts amounts) {
    PrintedMoney money;
    for (const auto& [figure, amount] : amounts) money[figure] = amount * kDecimalSteps;
    return money;
}

class MoneyIdentityTest : public StoreFixture {
protected:
    void Add(int times, const PrintedMoney& money) {
        for (int i = 0; i < times; ++i) report.PrintedMoney.push_back(money);
    }
    const MoneyIdentity& Find() {
        FindMoneyIdentity(report);
        return report.MoneyIdentity;
    }
};

TEST_F(MoneyIdentityTest, AddsUpAllTerms) {
    const PrintedMoney money = MoneyOf({{Opening, 1000},
                                        {CashFlow, 50},
                                        {ClosedPL, 7},
                                        {PositionPL, -20},
                                        {Fees, 3},
                                        {ExerciseFees, 2},
                                        {DeliveryFees, 1},
                                        {ExercisePL, 40},
                                        {PledgeChange, 300},
                                        {FxPledgeChange, 5},
                                        {Premium, 11}});
    BalanceForm form{.premium = PremiumTerm::Net};
    EXPECT_EQ(BalanceBy(form, money), (1000 + 50 + 7 - 20 - 3 + 11) * kDecimalSteps);
    form.takesExerciseFees = form.takesDeliveryFees = form.addsExercisePL = form.addsPledgeChanges = true;
    EXPECT_EQ(BalanceBy(form, money), (1000 + 50 + 7 - 20 - 3 + 11 - 2 - 1 + 40 + 300 + 5) * kDecimalSteps);
    EXPECT_EQ(TermsOf(form, money), 12);
    EXPECT_EQ(TermsOf({}, MoneyOf({{Opening, 1000}, {Fees, 0}})), 2);
}

TEST_F(MoneyIdentityTest, TakesDepositsAndWithdrawalsWhereTheirSumIsntPrinted) {
    PrintedMoney money = MoneyOf({{Opening, 1000}, {Deposits, 50}, {Withdrawals, 20}});
    EXPECT_EQ(BalanceBy({}, money), 1030 * kDecimalSteps);
    money[CashFlow] = 7 * kDecimalSteps;
    EXPECT_EQ(BalanceBy({}, money), 1007 * kDecimalSteps);
}

TEST_F(MoneyIdentityTest, LeavesTheCashFlowAsTheRest) {
    // 1000 + 7 - 20 - 3 = 984; 1034 is closed with
    PrintedMoney money = MoneyOf({{Opening, 1000}, {ClosedPL, 7}, {PositionPL, -20}, {Fees, 3}, {Closing, 1034}});
    EXPECT_EQ(CashFlowRest({}, money), 50 * kDecimalSteps);
    money[CashFlow] = 50 * kDecimalSteps;
    EXPECT_EQ(CashFlowRest({}, money), 50 * kDecimalSteps);  // the flow isn't taken off itself
    money[Deposits] = 70 * kDecimalSteps;
    EXPECT_EQ(CashFlowRest({}, money), 50 * kDecimalSteps);
    money[Closing] = 934 * kDecimalSteps;
    EXPECT_EQ(CashFlowRest({}, money), -50 * kDecimalSteps);
}

TEST_F(MoneyIdentityTest, TakesARestWithinRoundingForNoCashFlow) {
    // five terms with the closing balance, each of which may be off by half a cent: 250 of 1/10000
    PrintedMoney money = MoneyOf({{Opening, 1000}, {ClosedPL, 7}, {PositionPL, -20}, {Fees, 3}, {Closing, 984}});
    *money[Closing] += 250;
    EXPECT_EQ(CashFlowRest({}, money), 0);
    *money[Closing] += 1;
    EXPECT_EQ(CashFlowRest({}, money), 251);
    *money[Closing] -= 502;
    EXPECT_EQ(CashFlowRest({}, money), -251);
}

TEST_F(MoneyIdentityTest, TakesPremiumInEachOfItsForms) {
    PrintedMoney money = MoneyOf({{Opening, 1000}, {PremiumReceived, 30}, {PremiumPaid, 10}, {Premium, 5}});
    money.OptionTurnover = 7 * kDecimalSteps;
    const auto balance = [&](PremiumTerm premium) { return BalanceBy({.premium = premium}, money) / kDecimalSteps; };
    EXPECT_EQ(balance(PremiumTerm::None), 1000);
    EXPECT_EQ(balance(PremiumTerm::Net), 1005);
    EXPECT_EQ(balance(PremiumTerm::ReceivedLessPaid), 1020);
    EXPECT_EQ(balance(PremiumTerm::Turnover), 1007);
}

TEST_F(MoneyIdentityTest, TakesTheClosingBalanceForAnEquityThatIsntPrinted) {
    PrintedMoney money = MoneyOf({{Closing, 500}, {Margin, 100}, {Frozen, 30}, {DeliveryMargin, 4}});
    EXPECT_EQ(AvailableBy({}, money), 400 * kDecimalSteps);
    EXPECT_EQ(AvailableBy({.takesFrozen = true, .takesDeliveryMargin = true}, money), 366 * kDecimalSteps);
    money[Equity] = 600 * kDecimalSteps;
    EXPECT_EQ(AvailableBy({}, money), 500 * kDecimalSteps);
}

TEST_F(MoneyIdentityTest, NeedsFiveStatements) {
    const PrintedMoney money = MoneyOf({{Opening, 1000}, {Fees, 3}, {Closing, 997}, {Margin, 7}, {Available, 990}});
    Add(4, money);
    EXPECT_EQ(Find().Statements, 4);
    EXPECT_FALSE(report.MoneyIdentity.Balance);
    EXPECT_FALSE(report.MoneyIdentity.Available);
    Add(1, money);
    EXPECT_EQ(Find().Statements, 5);
    EXPECT_TRUE(report.MoneyIdentity.Balance);
    EXPECT_EQ(report.MoneyIdentity.AvailableStatements, 5);
    EXPECT_TRUE(report.MoneyIdentity.Available);
}

TEST_F(MoneyIdentityTest, NeedsFourOfFive) {
    Add(8, MoneyOf({{Opening, 1000}, {Closing, 1000}}));
    Add(2, MoneyOf({{Opening, 1000}, {Closing, 1500}}));
    EXPECT_TRUE(Find().Balance);
    Add(1, MoneyOf({{Opening, 1000}, {Closing, 2000}}));
    EXPECT_EQ(Find().Statements, 11);
    EXPECT_FALSE(report.MoneyIdentity.Balance);
}

TEST_F(MoneyIdentityTest, CountsStatementsWithBothBalancesAlone) {
    Add(5, MoneyOf({{Opening, 1000}, {Closing, 1000}}));
    Add(9, MoneyOf({{Opening, 1000}}));
    EXPECT_EQ(Find().Statements, 5);
    EXPECT_TRUE(report.MoneyIdentity.Balance);
    EXPECT_EQ(report.MoneyIdentity.AvailableStatements, 0);
}

TEST_F(MoneyIdentityTest, FindsWhetherFeesHoldThoseOfExercises) {
    Add(6, MoneyOf({{Opening, 1000}, {Fees, 10}, {ExerciseFees, 4}, {Closing, 986}}));
    EXPECT_TRUE(Find().Balance.value_or(BalanceForm{}).takesExerciseFees);
    report.PrintedMoney.clear();
    Add(6, MoneyOf({{Opening, 1000}, {Fees, 10}, {ExerciseFees, 4}, {Closing, 990}}));
    EXPECT_FALSE(Find().Balance.value_or(BalanceForm{.takesExerciseFees = true}).takesExerciseFees);
}

TEST_F(MoneyIdentityTest, FindsWhetherProfitStandsInOneFigure) {
    Add(6, MoneyOf({{Opening, 1000}, {DayPL, 70}, {ClosedPL, 20}, {Closing, 1070}}));
    EXPECT_TRUE(Find().Balance.value_or(BalanceForm{}).usesDayPL);
    report.PrintedMoney.clear();
    Add(6, MoneyOf({{Opening, 1000}, {DayPL, 70}, {ClosedPL, 20}, {Closing, 1020}}));
    EXPECT_FALSE(Find().Balance.value_or(BalanceForm{.usesDayPL = true}).usesDayPL);
}

TEST_F(MoneyIdentityTest, FindsWherePremiumComesFrom) {
    const auto premium = [&] { return Find().Balance.value_or(BalanceForm{}).premium; };
    Add(6, MoneyOf({{Opening, 1000}, {Premium, 30}, {Closing, 1030}}));
    EXPECT_EQ(premium(), PremiumTerm::Net);
    report.PrintedMoney.clear();
    Add(6, MoneyOf({{Opening, 1000}, {PremiumReceived, 30}, {PremiumPaid, 10}, {Closing, 1020}}));
    EXPECT_EQ(premium(), PremiumTerm::ReceivedLessPaid);
    report.PrintedMoney.clear();
    PrintedMoney money = MoneyOf({{Opening, 1000}, {Closing, 960}});
    money.OptionTurnover = -40 * kDecimalSteps;
    Add(6, money);
    EXPECT_EQ(premium(), PremiumTerm::Turnover);
}

TEST_F(MoneyIdentityTest, TakesNoTurnoverForAPremiumThatIsPrinted) {
    PrintedMoney right = MoneyOf({{Opening, 1000}, {PremiumReceived, 30}, {PremiumPaid, 0}, {Closing, 1030}});
    right.OptionTurnover = 30 * kDecimalSteps;
    Add(9, right);
    PrintedMoney wrong = right;
    wrong[PremiumReceived] = 80 * kDecimalSteps;
    Add(1, wrong);
    EXPECT_EQ(Find().Balance.value_or(BalanceForm{}).premium, PremiumTerm::ReceivedLessPaid);
}

TEST_F(MoneyIdentityTest, FindsWhatIsHeldBackFromAvailableFunds) {
    Add(6, MoneyOf({{Equity, 1000}, {Margin, 100}, {Frozen, 30}, {Available, 900}}));
    EXPECT_FALSE(Find().Available.value_or(AvailableForm{.takesFrozen = true}).takesFrozen);
    report.PrintedMoney.clear();
    Add(6, MoneyOf({{Equity, 1000}, {Margin, 100}, {Frozen, 30}, {Available, 870}}));
    EXPECT_TRUE(Find().Available.value_or(AvailableForm{}).takesFrozen);
}

TEST_F(MoneyIdentityTest, AllowsHalfACentForEachTerm) {
    constexpr std::int64_t kHalfACent = kDecimalSteps / 200;
    PrintedMoney money = MoneyOf({{Opening, 1000}, {Fees, 3}, {Closing, 997}});
    money[Closing] = *money[Closing] + 3 * kHalfACent;
    Add(5, money);
    EXPECT_TRUE(Find().Balance);
    report.PrintedMoney.clear();
    money[Closing] = *money[Closing] + 1;
    Add(5, money);
    EXPECT_FALSE(Find().Balance);
}

TEST_F(MoneyIdentityTest, SaysNothingOfTheForeignFamily) {
    report.Request.StatementKind = kForeignKind;
    Add(6, MoneyOf({{Opening, 1000}, {Closing, 1000}}));
    EXPECT_EQ(Find().Statements, 0);
    EXPECT_FALSE(report.MoneyIdentity.Balance);
}

TEST_F(MoneyIdentityTest, KnowsTheUsualFormOfOneStatement) {
    EXPECT_EQ(UsualBalanceForm(MoneyOf({{Premium, 0}, {PremiumPaid, 0}})).premium, PremiumTerm::Net);
    EXPECT_EQ(UsualBalanceForm(MoneyOf({{PremiumPaid, 0}})).premium, PremiumTerm::ReceivedLessPaid);
    EXPECT_EQ(UsualBalanceForm(MoneyOf({})).premium, PremiumTerm::Turnover);
    EXPECT_FALSE(UsualBalanceForm(MoneyOf({})).usesDayPL);
    EXPECT_TRUE(UsualBalanceForm(MoneyOf({{DayPL, 0}})).usesDayPL);
}

TEST_F(MoneyIdentityTest, TakesAPremiumThatIsPaidAloneForPrinted) {
    for (const PrintedFigure printed : {Premium, PremiumReceived, PremiumPaid}) {
        report.PrintedMoney.clear();
        PrintedMoney money = MoneyOf({{Opening, 1000}, {Closing, 1011}, {printed, 0}});
        money.OptionTurnover = 11 * kDecimalSteps;
        Add(5, money);
        EXPECT_FALSE(Find().Balance) << "turnover stands for no premium that is printed";
    }
    report.PrintedMoney.clear();
    PrintedMoney money = MoneyOf({{Opening, 1000}, {Closing, 1011}});
    money.OptionTurnover = 11 * kDecimalSteps;
    Add(5, money);
    EXPECT_TRUE(Find().Balance);
}

TEST_F(MoneyIdentityTest, CountsAvailableFundsThatHaveABalanceBesideThem) {
    Add(5, MoneyOf({{Margin, 10}, {PrintedFigure::Available, 90}}));
    EXPECT_EQ(Find().AvailableStatements, 0);
    Add(5, MoneyOf({{Equity, 100}, {Margin, 10}, {PrintedFigure::Available, 90}}));
    EXPECT_EQ(Find().AvailableStatements, 5);
    Add(5, MoneyOf({{Closing, 100}, {Margin, 10}, {PrintedFigure::Available, 90}}));
    EXPECT_EQ(Find().AvailableStatements, 10);
    EXPECT_TRUE(Find().Available);
}

TEST_F(MoneyIdentityTest, FindsEveryFormByFiguresThatTellThemApart) {
    for (unsigned bits = 0; bits < 32; ++bits) {
        const BalanceForm form{.usesDayPL = (bits & 1U) != 0,
                               .addsExercisePL = (bits & 2U) != 0,
                               .takesExerciseFees = (bits & 4U) != 0,
                               .takesDeliveryFees = (bits & 8U) != 0,
                               .addsPledgeChanges = (bits & 16U) != 0,
                               .premium = PremiumTerm::Net};
        report.PrintedMoney.clear();
        const std::int64_t closing = 1000 + ((bits & 1U) != 0 ? 10 : 21) + ((bits & 2U) != 0 ? 40 : 0) -
                                     ((bits & 4U) != 0 ? 80 : 0) - ((bits & 8U) != 0 ? 160 : 0) +
                                     ((bits & 16U) != 0 ? 320 : 0) + 5;
        Add(5, MoneyOf({{Opening, 1000},
                        {DayPL, 10},
                        {ClosedPL, 21},
                        {ExercisePL, 40},
                        {ExerciseFees, 80},
                        {DeliveryFees, 160},
                        {PledgeChange, 320},
                        {Premium, 5},
                        {Closing, closing}}));
        EXPECT_EQ(Find().Balance, form) << bits;
    }
}

TEST_F(MoneyIdentityTest, TakesTheUsualFormWhereSeveralHoldAlike) {
    const BalanceForm usual{.usesDayPL = false,
                            .addsExercisePL = true,
                            .takesExerciseFees = true,
                            .takesDeliveryFees = true,
                            .addsPledgeChanges = false,
                            .premium = PremiumTerm::Net};
    Add(9, MoneyOf({{Opening, 1000}, {Closing, 1000}, {Margin, 10}, {PrintedFigure::Available, 990}}));
    EXPECT_EQ(Find().Balance, usual);
    Add(1, MoneyOf({{Opening, 1000}, {Closing, 7}, {Margin, 10}, {PrintedFigure::Available, 990}}));
    EXPECT_EQ(Find().Balance, usual);  // on nine of ten days
    EXPECT_EQ(report.MoneyIdentity.Available, (AvailableForm{.takesFrozen = true, .takesDeliveryMargin = true}));
}

TEST_F(MoneyIdentityTest, TakesTheFormThatMostStatementsKeep) {
    Add(4, MoneyOf({{Opening, 1000}, {Closing, 1000}}));
    Add(6, MoneyOf({{Opening, 1000}, {ExerciseFees, 5}, {Closing, 1000}}));
    ASSERT_TRUE(Find().Balance);
    EXPECT_FALSE(report.MoneyIdentity.Balance.value_or(BalanceForm{.takesExerciseFees = true}).takesExerciseFees);
}

TEST_F(MoneyIdentityTest, AllowsHalfACentForEachOfTheThreeTermsOfAvailableFunds) {
    constexpr std::int64_t kRounding = 3 * kDecimalSteps / 100 / 2;
    for (const std::int64_t off : {kRounding, -kRounding, kRounding + 1, -kRounding - 1}) {
        report.PrintedMoney.clear();
        PrintedMoney money = MoneyOf({{Equity, 1000}, {Margin, 10}, {PrintedFigure::Available, 990}});
        money[PrintedFigure::Available] = *money[PrintedFigure::Available] + off;
        Add(5, money);
        EXPECT_EQ(Find().Available.has_value(), off == kRounding || off == -kRounding) << off;
    }
}

TEST_F(MoneyIdentityTest, CountsAvailableFundsOnlyBesideEquityAndMargin) {
    Add(5, MoneyOf({{Equity, 1000}, {PrintedFigure::Available, 1000}}));
    Add(5, MoneyOf({{Equity, 1000}, {Margin, 0}}));
    Add(5, MoneyOf({{Margin, 0}, {PrintedFigure::Available, 1000}}));
    EXPECT_EQ(Find().AvailableStatements, 0);
    EXPECT_FALSE(report.MoneyIdentity.Available);
}

}  // namespace
}  // namespace tradebill::money_identity_test
