#include "intake/text_split.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "support/gbk_text.h"

namespace tradebill::text_split_test {
namespace {

std::vector<std::string> TextsOf(const std::string& text) {
    std::vector<std::string> texts;
    for (const SplitStatement& statement : SplitStatements(text).statements) texts.emplace_back(statement.text);
    return texts;
}

std::vector<std::string> DaysOf(const std::string& text) {
    std::vector<std::string> days;
    for (const SplitStatement& statement : SplitStatements(text).statements)
        days.push_back(statement.day.value_or("-"));
    return days;
}

/// A statement with a title, one head and one line of figures.
std::string Day(const std::string& day, const std::string& account = "9001") {
    return Statement({"   云山期货有限公司", "   交易结算单(盯市)", "", "客户号: " + account + "  客户名称: 周虚构",
                      "日期: " + day, "", "上日结存: 1.00", "如有异议，请提出。"});
}

TEST(StatementSplit, CutsBeforeTheTitleOfEachOtherDay) {
    const std::string one = Day("20240102");
    const std::string two = Day("20240103");
    const std::string three = Day("20240104");
    const StatementSplit split = SplitStatements(one + two + three);
    EXPECT_EQ(split.refusal, "");
    EXPECT_EQ(split.account, "9001");
    EXPECT_EQ(TextsOf(one + two + three), (std::vector{one, two, three}));
    EXPECT_EQ(DaysOf(one + two + three), (std::vector<std::string>{"20240102", "20240103", "20240104"}));
}

TEST(StatementSplit, KeepsOneStatementWhole) {
    EXPECT_EQ(TextsOf(Day("20240102")), std::vector{Day("20240102")});
    const std::string silent = Statement({"上日结存: 1.00"});
    EXPECT_EQ(TextsOf(silent), std::vector{silent});
    EXPECT_EQ(DaysOf(silent), std::vector<std::string>{"-"});
    EXPECT_EQ(SplitStatements(silent).account, std::nullopt);
    EXPECT_EQ(TextsOf(""), std::vector<std::string>{""});
}

TEST(StatementSplit, LeavesWhatStandsBeforeTheFirstTitleWithTheFirst) {
    const std::string mail = Statement({"您好：以下是您的结算单", ""});
    EXPECT_EQ(TextsOf(mail + Day("20240102") + Day("20240103")),
              (std::vector{mail + Day("20240102"), Day("20240103")}));
}

TEST(StatementSplit, CutsInTheLineThatTwoFilesShare) {
    const std::string one = Day("20240102");
    const std::string open = one.substr(0, one.size() - 2);  // a file without a last line end
    EXPECT_EQ(TextsOf(open + Day("20240103")), (std::vector{open, Day("20240103")}));
    const std::string short1 = Statement({"结算单", "客户号: 1 日期: 20240102", "1.00"});
    const std::string short2 = Statement({"结算单", "客户号: 1 日期: 20240103", "1.00"});
    EXPECT_EQ(TextsOf(short1 + "--" + short2), (std::vector{short1 + "--", short2}));
}

TEST(StatementSplit, LeavesEmptyLinesWithTheStatementAboveThem) {
    EXPECT_EQ(TextsOf(Day("20240102") + "\r\n\r\n" + Day("20240103")),
              (std::vector{Day("20240102") + "\r\n\r\n", Day("20240103")}));
}

TEST(StatementSplit, TakesHeadsOfTheSameDayForSheets) {
    const std::string sheets = Statement({"云山期货", "客户帐单_资金清单", "客户号: 9001   日期: 20240102", "1.00", "",
                                          "云山期货", "客户帐单_成交记录单", "客户号: 9001   日期: 20240102", "2.00"});
    EXPECT_EQ(TextsOf(sheets), std::vector{sheets});
    const std::string next = Statement({"云山期货", "客户帐单_资金清单", "客户号: 9001   日期: 20240103", "3.00"});
    EXPECT_EQ(TextsOf(sheets + next), (std::vector{sheets, next}));
}

TEST(StatementSplit, KnowsARuleAndALineOfTheMakingDayForTitleLines) {
    const auto statement = [](const std::string& day) {
        return Statement({"  示例期货有限公司", "   制表时间 Creation Date：" + day, "--------",
                          "  交易结算单(盯市) Settlement Statement(MTM)",
                          "客户号 Client ID：  103988  客户名称：客户甲", "日期 Date：" + day, "",
                          "期初结存 Balance b/f：  1.00", "--------"});
    };
    EXPECT_EQ(TextsOf(statement("20210915") + statement("20210916")),
              (std::vector{statement("20210915"), statement("20210916")}));
}

TEST(StatementSplit, TakesTheDayOfMakingWhereThereIsNoOther) {
    const auto statement = [](const std::string& day) {
        return Statement({"  结算单", "", "客户号：9001    制表时间：" + day, "上日结存：1.00"});
    };
    const std::string both = statement("20240102") + statement("20240103");
    EXPECT_EQ(TextsOf(both), (std::vector{statement("20240102"), statement("20240103")}));
    EXPECT_TRUE(SplitStatements(both).statements.back().isDayMade);
    const std::string stated = Statement({"客户号：1 制表时间：20240109", "日期：20240108", "权益: 1.00"});
    EXPECT_EQ(DaysOf(stated), std::vector<std::string>{"20240108"});
    EXPECT_FALSE(SplitStatements(stated).statements.front().isDayMade);
}

TEST(StatementSplit, GoesByDaysAloneWhereAccountsAreMasked) {
    const auto statement = [](const std::string& day) {
        return Statement({"  结算单", "客户号: 90****01", "日期: " + day, "上日结存：1.00"});
    };
    const std::string both = statement("20240102") + statement("20240103");
    EXPECT_EQ(TextsOf(both), (std::vector{statement("20240102"), statement("20240103")}));
    EXPECT_EQ(SplitStatements(both).account, std::nullopt);
}

TEST(StatementSplit, FindsAHeadInAnotherFormOfWords) {
    const std::string one = Day("20240102");
    const std::string other = Statement({"   松塔期货", "", "客户代码: 9001   结算日: 20240103", "", "上日结存 1.00"});
    EXPECT_EQ(TextsOf(one + other), (std::vector{one, other}));
}

TEST(StatementSplit, PassesOverDaysAndAccountsInTheStatement) {
    const std::string text = Statement({"客户号: 9001", "日期: 20240102", "资金账号: 777", "到期日期: 20240301",
                                        "权益: 1.00", "期权到期日期：20240401", "资金账号：888", "2.00"});
    EXPECT_EQ(TextsOf(text), std::vector{text});
    EXPECT_EQ(SplitStatements(text).refusal, "");
    EXPECT_EQ(SplitStatements(text).account, "9001");
}

TEST(StatementSplit, RefusesTwoAccountsAndNamesThem) {
    EXPECT_EQ(SplitStatements(Day("20240102", "9001") + Day("20240103", "9002")).refusal,
              "it holds statements of two accounts, 9001 and 9002");
    EXPECT_EQ(SplitStatements(Day("20240102", "9001") + Day("20240102", "9002")).refusal,
              "it holds statements of two accounts, 9001 and 9002");
}

TEST(StatementSplit, HoldsAtMostTenThousandStatements) {
    std::string text;
    for (int i = 0; i < 10'000; ++i) text += Statement({"客户号: 1", "日期: " + std::to_string(20'000'000 + i)});
    EXPECT_EQ(SplitStatements(text).refusal, "");
    EXPECT_EQ(SplitStatements(text).statements.size(), 10'000u);
    EXPECT_EQ(SplitStatements(text + Statement({"客户号: 1", "日期: 30000000"})).refusal,
              "it holds more than 10000 statements");
}

TEST(StatementSplit, ShowsAnAccountThatLeadsElsewhereAsItStands) {
    EXPECT_EQ(SplitStatements(Statement({"客户号: 90/../1 日期: 20240102"})).account, "90/../1");
    EXPECT_EQ(SplitStatements(Statement({"客户号: 90,日期: 20240102"})).account, "90");
}

TEST(StatementSplit, RefusesStatementsThatAreNotOfOneDay) {
    const std::string month = "it is the statement of a month or of a range of days: those of single days are needed";
    const std::string byTrade =
        "it is a statement of the trade-by-trade form: the mark-to-market form (盯市) is needed";
    for (const char* const day :
         {"日期: 20240101-20240131", "日期：2024-01-01至2024-01-31", "日期: 2024.1.1 - 2024.1.31",
          "日期: 2024年1月1日至2024年1月31日", "日期: 20240101 ～ 20240131"}) {
        EXPECT_EQ(SplitStatements(Statement({"客户号: 1", day, "权益: 1.00"})).refusal, month) << day;
    }
    for (const char* const day : {"日期: 20240101", "日期: 20240101103000", "日期: 20240101-20240101",
                                  "日期: 2024-01-01 - 查询", "日期: 20240101 20240131"}) {
        EXPECT_EQ(SplitStatements(Statement({"客户号: 1", day, "权益: 1.00"})).refusal, "") << day;
    }
    EXPECT_EQ(SplitStatements(Statement({"1月结算单", "客户号: 1", "日期: 20240131"})).refusal, month);
    EXPECT_EQ(SplitStatements(Statement({"结算单", "客户号: 1", "月份：202401"})).refusal, month);
    EXPECT_EQ(SplitStatements(Statement({"结算单(逐笔对冲)", "客户号: 1", "日期: 20240131"})).refusal, byTrade);
    EXPECT_EQ(
        SplitStatements(Day("20240102") + Statement({"  结算单 (Trade by Trade)", "客户号: 9001", "日期: 20240103"}))
            .refusal,
        byTrade);
    EXPECT_EQ(SplitStatements(Statement({"客户号: 1", "日期: 20240131", "", "", "", "另有逐笔对冲结算单"})).refusal,
              "");
}

}  // namespace
}  // namespace tradebill::text_split_test
