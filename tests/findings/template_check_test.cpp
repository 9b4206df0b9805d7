#include "findings/template_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file.h"
#include "support/gbk_text.h"

namespace tradebill::template_check_test {
namespace {

/// The lines of a template in which nothing is wrong; each of them can be replaced.
std::vector<std::string> SoundLines() {
    return {
        "[DEALFIELD]",                  // 1
        "BILLFORMAT_NEWDATE=20240119",  // 2
        "MONEY_MODE=0",                 // 3
        "MONEY_MODE_NEW=1",             // 4
        "PING_DETAIL=1",                // 5
        "OPI_SUM=0",                    // 6
        "[MONEY_RECORD]",               // 7
        "START_FLAG=资金",              // 8
        "END_FLAG=成交",                // 9
        "DELIMITER=SPACE",              // 10
        "KHQY_NAME=客户权益",           // 11
        "[MONEY_RECORD_NEW]",           // 12
        "START_FLAG=资金",              // 13
        "START_OFFSET=3",               // 14
        "DELIMITER=|",                  // 15
        "KHQY_NAME=6",                  // 16
        "[PING_DETAIL]",                // 17
        "START_FLAG=平仓",              // 18
        "END_FLAG=合计",                // 19
        "DELIMITER=SPACE",              // 20
        "BID=3",                        // 21
        "HEAD_FORMAT=日期,合约",        // 22
        "START_OFFSET=2",               // 23
        "[PING_DETAIL_NEW]",            // 24
        "START_FLAG=平仓",              // 25
        "END_FLAG=合计",                // 26
        "DELIMITER=SPACE",              // 27
        "BID=3",                        // 28
        "START_OFFSET=0",               // 29
    };
}

std::vector<TemplateFinding> Check(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += Gbk(line) + "\r\n";
    return CheckTemplate(CIniFile::Parse(text));
}

std::vector<TemplateFinding> CheckWith(std::size_t line, const std::string& replacement) {
    auto lines = SoundLines();
    lines.at(line - 1) = replacement;
    return Check(lines);
}

TEST(TemplateCheck, FindsNothingInASoundTemplate) {
    for (const TemplateFinding& finding : Check(SoundLines())) ADD_FAILURE() << finding.line << ": " << finding.text;
}

TEST(TemplateCheck, KnowsTheKeysOfFormatAndOfLabelsWithinColumns) {
    const auto texts = [](const std::string& inCommon, const std::string& inMoney) {
        std::string all;
        for (const TemplateFinding& finding : Check({"[DEALFIELD]", inCommon, "MATCH_RECORD=0", "[MONEY_RECORD]",
                                                     "START_FLAG=资金", "END_FLAG=成交", "DELIMITER=SPACE", inMoney})) {
            all += std::to_string(finding.line) + (finding.isError ? " E " : " W ") + finding.text + "\n";
        }
        return all;
    };
    for (const char* const key : {"LABEL_END=：", "ROWS_FROM=1", "ROWS_TO=-1", "QLSR_NAME=收入", "QLZC_NAME=支出"}) {
        EXPECT_EQ(texts("FORMAT=3", key), "") << key;
        EXPECT_EQ(
            texts("FORMAT=3", std::string("X") + key),
            "8 E unknown key X" + std::string(key).substr(0, std::string(key).find('=')) + " in [MONEY_RECORD]\n");
    }
    EXPECT_EQ(texts("FORMATS=3", "ROWS_TO=0"), "2 E unknown key FORMATS in [DEALFIELD]\n");
    EXPECT_EQ(texts("FORMAT=3", "ROWS_FROM=two"),
              "8 E ROWS_FROM: expected a whole number, found \"two\", which is read as 0\n");
}

struct Fault {
    std::size_t line;
    const char* replacement;
    int at;  ///< the line that the finding names
    bool isError;
    std::string_view phrase;
};

TEST(TemplateCheck, NamesEachFaultWithItsLine) {
    const Fault faults[] = {
        {2, "BILLFORMAT_NEWDATE=20241319", 2, true, "expected a day as yyyymmdd"},
        {2, "BILLFORMAT_NEWDATE=2024-01-19", 2, true, "every report with this template would stop"},
        {2, "BILLFORMAT_NEWDATE=99991231", 2, true, "expected a day"},
        {2, "BILLFORMAT_NEWDATES=20240119", 2, true, "unknown key BILLFORMAT_NEWDATES in [DEALFIELD]"},
        {3, "MONEY_MODE=0x", 3, true, "expected a whole number, found \"0x\", which is read as 0"},
        {6, "OPI_SUM=1", 6, true, "[OPI_SUM] is turned on and lacks START_FLAG"},
        {7, "[MONEY_RECORDS]", 7, true, "unknown section [MONEY_RECORDS]"},
        {8, "START_FLAG=", 7, true, "[MONEY_RECORD] is turned on and lacks START_FLAG"},
        {9, "END_FLAGG=成交", 7, true, "[MONEY_RECORD] is turned on and lacks END_FLAG"},
        {10, "; no delimiter", 7, true, "[MONEY_RECORD] is turned on and lacks DELIMITER"},
        {11, "KHQY_NAME=这个标签比三十一个字节还要长得多多多多多", 11, true, "only the first 31 bytes count"},
        {11, "START_OFFSET=2", 11, false, "START_OFFSET has no effect here"},
        {11, "RJ_NAME=入金", 11, true, "RJ_NAME can never take effect without CJ_NAME"},
        {14, "; no offset", 12, true, "[MONEY_RECORD_NEW] lacks START_OFFSET: it would be read from the row above"},
        {14, "START_OFFSET=-3", 14, true, "START_OFFSET is below 0: [MONEY_RECORD_NEW] would be read from above"},
        {23, "; no offset", 17, true,
         "[PING_DETAIL] lacks START_OFFSET: it would be read from the row above its title"},
        {23, "START_OFFSET=-1", 23, true, "START_OFFSET is below 0: [PING_DETAIL]"},
        {29, "; no offset", 24, true, "[PING_DETAIL_NEW] lacks START_OFFSET"},
        {14, "START_OFFSET=three", 14, true, "which is read as 0"},
        {14, "START_OFFSET=", 14, true, "found \"\""},
        {16, "KHQY_NAME=-2", 16, true, "a column below 0 can never take effect"},
        {16, "KHQY_NAME=客户权益", 16, true, "expected a whole number"},
        {16, "XQSXF_NAME=3", 16, false, "XQSXF_NAME has no effect here"},
        {16, "PCYK_NAME=3", 16, true, "unknown key PCYK_NAME in [MONEY_RECORD_NEW]"},
        {17, "no equals sign", 17, true, "expected [section], key=value or ; comment"},
        {21, "; no side", 17, true, "[PING_DETAIL] lacks BID"},
        {22, "BID=4", 22, true, "BID stands here again"},
        {24, "[PING_DETAIL]", 24, true, "[PING_DETAIL] stands here again"},
        {22, "MATCH_PRICE=5x", 22, true, "which is read as 5"},
    };
    for (const Fault& fault : faults) {
        bool isFound = false;
        for (const TemplateFinding& finding : CheckWith(fault.line, fault.replacement)) {
            isFound |= finding.line == fault.at && finding.isError == fault.isError &&
                       finding.text.find(fault.phrase) != std::string::npos;
        }
        EXPECT_TRUE(isFound) << fault.replacement << ": " << fault.phrase;
    }
}

TEST(TemplateCheck, TellsOneFaultOnce) {
    EXPECT_EQ(CheckWith(2, "BILLFORMAT_NEWDATE=20241319").size(), 1u);
    EXPECT_EQ(CheckWith(16, "KHQY_NAME=-2").size(), 1u);
    EXPECT_EQ(CheckWith(23, "; no offset").size(), 1u);
    EXPECT_EQ(CheckWith(6, "OPI_SUM=1").size(), 2u);  // in both descriptions
}

TEST(TemplateCheck, WarnsOfSectionsThatAreNeverRead) {
    const auto withoutDate = CheckWith(2, "; no change date");
    ASSERT_EQ(withoutDate.size(), 2u);
    EXPECT_EQ(withoutDate[0].line, 12);
    EXPECT_EQ(withoutDate[1].line, 24);
    for (const TemplateFinding& finding : withoutDate) {
        EXPECT_FALSE(finding.isError);
        EXPECT_NE(finding.text.find("is never read: BILLFORMAT_NEWDATE is missing"), std::string::npos);
    }
    const auto turnedOff = CheckWith(5, "PING_DETAIL=0");
    ASSERT_EQ(turnedOff.size(), 2u);
    EXPECT_NE(turnedOff[0].text.find("PING_DETAIL in [DEALFIELD] turns it off"), std::string::npos);
}

TEST(TemplateCheck, LetsATemplateOfAChangeDateAloneBe) {
    const auto findings = Check({"[DEALFIELD]", "BILLFORMAT_NEWDATE=20240119"});
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_FALSE(findings[0].isError);
    EXPECT_NE(findings[0].text.find("only the change date counts"), std::string::npos);
}

TEST(TemplateCheck, RefusesATemplateOfNothingThatKeepsFixedReadersAway) {
    for (const char* mode : {"MONEY_MODE=9", "MONEY_MODE=1"}) {
        const auto findings = Check({"[DEALFIELD]", mode});
        ASSERT_FALSE(findings.empty()) << mode;
        EXPECT_TRUE(findings[0].isError);
        EXPECT_NE(findings[0].text.find("keeps fixed readers from reading"), std::string::npos);
    }
    EXPECT_TRUE(Check({"[DEALFIELD]", "BILLFORMAT_NEWDATE=20240119", "MONEY_MODE_NEW=5"})[0].isError);
    EXPECT_TRUE(Check({"[DEALFIELD]", "BILLFORMAT_NEWDATE=20240119", "MONEY_MODE=5", "MONEY_MODE_NEW=0"})[0].isError);
    EXPECT_FALSE(Check({"[DEALFIELD]", "BILLFORMAT_NEWDATE=20240119", "MONEY_MODE=0", "MONEY_MODE_NEW=0"})[0].isError);
}

TEST(TemplateCheck, AsksWhereTheRowOfMoneyIs) {
    const auto texts = [](std::initializer_list<const char*> money) {
        std::vector<std::string> lines{"[DEALFIELD]", "MONEY_MODE=1", "[MONEY_RECORD]"};
        lines.insert(lines.end(), money.begin(), money.end());
        std::string all;
        for (const TemplateFinding& finding : Check(lines))
            all += (finding.isError ? "E " : "W ") + finding.text + "\n";
        return all;
    };
    EXPECT_EQ(texts({"START_FLAG=资金", "START_OFFSET=3", "DELIMITER=|"}), "");
    EXPECT_EQ(texts({"START_FLAG=资金", "START_OFFSET=0", "DELIMITER=|"}), "");  // the title's own row
    EXPECT_EQ(texts({"START_FLAG=资金", "DELIMITER=|"}),
              "E [MONEY_RECORD] lacks START_OFFSET: it would be read from the row above its title\n");
    EXPECT_EQ(texts({"START_OFFSET=3", "DELIMITER=|"}),
              "W [MONEY_RECORD] lacks START_FLAG: rows are counted from the top of the statement\n");
    EXPECT_EQ(texts({"DELIMITER=|"}),
              "E [MONEY_RECORD] lacks START_FLAG and START_OFFSET: every statement would raise an error\n");
    EXPECT_EQ(texts({"START_FLAG=资金", "START_OFFSET=3"}),
              "E [MONEY_RECORD] lacks DELIMITER: its row is one column and never makes a record\n");
}

TEST(TemplateCheck, AsksForTheCommonSection) {
    const auto findings = Check({"[MONEY_RECORD]", "START_FLAG=资金"});
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].text, "expected a section [DEALFIELD]");
}

TEST(TemplateCheck, LetsPositionsOfBothSidesGoOnIncomplete) {
    auto lines = SoundLines();
    lines[5] = "OPI_DETAIL=1";
    for (const char* line : {"[OPI_DETAIL]", "BID_VOL=2", "[OPI_DETAIL_NEW]", "ASK_VOL=3"}) lines.emplace_back(line);
    const auto findings = Check(lines);
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_FALSE(findings[0].isError);
    EXPECT_NE(findings[0].text.find("the reader goes on with what there is"), std::string::npos);
}

TEST(TemplateCheck, PassesTheSampleTemplates) {
    for (const char* sample : {"template-pairs", "template-row", "bilingual-new"}) {
        const auto file = LoadIniFile(std::string(TRADEBILL_SAMPLES) + "/" + sample + "/root/BillTemplate/songta.ini");
        ASSERT_EQ(file.state, FileState::Read) << sample;
        for (const TemplateFinding& finding : CheckTemplate(file.file)) EXPECT_FALSE(finding.isError) << finding.text;
    }
}

TEST(TemplateCheck, NamesTheWrongEncoding) {
    std::string text;
    for (const std::string& line : SoundLines()) text += line + "\n";
    const auto findings = CheckTemplate(CIniFile::Parse(text));
    ASSERT_FALSE(findings.empty());
    EXPECT_EQ(findings.front().line, 8);
    EXPECT_TRUE(findings.front().isError);
    EXPECT_EQ(findings.front().text, "the template is saved as UTF-8: none of its texts stands in a GBK statement");
}

TEST(TemplateCheck, NamesTheWrongEncodingBehindAMarkToo) {
    std::string text = "\xEF\xBB\xBF";
    for (const std::string& line : SoundLines()) text += line + "\n";
    const auto findings = CheckTemplate(CIniFile::Parse(text));
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_TRUE(findings[0].text.starts_with("the template is saved as UTF-8")) << findings[0].text;
    const auto ascii = CheckTemplate(CIniFile::Parse("\xEF\xBB\xBF[DEALFIELD]\nBILLFORMAT_NEWDATE=20240119\n"));
    ASSERT_EQ(ascii.size(), 2u);
    EXPECT_EQ(ascii[0].line, 1);
    EXPECT_TRUE(ascii[0].isError);
    EXPECT_NE(ascii[0].text.find("with a mark at its start"), std::string::npos);
}

TEST(TemplateCheck, NamesTheWrongEncodingOfCharactersThatGbkLacks) {
    const auto findings = CheckTemplate(CIniFile::Parse("[DEALFIELD]\nDATE_FORMAT=\xF0\x9F\x98\x80\n"));
    ASSERT_FALSE(findings.empty());
    EXPECT_EQ(findings.back().text, "the template is saved as UTF-8: none of its texts stands in a GBK statement");
}

TEST(TemplateCheck, SaysOfUtf16NothingElse) {
    for (const std::string_view mark : {"\xFF\xFE", "\xFE\xFF"}) {
        const auto findings = CheckTemplate(CIniFile::Parse(std::string(mark) + "[DEALFIELD]\nTYPO=1\n"));
        ASSERT_EQ(findings.size(), 1u);
        EXPECT_TRUE(findings[0].isError);
        EXPECT_NE(findings[0].text.find("UTF-16"), std::string::npos);
    }
}

TEST(TemplateCheck, TakesDepositsApartForColumnsAlone) {
    const auto warnings = [](const char* deposits) {
        auto lines = SoundLines();
        lines.insert(lines.begin() + 11, {deposits, "CJ_NAME=6"});
        int count = 0;
        for (const TemplateFinding& finding : Check(lines)) {
            count += finding.text.find("compute nothing with labels") != std::string::npos ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(warnings("RJ_NAME=入金"), 1);
    EXPECT_EQ(warnings("RJ_NAME=0"), 1);
    EXPECT_EQ(warnings("RJ_NAME=5"), 0);
}

TEST(TemplateCheck, NamesTheModeThatTurnsMoneyOff) {
    const auto findings = CheckWith(3, "MONEY_MODE=9");
    const bool isTold = std::ranges::any_of(findings, [](const TemplateFinding& finding) {
        return finding.line == 7 &&
               finding.text == "[MONEY_RECORD] is never read: the money mode in [DEALFIELD] turns it off";
    });
    EXPECT_TRUE(isTold);
}

TEST(TemplateCheck, NamesNoLineForASectionThatIsntThere) {
    const auto findings = Check({"[MONEY_RECORD]", "START_FLAG=资金"});
    const auto found = std::ranges::find(findings, "expected a section [DEALFIELD]", &TemplateFinding::text);
    ASSERT_NE(found, findings.end());
    EXPECT_EQ(found->line, 0);
    EXPECT_TRUE(found->isError);
    const auto money = Check({"[DEALFIELD]", "MONEY_MODE=1"});
    const auto lacking =
        std::ranges::find(money, "[MONEY_RECORD] lacks DELIMITER: its row is one column and never makes a record",
                          &TemplateFinding::text);
    ASSERT_NE(lacking, money.end());
    EXPECT_EQ(lacking->line, 0);
}

}  // namespace
}  // namespace tradebill::template_check_test
