#include "analysis/cash_flow.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/analysed_account.h"
#include "base/decimal.h"
#include "report/money_identity.h"
#include "report/printed_money.h"
#include "report/request_copy.h"
#include "statistics/money_identity.h"

namespace tradebill::cash_flow_test {
namespace {

using enum PrintedFigure;

class CashFlow : public AnalysedAccount {
protected:
    std::vector<std::optional<double>> Flows() const {
        const CCashFlows flows(report);
        std::vector<std::optional<double>> list;
        for (const AccountDay& day : AccountDaysOf(report)) list.push_back(flows.Of(day));
        return list;
    }

    /// A day whose layout keeps no cash flow, opened with 1000, with fees of 5, closed with `closing`.
    void AddUnkept(std::string_view day, std::int64_t closing, double rate = 1) {
        AddRecord(Money(day, {{"KHQY", "1000.00"}}, rate));
        PrintedMoney& money = report.PrintedMoney.emplace_back();
        money.Day = day;
        money[Opening] = 1000 * kDecimalSteps;
        money[Fees] = 5 * kDecimalSteps;
        money[Closing] = closing * kDecimalSteps;
    }
};

using List = std::vector<std::optional<double>>;

TEST_F(CashFlow, IsTheRecordsOwnByItsRate) {
    AddDay("20240102", "1", "50.00");
    AddDay("20240103", "1", "-20");
    AddRecord(Money("20240104", {{"CRJ", "30"}}, 2));
    EXPECT_EQ(Flows(), (List{50, -20, 15}));
}

TEST_F(CashFlow, IsNothingWhereOneDayAloneStatesNoneAndUnknownWhereItCantBeRead) {
    AddDay("20240102", "1", "50.00");
    AddDay("20240103", "1", "");
    AddDay("20240104", "1", "1,000.00");
    EXPECT_EQ(Flows(), (List{50, 0, std::nullopt}));
}

TEST_F(CashFlow, IsTheRestOfTheIdentityWhereTheLayoutKeepsNone) {
    // 1000 - 5 = 995; only the third day closes with 500 more
    for (const char* const day : {"20240102", "20240103", "20240104", "20240105", "20240108"}) {
        AddUnkept(day, std::string_view(day) == "20240104" ? 1495 : 995);
    }
    FindMoneyIdentity(report);
    ASSERT_TRUE(report.MoneyIdentity.Balance);
    EXPECT_EQ(Flows(), (List{0, 0, 500, 0, 0}));
}

TEST_F(CashFlow, TakesTheUsualIdentityOfTooFewStatements) {
    AddUnkept("20240102", 995);
    AddUnkept("20240103", 895, 2);  // 100 less, by a rate of 2
    FindMoneyIdentity(report);
    ASSERT_FALSE(report.MoneyIdentity.Balance);
    EXPECT_EQ(Flows(), (List{0, -50}));
}

TEST_F(CashFlow, IsUnknownWhereNoIdentityHolds) {
    for (const char* const day : {"20240102", "20240103", "20240104", "20240105", "20240108"}) AddUnkept(day, 700);
    FindMoneyIdentity(report);
    ASSERT_FALSE(report.MoneyIdentity.Balance);
    EXPECT_EQ(Flows(), List(5, std::nullopt));
}

TEST_F(CashFlow, IsUnknownWithoutPrintedFigures) {
    AddDay("20240102", "1", "");
    EXPECT_EQ(Flows(), (List{std::nullopt}));
}

TEST_F(CashFlow, IsUnknownWithoutABalanceOrADay) {
    AddUnkept("20240102", 1095);
    AddUnkept("20240103", 1095);
    AddUnkept("20240104", 1095);
    AddUnkept("20240105", 1095);
    report.PrintedMoney[0][Opening].reset();
    report.PrintedMoney[1][Closing].reset();
    report.PrintedMoney[2].Day = "no day";
    EXPECT_EQ(Flows(), (List{std::nullopt, std::nullopt, std::nullopt, 100}));
}

TEST_F(CashFlow, OfALiveRecordIsItsOwnAndDoesntStandForTheLayouts) {
    AddUnkept("20240102", 1095);
    AddRecord(Money("20240103", {{"KHQY", "1"}, {"CRJ", "7"}, {"HOST_POSITION_MARGIN", "0"}}));
    AddRecord(Money("20240104", {{"KHQY", "1"}, {"HOST_POSITION_MARGIN", "0"}}));
    EXPECT_EQ(Flows(), (List{100, 7, 0}));
}

TEST_F(CashFlow, OfForeignAccountsIsNeverARest) {
    report.Request.StatementKind = kForeignKind;
    AddUnkept("20240102", 1095);
    EXPECT_EQ(Flows(), (List{std::nullopt}));
}

}  // namespace
}  // namespace tradebill::cash_flow_test
