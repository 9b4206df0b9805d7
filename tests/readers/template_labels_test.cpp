#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "readers/template_fixture.h"

namespace tradebill::template_labels_test {
namespace {

class TemplateLabels : public TemplateFixture {
protected:
    /// A template of labelled money; of equal keys, the one in `keys` is read.
    static std::string MoneyTemplate(std::string_view keys) {
        return "[MONEY_RECORD]\r\n" + std::string(keys) + Ini({"START_FLAG=资金", "END_FLAG=合计", "DELIMITER=|"});
    }

    /// The record of a section with these rows.
    Fields MoneyOf(std::string_view keys, const std::vector<std::string_view>& rows) {
        BeginWith(1, MoneyTemplate(keys));
        std::string text = Gbk("结算单\r\n资金\r\n标题\r\n");
        for (const std::string_view row : rows) text += Gbk(row) + "\r\n";
        EXPECT_TRUE(ReadByTemplate("20240105", text + Gbk("合计\r\n")));
        return Money();
    }
};

TEST_F(TemplateLabels, FillEachItsField) {
    const std::string keys = Ini({"KHQY_NAME=权益", "BZJZY_NAME=保证金", "SXF_NAME=手续费", "KYZJ_NAME=可用",
                                  "CRJ_NAME=出入金", "RJ_NAME=入金", "CJ_NAME=出金", "QCQY_NAME=期初", "QMJC_NAME=期末",
                                  "PCYK_NAME=平仓", "CCDSYK_NAME=持仓", "XQSXF_NAME=行权", "QLJSZ_NAME=权利金"});
    EXPECT_EQ(MoneyOf(keys, {"权益|m1|保证金|m2|手续费|m3", "可用|m4|出入金|m5", "入金|m6|出金|m7|期初|m8", "期末|m9",
                             "平仓|m10|持仓|m11", "行权|m12|权利金|m13"}),
              Record({{"KHQY", "m1"},
                      {"BZJZY", "m2"},
                      {"SXF", "m3"},
                      {"KYZJ", "m4"},
                      {"CRJ", "m5"},
                      {"QCQY", "m8"},
                      {"QMJC", "m9"},
                      {"PCYK", "m10"},
                      {"CCDSYK", "m11"},
                      {"XQSXF", "m12"},
                      {"QLJSZ", "m13"}}));
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
}

TEST_F(TemplateLabels, FillNothingElse) {
    const struct {
        std::string_view key;
        std::string_view field;
    } cases[] = {
        {"KHQY_NAME", "KHQY"},     {"BZJZY_NAME", "BZJZY"}, {"SXF_NAME", "SXF"},     {"KYZJ_NAME", "KYZJ"},
        {"CRJ_NAME", "CRJ"},       {"QCQY_NAME", "QCQY"},   {"QMJC_NAME", "QMJC"},   {"PCYK_NAME", "PCYK"},
        {"CCDSYK_NAME", "CCDSYK"}, {"XQSXF_NAME", "XQSXF"}, {"QLJSZ_NAME", "QLJSZ"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(MoneyOf(std::string(row.key) + "=标签\r\n", {"其他|1|标签|2|末|3"}),
                  Record({{std::string(row.field), "2"}}))
            << row.key;
    }
    EXPECT_EQ(MoneyOf("RJ_NAME=标签\r\n", {"标签|2"}), Record({}));
    EXPECT_EQ(MoneyOf("CJ_NAME=标签\r\n", {"标签|2"}), Record({}));
    EXPECT_EQ(MoneyOf("HOST_CURRENT_NAME=标签\r\nCURRENCY_NAME=标签\r\n", {"标签|2"}), Record({}));
}

TEST_F(TemplateLabels, MatchWholeColumns) {
    for (const std::string_view other : {"权益：|1", "客户权益|1", "权 益|1", "(权益)|1", "权益1", "权", "Equity|1"}) {
        EXPECT_EQ(MoneyOf("KHQY_NAME=权益\r\n", {other}), Record({})) << other;
    }
    EXPECT_EQ(MoneyOf("KHQY_NAME=Equity\r\n", {"equity|1"}), Record({}));
    EXPECT_EQ(MoneyOf("KHQY_NAME=权益\r\n", {"  权益 |  1  |"}), Record({{"KHQY", "1"}}));
}

TEST_F(TemplateLabels, NeedAColumnBehindThem) {
    EXPECT_EQ(MoneyOf("KHQY_NAME=权益\r\n", {"1|权益", "2|3"}), Record({}));
    EXPECT_EQ(MoneyOf("KHQY_NAME=权益\r\n", {"权益"}), Record({}));
    EXPECT_EQ(MoneyOf("KHQY_NAME=权益\r\n", {"权益||"}), Record({}));
    EXPECT_EQ(MoneyOf("KHQY_NAME=权益\r\n", {"权益|1"}), Record({{"KHQY", "1"}}));
}

TEST_F(TemplateLabels, AreSoughtInValuesToo) {
    EXPECT_EQ(MoneyOf("KHQY_NAME=权益\r\nSXF_NAME=手续费\r\n", {"权益|手续费|5"}),
              Record({{"KHQY", "手续费"}, {"SXF", "5"}}));
    EXPECT_EQ(MoneyOf("KHQY_NAME=权益\r\n", {"权益|权益|5"}), Record({{"KHQY", "5"}}));
}

TEST_F(TemplateLabels, FillEveryFieldThatBearsThem) {
    EXPECT_EQ(MoneyOf("KHQY_NAME=结存\r\nQMJC_NAME=结存\r\nQLJSZ_NAME=结存\r\n", {"结存|5"}),
              Record({{"KHQY", "5"}, {"QMJC", "5"}, {"QLJSZ", "5"}}));
}

TEST_F(TemplateLabels, KeepTheLastOfSeveralValues) {
    EXPECT_EQ(MoneyOf("KHQY_NAME=权益\r\n", {"权益|1|权益|2", "权益|3"}), Record({{"KHQY", "3"}}));
}

TEST_F(TemplateLabels, MatchNothingIfEmpty) {
    EXPECT_EQ(MoneyOf("", {"权益|1", "|", "||", "a||b"}), Record({}));
    EXPECT_EQ(MoneyOf("KHQY_NAME=\r\nCRJ_NAME=\r\nRJ_NAME=\r\n", {"权益|1", "||", "a| |b"}), Record({}));
}

TEST_F(TemplateLabels, CutValuesToTheField) {
    EXPECT_EQ(MoneyOf("KHQY_NAME=权益\r\nSXF_NAME=费\r\n", {"权益|12345678901234.56|费|123456789012.45"}),
              Record({{"KHQY", "12345678901234."}, {"SXF", "123456789012.45"}}));
}

TEST_F(TemplateLabels, LeaveEquityAndPremiumWithoutAFallback) {
    EXPECT_EQ(MoneyOf("QMJC_NAME=期末\r\n", {"期末|5"}), Record({{"QMJC", "5"}}));
}

TEST_F(TemplateLabels, ComputeNoCashFlowFromWords) {
    EXPECT_EQ(MoneyOf("RJ_NAME=入金\r\nCJ_NAME=出金\r\n", {"入金|100|出金|30"}), Record({}));
}

// The amounts come from the text of the label itself, the withdrawals' from that of the deposits' label.
TEST_F(TemplateLabels, TakeCashFlowFromTheNumberInTheDepositsLabel) {
    const struct {
        std::string_view keys;
        std::string_view row;
        std::string_view cashFlow;
    } cases[] = {
        {"RJ_NAME=5入金\r\nCJ_NAME=2出金\r\n", "5入金|100", "5.00"},
        {"RJ_NAME=5入金\r\nCJ_NAME=2出金\r\n", "2出金|100", "-5.00"},
        {"RJ_NAME=5入金\r\nCJ_NAME=2出金\r\n", "5入金|100|2出金|30", "0.00"},
        {"RJ_NAME=5入金\r\nCJ_NAME=2出金\r\n", "其他|100", ""},
        {"RJ_NAME=5.126\r\nCJ_NAME=出金\r\n", "5.126|100", "5.13"},
        {"RJ_NAME=0入金\r\nCJ_NAME=2出金\r\n", "0入金|100|2出金|30", ""},
        {"RJ_NAME=-5入金\r\nCJ_NAME=2出金\r\n", "-5入金|100", ""},
        {"RJ_NAME=-5入金\r\nCJ_NAME=2出金\r\n", "2出金|100", ""},
        {"CJ_NAME=2出金\r\n", "2出金|100", ""},
        {"RJ_NAME=5入金\r\nCRJ_NAME=出入金\r\n", "5入金|100|出入金|7", "7"},
        {"RJ_NAME=5入金\r\nCRJ_NAME=出入金\r\n", "出入金|0|5入金|100", "0"},
        {"RJ_NAME=5\r\nCJ_NAME=5\r\n", "5|100", "0.00"},
        {"RJ_NAME=5\r\n", "100|5", ""},
    };
    for (const auto& row : cases) EXPECT_EQ(MoneyOf(row.keys, {row.row})["CRJ"], row.cashFlow) << row.keys << row.row;
}

TEST_F(TemplateLabels, StandBetweenHeadingAndTerminator) {
    BeginWith(1, MoneyTemplate("KHQY_NAME=权益\r\nSXF_NAME=费\r\nQMJC_NAME=期末\r\nQCQY_NAME=期初\r\n"));
    EXPECT_TRUE(Read({"权益|0", "资金|费|1", "期末|2|权益|3", "期初|4", "合计|费|5", "期末|6"}));
    EXPECT_EQ(Money(), Record({{"QCQY", "4"}}));
}

TEST_F(TemplateLabels, DoNotMindOffsets) {
    for (const std::string_view offset : {"0", "1", "3", "-7", "2147483647", "-2147483648"}) {
        const std::string value(offset);
        BeginWith(1, MoneyTemplate("KHQY_NAME=权益\r\nSTART_OFFSET=" + value + "\r\nEND_OFFSET=" + value + "\r\n"));
        EXPECT_EQ(ErrorOf({"资金", "-", "权益|1", "合计", "权益|2"}), 0U) << offset;
        EXPECT_EQ(Money(), Record({{"KHQY", "1"}})) << offset;
    }
}

TEST_F(TemplateLabels, MakeARecordOfABlockWithoutRows) {
    BeginWith(1, MoneyTemplate("KHQY_NAME=权益\r\n"));
    EXPECT_TRUE(Read({"结算单", "资金", "权益|1", "合计"}));
    EXPECT_EQ(Money(), Record({}));
}

TEST_F(TemplateLabels, MakeNoRecordWithoutTitleOrTerminator) {
    BeginWith(1, MoneyTemplate("KHQY_NAME=权益\r\n"));
    EXPECT_TRUE(Read({"结算单", "-", "-", "权益|1", "合计"}));
    EXPECT_TRUE(Read({"合计", "资金", "合计", "权益|1"}));  // before the title, and in the row behind it
    EXPECT_TRUE(Read({"结算单", "资金 合计"}));
    EXPECT_TRUE(Read({"资金"}));
    EXPECT_TRUE(ReadByTemplate("20240105", ""));
    EXPECT_TRUE(NothingRead());
}

TEST_F(TemplateLabels, StandBehindTheFirstTitle) {
    BeginWith(1, MoneyTemplate("KHQY_NAME=权益\r\n"));
    EXPECT_TRUE(Read({"客户资金(一)", "-", "权益|1", "资金", "权益|2", "权益|3", "本日合计", "权益|4", "合计"}));
    EXPECT_EQ(Money(), Record({{"KHQY", "3"}}));
}

TEST_F(TemplateLabels, FeedTheDaysFigures) {
    MoneyOf("PCYK_NAME=平仓\r\nCCDSYK_NAME=持仓\r\nQMJC_NAME=期末\r\n", {"平仓|1.5|持仓|-2.5|期末|70"});
    const DayFigure* const figure = report.TradeStatistics.DayFigures.Find("20240105");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->ClosedPL, 1.5);
    EXPECT_EQ(figure->PositionPL, -2.5);
    EXPECT_EQ(figure->Closing, 70);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 1.5);
}

TEST_F(TemplateLabels, EndWithinTheColumnOfTheirValues) {
    const std::string keys =
        Ini({"LABEL_END=：", "KHQY_NAME=权 益", "SXF_NAME=手续费", "QMJC_NAME=期末", "CRJ_NAME=出入金"});
    EXPECT_EQ(MoneyOf(keys, {"权 益：1.00|手续费： 2.00", "期末：：3.00|说明|出入金：", "其他：权 益"}),
              Record({{"KHQY", "1.00"}, {"SXF", "2.00"}, {"QMJC", "3.00"}}));
    EXPECT_EQ(MoneyOf(Ini({"KHQY_NAME=权益"}), {"权益：1.00|权益|2.00"}), Record({{"KHQY", "2.00"}}))
        << "only where the template says so";
}

TEST_F(TemplateLabels, StandInTheRowsThatTheTemplateCounts) {
    const auto read = [this](std::string_view keys) {
        BeginWith(1, MoneyTemplate(std::string(keys) + Ini({"KHQY_NAME=权益", "QCQY_NAME=期初", "SXF_NAME=手续费"})));
        EXPECT_TRUE(Read({"结算单", "资金", "期初|1|", "权益|2|", "合计|手续费|3|"}));
        return Money();
    };
    EXPECT_EQ(read(""), Record({{"KHQY", "2"}}));
    EXPECT_EQ(read("ROWS_FROM=1\r\n"), Record({{"QCQY", "1"}, {"KHQY", "2"}}));
    EXPECT_EQ(read("ROWS_TO=-1\r\n"), Record({{"KHQY", "2"}, {"SXF", "3"}}));
    EXPECT_EQ(read("ROWS_FROM=1\r\nROWS_TO=1\r\n"), Record({{"QCQY", "1"}}));
}

TEST_F(TemplateLabels, MayStatePremiumReceivedAndPaidApart) {
    const std::string both = Ini({"QLSR_NAME=收入", "QLZC_NAME=支出"});
    EXPECT_EQ(MoneyOf(both, {"收入|30.50|支出|10.25"}), Record({{"QLJSZ", "20.25"}}));
    EXPECT_EQ(MoneyOf(both, {"支出|10.25"}), Record({{"QLJSZ", "-10.25"}}));
    EXPECT_EQ(MoneyOf(Ini({"QLSR_NAME=收入"}), {"收入|30.50|支出|10.25"}), Record({{"QLJSZ", "30.50"}}));
    EXPECT_EQ(MoneyOf(both + Ini({"QLJSZ_NAME=收支"}), {"收入|30.50|支出|10.25|收支|7.00"}),
              Record({{"QLJSZ", "7.00"}}))
        << "a premium that is stated stays";
}

}  // namespace
}  // namespace tradebill::template_labels_test
