#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "readers/template_fixture.h"

namespace tradebill::template_ini_test {
namespace {

class TemplateIni : public TemplateFixture {
protected:
    /// What a trade's CONTRACT reads, of 13 cells, by a template with these keys before all others of its section.
    std::string ContractBy(std::string_view keys) {
        BeginWith(1, TableTemplate("MATCH_RECORD", keys));
        EXPECT_TRUE(ReadRows({Cells(13)}));
        const Texts contracts = TextsOf(report.MatchStore.Rows, "CONTRACT");
        EXPECT_EQ(contracts.size(), 1U);
        return contracts.empty() ? "none" : contracts.front();
    }

    /// Number of trades, if DEALFIELD holds these keys before all others.
    std::size_t TradesBy(std::string_view keys) {
        BeginWith(1, "[DEALFIELD]\r\nMONEY_MODE=9\r\n" + std::string(keys) + TableSection("MATCH_RECORD", ""));
        EXPECT_TRUE(ReadRows({Cells(13)}));
        return report.MatchStore.Rows.size();
    }

    /// The equity of a labelled money section with these keys before all others of its section.
    std::string EquityBy(std::string_view keys, Lines lines) {
        BeginWith(1, "[MONEY_RECORD]\r\n" + std::string(keys) +
                         Ini({"START_FLAG=资金", "END_FLAG=合计", "DELIMITER=|", "KHQY_NAME=权益"}));
        EXPECT_TRUE(Read(lines));
        return report.MoneyStore.Count() == 1 ? Money()["KHQY"] : "no record";
    }
};

TEST_F(TemplateIni, ReadsColumnsAsFarAsTheyAreNumbers) {
    const struct {
        std::string_view value;
        std::string_view contract;
    } cases[] = {
        {"12", "v12"}, {"12x", "v12"}, {"0x10", "v0"}, {"", "v0"},    {"abc", "v0"}, {"\"3\"", "v3"}, {"'4'", "v4"},
        {"-1", ""},    {"-0", "v0"},   {"007", "v7"},  {"5.9", "v5"}, {"13", ""},    {"  6  ", "v6"}, {"2 3", "v2"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(ContractBy("CONTRACT=" + std::string(row.value) + "\r\n"), row.contract) << row.value;
    }
    EXPECT_EQ(ContractBy(""), "");
    EXPECT_EQ(ContractBy(";CONTRACT=3\r\n"), "");
    EXPECT_EQ(ContractBy("#CONTRACT=3\r\n"), "");
    EXPECT_EQ(ContractBy("#CONTRACT=3\r\nCONTRACT=4\r\n"), "v4");
}

TEST_F(TemplateIni, ReadsFlagsAsFarAsTheyAreNumbers) {
    const struct {
        std::string_view value;
        std::size_t trades;
    } cases[] = {{"1", 1}, {"0", 0},    {"2", 1},  {"-1", 1},    {"", 0},
                 {"x", 0}, {"0x10", 0}, {"1x", 1}, {"\"1\"", 1}, {"99999999999", 1}};
    for (const auto& row : cases) {
        EXPECT_EQ(TradesBy("MATCH_RECORD=" + std::string(row.value) + "\r\n"), row.trades) << row.value;
    }
}

TEST_F(TemplateIni, ReadsTheFirstKeyOfAName) {
    EXPECT_EQ(ContractBy("CONTRACT=3\r\nCONTRACT=4\r\n"), "v3");
    EXPECT_EQ(ContractBy("Contract=3\r\nCONTRACT=4\r\n"), "v3");
    EXPECT_EQ(ContractBy("CONTRACT=\r\nCONTRACT=4\r\n"), "v0");
}

TEST_F(TemplateIni, DoesNotMindTheCaseOfNames) {
    WriteTemplate(Ini({"[dealField]", "money_mode=9", "Match_Record=1", "[Match_record]", "Start_Flag=明细",
                       "start_offset=2", "end_FLAG=共", "End_Offset=0", "delimiter=|", "contract=3", "matchNo=4"}));
    EXPECT_TRUE(ReadRows({Cells(13)}));
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), OneRecord({{"CONTRACT", "v3"}, {"MATCHNO", "v4"}}));
}

TEST_F(TemplateIni, DoesNotMindBlanksAroundNames) {
    WriteTemplate(
        Ini({" [ DEALFIELD ] ", " MONEY_MODE = 9 ", "\tOPI_DETAIL \t=\t1", "[OPI_DETAIL]", "START_FLAG = 明细 ",
             "START_OFFSET =2", "END_FLAG= 共", "END_OFFSET = 0", " DELIMITER = | ", " CONTRACT = 3"}));
    EXPECT_TRUE(ReadRows({Cells(13)}));
    EXPECT_EQ(FieldsOfAll(report.OpiDetailStore.Rows), OneRecord({{"CONTRACT", "v3"}}));
}

TEST_F(TemplateIni, ReadsTheFirstSectionOfAName) {
    WriteTemplate(TableTemplate("MATCH_RECORD", "CONTRACT=3\r\n") +
                  Ini({"[match_record]", "CONTRACT=4", "MATCHNO=5", "[DEALFIELD]", "OPI_SUM=1"}));
    EXPECT_TRUE(ReadRows({Cells(13)}));
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), OneRecord({{"CONTRACT", "v3"}}));
}

TEST_F(TemplateIni, DropsOnePairOfQuotesAroundATextAndKeepsItsBlanks) {
    EXPECT_EQ(EquityBy("DELIMITER=\"|\"\r\nSTART_FLAG='资金'\r\n", {"结算单", "资金", "-", "权益|1", "合计"}), "1");
    EXPECT_EQ(EquityBy("START_FLAG=\" 资金\"\r\n", {"结算单", "资金", "客户 资金", "-", "权益|1", "合计"}), "1");
    EXPECT_EQ(EquityBy("START_FLAG=\" 资金\"\r\n", {"结算单", "资金", "-", "权益|1", "合计"}), "no record");
    EXPECT_EQ(EquityBy("KHQY_NAME=\"\"权益\"\"\r\n", {"结算单", "资金", "-", "权益|1|\"权益\"|2", "合计"}), "2");
    EXPECT_EQ(EquityBy("DELIMITER=\" \"\r\n", {"结算单", "资金", "-", "权益 1", "合计"}), "1");
}

TEST_F(TemplateIni, TakesMarksOfTheFileItselfAsText) {
    EXPECT_EQ(EquityBy("DELIMITER=;\r\n", {"结算单", "资金", "-", "权益;1;2", "合计"}), "1");
    EXPECT_EQ(EquityBy("DELIMITER==\r\n", {"结算单", "资金", "-", "权益=1=2", "合计"}), "1");
    EXPECT_EQ(
        EquityBy("END_FLAG=a=b ; c\r\n", {"结算单", "资金", "-", "权益|1", "a=b", "权益|2", "(a=b ; c)", "权益|3"}),
        "2");
}

TEST_F(TemplateIni, SplitsAtTheWholeDelimiter) {
    EXPECT_EQ(EquityBy("DELIMITER=||\r\n", {"结算单", "资金", "-", "权益||a|b||2", "合计"}), "a|b");
    EXPECT_EQ(EquityBy("DELIMITER=，\r\n", {"结算单", "资金", "-", "权益，1，2", "合计"}), "1");
    EXPECT_EQ(EquityBy("DELIMITER=|\r\n", {"结算单", "资金", "-", "||  | 权益 | | 1|", "合计"}), "1");
}

TEST_F(TemplateIni, TakesTheWordSpaceForTwoBlanksInMoneyAndForOneElsewhere) {
    EXPECT_EQ(
        EquityBy("DELIMITER=SPACE\r\nKHQY_NAME=客户 权益\r\n", {"结算单", "资金", "-", "客户 权益   1 2  3", "合计"}),
        "1 2");
    EXPECT_EQ(EquityBy("DELIMITER=SPACE\r\n", {"结算单", "资金", "-", "权益 1", "合计"}), "");
    for (const std::string_view section : {"MATCH_RECORD", "PING_DETAIL", "OPI_DETAIL", "OPI_SUM"}) {
        BeginWith(1, TableTemplate(section, "DELIMITER=SPACE\r\nCONTRACT=2\r\nBID=0\r\nBID_POSITION_VOL=1\r\n"));
        EXPECT_TRUE(ReadRows({"a 7  b c d e f g h i j   k"}));
        EXPECT_EQ(report.MatchStore.Count() + report.PingDetailStore.Count() + report.OpiDetailStore.Count() +
                      report.OpiSumStore.Count(),
                  1)
            << section;
    }
}

TEST_F(TemplateIni, TakesOtherSpellingsOfTheWordAsTheyStand) {
    EXPECT_EQ(EquityBy("DELIMITER=\"SPACE\"\r\n", {"结算单", "资金", "-", "权益  1", "合计"}), "1");
    EXPECT_EQ(EquityBy("DELIMITER=space\r\n", {"结算单", "资金", "-", "权益  1", "合计"}), "");
    EXPECT_EQ(EquityBy("DELIMITER=space\r\n", {"结算单", "资金", "-", "权益 space 1", "合计"}), "1");
    EXPECT_EQ(EquityBy("DELIMITER=SPACES\r\n", {"结算单", "资金", "-", "权益SPACES1", "合计"}), "1");
}

TEST_F(TemplateIni, CutsTextsToThirtyOneBytes) {
    const std::string bytes31 = "0123456789012345678901234567890";
    for (const std::string& label : {bytes31, bytes31 + "x", bytes31 + "xyz"}) {
        const std::string row = bytes31 + "|cut|" + bytes31 + "x|whole|" + bytes31 + "xyz|long";
        EXPECT_EQ(EquityBy("KHQY_NAME=" + label + "\r\n", {"结算单", "资金", "-", row, "合计"}), "cut") << label;
        EXPECT_EQ(EquityBy("KHQY_NAME=\"" + label + "\"\r\n", {"结算单", "资金", "-", row, "合计"}), "cut") << label;
        EXPECT_EQ(EquityBy("START_FLAG=" + label + "\r\n", {"结算单", bytes31 + "!", "-", "权益|1", "合计"}), "1")
            << label;
        EXPECT_EQ(EquityBy("END_FLAG=" + label + "\r\n",
                           {"结算单", "资金", "-", "权益|1", bytes31.substr(0, 30), "权益|2", bytes31 + "!", "权益|3"}),
                  "2")
            << label;
        EXPECT_EQ(EquityBy("DELIMITER=" + label + "\r\n", {"结算单", "资金", "-", "权益" + bytes31 + "1", "合计"}), "1")
            << label;
    }
}

TEST_F(TemplateIni, CutsTextsInTheMiddleOfACharacter) {
    const std::string_view title = "客户资金状况以及期货账户资金明细";  // 32 bytes
    ASSERT_EQ(Gbk(title).size(), 32U);
    const std::string cut = Gbk(title).substr(0, 31);
    WriteTemplate("[MONEY_RECORD]\r\nSTART_FLAG=" + std::string(title) +
                  Ini({"", "END_FLAG=合计", "DELIMITER=|", "KHQY_NAME=权益"}));
    const std::string rest = "\n-\n" + Gbk("权益|1\n合计\n");
    EXPECT_TRUE(ReadByTemplate("20240105", cut + rest));
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_TRUE(ReadByTemplate("20240108", cut.substr(0, 30) + rest));
    EXPECT_EQ(report.MoneyStore.Count(), 1);
}

TEST_F(TemplateIni, CutsTheDateWordToo) {
    const std::string bytes31 = "0123456789012345678901234567-- ";
    BeginWith(1, "[DEALFIELD]\r\nDATE_FORMAT=\"" + bytes31 + "Day:\"\r\n" +
                     Ini({"[MONEY_RECORD]", "START_FLAG=资金", "END_FLAG=合计", "DELIMITER=|"}));
    EXPECT_TRUE(Read({"结算单", "资金", "-", "合计"}, "20240105"));
    EXPECT_TRUE(Read({"结算单", bytes31 + "20240105", "资金", "-", "合计"}, "20240108"));
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240105"}));
}

TEST_F(TemplateIni, HasNoUseForTheHeadFormat) {
    const std::string longHead = "HEAD_FORMAT=" + std::string(600, 'h') + "\r\n";
    for (const std::string& head : {std::string("HEAD_FORMAT=\r\n"), std::string("HEAD_FORMAT=-1\r\n"), longHead}) {
        EXPECT_EQ(ContractBy(head + "CONTRACT=3\r\n"), "v3");
        EXPECT_EQ(EquityBy(head, {"结算单", "资金", "-", "权益|1", "合计"}), "1");
    }
}

TEST_F(TemplateIni, ReadsAFileWithoutALineEndAtItsEnd) {
    WriteTemplate("[MONEY_RECORD]\nSTART_FLAG=资金\nEND_FLAG=合计\nKHQY_NAME=权益\nDELIMITER=|");
    EXPECT_TRUE(Read({"结算单", "资金", "-", "权益|1", "合计"}));
    EXPECT_EQ(Money(), Record({{"KHQY", "1"}}));
}

}  // namespace
}  // namespace tradebill::template_ini_test
