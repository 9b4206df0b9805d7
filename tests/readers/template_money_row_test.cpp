#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "readers/template_fixture.h"

namespace tradebill::template_money_row_test {
namespace {

class TemplateMoneyRow : public TemplateFixture {
protected:
    /// A template of money in one row; of equal keys, the one in `keys` is read.
    static std::string MoneyTemplate(std::string_view keys) {
        return "[DEALFIELD]\r\nMONEY_MODE=1\r\n[MONEY_RECORD]\r\n" + std::string(keys) +
               Ini({"START_FLAG=资金", "START_OFFSET=2", "DELIMITER=|"});
    }

    /// The record that `row` makes; "none" for no record.
    Fields MoneyOf(std::string_view keys, std::string_view row) {
        BeginWith(1, MoneyTemplate(keys));
        EXPECT_TRUE(Read({"结算单", "资金", "标题", row}));
        return report.MoneyStore.Count() == 0 ? Fields{{"none", ""}} : Money();
    }
};

TEST_F(TemplateMoneyRow, FillsMoneyFromItsColumns) {
    EXPECT_EQ(MoneyOf(Ini({"KHQY_NAME=8", "BZJZY_NAME=1", "SXF_NAME=6", "KYZJ_NAME=0", "RJ_NAME=4", "CJ_NAME=7",
                           "QCQY_NAME=5", "QMJC_NAME=2", "XQSXF_NAME=3", "QLJSZ_NAME=3", "CCDSYK_NAME=3"}),
                      "v0|v1|v2|v3|100.5|v5|v6|30.25|v8"),
              Record({{"KYZJ", "v0"},
                      {"BZJZY", "v1"},
                      {"QMJC", "v2"},
                      {"CRJ", "70.25"},
                      {"QCQY", "v5"},
                      {"SXF", "v6"},
                      {"KHQY", "v8"}}));
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
}

TEST_F(TemplateMoneyRow, FillsNothingElse) {
    const struct {
        std::string_view key;
        Fields fields;
    } cases[] = {
        {"KHQY_NAME", {{"KHQY", "v3"}}},
        {"BZJZY_NAME", {{"BZJZY", "v3"}}},
        {"SXF_NAME", {{"SXF", "v3"}}},
        {"KYZJ_NAME", {{"KYZJ", "v3"}}},
        {"QCQY_NAME", {{"QCQY", "v3"}}},
        {"QMJC_NAME", {{"QMJC", "v3"}, {"KHQY", "v3"}}},
        {"RJ_NAME", {}},
        {"CJ_NAME", {}},
        {"CRJ_NAME", {}},
        {"PCYK_NAME", {}},
        {"XQSXF_NAME", {}},
        {"QLJSZ_NAME", {}},
        {"CCDSYK_NAME", {}},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(MoneyOf(std::string(row.key) + "=3\r\n", Cells(9)), Record(row.fields)) << row.key;
    }
    EXPECT_EQ(MoneyOf("", Cells(9)), Record({}));
}

TEST_F(TemplateMoneyRow, LeavesFieldsOfColumnsThatAreNotThere) {
    for (const std::string_view key : {"KHQY_NAME", "BZJZY_NAME", "SXF_NAME", "KYZJ_NAME", "QCQY_NAME", "QMJC_NAME"}) {
        const std::string name(key);
        const std::string field = name.substr(0, name.size() - 5);
        EXPECT_EQ(MoneyOf(name + "=0\r\n", Cells(10))[field], "v0") << key;
        EXPECT_EQ(MoneyOf(name + "=9\r\n", Cells(10))[field], "v9") << key;
        for (const std::string_view column : {"-1", "10", "-2147483648", "2147483647", "99999999999999999999"}) {
            EXPECT_EQ(MoneyOf(name + "=" + std::string(column) + "\r\n", Cells(10)), Record({})) << key << column;
        }
    }
}

TEST_F(TemplateMoneyRow, NeedsNineColumns) {
    EXPECT_EQ(MoneyOf("KYZJ_NAME=0\r\n", Cells(8)), (Fields{{"none", ""}}));
    EXPECT_EQ(MoneyOf("KYZJ_NAME=0\r\n", Cells(9)), Record({{"KYZJ", "v0"}}));
}

TEST_F(TemplateMoneyRow, ComputesCashFlowFromDepositsAndWithdrawals) {
    const struct {
        std::string_view keys;
        std::string_view cashFlow;
    } cases[] = {
        {"RJ_NAME=0\r\nCJ_NAME=1\r\n", "999.50"},
        {"RJ_NAME=1\r\nCJ_NAME=0\r\n", "-999.50"},
        {"RJ_NAME=0\r\nCJ_NAME=0\r\n", "0.00"},
        {"RJ_NAME=2\r\nCJ_NAME=1\r\n", "1.50"},
        {"RJ_NAME=3\r\nCJ_NAME=4\r\n", "0.13"},
        {"RJ_NAME=0\r\n", ""},
        {"CJ_NAME=1\r\n", ""},
        {"RJ_NAME=0\r\nCJ_NAME=9\r\n", ""},
        {"RJ_NAME=9\r\nCJ_NAME=1\r\n", ""},
        {"RJ_NAME=-1\r\nCJ_NAME=1\r\n", ""},
        {"RJ_NAME=8\r\nCJ_NAME=8\r\n", "0.00"},
        {"RJ_NAME=2\r\nCJ_NAME=8\r\n", "2.00"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(MoneyOf(row.keys, "1000|0.5|2,000.00|0.126|none|5|6|7|none")["CRJ"], row.cashFlow) << row.keys;
    }
}

TEST_F(TemplateMoneyRow, CopiesTheClosingBalanceWhereNoEquityStands) {
    EXPECT_EQ(MoneyOf("QMJC_NAME=2\r\nKHQY_NAME=8\r\n", Cells(9))["KHQY"], "v8");
    EXPECT_EQ(MoneyOf("QMJC_NAME=2\r\nKHQY_NAME=9\r\n", Cells(9))["KHQY"], "v2");
    EXPECT_EQ(MoneyOf("QMJC_NAME=2\r\nKHQY_NAME=-1\r\n", Cells(9))["KHQY"], "v2");
    EXPECT_EQ(MoneyOf("QMJC_NAME=9\r\nKHQY_NAME=9\r\n", Cells(9)), Record({}));
    EXPECT_EQ(MoneyOf("QMJC_NAME=0\r\n", "12345678901234567|1|2|3|4|5|6|7|8"),
              Record({{"QMJC", "123456789012345"}, {"KHQY", "123456789012345"}}));
}

TEST_F(TemplateMoneyRow, StandsAsManyRowsBehindTheTitleAsTheTemplateSays) {
    const struct {
        std::string_view offset;
        Texts read;
    } cases[] = {
        {"-2", {"r0"}}, {"-1", {"r1"}}, {"0", {"资金"}}, {"1", {"r3"}}, {"2", {"r4"}}, {"3", {}}, {"2147483647", {}},
    };
    for (const auto& row : cases) {
        BeginWith(1, MoneyTemplate("KYZJ_NAME=0\r\nSTART_OFFSET=" + std::string(row.offset) + "\r\n"));
        EXPECT_EQ(ErrorOf({"r0|1|2|3|4|5|6|7|8", "r1|1|2|3|4|5|6|7|8", "资金|1|2|3|4|5|6|7|8", "r3|1|2|3|4|5|6|7|8",
                           "r4|1|2|3|4|5|6|7|8"}),
                  0U);
        EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KYZJ"), row.read) << row.offset;
    }
}

TEST_F(TemplateMoneyRow, IsTheRowBeforeTheTitleWithoutAnOffset) {
    BeginWith(1, "[DEALFIELD]\r\nMONEY_MODE=1\r\n[MONEY_RECORD]\r\nSTART_FLAG=资金\r\nDELIMITER=|\r\nKYZJ_NAME=0\r\n");
    EXPECT_TRUE(Read({Cells(9), "资金", "r2|1|2|3|4|5|6|7|8"}));
    EXPECT_EQ(Money(), Record({{"KYZJ", "v0"}}));
}

TEST_F(TemplateMoneyRow, RaisesAnErrorBeforeTheFirstRow) {
    for (const std::string_view offset : {"-1", "-2", "-2147483648", "-99999999999"}) {
        BeginWith(1, MoneyTemplate("START_OFFSET=" + std::string(offset) + "\r\n"));
        EXPECT_EQ(ErrorOf({"资金", Cells(9), Cells(9)}), kErrorInvalidArgument) << offset;
        EXPECT_TRUE(NothingRead());
        EXPECT_EQ(ErrorOf({"其他", Cells(9), Cells(9)}), 0U) << offset;
    }
}

TEST_F(TemplateMoneyRow, NeedsNoTerminator) {
    EXPECT_EQ(MoneyOf("KYZJ_NAME=0\r\nEND_FLAG=合计\r\nEND_OFFSET=9\r\n", Cells(9)), Record({{"KYZJ", "v0"}}));
    EXPECT_EQ(MoneyOf("KYZJ_NAME=0\r\nEND_FLAG=v1\r\n", Cells(9)), Record({{"KYZJ", "v0"}}));
}

TEST_F(TemplateMoneyRow, IsOneRowAlone) {
    BeginWith(1, MoneyTemplate("KYZJ_NAME=0\r\nSTART_OFFSET=1\r\n"));
    EXPECT_TRUE(Read({"资金", "短|1", Cells(9), "合计"}));
    EXPECT_TRUE(NothingRead());
    EXPECT_TRUE(Read({"资金", Cells(9), "w0|1|2|3|4|5|6|7|8", "资金", "x0|1|2|3|4|5|6|7|8"}));
    EXPECT_EQ(Money(), Record({{"KYZJ", "v0"}}));
}

TEST_F(TemplateMoneyRow, GoesOnWithAnEmptyTitleAtTheFirstRow) {
    EXPECT_EQ(MoneyOf("KYZJ_NAME=0\r\nSTART_FLAG=\r\nSTART_OFFSET=3\r\n", Cells(9)), Record({{"KYZJ", "v0"}}));
    BeginWith(1, MoneyTemplate("START_FLAG=\r\nSTART_OFFSET=-1\r\n"));
    EXPECT_EQ(ErrorOf({"结算单", Cells(9)}), kErrorInvalidArgument);
    EXPECT_EQ(ErrorOf({}), 0U);  // no row that could hold the title
}

TEST_F(TemplateMoneyRow, MakesOneColumnOfARowWithoutADelimiter) {
    EXPECT_EQ(MoneyOf("KYZJ_NAME=0\r\nDELIMITER=\r\n", "1 2 3 4 5 6 7 8 9 10"), (Fields{{"none", ""}}));
}

TEST_F(TemplateMoneyRow, IsSplitAtTwoBlanksByTheWordSpace) {
    EXPECT_EQ(MoneyOf("KYZJ_NAME=1\r\nDELIMITER=SPACE\r\n", "a  1 2   c  d  e  f  g  h  i"), Record({{"KYZJ", "1 2"}}));
    EXPECT_EQ(MoneyOf("KYZJ_NAME=1\r\nDELIMITER=SPACE\r\n", "a 1 2 c d e f g h i"), (Fields{{"none", ""}}));
}

TEST_F(TemplateMoneyRow, FeedsTheDaysFigures) {
    MoneyOf("QMJC_NAME=2\r\nQCQY_NAME=1\r\nRJ_NAME=3\r\nCJ_NAME=4\r\n", "0|10|20|9|4|5|6|7|8");
    const DayFigure* const figure = report.TradeStatistics.DayFigures.Find("20240105");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->Opening, 10);
    EXPECT_EQ(figure->Closing, 20);
    EXPECT_EQ(figure->CashFlow, 5);
    EXPECT_EQ(report.MoneyStore.TotalCashFlow, 5);
}

}  // namespace
}  // namespace tradebill::template_money_row_test
