// What `explain` shows of a section's columns: its first record, columns that rows lack, and amounts that are none.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "cli/explain_fixture.h"

namespace tradebill::explain_details_test {
namespace {

class ExplainedDetails : public ExplainFixture {
protected:
    static bool Says(const std::string& text, std::string_view words) { return text.find(words) != std::string::npos; }

    /// A statement of format 1 with these rows of trades.
    static std::string Trades(const std::vector<std::string>& rows) {
        std::string text = Statement({"资金状况", "-", "客户权益: 1.00", "---------", "成交记录", "-", "-"});
        for (const std::string& row : rows) text += Gbk(row) + "\r\n";  // from line 8 on
        return text + Statement({"共"});
    }
    [[nodiscard]] ExplainCommand ByTemplate(const std::string& content, const std::string& text,
                                            const std::string& format, bool asJson = true) const {
        return {.statementFile = folder_.Write("D1.20240102o.txt", text),
                .format = format,
                .kind = {},
                .templateFile = folder_.Write("t.ini", Gbk(content)),
                .day = {},
                .asJson = asJson};
    }
};

TEST_F(ExplainedDetails, ShowTheFirstRecordOfEverySection) {
    const Explained explained = Explain(SmallStatement(), "1");
    EXPECT_EQ(explained.Section("trades").at("first_record"), (Json{{"line", 13},
                                                                    {"fields",
                                                                     {{"BILL_DATE", "20240102"},
                                                                      {"MATCH_DATE", "20240102"},
                                                                      {"EXCH_NAME", "大商所"},
                                                                      {"CONTRACT", "i"},
                                                                      {"DELIVERY", "2405"},
                                                                      {"BID", "买"},
                                                                      {"OFFSET", "开"},
                                                                      {"MATCH_PRICE", "1"},
                                                                      {"MATCH_VOL", "2"},
                                                                      {"TURNOVER", "3"},
                                                                      {"POUNDAGE", "4"},
                                                                      {"OFFSETPL", "5"},
                                                                      {"HEDGE", "投"}}}}));
    EXPECT_EQ(explained.Section("open").at("first_record").at("line"), 21);
    EXPECT_EQ(explained.Section("open").at("first_record").at("fields").at("DEPOSIT"), "7");
    EXPECT_FALSE(explained.Section("closed").contains("first_record"));
    EXPECT_FALSE(explained.Section("money").contains("first_record"));  // its records stand there
    const std::string text = ExplainAsText(SmallStatement(), "1");
    EXPECT_TRUE(Says(text,
                     "    first record, line 13: BILL_DATE=20240102 MATCH_DATE=20240102 EXCH_NAME=大商所 "
                     "CONTRACT=i DELIVERY=2405 HEDGE=投 BID=买 MATCH_PRICE=1 MATCH_VOL=2 TURNOVER=3 OFFSET=开 "
                     "POUNDAGE=4 OFFSETPL=5\n"))
        << text;
}

TEST_F(ExplainedDetails, ShowTheFirstRecordThoughItsRowIsntTheFirst) {
    const Json trades =
        Explain(Trades({"-----", "a b", "20240102 所 i 2405 买 开 1 2 3 4 5 投"}), "1").Section("trades");
    EXPECT_EQ(trades.at("first_record").at("line"), 10);
    EXPECT_EQ(trades.at("rows_passed_over")[0], (Json{{"line", 8}, {"reason", "rule"}, {"columns", 1}}));
    EXPECT_EQ(trades.at("rows_passed_over")[1].at("reason"), "too_short");
}

TEST_F(ExplainedDetails, CallARuleARule) {
    EXPECT_TRUE(Says(ExplainAsText(Trades({"-----"}), "1"), "    line 8 passed over: a rule\n"));
}

TEST_F(ExplainedDetails, NameAmountsThatAreNone) {
    const std::string text =
        Trades({"20240102 所 i 2405 买 开 1 2 3 4 5 投", "20240102 所 i 2405 买 开 价 1,234.50 3 -- 5 投"});
    EXPECT_EQ(Explain(text, "1").Section("trades").at("no_amounts"),
              (Json::array({{{"line", 9}, {"field", "MATCH_PRICE"}, {"text", "价"}, {"read_as", 0.0}},
                            {{"line", 9}, {"field", "MATCH_VOL"}, {"text", "1,234.50"}, {"read_as", 1.0}},
                            {{"line", 9}, {"field", "POUNDAGE"}, {"text", "--"}, {"read_as", 0.0}}})));
    const std::string words = ExplainAsText(text, "1");
    EXPECT_TRUE(Says(words, "    line 9: MATCH_PRICE is \"价\", no amount; it is read as 0\n")) << words;
    EXPECT_TRUE(Says(words, "    line 9: MATCH_VOL is \"1,234.50\", no amount; it is read as 1\n")) << words;
    EXPECT_FALSE(Says(words, "more that are no amounts"));
}

/// An empty cell moves all columns behind it.
TEST_F(ExplainedDetails, ShowARowThatHasMoved) {
    const std::string text = Trades({"20240102 所 i 2405 开 1 2 3 4 5 投 99"});
    const std::string words = ExplainAsText(text, "1");
    EXPECT_TRUE(Says(words, "BID=开 MATCH_PRICE=2")) << words;
    EXPECT_TRUE(Says(words, "OFFSETPL is \"投\", no amount; it is read as 0")) << words;
}

TEST_F(ExplainedDetails, NameTheFirstAmountsAndCountTheOthers) {
    const std::string text = Trades(std::vector<std::string>(7, "20240102 所 i 2405 买 开 价 2 3 4 5 投"));
    EXPECT_EQ(Explain(text, "1").Section("trades").at("no_amounts").size(), 7U);
    const std::string words = ExplainAsText(text, "1");
    EXPECT_TRUE(Says(words, "line 12: MATCH_PRICE")) << words;
    EXPECT_FALSE(Says(words, "line 13: MATCH_PRICE")) << words;
    EXPECT_TRUE(Says(words, "    ... and 2 more that are no amounts\n")) << words;
}

TEST_F(ExplainedDetails, CutAmountsThatAreLong) {
    std::string cell;
    for (int i = 0; i < 30; ++i) cell += "价格";
    const std::string words = ExplainAsText(Trades({"20240102 所 i 2405 买 开 " + cell + " 2 3 4 5 投"}), "1");
    EXPECT_TRUE(Says(words, "MATCH_PRICE is \"价格价格价格价格价格价格价格价格价格价格...\", no amount")) << words;
    const std::string moved = ExplainAsText(Trades({"20240102 所 i 2405 买 开 x" + cell + " 2 3 4 5 投"}), "1");
    EXPECT_TRUE(Says(moved, "MATCH_PRICE is \"x价格价格价格价格价格价格价格价格价格价...\", no amount")) << moved;
}

TEST_F(ExplainedDetails, NameAmountsBehindLabels) {
    const std::string text =
        Statement({"资金状况", "-", "客户权益: 1,000.00", "可用资金: 5.00 手续费: 无", "---------"});
    EXPECT_EQ(Explain(text, "1").Section("money").at("no_amounts"),
              (Json::array({{{"line", 3}, {"field", "KHQY"}, {"text", "1,000.00"}, {"read_as", 1.0}},
                            {{"line", 4}, {"field", "SXF"}, {"text", "无"}, {"read_as", 0.0}}})));
    EXPECT_TRUE(Says(ExplainAsText(text, "1"), "    line 4: SXF is \"无\", no amount; it is read as 0\n"));
}

TEST_F(ExplainedDetails, TakeThousandsMarksWhereTheReaderDoes) {
    ExplainCommand command{
        .statementFile = folder_.Write("D1.20240102o.txt",
                                       Statement({"资金汇总", "Base HKD* USD", "当前权益 1,000.00 2x", "追加保证金"})),
        .format = {},
        .kind = "foreign",
        .templateFile = {},
        .day = {},
        .asJson = true};
    EXPECT_EQ(Run(command).Section("money").at("no_amounts"),
              (Json::array({{{"line", 3}, {"field", "KHQY"}, {"text", "2x"}, {"read_as", 2.0}},
                            {{"line", 3}, {"field", "QMJC"}, {"text", "2x"}, {"read_as", 2.0}}})));
}

TEST_F(ExplainedDetails, NameAColumnOnceThoughItFillsTwoFields) {
    const std::string text = Statement({"客户帐单_资金清单", "-", "-", "-", "1 2 3 4 5 x 7 8 9", "---------"});
    const Json money = Explain(text, "2").Section("money");
    EXPECT_EQ(money.at("no_amounts"),
              (Json::array({{{"line", 5}, {"field", "QMJC"}, {"text", "x"}, {"read_as", 0.0}}})));
}

constexpr std::string_view kTradesTemplate =
    "[DEALFIELD]\nMONEY_MODE=9\nMATCH_RECORD=1\n[MATCH_RECORD]\nSTART_FLAG=明细\nSTART_OFFSET=2\nEND_FLAG=共\n"
    "END_OFFSET=0\nDELIMITER=|\nCONTRACT=2\nMATCH_PRICE=3\nTURNOVER=11\nMATCHNO=14\n";

TEST_F(ExplainedDetails, NameColumnsThatNoRowHas) {
    const std::string text =
        Statement({"单", "明细", "-", "0|1|2|3|4|5|6|7|8|9|10|11", "0|1|2|3|4|5|6|7|8|9|10", "共"});
    const Explained explained = Run(ByTemplate(std::string(kTradesTemplate), text, "1"));
    const Json trades = explained.Section("trades");
    EXPECT_EQ(trades.at("widest_row"), 12);
    EXPECT_EQ(
        trades.at("columns_not_in_rows"),
        (Json::array({{{"column", 11}, {"field", "TURNOVER"}, {"rows", 2}, {"rows_without", 1}, {"first_line", 5}},
                      {{"column", 14}, {"field", "MATCHNO"}, {"rows", 2}, {"rows_without", 2}, {"first_line", 4}}})));
    const std::string words = Run(ByTemplate(std::string(kTradesTemplate), text, "1", false)).output;
    EXPECT_TRUE(Says(words, "    1 of 2 rows lack column 11 (TURNOVER), the first at line 5\n")) << words;
    EXPECT_TRUE(Says(words, "    no row has column 14 (MATCHNO): the longest has 12 columns, counted from 0\n"))
        << words;
}

TEST_F(ExplainedDetails, SayNothingOfColumnsWithoutRows) {
    const Explained explained =
        Run(ByTemplate(std::string(kTradesTemplate), Statement({"单", "明细", "-", "共"}), "1"));
    EXPECT_EQ(explained.Section("trades").at("columns_not_in_rows"), Json::array());
}

/// Premium and trade number are columns that these tables print or leave out together.
TEST_F(ExplainedDetails, TellColumnsThatSomeRowsOfATableLack) {
    const auto lacking = [&](const std::string& first, const std::string& second) {
        const std::string text =
            Statement({"权利金", "成交记录", "-", "-", "-", "-"}) + Gbk(first + "\r\n" + second + "\r\n-\r\n共\r\n");
        return Explain(text, "3").Section("trades").at("columns_not_in_rows");
    };
    const std::string eleven = "0|1|2|3|4|5|6|7|8|9|10";
    EXPECT_EQ(lacking(eleven, eleven), Json::array());
    EXPECT_EQ(
        lacking(eleven + "|11", eleven),
        (Json::array({{{"column", 11}, {"field", "OFFSETPL"}, {"rows", 2}, {"rows_without", 1}, {"first_line", 8}}})));
}

TEST_F(ExplainedDetails, TellApartTheTwoRowsOfMoney) {
    const std::string text = Statement({"资 金 清 单", "-", "-", "1 2 3 x 5", "-", "-", "6 y 8"});
    EXPECT_EQ(Explain(text, "6").Section("money").at("no_amounts"),
              (Json::array({{{"line", 4}, {"field", "PCYK"}, {"text", "x"}, {"read_as", 0.0}},
                            {{"line", 7}, {"field", "BZJZY"}, {"text", "y"}, {"read_as", 0.0}}})));
}

TEST_F(ExplainedDetails, SayThatNoFixedReaderTakesOver) {
    const std::string lacking = "[DEALFIELD]\nMATCH_RECORD=1\n[MONEY_RECORD]\nSTART_FLAG=资金\n";
    EXPECT_TRUE(Says(Run(ByTemplate(lacking, Statement({"单"}), "7", false)).output,
                     "declined at section [MONEY_RECORD], which lacks END_FLAG; no fixed reader serves this format\n"));
}

}  // namespace
}  // namespace tradebill::explain_details_test
