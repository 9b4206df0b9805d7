// What is kept of a statement whatever reads it: a template, one that hands it on, or the reader of foreign accounts.
#include "findings/statement_watch.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "findings/account_check.h"
#include "findings/finding.h"
#include "findings/section_facts.h"
#include "report/printed_money.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::statement_watch_test {
namespace {

DayFile File(const std::string& day, std::initializer_list<std::string_view> lines) {
    return {day, Statement(lines)};
}

/// A template as a file, for as long as this lives.
class CTemplateFile {
public:
    explicit CTemplateFile(std::string_view content) { folder_.Write("broker.ini", Gbk(content)); }
    [[nodiscard]] AskedLayout Asked() const { return {.templatePath = folder_.Path("broker.ini")}; }

private:
    CTempFolder folder_;
};

std::vector<SectionKind> KindsOf(const StatementFacts& facts) {
    std::vector<SectionKind> kinds;
    for (const SectionFacts& section : facts.sections) kinds.push_back(section.kind);
    return kinds;
}

std::vector<FindingCode> CodesOf(const StatementFacts& facts) {
    std::vector<FindingCode> codes;
    for (const Finding& finding : facts.findings) codes.push_back(finding.code);
    return codes;
}

using Kinds = std::vector<SectionKind>;
using Codes = std::vector<FindingCode>;

const std::string kTradesTemplate =
    "[DEALFIELD]\r\nMONEY_MODE=9\r\nMATCH_RECORD=1\r\n[MATCH_RECORD]\r\nSTART_FLAG=成交记录\r\nSTART_OFFSET=2\r\n"
    "END_FLAG=共\r\nEND_OFFSET=0\r\nDELIMITER=;\r\nCONTRACT=2\r\n";
constexpr std::string_view kBySemicolons = "0;1;2;3;4;5;6;7;8;9;10";
constexpr std::string_view kByBlanks = "20240105 SHFE cu 2405 buy open 1 2 3 4 5 6";

TEST(StatementWatch, ForgetsWhatATemplateReadThatHandsTheStatementOn) {
    const CTemplateFile declining("[DEALFIELD]\r\nMONEY_MODE=9\r\nPING_DETAIL=1\r\nMATCH_RECORD=1\r\n" +
                                  kTradesTemplate.substr(kTradesTemplate.find("[MATCH_RECORD]")));
    const std::vector files{File("20240105", {"日  期:20240105", "成交记录", "-", "-", kByBlanks, "共 1条"})};
    const CCheckedRun handedOn(files, declining.Asked());
    const StatementFacts& facts = handedOn.watch.Statements().back();
    EXPECT_EQ(facts.layout, "fund-status");
    EXPECT_EQ(KindsOf(facts), (Kinds{SectionKind::Money, SectionKind::Trades, SectionKind::Closed, SectionKind::Open,
                                     SectionKind::Summary}));
    EXPECT_TRUE(facts.sections[1].faults.empty());
    // By the template the row has one column.
    const CTemplateFile reading(kTradesTemplate);
    const CCheckedRun run(files, reading.Asked());
    const StatementFacts& read = run.watch.Statements().back();
    EXPECT_EQ(KindsOf(read), Kinds{SectionKind::Trades});
    EXPECT_EQ(read.sections[0].faults.size(), 1U);
}

TEST(StatementWatch, TakesAStatementThatATemplateReadsForItsLayoutWithoutADate) {
    const CTemplateFile reading(kTradesTemplate);
    const CCheckedRun run({File("20240105", {"成交记录", "-", kBySemicolons, "共 1条"})}, reading.Asked());
    const StatementFacts& facts = run.watch.Statements().back();
    EXPECT_FALSE(facts.statesDay);
    EXPECT_EQ(CodesOf(facts), Codes{});
    EXPECT_TRUE(facts.isUsable);
}

TEST(StatementWatch, TakesMoneyThatATemplateCountsFromTheTop) {
    const CTemplateFile counting(
        "[DEALFIELD]\r\nMONEY_MODE=1\r\n[MONEY_RECORD]\r\nSTART_OFFSET=1\r\nDELIMITER=|\r\nKHQY_NAME=3\r\n");
    const CCheckedRun run({File("20240105", {"head", "0|1|2|3.50|4|5|6|7|8"})}, counting.Asked());
    const StatementFacts& facts = run.watch.Statements().back();
    EXPECT_EQ(CodesOf(facts), Codes{});
    EXPECT_TRUE(facts.isUsable);
    ASSERT_EQ(run.report.PrintedMoney.size(), 1U);
    EXPECT_EQ(run.report.PrintedMoney[0][PrintedFigure::Equity], 35000);
}

/// A statement of 5 January that has the marks of its layout, and money.
DayFile TabulatedFile(const std::string& day) {
    return File(day, {"结算单", "制表时间：20240105", "资金状况", "=========", "期初结存： 5.00 期末结存： 5.00",
                      "客户权益： 5.00 可用资金： 5.00", "", "成交记录", "---------", "|1|"});
}

TEST(StatementWatch, TakesAStatementOfAKnownDayForItsLayout) {
    const CCheckedRun run({TabulatedFile("20240105"), TabulatedFile("20240108")}, {3});
    ASSERT_EQ(run.report.PrintedMoney.size(), 1U) << "the second is passed over";
    const StatementFacts& second = run.watch.Statements().back();
    EXPECT_TRUE(second.isUsable);
    EXPECT_EQ(CodesOf(second), Codes{FindingCode::WrongDay});
}

// A reader that passes over days it knows sees nothing of a statement but its date.
TEST(StatementWatch, DoesntTakeAStatementOfAnotherLayoutForOneOfAKnownDay) {
    const CCheckedRun run({TabulatedFile("20240105"),
                           File("20240108", {"结算单", "制表时间：20240105", "资金类别", "客户权益: 5.00", "-"})},
                          {3});
    EXPECT_EQ(run.watch.Statements().front().layout, "tabulated");
    ASSERT_EQ(run.report.PrintedMoney.size(), 1U) << "the day is known";
    const StatementFacts& second = run.watch.Statements().back();
    ASSERT_EQ(CodesOf(second), Codes{FindingCode::Unrecognised});
    EXPECT_EQ(second.findings[0].found, "--format 0");
}

/// A statement of a layout that is read by a template alone; without one the reader of its format knows none of its
/// labels, but its tables.
TEST(StatementWatch, SeesMoneyThatNoLabelLeadsTo) {
    const std::string day = "20240129";
    const std::string text = ReadFile(std::string(TRADEBILL_SAMPLES) +
                                      "/bilingual-new/root/Users/demo/Data/Bill/D90010010." + day + "o.txt");
    ASSERT_FALSE(text.empty());
    const CCheckedRun run({{day, text}}, {3});
    const StatementFacts& facts = run.watch.Statements().back();
    EXPECT_TRUE(facts.isUsable);
    EXPECT_TRUE(facts.lacksLabels);
    EXPECT_TRUE(facts.lacksEquity);
    EXPECT_EQ(facts.otherOptions, "--format 3 --template FILE.ini");
}

TEST(StatementWatch, SeesAnEquityThatItsLayoutDoesntTake) {
    const auto with = [](std::string_view label) {
        const CCheckedRun run({File("20240105", {"结算单", "日  期:20240105", "资金状况", "----------",
                                                 "上日结存: 5.00 当日结存: 5.00", label, "----------"})},
                              {1});
        return run.watch.Statements().back();
    };
    EXPECT_FALSE(with("客户权益: 5.00").lacksEquity);
    EXPECT_TRUE(with("权益: 5.00").lacksEquity);
    EXPECT_FALSE(with("权益: 5.00").lacksLabels);
    EXPECT_FALSE(with("可用资金: 5.00").lacksEquity) << "none is printed";
}

TEST(StatementWatch, CountsPositionsOfASummaryWhereThereAreNoOthers) {
    const std::string content =
        "[DEALFIELD]\r\nMONEY_MODE=9\r\nOPI_SUM=1\r\n[OPI_SUM]\r\nSTART_FLAG=持仓汇总\r\nSTART_OFFSET=1\r\n"
        "END_FLAG=共\r\nEND_OFFSET=0\r\nDELIMITER=|\r\nCONTRACT=0\r\nBID_POSITION_VOL=1\r\nASK_POSITION_VOL=2\r\n";
    const auto rowsOf = [](const char* lots) { return "cu2405|" + std::string(lots) + "|0|3|4|5|6|7|8|9|10|11"; };
    const CTemplateFile summing(content);
    const CCheckedRun run(
        {File("20240105", {"持仓汇总", rowsOf("2"), "共 1条"}), File("20240108", {"持仓汇总", rowsOf("5"), "共 1条"})},
        summing.Asked());
    EXPECT_FALSE(run.watch.Statements().back().lots.empty()) << "3 lots came from nowhere";
}

TEST(StatementWatch, TellsADateThatIsntThere) {
    const CCheckedRun run({File("20240105", {"日  期:", "成交记录", "-", "-", kByBlanks, "共 1条"})}, {1});
    const StatementFacts& facts = run.watch.Statements().back();
    ASSERT_EQ(CodesOf(facts), Codes{FindingCode::WrongDay});
    EXPECT_EQ(facts.findings[0].expected, "20240105");
    EXPECT_EQ(facts.findings[0].found, "");
    EXPECT_EQ(facts.findings[0].text, "No date stands behind \"日  期:\", by which the layout files the statement.");
}

TEST(StatementWatch, KeepsTheMoneyOfEachCurrency) {
    const CCheckedRun run({File("20240105", {"资金汇总 Summary", "货币 Base USD HKD", "期初资金 Balance b/f 1.1 1.2",
                                             "当前权益 Client Equity 6.1 6.2", "追加保证金 Margin Call 0 0"})},
                          {1, true});
    const auto& printed = run.report.PrintedMoney;
    ASSERT_EQ(printed.size(), 2U);
    EXPECT_EQ(printed[0].Currency, "USD");
    EXPECT_TRUE(printed[0].IsBase);
    EXPECT_EQ(printed[0].Day, "20240105");
    EXPECT_EQ(printed[0][PrintedFigure::Opening], 11000);
    EXPECT_EQ(printed[1].Currency, "HKD");
    EXPECT_FALSE(printed[1].IsBase);
    EXPECT_EQ(printed[1][PrintedFigure::Equity], 62000);
}

}  // namespace
}  // namespace tradebill::statement_watch_test
