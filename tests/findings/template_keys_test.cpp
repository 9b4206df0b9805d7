// Every key that a template may have, and every place where one is missing or says nothing.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "findings/template_check.h"
#include "findings/template_known_keys.h"
#include "support/gbk_text.h"

namespace tradebill::template_keys_test {
namespace {

using Keys = std::vector<std::string_view>;

constexpr std::string_view kSections[] = {"MONEY_RECORD", "MATCH_RECORD", "PING_DETAIL", "OPI_DETAIL", "OPI_SUM"};

const Keys kFrameKeys{"START_FLAG", "START_OFFSET", "END_FLAG", "END_OFFSET", "DELIMITER"};
const Keys kMoneyLabels{"KHQY_NAME", "BZJZY_NAME", "SXF_NAME",  "KYZJ_NAME",   "CRJ_NAME",   "RJ_NAME",   "CJ_NAME",
                        "QCQY_NAME", "QMJC_NAME",  "PCYK_NAME", "CCDSYK_NAME", "XQSXF_NAME", "QLJSZ_NAME"};
const Keys kMoneyColumns{"KHQY_NAME", "BZJZY_NAME", "SXF_NAME",  "KYZJ_NAME",
                         "RJ_NAME",   "CJ_NAME",    "QCQY_NAME", "QMJC_NAME"};
const Keys kMoneyColumnsNotUsed{"XQSXF_NAME", "QLJSZ_NAME", "CCDSYK_NAME"};
const Keys kTrades{"MATCH_DATE",  "EXCH_NAME", "CONTRACT", "DELIVERY", "HEDGE",    "BID",     "OFFSET",
                   "MATCH_PRICE", "MATCH_VOL", "TURNOVER", "POUNDAGE", "OFFSETPL", "ROYALTY", "MATCHNO"};
const Keys kClosed{"MATCH_DATE", "EXCH_NAME",  "CONTRACT",     "DELIVERY", "BID",   "MATCH_PRICE", "MATCH_VOL",
                   "OPEN_DATE",  "OPEN_PRICE", "SETTLE_PRICE", "POUNDAGE", "HEDGE", "OFFSETPL"};
const Keys kOpen{"EXCH_NAME",    "CONTRACT",   "DELIVERY",      "OPEN_DATE",    "HEDGE",    "BID",
                 "POSITION_VOL", "OPEN_PRICE", "YSETTLE_PRICE", "SETTLE_PRICE", "FLOATPL",  "DSYK",
                 "DEPOSIT",      "BID_VOL",    "BID_PRICE",     "ASK_VOL",      "ASK_PRICE"};
const Keys kSummary{"EXCH_NAME",   "CONTRACT",         "DELIVERY",    "HEDGE",         "BID_POSITION_VOL",
                    "BID_AVPRICE", "ASK_POSITION_VOL", "ASK_AVPRICE", "YSETTLE_PRICE", "SETTLE_PRICE",
                    "DSYK",        "DEPOSIT"};
const Keys kSummaryNotUsed{"BID", "POSITION_VOL", "POSITION_PRICE"};

struct SectionKeys {
    std::string_view section;
    const Keys& keys;
    bool isLabels = false;
};
const SectionKeys kTables[] = {{"MONEY_RECORD", kMoneyLabels, true},
                               {"MATCH_RECORD", kTrades},
                               {"PING_DETAIL", kClosed},
                               {"OPI_DETAIL", kOpen},
                               {"OPI_SUM", kSummary}};

/// A template of all sections with the keys that each needs; a line in its section, if one is given.
std::string TemplateWith(std::string_view section = {}, const std::string& line = {}, std::string_view without = {}) {
    std::string text = "[DEALFIELD]\r\nMATCH_RECORD=1\r\nPING_DETAIL=1\r\nOPI_DETAIL=1\r\nOPI_SUM=1\r\n";
    for (const std::string_view name : kSections) {
        text += "[" + std::string(name) + "]\r\n";
        for (const char* const needed : {"START_FLAG=a\r\n", "END_FLAG=b\r\n", "DELIMITER=|\r\n"}) {
            const std::string_view key = std::string_view(needed).substr(0, std::string_view(needed).find('='));
            if (name != section || key != without) text += needed;
        }
        const bool saysOffset = name == section && (line.starts_with("START_OFFSET=") || without == "START_OFFSET");
        if (name != "MONEY_RECORD" && !saysOffset) text += "START_OFFSET=3\r\n";  // labels stand at a fixed place
        if (name == section) text += line + "\r\n";
        if (name == "PING_DETAIL" && (section != name || !line.starts_with("BID="))) text += "BID=0\r\n";
    }
    return text;
}

std::vector<TemplateFinding> Check(std::string_view text) {
    return CheckTemplate(CIniFile::Parse(text));
}

int CountErrors(const std::vector<TemplateFinding>& findings) {
    return static_cast<int>(std::ranges::count(findings, true, &TemplateFinding::isError));
}

/// Whether a finding of this line says `phrase`.
bool Finds(const std::vector<TemplateFinding>& findings, int line, std::string_view phrase) {
    return std::ranges::any_of(findings, [&](const TemplateFinding& finding) {
        return finding.line == line && finding.text.find(phrase) != std::string::npos;
    });
}

/// Number of the line that begins with `start`; the last one if there are several.
int LineOf(std::string_view text, std::string_view start) {
    const std::size_t at = text.rfind("\n" + std::string(start));
    if (at == std::string_view::npos) return 0;
    return 2 + static_cast<int>(std::ranges::count(text.substr(0, at), '\n'));
}

TEST(TemplateKeys, AreKnownInTheirSections) {
    EXPECT_EQ(CountErrors(Check(TemplateWith())), 0);
    for (const SectionKeys& table : kTables) {
        for (const std::string_view key : table.keys) {
            const auto findings = Check(TemplateWith(table.section, std::string(key) + (table.isLabels ? "=x" : "=3")));
            for (const TemplateFinding& finding : findings) {
                EXPECT_EQ(finding.text.find("unknown"), std::string::npos) << finding.text;
                EXPECT_EQ(finding.text.find("no effect"), std::string::npos) << finding.text;
            }
        }
    }
    for (const std::string_view key : kMoneyColumns) {
        EXPECT_TRUE(FindPartKey(SectionKind::Money, true, key)) << key;
        EXPECT_EQ(FindPartKey(SectionKind::Money, true, key)->use, KeyUse::Column) << key;
    }
}

TEST(TemplateKeys, AreKnownToTheCommonSection) {
    for (const std::string_view key : {"BILLFORMAT_NEWDATE", "DATE_FORMAT", "DATE_FORMAT_NEW", "MONEY_MODE",
                                       "MONEY_MODE_NEW", "MATCH_RECORD", "PING_DETAIL", "OPI_DETAIL", "OPI_SUM"}) {
        EXPECT_TRUE(FindCommonKey(key)) << key;
    }
    for (const std::string_view key : {"", "MONEY_RECORD", "HEAD_FORMAT", "MATCH_RECORD_NEW", "MONEY_MOD"}) {
        EXPECT_FALSE(FindCommonKey(key)) << key;
    }
}

TEST(TemplateKeys, AreKnownToEverySectionsFrame) {
    for (const SectionKind kind :
         {SectionKind::Money, SectionKind::Trades, SectionKind::Closed, SectionKind::Open, SectionKind::Summary}) {
        for (const std::string_view key : kFrameKeys) EXPECT_TRUE(FindPartKey(kind, false, key)) << key;
        EXPECT_TRUE(FindPartKey(kind, false, "HEAD_FORMAT"));
        EXPECT_FALSE(FindPartKey(kind, false, "TITLE"));
    }
}

TEST(TemplateKeys, CountWithoutRegardToCaseAndBlanks) {
    EXPECT_EQ(CountErrors(Check(TemplateWith("MATCH_RECORD", "  Match_Price  =  4"))), 0);
    EXPECT_EQ(CountErrors(Check("[dealfield]\r\nmoney_mode =9\r\nOpi_Sum =0\r\n[Opi_Sum_New]\r\n")), 0);
    EXPECT_EQ(FindTemplatePart("opi_sum_NEW")->kind, SectionKind::Summary);
    EXPECT_TRUE(FindTemplatePart("opi_sum_NEW")->isNew);
    EXPECT_FALSE(FindTemplatePart("OPI_SUM")->isNew);
    EXPECT_FALSE(FindTemplatePart("OPI_SUM_OLD"));
}

TEST(TemplateKeys, OfOneSectionAreUnknownInAnother) {
    const struct {
        std::string_view section;
        std::string_view key;
    } strangers[] = {{"MONEY_RECORD", "CONTRACT"}, {"MATCH_RECORD", "OPEN_PRICE"}, {"PING_DETAIL", "OFFSET"},
                     {"OPI_DETAIL", "TURNOVER"},   {"OPI_SUM", "FLOATPL"},         {"OPI_SUM", "KHQY_NAME"}};
    for (const auto& stranger : strangers) {
        const std::string text = TemplateWith(stranger.section, std::string(stranger.key) + "=1");
        const auto findings = Check(text);
        EXPECT_EQ(CountErrors(findings), 1) << stranger.key;
        EXPECT_TRUE(Finds(findings, LineOf(text, stranger.key),
                          "unknown key " + std::string(stranger.key) + " in [" + std::string(stranger.section) + "]"));
    }
}

TEST(TemplateKeys, ThatAreReadInVainAreNotUsed) {
    for (const std::string_view key : kMoneyColumnsNotUsed) {
        EXPECT_EQ(FindPartKey(SectionKind::Money, true, key)->use, KeyUse::NotUsed) << key;
        EXPECT_EQ(FindPartKey(SectionKind::Money, false, key)->use, KeyUse::Text) << key;
    }
    for (const std::string_view key : kSummaryNotUsed) {
        const std::string text = TemplateWith("OPI_SUM", std::string(key) + "=1");
        EXPECT_TRUE(Finds(Check(text), LineOf(text, key), "has no effect")) << key;
        EXPECT_EQ(CountErrors(Check(text)), 0) << key;
    }
}

TEST(TemplateKeys, BelowZeroCanNeverTakeEffect) {
    for (const SectionKeys& table : kTables) {
        if (table.isLabels) continue;
        for (const std::string_view key : table.keys) {
            const std::string text = TemplateWith(table.section, std::string(key) + "=-1");
            EXPECT_TRUE(Finds(Check(text), LineOf(text, std::string(key) + "=-1"), "never take effect")) << key;
            EXPECT_FALSE(
                Finds(Check(TemplateWith(table.section, std::string(key) + "=0")), LineOf(text, key), "below 0"))
                << key;
        }
    }
    EXPECT_EQ(CountErrors(Check(TemplateWith("MATCH_RECORD", "START_OFFSET=-1"))), 1);
    EXPECT_EQ(CountErrors(Check(TemplateWith("MATCH_RECORD", "START_OFFSET=0"))), 0);
    EXPECT_EQ(CountErrors(Check(TemplateWith("MATCH_RECORD", "END_OFFSET=-3"))), 0);
}

TEST(TemplateKeys, AreFoundIfTheirNumberIsBroken) {
    for (const std::string_view value :
         {"", "x", "3x", "0x3", "3.5", "三", "99999999999", "-99999999999", "9223372036854775808000000000000000000"}) {
        const std::string text = TemplateWith("MATCH_RECORD", Gbk("CONTRACT=" + std::string(value)));
        const auto findings = Check(text);
        EXPECT_GE(CountErrors(findings), 1) << value;
        EXPECT_TRUE(Finds(findings, LineOf(text, "CONTRACT"), "CONTRACT")) << value;
    }
    EXPECT_EQ(CountErrors(Check(TemplateWith("MATCH_RECORD", "CONTRACT=\"3\""))), 0);
    EXPECT_EQ(CountErrors(Check(TemplateWith("MATCH_RECORD", "CONTRACT=2147483647"))), 0);
    EXPECT_EQ(CountErrors(Check(TemplateWith("MATCH_RECORD", "END_OFFSET=-2147483648"))), 0);
}

TEST(TemplateKeys, AreMissedInEachSectionThatIsTurnedOn) {
    for (const std::string_view section : kSections) {
        for (const std::string_view key : {"START_FLAG", "END_FLAG", "DELIMITER"}) {
            const std::string text = TemplateWith(section, "; nothing", key);
            const auto findings = Check(text);
            EXPECT_EQ(CountErrors(findings), 1) << section << key;
            EXPECT_TRUE(Finds(findings, LineOf(text, "[" + std::string(section) + "]"), key)) << section << key;
            EXPECT_TRUE(Finds(findings, LineOf(text, "[" + std::string(section) + "]"), "fixed reader")) << section;
            // The same key with nothing behind it.
            EXPECT_EQ(CountErrors(Check(TemplateWith(section, std::string(key) + "=", key))), 1) << section << key;
        }
    }
}

TEST(TemplateKeys, SayWhereEachTableBegins) {
    for (const std::string_view section : kSections) {
        const std::string text = TemplateWith(section, "; nothing", "START_OFFSET");
        const auto findings = Check(text);
        const bool isTable = section != "MONEY_RECORD";
        EXPECT_EQ(CountErrors(findings), isTable ? 1 : 0) << section;
        EXPECT_EQ(Finds(findings, LineOf(text, "[" + std::string(section) + "]"), "lacks START_OFFSET"), isTable);
    }
}

TEST(TemplateKeys, AreMissedInTheNewSectionsToo) {
    const std::string text = TemplateWith();
    const std::string dated = text.substr(0, 13) + "BILLFORMAT_NEWDATE=20240119\r\n" + text.substr(13);
    for (const std::string_view section : kSections) {
        EXPECT_TRUE(std::ranges::any_of(Check(dated), [&](const TemplateFinding& finding) {
            return finding.isError && finding.text.find("[" + std::string(section) + "_NEW]") != std::string::npos;
        })) << section;
    }
    EXPECT_EQ(CountErrors(Check(dated)), 5);
}

TEST(TemplateKeys, ThatTurnOnASectionAskForIt) {
    for (const std::string_view flag : {"MATCH_RECORD", "PING_DETAIL", "OPI_DETAIL", "OPI_SUM"}) {
        const std::string lone = "[DEALFIELD]\r\n" + std::string(flag) + "=1\r\n";
        EXPECT_TRUE(Finds(Check(lone), 2, "[" + std::string(flag) + "]")) << flag;
        EXPECT_GE(CountErrors(Check(lone)), 1) << flag;
        const std::string off = "[DEALFIELD]\r\n" + std::string(flag) + "=0\r\n";
        EXPECT_EQ(CountErrors(Check(off)), 0) << flag;
    }
}

TEST(TemplateKeys, AreCountedByTheirLinesWhateverEndsThem) {
    for (const std::string lineEnd : {"\n", "\r\n"}) {
        for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
            const std::string text = mark + "; remark" + lineEnd + lineEnd + "[DEALFIELD]" + lineEnd + "MONEY_MODE=9" +
                                     lineEnd + " " + lineEnd + "WRONG=1" + lineEnd + "[OPI_SUM]";
            EXPECT_TRUE(Finds(Check(text), 6, "unknown key WRONG"));
        }
    }
}

TEST(TemplateKeys, BesideOtherLinesAreFoundInOrder) {
    const auto findings = Check(
        "before=1\n[DEALFIELD]\n# no "
        "remark\nMONEY_MODE=9\n[NOTHING]\nKEY=1\n[OPI_SUM]\nDSYK=-1\n[OPI_SUM\n[DEALFIELD]\n");
    EXPECT_TRUE(std::ranges::is_sorted(findings, {}, &TemplateFinding::line));
    EXPECT_TRUE(Finds(findings, 1, "before=1"));
    EXPECT_TRUE(Finds(findings, 3, "# no remark"));
    EXPECT_TRUE(Finds(findings, 5, "unknown section [NOTHING]"));
    EXPECT_FALSE(Finds(findings, 6, ""));  // nothing more of an unknown section
    EXPECT_TRUE(Finds(findings, 8, "DSYK"));
    EXPECT_TRUE(Finds(findings, 9, "[OPI_SUM"));
    EXPECT_TRUE(Finds(findings, 10, "[DEALFIELD] stands here again"));
}

TEST(TemplateKeys, HoldTextsOfThirtyOneBytes) {
    const std::string longest = std::string(31, 'x');
    EXPECT_EQ(CountErrors(Check(TemplateWith("MATCH_RECORD", "START_FLAG=" + longest, "START_FLAG"))), 0);
    const std::string text = TemplateWith("MATCH_RECORD", "START_FLAG=" + longest + "x", "START_FLAG");
    EXPECT_TRUE(Finds(Check(text), LineOf(text, "START_FLAG=xx"), "31 bytes"));
    EXPECT_EQ(CountErrors(Check(TemplateWith("MATCH_RECORD", "HEAD_FORMAT=" + std::string(500, 'x')))), 0);
}

TEST(TemplateKeys, HoldADateThatCanBeReached) {
    const auto errorsOf = [](const std::string& date) {
        return CountErrors(Check("[DEALFIELD]\r\nBILLFORMAT_NEWDATE=" + date + "\r\n"));
    };
    for (const char* const good : {"20240119", " 20240119 ", "\"20240119\"", "19700102", "20240231", ""}) {
        EXPECT_EQ(errorsOf(good), 0) << good;
    }
    for (const char* const bad : {"0", "2024", "20240019", "20241319", "20240100", "20240132", "18991231", "19000101",
                                  "40000101", "x", "2024/1/19"}) {
        EXPECT_EQ(errorsOf(bad), 1) << bad;
    }
}

}  // namespace
}  // namespace tradebill::template_keys_test
