#include "findings/template_against.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::template_against_test {
namespace {

using Texts = std::vector<std::string>;

/// A template of labelled money and trades; each line can be replaced.
std::vector<std::string> TemplateLines() {
    return {
        "[DEALFIELD]",      // 1
        "MATCH_RECORD=1",   // 2
        "[MONEY_RECORD]",   // 3
        "START_FLAG=资金",  // 4
        "END_FLAG=资金完",  // 5
        "DELIMITER=|",      // 6
        "KHQY_NAME=权益",   // 7
        "SXF_NAME=手续费",  // 8
        "[MATCH_RECORD]",   // 9
        "START_FLAG=成交",  // 10
        "START_OFFSET=2",   // 11
        "END_FLAG=成交完",  // 12
        "END_OFFSET=0",     // 13
        "DELIMITER=|",      // 14
        "CONTRACT=2",       // 15
        "MATCH_PRICE=3",    // 16
        "MATCHNO=10",       // 17
        "OFFSETPL=11",      // 18
    };
}

const std::vector<std::string> kStatement{"单 日期：20240105",
                                          "资金",
                                          "-",
                                          "权益|5.00",
                                          "手续费|1.00",
                                          "资金完",
                                          "成交",
                                          "-",
                                          "0|1|2|3|4|5|6|7|8|9|10|11",
                                          "0|1|2|3|4|5|6|7|8|9|10",
                                          "-----",
                                          "成交完"};

/// "line E text" of each finding.
Texts Against(const std::vector<std::string>& lines, const std::vector<std::string>& statement,
              std::optional<std::int32_t> format = {}) {
    std::string content;
    for (const std::string& line : lines) content += Gbk(line) + "\r\n";
    std::string text;
    for (const std::string& row : statement) text += Gbk(row) + "\r\n";
    Texts texts;
    const CIniFile file = CIniFile::Parse(content);
    for (const TemplateFinding& finding :
         CheckTemplateAgainst(file, {.text = text, .day = "20240105", .format = format})) {
        texts.push_back(std::to_string(finding.line) + (finding.isError ? " E " : " W ") + finding.text);
    }
    return texts;
}
Texts AgainstWith(std::size_t line, const std::string& replacement) {
    auto lines = TemplateLines();
    lines.at(line - 1) = replacement;
    return Against(lines, kStatement);
}

TEST(TemplateAgainst, FindsNothingIfTheTemplateFits) {
    EXPECT_EQ(Against(TemplateLines(), kStatement), Texts{});
}

TEST(TemplateAgainst, NamesAColumnThatNoRowHas) {
    EXPECT_EQ(AgainstWith(18, "OFFSETPL=12"),
              (Texts{"18 E OFFSETPL=12: no row of [MATCH_RECORD] has this column, the longest has 12 columns, counted "
                     "from 0"}));
    auto lines = TemplateLines();
    lines[15] = "match_price=99";
    lines[16] = "MATCHNO=14";
    EXPECT_EQ(Against(lines, kStatement).size(), 2U);
}

TEST(TemplateAgainst, NamesAColumnOfLotsThatNoRowHas) {
    const auto against = [](const char* key) {
        return Against({"[DEALFIELD]", "MONEY_MODE=9", "OPI_SUM=1", "[OPI_SUM]", "START_FLAG=汇总", "START_OFFSET=1",
                        "END_FLAG=完", "END_OFFSET=0", "DELIMITER=|", "BID_POSITION_VOL=1", key},
                       {"汇总", "0|1|2|3|4|5|6|7|8|9|10|11", "完"});
    };
    EXPECT_EQ(against("ASK_POSITION_VOL=11"), Texts{});
    EXPECT_EQ(against("ASK_POSITION_VOL=12"),
              (Texts{"11 E ASK_POSITION_VOL=12: no row of [OPI_SUM] has this column, the longest has 12 columns, "
                     "counted from 0"}));
}

TEST(TemplateAgainst, LooksOnlyAtKeysThatAreRead) {
    auto lines = TemplateLines();
    for (const char* line : {"MATCHNO=99", "TYPO=99", "TURNOVER=-1", "START_OFFSET=99"}) lines.emplace_back(line);
    EXPECT_EQ(Against(lines, kStatement),
              Texts{});  // the first MATCHNO counts; the others are told without a statement
}

TEST(TemplateAgainst, SaysNothingOfColumnsWithoutRows) {
    EXPECT_EQ(
        Against(TemplateLines(), {"单", "资金", "-", "权益|5.00", "手续费|1.00", "资金完", "成交", "-", "成交完"}),
        Texts{});
}

TEST(TemplateAgainst, NamesALabelThatIsntMet) {
    EXPECT_EQ(AgainstWith(8, "SXF_NAME=手续费："),
              (Texts{"8 E SXF_NAME: no row of [MONEY_RECORD] has the label \"手续费：\""}));
}

TEST(TemplateAgainst, LooksForAsMuchOfALabelAsIsRead) {
    const std::string most(31, 'a');
    EXPECT_EQ(AgainstWith(8, "SXF_NAME=" + most + "b"),
              (Texts{"8 E SXF_NAME: no row of [MONEY_RECORD] has the label \"" + most + "\""}));
    auto statement = kStatement;
    statement[4] = most + "|1.00";
    auto lines = TemplateLines();
    lines[7] = "SXF_NAME=" + most + "b";
    EXPECT_EQ(Against(lines, statement), Texts{});
}

TEST(TemplateAgainst, NamesASectionThatIsntFound) {
    EXPECT_EQ(AgainstWith(4, "START_FLAG=资产"),
              (Texts{"4 E [MONEY_RECORD]: no row of the statement contains START_FLAG, \"资产\""}));
    EXPECT_EQ(AgainstWith(10, "START_FLAG=交易"),
              (Texts{"10 W [MATCH_RECORD]: no row of the statement contains START_FLAG, \"交易\"; a day without such "
                     "rows may have none"}));
    EXPECT_EQ(AgainstWith(12, "END_FLAG=没有"),
              (Texts{"12 E [MATCH_RECORD]: no row below its title contains END_FLAG, \"没有\""}));
}

TEST(TemplateAgainst, NamesADelimiterThatCutsNothing) {
    EXPECT_EQ(AgainstWith(14, "DELIMITER=;"),
              (Texts{"14 E [MATCH_RECORD]: none of its rows has the 11 columns that it takes, the longest has 1: is "
                     "DELIMITER right?"}));
    auto statement = kStatement;
    statement[8] = "0;1;2;3;4;5;6;7;8;9";  // one row is read, and another is short
    EXPECT_EQ(Against(TemplateLines(), statement),
              (Texts{"18 E OFFSETPL=11: no row of [MATCH_RECORD] has this column, the longest has 11 columns, counted "
                     "from 0"}));
}

TEST(TemplateAgainst, NamesTheRowOfAnError) {
    auto lines = TemplateLines();
    lines[1] = "PING_DETAIL=1";
    lines[8] = "[PING_DETAIL]";
    lines[17] = "BID=11";
    const Texts found = Against(lines, kStatement);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE(
        found[0].starts_with("9 E [PING_DETAIL]: the reading stops with an error at line 10 of the statement, "
                             "which lacks a column that every row must have ("))
        << found[0];
    EXPECT_EQ(AgainstWith(11, "START_OFFSET=-9").size(), 1U);
    EXPECT_NE(AgainstWith(11, "START_OFFSET=-9")[0].find("at a row that the statement doesn't have"),
              std::string::npos);
}

TEST(TemplateAgainst, ReadsTheDescriptionOfTheDay) {
    auto lines = TemplateLines();
    lines.insert(lines.begin() + 1, "BILLFORMAT_NEWDATE=20240105");
    const Texts found = Against(lines, kStatement);  // the new sections are missing: it declines
    EXPECT_EQ(found, Texts{});
    lines[9] = "[MATCH_RECORD_NEW]";
    lines[3] = "[MONEY_RECORD_NEW]";
    EXPECT_EQ(Against(lines, kStatement), Texts{});
    lines[18] = "OFFSETPL=12";
    EXPECT_EQ(Against(lines, kStatement).size(), 1U);
    lines[1] = "BILLFORMAT_NEWDATE=20249999";
    EXPECT_EQ(Against(lines, kStatement), Texts{});  // told without a statement
}

TEST(TemplateAgainst, AsksForTheRowOfMoney) {
    const std::vector<std::string> lines{"[DEALFIELD]",    "MONEY_MODE=1", "[MONEY_RECORD]", "START_FLAG=资金",
                                         "START_OFFSET=2", "DELIMITER=|",  "KHQY_NAME=9"};
    EXPECT_EQ(Against(lines, {"资金", "-", "0|1|2|3|4|5|6|7|8|9"}), Texts{});
    EXPECT_EQ(Against(lines, {"资金", "-", "0|1|2|3|4|5|6|7|8"}),
              (Texts{"7 E KHQY_NAME=9: no row of [MONEY_RECORD] has this column, the longest has 9 columns, counted "
                     "from 0"}));
    EXPECT_EQ(Against(lines, {"资金", "-"}),
              (Texts{"5 E [MONEY_RECORD]: the statement ends before the row that START_OFFSET names"}));
}

TEST(TemplateAgainst, ReadsOpenPositionsByTheFormat) {
    const std::vector<std::string> lines{"[DEALFIELD]",   "MONEY_MODE=9",   "OPI_DETAIL=1", "[OPI_DETAIL]",
                                         "START_FLAG=仓", "START_OFFSET=1", "END_FLAG=完",  "END_OFFSET=0",
                                         "DELIMITER=|",   "OPEN_DATE=12",   "BID_VOL=1",    "BID_PRICE=13"};
    const std::vector<std::string> statement{"单", "仓", "0|1|2|3|4|5|6|7|8|9|10", "完"};
    const Texts sides{
        "12 E BID_PRICE=13: no row of [OPI_DETAIL] has this column, the longest has 11 columns, counted "
        "from 0"};
    EXPECT_EQ(Against(lines, statement), sides);  // as it looks
    EXPECT_EQ(Against(lines, statement, 2), sides);
    EXPECT_EQ(Against(lines, statement, 3),
              (Texts{"10 E OPEN_DATE=12: no row of [OPI_DETAIL] has this column, the longest has 11 columns, counted "
                     "from 0"}));
}

TEST(TemplateAgainst, TellsTheFormatByTheKeysOfOpenPositions) {
    EXPECT_EQ(FormatByTemplate(CIniFile::Parse("[OPI_DETAIL]\nCONTRACT=1\n")), 1);
    EXPECT_EQ(FormatByTemplate(CIniFile::Parse("[OPI_SUM]\nBID_VOL=1\n")), 1);
    EXPECT_EQ(FormatByTemplate(CIniFile::Parse("[OPI_DETAIL]\nask_vol=1\n")), 201);
    EXPECT_EQ(FormatByTemplate(CIniFile::Parse("[opi_detail_new]\nBID_VOL=1\n")), 201);
    EXPECT_EQ(FormatByTemplate(CIniFile::Parse("")), 1);
}

TEST(TemplateAgainst, PassesEveryStatementOfTheSamples) {
    int statements = 0;
    for (const std::string sample : {"template-pairs", "template-row"}) {
        const std::string root = std::string(TRADEBILL_SAMPLES) + "/" + sample + "/root";
        const auto file = LoadIniFile(root + "/BillTemplate/songta.ini");
        ASSERT_EQ(file.state, FileState::Read) << sample;
        for (const auto& entry : std::filesystem::directory_iterator(root + "/Users/demo/Data/Bill")) {
            if (!entry.is_regular_file()) continue;
            const std::string text = ReadFile(entry.path().string());
            const std::string day = entry.path().filename().string().substr(10, 8);
            for (const TemplateFinding& finding :
                 CheckTemplateAgainst(file.file, {.text = text, .day = day, .format = {}})) {
                ADD_FAILURE() << entry.path() << ": " << finding.text;
            }
            ++statements;
        }
    }
    EXPECT_EQ(statements, 50);
}

TEST(TemplateAgainst, TellsAnErrorOfASectionThatIsntWritten) {
    const Texts found = Against({"[DEALFIELD]", "MONEY_MODE=1"}, kStatement);
    const bool isTold = std::ranges::any_of(found, [](const std::string& text) {
        return text.starts_with(
            "0 E [MONEY_RECORD]: the reading stops with an error at a row that the statement doesn't have (");
    });
    EXPECT_TRUE(isTold) << found.size();
}

}  // namespace
}  // namespace tradebill::template_against_test
