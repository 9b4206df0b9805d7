// Days against the days before them, and statements that came twice.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/decimal.h"
#include "findings/account_check.h"
#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/lots_book.h"
#include "findings/statement_facts.h"
#include "report/printed_money.h"
#include "report/report.h"
#include "report/request_copy.h"

namespace tradebill::check_days_test {
namespace {

using enum PrintedFigure;

constexpr std::int64_t kCent = kDecimalSteps / 100;

class CheckDaysTest : public testing::Test {
protected:
    /// A usable statement of `day` that opens and closes with these amounts, in steps.
    StatementFacts& Add(const std::string& day, std::int64_t opening, std::int64_t closing) {
        PrintedMoney money;
        money[Opening] = opening;
        money[Closing] = money[Equity] = closing;
        return Add(day, money);
    }
    StatementFacts& Add(const std::string& day, PrintedMoney money) {
        StatementFacts statement;
        statement.day = day;
        statement.file = "D1." + day + "o.txt";
        statement.isUsable = statement.isEnded = statement.hasMoney = statement.statesDay = true;
        statement.firstMoney = report_.PrintedMoney.size();
        statement.moneyCount = 1;
        statement.hash = statement.size = statements_.size() + 1;
        money.Row = 7;
        report_.PrintedMoney.push_back(std::move(money));
        statements_.push_back(statement);
        return statements_.back();
    }
    FindingKeys Check() {
        findings_.clear();
        CheckDays(report_, statements_, findings_);
        return KeysOf(findings_);
    }
    void Clear() {
        report_.PrintedMoney.clear();
        statements_.clear();
    }

    CReport report_;
    StatementList statements_;
    std::vector<Finding> findings_;
};

TEST_F(CheckDaysTest, ADayOpensWithWhatTheDayBeforeClosedWith) {
    Add("20240102", 0, 100 * kCent);
    Add("20240103", 100 * kCent + kCent / 2, 70 * kCent);
    Add("20240104", 70 * kCent - kCent / 2 - 1, 70 * kCent);
    EXPECT_EQ(Check(), FindingKeys{"continuity@20240104"});
    EXPECT_EQ(findings_[0].expected, "0.70");
    EXPECT_EQ(findings_[0].found, "0.6949");
    EXPECT_EQ(findings_[0].row, 7);
    EXPECT_EQ(findings_[0].file, "D1.20240104o.txt");
}

TEST_F(CheckDaysTest, AForeignDayOpensWithoutTheFloatingProfitOfTheDayBefore) {
    report_.Request.StatementKind = kForeignKind;
    for (const bool isBase : {false, true}) {
        const std::int64_t most = (isBase ? 4 : 1) * kCent;
        for (const std::int64_t off : {most, most + 1}) {
            Clear();
            PrintedMoney money;
            money.Currency = "USD";
            money.IsBase = isBase;
            money[Equity] = 500 * kCent;
            money[FloatingPL] = -100 * kCent;
            Add("20240102", money);
            money[Opening] = 600 * kCent + off;
            Add("20240103", money);
            EXPECT_EQ(Check().contains("continuity@20240103"), off > most) << isBase << off;
        }
    }
}

TEST_F(CheckDaysTest, CurrenciesAreComparedByTheirNames) {
    report_.Request.StatementKind = kForeignKind;
    PrintedMoney money;
    money.Currency = "USD";
    money[Opening] = money[Equity] = 500 * kCent;
    Add("20240102", money);
    money.Currency = "HKD";
    money[Opening] = 7;
    Add("20240103", money);
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckDaysTest, AWeekendIsNoGap) {
    Add("20240105", 0, 0);  // a Friday
    Add("20240108", 0, 0);
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckDaysTest, WeekdaysAreAGapIfTheBalanceChangedOverThem) {
    Add("20240104", 0, 100);
    Add("20240109", 100, 100);
    EXPECT_EQ(Check(), FindingKeys{"gap(note)@20240105"});
    EXPECT_EQ(findings_[0].expected, "2 statements");
    EXPECT_EQ(findings_[0].found, "none");
    EXPECT_EQ(findings_[0].file, "");
    report_.PrintedMoney[1][Opening] = 90 * kCent;
    EXPECT_EQ(Check(), FindingKeys{"gap@20240105"});
}

TEST_F(CheckDaysTest, AGapSpansMonthsAndYears) {
    Add("20231229", 0, 100);
    Add("20240102", 100, 100);
    EXPECT_EQ(Check(), FindingKeys{"gap(note)@20240101"});
    Clear();
    Add("20240229", 0, 100);
    Add("20240301", 100, 100);
    EXPECT_EQ(Check(), FindingKeys{});
    Clear();
    Add("20230228", 0, 100);
    Add("20230302", 100, 100);
    EXPECT_EQ(Check(), FindingKeys{"gap(note)@20230301"});
    EXPECT_EQ(findings_[0].expected, "a statement");
}

TEST_F(CheckDaysTest, AStatementThatIsntUsableIsComparedWithNone) {
    Add("20240102", 0, 100 * kCent);
    Add("20240103", 500 * kCent, 500 * kCent).isUsable = false;
    Add("20240104", 900 * kCent, 900 * kCent);
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckDaysTest, LotsAreToldUnlessAGapExplainsThem) {
    Add("20240102", 0, 0);
    Add("20240103", 0, 0).lots = {{"rb2405", LotSide::Long, 3, 2, false}, {"m2405-C-3000", LotSide::Short, 1, 0, true}};
    EXPECT_EQ(Check(), (FindingKeys{"lots@20240103", "lots(note)@20240103"}));
    EXPECT_EQ(findings_[0].expected, "3 lots");
    EXPECT_EQ(findings_[0].found, "2 lots");
    EXPECT_EQ(findings_[0].section, SectionKind::Open);
    statements_[1].day = "20240104";
    EXPECT_EQ(Check(), (FindingKeys{"gap(note)@20240103", "lots@20240104", "lots(note)@20240104"}));
    report_.PrintedMoney[1][Opening] = kCent;
    EXPECT_EQ(Check(), FindingKeys{"gap@20240103"});
}

TEST_F(CheckDaysTest, AStatementThatComesTwiceIsRepeated) {
    Add("20240102", 0, 0);
    Add("20240103", 0, 0);
    Add("20240104", 0, 0);
    statements_[2].hash = statements_[0].hash;
    EXPECT_EQ(Check(), FindingKeys{});
    statements_[2].size = statements_[0].size;
    EXPECT_EQ(Check(), FindingKeys{"repeated@20240104"});
    EXPECT_EQ(findings_[0].found, "D1.20240102o.txt");
    for (StatementFacts& statement : statements_) statement.statesDay = false;
    EXPECT_EQ(Check(), FindingKeys{});  // quiet days of a layout without a date are alike
    for (StatementFacts& statement : statements_) statement.hasTrades = true;
    EXPECT_EQ(Check(), FindingKeys{"repeated@20240104"});
}

TEST_F(CheckDaysTest, ABalanceThatIsntPrintedIsComparedWithNone) {
    const auto only = [](PrintedFigure figure, std::int64_t amount) {
        PrintedMoney money;
        money[figure] = amount;
        return money;
    };
    Add("20240102", only(Opening, 5 * kCent));
    Add("20240103", only(Opening, 7 * kCent));
    Add("20240104", only(Closing, 9 * kCent));
    Add("20240105", only(Closing, 11 * kCent));
    EXPECT_EQ(Check(), FindingKeys{});
    Add("20240108", only(Opening, 12 * kCent));
    EXPECT_EQ(Check(), FindingKeys{"continuity@20240108"});
}

TEST_F(CheckDaysTest, AForeignDayWithoutEquityIsComparedWithNone) {
    report_.Request.StatementKind = kForeignKind;
    PrintedMoney money;
    money[Opening] = 5 * kCent;
    money[Closing] = 7 * kCent;
    Add("20240102", money);
    Add("20240103", money);
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckDaysTest, ABalanceThatStandsInNoRowHasNone) {
    Add("20240102", 0, 100 * kCent);
    Add("20240103", 90 * kCent, 90 * kCent);
    EXPECT_EQ(Check(), FindingKeys{"continuity@20240103"});
    EXPECT_EQ(findings_[0].row, 7);
    report_.PrintedMoney[1].Row = 0;
    EXPECT_EQ(Check(), FindingKeys{"continuity@20240103"});
    EXPECT_EQ(findings_[0].row, std::nullopt);
}

}  // namespace
}  // namespace tradebill::check_days_test
