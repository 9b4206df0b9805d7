// Accounts of one owner, added up: what was worked out by hand from their days.
#include "analysis/account_sum.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/analysed_account.h"
#include "analysis/analysis.h"
#include "analysis/day_results.h"
#include "report/record_makers.h"
#include "report/request_copy.h"

namespace tradebill::account_sum_test {
namespace {

/// The report of the fixture is each account in turn.
class AccountSum : public AnalysedAccount {
protected:
    /// Takes the account that was made, and clears the report for the next.
    void TakeAccount() {
        sum_.Add(report);
        report.Clear();
    }

    /// Two accounts, of which the second begins a day later and has no statement of the last day.
    void TakeTwo() {
        AddRecord(
            Money("20240102", {{"KHQY", "1100"}, {"CRJ", "0"}, {"QCQY", "1000"}, {"BZJZY", "220"}, {"SXF", "3"}}));
        AddRecord(Money("20240103", {{"KHQY", "1200"}, {"CRJ", "50"}, {"BZJZY", "300"}, {"SXF", "4"}}));
        AddRecord(Money("20240105", {{"KHQY", "1150"}, {"CRJ", "0"}, {"BZJZY", "0"}, {"SXF", "0"}}));
        AddTrade({.day = "20240103", .contract = "rb2405", .lots = "2", .fee = "4", .turnover = "100"});
        TakeAccount();
        AddRecord(Money("20240103", {{"KHQY", "450"}, {"CRJ", "20"}, {"QCQY", "480"}, {"BZJZY", "30"}, {"SXF", "-1"}}));
        AddRecord(Money("20240104", {{"KHQY", "460"}, {"CRJ", "0"}, {"BZJZY", "161"}, {"SXF", "0"}}));
        AddTrade({.day = "20240103", .contract = "rb2405", .lots = "3", .fee = "1", .turnover = "11"});
        TakeAccount();
    }

    CAccountSum sum_;
};

template <class Field>
auto FieldsOf(const std::vector<DayResult>& days, Field DayResult::*field) {
    std::vector<Field> values;
    for (const DayResult& day : days) values.push_back(day.*field);
    return values;
}

using Values = std::vector<std::optional<double>>;

TEST_F(AccountSum, AddsUpDaysAndCarriesOnAnAccountWithoutAStatement) {
    TakeTwo();
    const SummedAccounts sum = sum_.Finish();
    const std::vector<DayResult>& days = sum.analysis.days;
    EXPECT_EQ(FieldsOf(days, &DayResult::day),
              (std::vector<std::string>{"20240102", "20240103", "20240104", "20240105"}));
    EXPECT_EQ(FieldsOf(days, &DayResult::equity), (Values{1100, 1650, 1660, 1610}));
    EXPECT_EQ(FieldsOf(days, &DayResult::margin), (Values{220, 330, 461, 161}));
    EXPECT_EQ(FieldsOf(days, &DayResult::fees), (std::vector<double>{3, 5, 0, 0}));
    EXPECT_EQ(FieldsOf(days, &DayResult::turnover), (Values{0, 111, 0, 0}));
    EXPECT_EQ(FieldsOf(days, &DayResult::lots), (std::vector<std::int64_t>{0, 5, 0, 0}));
    EXPECT_EQ(sum.opening, 1000);
}

TEST_F(AccountSum, CountsALaterBeginningAsACashFlow) {
    TakeTwo();
    const SummedAccounts sum = sum_.Finish();
    const std::vector<DayResult>& days = sum.analysis.days;
    // 50 of the first account; of the second 480 that it had and 20 that came in.
    EXPECT_EQ(FieldsOf(days, &DayResult::cashFlow), (Values{0, 550, 0, 0}));
    // 3 January: 1200 - 1100 - 50 of the first, 450 - 480 - 20 of the second.
    EXPECT_EQ(FieldsOf(days, &DayResult::pl), (Values{100, 0, 10, -50}));
    EXPECT_EQ(FieldsOf(days, &DayResult::moneyIndex), (Values{1100, 1100, 1110, 1060}));
    EXPECT_DOUBLE_EQ(*days[0].dayReturn, 0.1);
    EXPECT_DOUBLE_EQ(*days[2].dayReturn, 10.0 / 1650);
    EXPECT_DOUBLE_EQ(days[3].index, 1.1 * (1 + 10.0 / 1650) * (1 - 50.0 / 1660));
    EXPECT_DOUBLE_EQ(*days[2].marginUse, 461.0 / 1660);
}

TEST_F(AccountSum, HasAllThatComesOfDays) {
    TakeTwo();
    const Analysis analysis = sum_.Finish({.tradingDays = 250}).analysis;
    EXPECT_EQ(analysis.tradingDays, 250);
    ASSERT_EQ(analysis.drawdowns.size(), 1U);
    EXPECT_EQ(analysis.drawdowns[0].valley, "20240105");
    EXPECT_NEAR(analysis.drawdowns[0].depth, 50.0 / 1660, 1e-15);
    ASSERT_EQ(analysis.months.size(), 1U);
    EXPECT_EQ(analysis.months[0].pl, 60);
    EXPECT_DOUBLE_EQ(*analysis.margin.max, 461.0 / 1660);
    EXPECT_EQ(ReasonOf(analysis, "ratios.moneyWeightedReturn"), "less than 30 days");
    EXPECT_TRUE(analysis.products.empty());
    EXPECT_TRUE(analysis.open.empty());
}

TEST_F(AccountSum, AddsUpMarginOfAProduct) {
    const auto hold = [&](std::string_view day, std::string_view contract, std::string_view margin) {
        report.OpiDetailStore.Add() =
            Open({{"BILL_DATE", day}, {"CONTRACT", contract}, {"POSITION_VOL", "1"}, {"DEPOSIT", margin}});
    };
    AddDay("20240102", "1000", "0", "1000");
    AddDay("20240103", "1000");
    hold("20240102", "rb2405", "100");
    hold("20240103", "rb2405", "120");
    TakeAccount();
    AddDay("20240102", "1000", "0", "1000");
    hold("20240102", "rb2410", "50");
    hold("20240102", "cu2405", "70");
    TakeAccount();
    const MarginResult margin = sum_.Finish().analysis.margin;
    ASSERT_EQ(margin.products.size(), 2U);
    EXPECT_EQ(margin.products[0].product, "rb");
    EXPECT_EQ(margin.products[0].days, 2);
    EXPECT_EQ(margin.products[0].max, 150);
    EXPECT_DOUBLE_EQ(*margin.products[0].maxUse, 0.075);
    EXPECT_EQ(margin.products[1].max, 70);
    EXPECT_EQ(margin.productDays.size(), 3U);
}

TEST_F(AccountSum, KnowsNoneOfWhatOneAccountDoesntState) {
    AddDay("20240102", "1000", "0", "1000");
    AddDay("20240103", "1010");
    AddDay("20240104", "1020");
    TakeAccount();
    AddDay("20240102", "500", "0", "500");
    AddRecord(Money("20240103", {{"CRJ", "0"}}));
    AddDay("20240104", "510");
    TakeAccount();
    const std::vector<DayResult> days = sum_.Finish().analysis.days;
    EXPECT_EQ(FieldsOf(days, &DayResult::equity), (Values{1500, std::nullopt, 1530}));
    EXPECT_EQ(FieldsOf(days, &DayResult::pl), (Values{0, std::nullopt, std::nullopt}));
}

TEST_F(AccountSum, BeginsWithTheOpeningBalancesOfItsFirstDay) {
    AddDay("20240102", "1000", "0", "900");
    TakeAccount();
    AddDay("20240102", "500", "0", "400");
    TakeAccount();
    const SummedAccounts known = sum_.Finish();
    EXPECT_EQ(known.opening, 1300);
    EXPECT_EQ(known.analysis.days[0].pl, 200);
    sum_ = {};
    AddDay("20240102", "1000", "0", "900");
    TakeAccount();
    AddDay("20240102", "500", "0");
    TakeAccount();
    const SummedAccounts unknown = sum_.Finish();
    EXPECT_EQ(unknown.opening, std::nullopt);
    EXPECT_EQ(unknown.analysis.days[0].pl, std::nullopt);
    EXPECT_EQ(ReasonOf(unknown.analysis, "days[0].pl"), "the opening balance isn't stated");
}

TEST_F(AccountSum, TakesAnAccountWhoseBeginningIsUnknownByItsFirstEquity) {
    AddDay("20240102", "1000", "0", "1000");
    AddDay("20240103", "1010");
    TakeAccount();
    AddDay("20240103", "500", "70");
    TakeAccount();
    const std::vector<DayResult> days = sum_.Finish().analysis.days;
    EXPECT_EQ(days[1].cashFlow, 500);
    EXPECT_EQ(days[1].pl, 10);
}

TEST_F(AccountSum, LeavesOutFloatingOnTheFirstDayAsTheAccountsDo) {
    report.Request.StatementKind = kForeignKind;
    AddDay("20240102", "1100", "100", "900");
    AddDay("20240103", "1200");
    report.OpiDetailStore.Add() = Open({{"BILL_DATE", "20240102"}, {"CONTRACT", "S2403"}, {"OPEN_DATE", "20240101"}});
    TakeAccount();
    AddDay("20240102", "500", "0", "400");
    AddDay("20240103", "500");
    TakeAccount();
    const SummedAccounts sum = sum_.Finish();
    EXPECT_EQ(FieldsOf(sum.analysis.days, &DayResult::pl), (Values{std::nullopt, 100}));
    EXPECT_EQ(ReasonOf(sum.analysis, "days[0].pl"),
              "the opening balance leaves out the floating P/L of positions that were open before");
    EXPECT_EQ(ReasonOf(sum.analysis, "days[0].turnover"), "statements of foreign accounts state no turnover");
}

TEST_F(AccountSum, OfOneAccountIsThatAccount) {
    AddIndexes({1.1, 1.0, 0.95, 1.2});
    const Analysis alone = Analysed();
    TakeAccount();
    const Analysis sum = sum_.Finish().analysis;
    EXPECT_EQ(FieldsOf(sum.days, &DayResult::index), FieldsOf(alone.days, &DayResult::index));
    EXPECT_EQ(FieldsOf(sum.days, &DayResult::pl), FieldsOf(alone.days, &DayResult::pl));
    EXPECT_EQ(sum.ratios.sharpe, alone.ratios.sharpe);
    EXPECT_EQ(sum.drawdowns.size(), alone.drawdowns.size());
}

TEST_F(AccountSum, OfAccountsWithoutDaysHasNone) {
    TakeAccount();
    const SummedAccounts sum = sum_.Finish();
    EXPECT_TRUE(sum.analysis.days.empty());
    EXPECT_EQ(sum.opening, std::nullopt);
}

}  // namespace
}  // namespace tradebill::account_sum_test
