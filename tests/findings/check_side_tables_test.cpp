// Deposits, exercises and deliveries against their totals and the money figures.
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/decimal.h"
#include "base/line_counter.h"
#include "findings/account_check.h"
#include "findings/account_checks.h"
#include "findings/account_columns.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "findings/made_accounts.h"
#include "findings/side_table_watch.h"
#include "findings/statement_facts.h"
#include "readers/scan_listener.h"
#include "readers/side_table_reader.h"
#include "report/printed_money.h"
#include "report/report.h"
#include "report/side_records.h"
#include "support/gbk_text.h"

namespace tradebill::check_side_tables_test {
namespace {

using enum PrintedFigure;
using Texts = std::vector<std::string>;

/// Amounts in whole units.
using Amounts = std::initializer_list<std::pair<PrintedFigure, std::int64_t>>;

const std::string kCashHeading = "出入金明细\n|发生日期|出入金类型|入金|出金|说明|\n";

class CheckSideTablesTest : public testing::Test {
protected:
    /// What is found in a statement of these tables and money figures: "code line section: expected, found".
    Texts Find(std::string_view text, Amounts amounts = {}) {
        report_.Clear();
        const std::string bytes = Gbk(text);
        CLineCounter lines;
        lines.Begin(bytes);
        CSideTableWatch watch("20260529", lines, report_.SideRecords);
        ReadSideTables(bytes, watch);
        StatementFacts statement;
        statement.day = "20260529";
        statement.isUsable = true;
        statement.sideTables = watch.TakeTables();
        statement.moneyCount = 1;
        PrintedMoney& money = report_.PrintedMoney.emplace_back();
        for (const auto& [figure, amount] : amounts) money[figure] = amount * kDecimalSteps;
        std::vector<Finding> findings;
        CheckSideTables(report_, {statement}, findings);
        Texts found;
        for (const Finding& finding : findings) {
            found.push_back(std::string(KindOf(finding.code).name) + " " + std::to_string(*finding.row) + " " +
                            std::string(SectionName(*finding.section)) + ": " + finding.expected + ", " +
                            finding.found);
        }
        return found;
    }

    CReport report_;
};

TEST_F(CheckSideTablesTest, KeepsTheRowsAsPrintedUnderTheDayOfTheFile) {
    EXPECT_EQ(Find(kCashHeading + "| 20260528 |银期转账| 1,000.00 |-| 转入 |\n|共 1条||1,000.00|0.00||\n"), Texts());
    ASSERT_EQ(report_.SideRecords.Cash.size(), 1U);
    const CashRecord& row = report_.SideRecords.Cash.front();
    EXPECT_EQ(row.BILL_DATE, "20260529");
    EXPECT_EQ(row.CASH_DATE, "20260528");
    EXPECT_EQ(row.CASH_TYPE, Gbk("银期转账"));
    EXPECT_EQ(row.CASH_IN, "1,000.00");
    EXPECT_EQ(row.CASH_OUT, "-");
    EXPECT_EQ(row.NOTE, Gbk("转入"));
}

TEST_F(CheckSideTablesTest, AddsDepositsLessWithdrawalsUpToTheCashFlow) {
    const std::string rows =
        kCashHeading + "|20260529|转账|500.00|0.00||\n|20260529|转账|0.00|200.00||\n|共 2条||500.00|200.00||\n";
    EXPECT_EQ(Find(rows, {{CashFlow, 300}}), Texts());
    EXPECT_EQ(Find(rows, {{CashFlow, 301}}), (Texts{"money-rows 1 cash: 301.00, 300.00"}));
    EXPECT_EQ(Find(rows, {{Deposits, 500}, {Withdrawals, 200}}), Texts());
    EXPECT_EQ(Find(rows, {{Deposits, 501}, {Withdrawals, 199}}),
              (Texts{"money-rows 1 cash: 501.00, 500.00", "money-rows 1 cash: 199.00, 200.00"}));
    EXPECT_EQ(Find("", {{CashFlow, 301}}), Texts());
}

// Three rows are two half cents and one more for the figure itself: 1.50 cents.
TEST_F(CheckSideTablesTest, AllowsWhatRoundingMayLeave) {
    const std::string rows = kCashHeading + "|20260529|转账|300.01|0.00||\n|20260529|转账|";
    EXPECT_EQ(Find(rows + "0.00|0.00||\n", {{CashFlow, 300}}), Texts());
    EXPECT_EQ(Find(rows + "0.01|0.00||\n", {{CashFlow, 300}}), (Texts{"money-rows 1 cash: 300.00, 300.02"}));
}

TEST_F(CheckSideTablesTest, TakesTheTableOrTheRowsOfOneCurrencyForTheFigure) {
    const std::string first = kCashHeading + "|20260529|转账|500.00|0.00||\n|共 1条||500.00|0.00||\n";
    const std::string second = kCashHeading + "|20260529|转账|70.00|0.00||\n|共 1条||70.00|0.00||\n";
    EXPECT_EQ(Find(first + second, {{CashFlow, 500}}), Texts());
    EXPECT_EQ(Find(first + second, {{CashFlow, 570}}), Texts());
    EXPECT_EQ(Find(first + second, {{CashFlow, 430}}), (Texts{"money-rows 1 cash: 430.00, 570.00"}));
    const std::string mixed =
        "出入金明细\n|日期|币种|入金|出金|\n|20260529|人民币|500.00|0.00|\n|20260529|美元|70.00|0.00|\n";
    EXPECT_EQ(Find(mixed, {{CashFlow, 500}}), Texts());
    EXPECT_EQ(Find(mixed, {{CashFlow, 430}}), (Texts{"money-rows 1 cash: 430.00, 570.00"}));
}

TEST_F(CheckSideTablesTest, AddsExercisesUpToTheirProfitAndFees) {
    const std::string rows =
        "行权明细\n|交割日期|合约|行权盈亏|行权手续费|\n|20260529|i2609-C-800|1500.00|6.00|\n|20260529|i2609-P-700|-"
        "100.00|"
        "2.00|\n|共 2条||1400.00|8.00|\n";
    EXPECT_EQ(Find(rows, {{ExercisePL, 1400}, {ExerciseFees, 8}}), Texts());
    EXPECT_EQ(Find(rows, {{ExercisePL, 1500}, {ExerciseFees, 6}}),
              (Texts{"money-rows 1 exercises: 1500.00, 1400.00", "money-rows 1 exercises: 6.00, 8.00"}));
}

TEST_F(CheckSideTablesTest, AddsDeliveriesUpToTheirFeesWhereTheColumnIsPrinted) {
    const std::string rows = "交割明细\n|交割日期|合约|交割手续费|\n|20260529|cu2605|50.00|\n|共 1条||50.00|\n";
    EXPECT_EQ(Find(rows, {{DeliveryFees, 50}}), Texts());
    EXPECT_EQ(Find(rows, {{DeliveryFees, 0}}), (Texts{"money-rows 1 deliveries: 0.00, 50.00"}));
    EXPECT_EQ(Find("交割明细\n|交割日期|合约|\n|20260529|cu2605|\n", {{DeliveryFees, 50}}), Texts());
}

TEST_F(CheckSideTablesTest, HoldsTheTotalAgainstTheRows) {
    const std::string row = kCashHeading + "|20260529|转账|500.00|0.00||\n";
    EXPECT_EQ(Find(row + "|共 2条||500.00|0.00||\n"), (Texts{"totals 4 cash: 1 rows, 2 rows"}));
    EXPECT_EQ(Find(row + "|共 1条||501.00|0.00||\n"), (Texts{"totals 4 cash: 500.00, 501.00"}));
    EXPECT_EQ(Find(row + "|合计||500.00|0.00||\n"), Texts());
}

TEST_F(CheckSideTablesTest, TellsOfRowsThatCantBeReadAndNotOfWhatFollowsFromThem) {
    EXPECT_EQ(Find(kCashHeading + "|20260529|转账|500.00|0.00|\n|共 1条||500.00|0.00||\n", {{CashFlow, 500}}),
              (Texts{"shifted 3 cash: 5 columns, 4 columns"}));
    EXPECT_EQ(Find(kCashHeading + "|20260529|\n|共 0条|||||\n"), (Texts{"row-skipped 3 cash: 5 columns, 1 column"}));
    EXPECT_EQ(Find(kCashHeading + "|20260529|转账|五百|0.00||\n|共 1条||500.00|0.00||\n", {{CashFlow, 500}}),
              (Texts{"shifted 3 cash: an amount for CASH_IN, 五百"}));
    EXPECT_EQ(Find("出入金明细\n|甲|乙|\n|20260529|1.00|\n"),
              (Texts{"row-skipped 2 cash: a heading that names columns, |甲|乙|"}));
}

// Of each statement once; not of one that isn't of the layout, and not of a foreign account.
TEST(SideRowsOfARun, ComeFromTheStatementsOfTheLayout) {
    const MadeStatements made(1, MadeLayout::Bilingual, WishesFor(MadeLayout::Bilingual, 1));
    std::vector<DayFile> files = made.Files();
    const std::string table = Gbk(kCashHeading + "|20240102|转账|500.00|0.00||\n|共 1条||500.00|0.00||\n");
    for (DayFile& file : files) file.bytes += table;
    files.push_back({"20240301", table});
    CCheckedRun run(files, AskedFor(MadeLayout::Bilingual));
    ASSERT_EQ(run.report.SideRecords.Cash.size(), made.pages.size());
    EXPECT_EQ(run.report.SideRecords.Cash.back().BILL_DATE, made.account.days.back().day);
    EXPECT_TRUE(CCheckedRun(files, {.format = 3, .isForeign = true}).report.SideRecords.Cash.empty());
    run.report.Clear();
    EXPECT_TRUE(run.report.SideRecords.Cash.empty());
}

// One whose total lacks elsewhere ends where it ends.
TEST(SideRowsOfARun, TellOfATableThatTheEndOfTheFileCuts) {
    const std::string rows = "|20240102|转账|500.00|0.00||\n";
    const std::string total = "|共 1条||500.00|0.00||\n";
    const auto cuts = [](const std::string& tables) {
        const std::string text = Statement({"制表", "制表时间：20240102", "资金状况", "=========", "|客户权益|1000.00|",
                                            "成交记录", "---------"}) +
                                 Gbk(tables);
        return KeysOf(CCheckedRun({{"20240102", text}}, {.format = 3}).findings).contains("cut-off@20240102");
    };
    const std::string whole = kCashHeading + rows + total;
    EXPECT_FALSE(cuts(whole + kCashHeading + rows + total));
    EXPECT_TRUE(cuts(whole + kCashHeading + rows));
    EXPECT_TRUE(cuts(whole + kCashHeading + rows + "|20240102|转"));
    EXPECT_FALSE(cuts(whole + kCashHeading + rows + "买---Buy\n"));
}

// Its reader passes over a statement of a day that it has read, and so does this: two files of one day have its rows
// once.
TEST(SideRowsOfARun, ComeOnceFromADayThatIsThereTwice) {
    const std::string text = Statement({"制表", "制表时间：20240102", "资金状况", "=========", "|客户权益|1000.00|",
                                        "成交记录", "---------"}) +
                             Gbk(kCashHeading + "|20240102|转账|500.00|0.00||\n|共 1条||500.00|0.00||\n");
    const CCheckedRun run({{"20240102", text}, {"20240103", text}}, {.format = 3});
    EXPECT_EQ(run.report.MoneyStore.Count(), 1);
    ASSERT_EQ(run.report.SideRecords.Cash.size(), 1U);
    EXPECT_EQ(run.report.SideRecords.Cash.front().BILL_DATE, "20240102");
}

}  // namespace
}  // namespace tradebill::check_side_tables_test
