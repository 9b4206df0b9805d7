// Balances and available funds to the last place that they may be off.
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "base/decimal.h"
#include "findings/account_check.h"
#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/statement_facts.h"
#include "report/money_store.h"
#include "report/printed_money.h"
#include "report/record_makers.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "statistics/money_identity.h"

namespace tradebill::check_money_test {
namespace {

using enum PrintedFigure;
using Amounts = std::initializer_list<std::pair<PrintedFigure, std::int64_t>>;

constexpr std::int64_t kCent = kDecimalSteps / 100;

/// Amounts in whole units.
PrintedMoney MoneyOf(Amounts amounts) {
    PrintedMoney money;
    money.Row = 7;
    for (const auto& [figure, amount] : amounts) money[figure] = amount * kDecimalSteps;
    return money;
}

/// A run of days whose figures are given; the days are those of January 2024 from the second on.
class CheckMoneyTest : public testing::Test {
protected:
    void AddDay(const std::vector<PrintedMoney>& figures) {
        StatementFacts statement;
        statement.day =
            "202401" + std::string(statements_.size() < 8 ? "0" : "") + std::to_string(statements_.size() + 2);
        statement.file = "D1." + statement.day + "o.txt";
        statement.isUsable = statement.isEnded = statement.hasMoney = true;
        statement.firstMoney = report_.PrintedMoney.size();
        statement.moneyCount = figures.size();
        for (const PrintedMoney& money : figures) report_.PrintedMoney.push_back(money);
        statements_.push_back(statement);
    }
    void AddDays(int days, const PrintedMoney& money) {
        for (int i = 0; i < days; ++i) AddDay({money});
    }
    FindingKeys Check() {
        FindMoneyIdentity(report_);
        findings_.clear();
        CheckMoney(report_, statements_, findings_);
        return KeysOf(findings_);
    }

    CReport report_;
    StatementList statements_;
    std::vector<Finding> findings_;
};

TEST_F(CheckMoneyTest, NotesALayoutThatKeepsNoCashFlow) {
    AddDays(2, MoneyOf({{Opening, 100}, {Closing, 100}}));
    report_.MoneyStore.Add(CopyOf(Money("20240102", {{"KHQY", "100"}})), MoneySource::Statement);
    EXPECT_EQ(Check(), FindingKeys{"identity(note)@"});
    EXPECT_EQ(findings_.at(0).text,
              "The layout keeps no cash flow: the analysis takes what the balance leaves for it.");
    report_.MoneyStore.Add(CopyOf(Money("20240103", {{"CRJ", "0.00"}})), MoneySource::Statement);
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckMoneyTest, NotesThatNothingTellsTheCashFlow) {
    AddDays(5, MoneyOf({{Opening, 100}, {Closing, 200}}));
    report_.MoneyStore.Add(CopyOf(Money("20240102", {{"KHQY", "100"}})), MoneySource::Statement);
    // what is a host's doesn't count
    report_.MoneyStore.Add(CopyOf(Money("20240103", {{"CRJ", "0.00"}, {"HOST_POSITION_MARGIN", "0"}})),
                           MoneySource::Live);
    EXPECT_EQ(Check(), (FindingKeys{"identity(note)@", "identity(note)@"}));
    EXPECT_EQ(findings_.at(0).text,
              "The layout keeps no cash flow, and the balance doesn't tell it: the analysis has no returns.");
    report_.Request.StatementKind = kForeignKind;
    for (const Finding& finding : (Check(), findings_)) EXPECT_EQ(finding.text.find("cash flow"), std::string::npos);
}

TEST_F(CheckMoneyTest, ABalanceMayBeOffByHalfACentForEachOfItsTerms) {
    const PrintedMoney clean = MoneyOf({{Opening, 1000}, {Fees, 3}, {Closing, 997}});
    AddDays(9, clean);
    PrintedMoney off = clean;
    off[Closing] = *off[Closing] + kCent * 3 / 2;
    AddDay({off});
    EXPECT_EQ(Check(), FindingKeys{});
    report_.PrintedMoney.back()[Closing] = *off[Closing] + 1;
    EXPECT_EQ(Check(), FindingKeys{"identity@20240111"});
    EXPECT_EQ(findings_[0].expected, "997.00");
    EXPECT_EQ(findings_[0].found, "997.0151");
    EXPECT_EQ(findings_[0].row, 7);
    EXPECT_EQ(findings_[0].section, SectionKind::Money);
    EXPECT_EQ(findings_[0].file, "D1.20240111o.txt");
}

TEST_F(CheckMoneyTest, AvailableFundsMayBeOffByThreeHalvesOfACent) {
    const PrintedMoney clean = MoneyOf({{Equity, 1000}, {Margin, 300}, {PrintedFigure::Available, 700}});
    AddDays(9, clean);
    PrintedMoney off = clean;
    off[PrintedFigure::Available] = *off[PrintedFigure::Available] - kCent * 3 / 2;
    AddDay({off});
    EXPECT_EQ(Check(), FindingKeys{});
    report_.PrintedMoney.back()[PrintedFigure::Available] = *off[PrintedFigure::Available] - 1;
    EXPECT_EQ(Check(), FindingKeys{"available@20240111"});
}

TEST_F(CheckMoneyTest, AFigureThatIsntPrintedSaysNothing) {
    AddDays(
        9, MoneyOf({{Opening, 1000}, {Closing, 1000}, {Equity, 1000}, {Margin, 300}, {PrintedFigure::Available, 700}}));
    AddDay({MoneyOf({{Opening, 1000}, {Equity, 50}, {PrintedFigure::Available, 7}})});
    AddDay({MoneyOf({{Closing, 1000}, {Equity, 50}, {Margin, 7}})});
    AddDay({});
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckMoneyTest, NoFormIsANoteOfTheRun) {
    AddDays(7, MoneyOf({{Opening, 1000}, {Closing, 1000}}));
    AddDays(2, MoneyOf({{Opening, 1000}, {Closing, 7}}));
    EXPECT_EQ(Check(), FindingKeys{"identity(note)@"});
    EXPECT_EQ(findings_[0].file, "");
    EXPECT_EQ(findings_[0].row, std::nullopt);
    AddDay({MoneyOf({{Opening, 1000}, {Closing, 1000}})});
    EXPECT_EQ(Check(), (FindingKeys{"identity@20240109", "identity@20240110"}));
}

TEST_F(CheckMoneyTest, FourStatementsMakeNotesByTheUsualForm) {
    AddDays(3, MoneyOf({{Opening, 1000}, {Closing, 1000}, {Margin, 10}, {PrintedFigure::Available, 990}}));
    AddDay({MoneyOf({{Opening, 1000}, {Closing, 900}, {Margin, 10}, {PrintedFigure::Available, 800}})});
    EXPECT_EQ(Check(), (FindingKeys{"identity(note)@20240105", "available(note)@20240105"}));
}

TEST_F(CheckMoneyTest, AForeignBalanceMayBeOffByACentAndItsBaseColumnByFour) {
    report_.Request.StatementKind = kForeignKind;
    const PrintedMoney clean = MoneyOf({{Opening, 1000},
                                        {CashFlow, 50},
                                        {ClosedPL, 20},
                                        {Fees, 4},
                                        {FloatingPL, -30},
                                        {Equity, 1036},
                                        {Margin, 36},
                                        {PrintedFigure::Available, 1000}});
    for (const bool isBase : {false, true}) {
        SCOPED_TRACE(isBase);
        for (const std::int64_t cents : {isBase ? 4 : 1, isBase ? -4 : -1}) {
            report_.PrintedMoney.clear();
            statements_.clear();
            PrintedMoney money = clean;
            money.Currency = "USD";
            money.IsBase = isBase;
            money[Equity] = *money[Equity] + cents * kCent;
            AddDay({money});
            EXPECT_EQ(Check(), FindingKeys{});
            money[Equity] = *money[Equity] + (cents > 0 ? 1 : -1);
            report_.PrintedMoney[0] = money;
            EXPECT_EQ(Check(), (FindingKeys{"identity@20240102", "available@20240102"}));
            EXPECT_TRUE(findings_[0].text.starts_with("USD: ")) << findings_[0].text;
        }
    }
}

TEST_F(CheckMoneyTest, EachForeignCurrencyIsLookedAt) {
    report_.Request.StatementKind = kForeignKind;
    PrintedMoney right = MoneyOf({{Opening, 1000}, {Equity, 1000}});
    PrintedMoney wrong = MoneyOf({{Opening, 1000}, {Equity, 1200}});
    wrong.Currency = "HKD";
    AddDay({right, wrong, right});
    EXPECT_EQ(Check(), FindingKeys{"identity@20240102"});
    EXPECT_EQ(findings_.size(), 1U);
    EXPECT_TRUE(findings_[0].text.starts_with("HKD: "));
}

TEST_F(CheckMoneyTest, NoFormOfTheAvailableFundsIsANoteOfTheRun) {
    AddDays(7, MoneyOf({{Equity, 1000}, {Margin, 300}, {PrintedFigure::Available, 700}}));
    AddDays(2, MoneyOf({{Equity, 1000}, {Margin, 300}, {PrintedFigure::Available, 650}}));
    EXPECT_EQ(Check(), FindingKeys{"available(note)@"});
    EXPECT_EQ(findings_[0].section, SectionKind::Money);
    EXPECT_EQ(findings_[0].file, "");
    AddDay({MoneyOf({{Equity, 1000}, {Margin, 300}, {PrintedFigure::Available, 700}})});
    EXPECT_EQ(Check(), (FindingKeys{"available@20240109", "available@20240110"}));
}

TEST_F(CheckMoneyTest, FiguresThatStandInNoRowHaveNone) {
    AddDays(9, MoneyOf({{Opening, 1000}, {Closing, 1000}}));
    PrintedMoney off = MoneyOf({{Opening, 1000}, {Closing, 7}});
    off.Row = 0;
    AddDay({off});
    EXPECT_EQ(Check(), FindingKeys{"identity@20240111"});
    EXPECT_EQ(findings_[0].row, std::nullopt);
}

TEST_F(CheckMoneyTest, AForeignFigureThatIsntPrintedSaysNothing) {
    report_.Request.StatementKind = kForeignKind;
    AddDay({MoneyOf({{Equity, 50}})});
    AddDay({MoneyOf({{Opening, 1000}})});
    AddDay({MoneyOf({{Equity, 50}, {PrintedFigure::Available, 7}})});
    AddDay({MoneyOf({{Margin, 50}, {PrintedFigure::Available, 7}})});
    AddDay({MoneyOf({{Equity, 50}, {Margin, 7}})});
    EXPECT_EQ(Check(), FindingKeys{});
    AddDay({MoneyOf({{Equity, 50}, {Margin, 7}, {PrintedFigure::Available, 7}})});
    EXPECT_EQ(Check(), FindingKeys{"available@20240107"});
}

TEST_F(CheckMoneyTest, FiveStatementsAreEnoughToSayThatNoFormHolds) {
    const auto without = [](std::int64_t available) {
        return MoneyOf({{Opening, 1000}, {Closing, 7}, {Margin, 300}, {PrintedFigure::Available, available}});
    };
    for (int day = 0; day < 4; ++day) AddDay({without(day)});
    EXPECT_EQ(Check().size(), 8U);  // by the usual forms, each of its own
    AddDay({without(4)});
    EXPECT_EQ(Check(), (FindingKeys{"identity(note)@", "available(note)@"}));
}

}  // namespace
}  // namespace tradebill::check_money_test
