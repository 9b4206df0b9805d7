// What `explain` says of a template that declines, or that stops the reading with an error.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "cli/explain_fixture.h"
#include "readers/statement_loader.h"
#include "report/report.h"
#include "requests/scan_report.h"

namespace tradebill::explain_template_test {
namespace {

/// One part of a template: the flag that turns it on, its section, and the words of the statement.
struct Part {
    std::string_view section;
    std::string_view name;  ///< in an explanation
    std::string_view title;
};

// In the order of reading.
constexpr Part kParts[] = {{"MONEY_RECORD", "money", "资金表"},
                           {"MATCH_RECORD", "trades", "成交表"},
                           {"PING_DETAIL", "closed", "平仓表"},
                           {"OPI_DETAIL", "open", "持仓表"},
                           {"OPI_SUM", "summary", "汇总表"}};

class ExplainedTemplate : public ExplainFixture {
protected:
    /// A template of all parts; `without` in `section` stays out.
    [[nodiscard]] std::string Template(std::string_view section = {}, std::string_view without = {}) const {
        std::string text = "[DEALFIELD]\nMONEY_MODE=0\nMATCH_RECORD=1\nPING_DETAIL=1\nOPI_DETAIL=1\nOPI_SUM=1\n";
        for (const Part& part : kParts) {
            text += "[" + std::string(part.section) + "]\n";
            for (const std::string& line :
                 {"START_FLAG=" + std::string(part.title), std::string("START_OFFSET=2"), std::string("END_FLAG=完"),
                  std::string("END_OFFSET=0"), std::string("DELIMITER=|"), std::string("BID=2")}) {
                const bool isLeftOut = part.section == section && line.substr(0, line.find('=')) == without;
                if (!isLeftOut) text += line + "\n";
            }
        }
        return folder_.Write("broker.ini", Gbk(text));
    }
    [[nodiscard]] static std::string TemplatedStatement() {
        std::string text = Statement({"结算单 日期：20240102"});
        for (const Part& part : kParts) {
            text += Gbk(part.title) + "\r\nheading\r\na|b|c|d|e|f|g|h|i|j|k|l\r\n" + Gbk("完") + "\r\n";
        }
        return text;
    }
    [[nodiscard]] ExplainCommand Command(const std::string& templateFile, const std::string& text,
                                         bool asJson = true) const {
        return {.statementFile = folder_.Write("D1.20240102o.txt", text),
                .format = "1",
                .kind = {},
                .templateFile = templateFile,
                .day = {},
                .asJson = asJson};
    }
    /// The parts above one of them.
    [[nodiscard]] static Json ReadBefore(const Part& last) {
        Json names = Json::array();
        for (const Part& part : kParts) {
            if (part.section == last.section) break;
            names.push_back(part.name);
        }
        return names;
    }
    static bool Says(const std::string& text, std::string_view words) { return text.find(words) != std::string::npos; }
};

TEST_F(ExplainedTemplate, ReadsTheWholeStatement) {
    const Explained explained = Run(Command(Template(), TemplatedStatement()));
    EXPECT_EQ(explained.exit, 0);
    EXPECT_EQ(explained.json.at("sections_found"), 5);
    EXPECT_EQ(explained.json.at("readers").size(), 1U);
    EXPECT_EQ(explained.json.at("looks_like"), Json::array());  // it needs no marks
    const Json section = explained.Section("closed");
    EXPECT_EQ(section.at("title_line"), 10);
    EXPECT_EQ(section.at("end_line"), 13);
    EXPECT_EQ(section.at("records"), 1);
}

TEST_F(ExplainedTemplate, SaysAtWhichSectionItDeclinedAndWhy) {
    std::size_t complete = 0;
    for (const Part& part : kParts) {
        for (const std::string_view key : {"START_FLAG", "END_FLAG", "DELIMITER"}) {
            const std::string file = Template(part.section, key);
            const Explained explained = Run(Command(file, TemplatedStatement()));
            EXPECT_EQ(explained.json.at("template"), (Json{{"outcome", "declined"},
                                                           {"new_scheme", false},
                                                           {"section", part.section},
                                                           {"missing_key", key},
                                                           {"read_before", ReadBefore(part)}}));
            const Json readers = explained.json.at("readers");
            ASSERT_EQ(readers.size(), 2U) << part.section;
            EXPECT_EQ(readers[0].at("layout"), "template");
            EXPECT_EQ(readers[0].at("sections").size(), complete) << part.section;  // those before it
            EXPECT_EQ(readers[1].at("layout"), "fund-status");
            EXPECT_EQ(readers[1].at("sections").size(), 5U);
            EXPECT_EQ(explained.exit, complete == 0 ? 3 : 0) << part.section;
            const std::string words = Run(Command(file, TemplatedStatement(), false)).output;
            EXPECT_TRUE(Says(words, "declined at section [" + std::string(part.section) + "], which lacks " +
                                        std::string(key) + "; a fixed reader reads the whole statement again\n"))
                << words;
            const bool leavesAny = part.name != "money";
            EXPECT_EQ(Says(words, "what it had read before stays in the report: money"), leavesAny) << words;
        }
        ++complete;
    }
}

TEST_F(ExplainedTemplate, NamesNoSectionThatLeftNothingBehind) {
    const std::string file = Template("OPI_SUM", "END_FLAG");
    const std::string noTrades =
        Statement({"资金表", "", "a|b", "完", "成交表", "heading", "完", "平仓表", "heading", "完"});
    EXPECT_EQ(Run(Command(file, noTrades)).json.at("template").at("read_before"), (Json{"money"}));
}

// Both sides are looked at: the first makes a record, and the second has no column.
TEST_F(ExplainedTemplate, ShowsARecordWhoseRowStoppedTheReading) {
    const std::string file = folder_.Write(
        "broker.ini", Gbk("[DEALFIELD]\nMONEY_MODE=9\nOPI_DETAIL=1\n[OPI_DETAIL]\nSTART_FLAG=持仓表\nSTART_OFFSET=1\n"
                          "END_FLAG=完\nEND_OFFSET=0\nDELIMITER=|\nCONTRACT=0\nBID_VOL=1\nASK_VOL=11\n"));
    const std::string text = Statement({"持仓表", "i2405|2|c|d|e|f|g|h|i|j|k", "完"});
    ExplainCommand command = Command(file, text);
    command.format = "2";  // whose open positions may have both sides in a row
    const Explained stopped = Run(command);
    EXPECT_EQ(stopped.json.at("error_line"), 2);
    EXPECT_EQ(stopped.Section("open").at("records"), 1);
    EXPECT_EQ(stopped.Section("open").at("first_record").at("line"), nullptr);
    EXPECT_EQ(stopped.Section("open").at("first_record").at("fields").at("CONTRACT"), "i2405");
    command.asJson = false;
    EXPECT_TRUE(Says(Run(command).output, "\n    first record: ")) << stopped.output;
}

// By the date that stands in its text, whatever day its name has.
TEST_F(ExplainedTemplate, SaysThatAStatementOfTheDateHasBeenRead) {
    const std::string text = TemplatedStatement();
    CReport report;
    report.Request.StatementFormat = 1;
    report.TemplatePath = Template();
    CStatementLoader loader(report);
    loader.Read("20240102", text);
    CScanReport seen(text);
    loader.Read("20240103", text, &seen);
    seen.Finish();
    EXPECT_EQ(seen.FoundSections(), 0);
    const auto printed = [&seen](auto print) {
        testing::internal::CaptureStdout();
        print({.file = "D1.txt", .day = "20240103", .daySource = "--day", .format = "format 1"}, seen);
        return testing::internal::GetCapturedStdout();
    };
    EXPECT_EQ(Json::parse(printed(PrintExplanationAsJson)).at("template"),
              (Json{{"outcome", "known_day"}, {"new_scheme", false}}));
    EXPECT_TRUE(Says(printed(PrintExplanation),
                     "Template    its old description: a statement of this date has been read, this one is passed "
                     "over\n"));
}

TEST_F(ExplainedTemplate, LeavesBothReadingsRecordsInTheStores) {
    const std::string file = Template("OPI_SUM", "END_FLAG");
    const std::string text = TemplatedStatement() + SmallStatement();
    CReport report;
    report.Request.StatementFormat = 1;
    report.TemplatePath = file;
    CStatementLoader(report).Read("20240102", text);
    EXPECT_EQ(report.MatchStore.Count(), 3);  // one of the template, two of the fixed reader
    const Explained explained = Run(Command(file, text));
    EXPECT_EQ(explained.exit, 0);
    EXPECT_EQ(explained.json.at("readers")[0].at("sections")[1].at("records"), 1);
    EXPECT_EQ(explained.Section("trades").at("records"), 2);
    const Json first = explained.json.at("readers")[0].at("sections");
    EXPECT_EQ(first.size(), 4U);
    EXPECT_EQ(explained.json.at("sections_found"), 4 + 3);
    EXPECT_EQ(explained.json.at("money_records"), 2);
}

TEST_F(ExplainedTemplate, NamesTheNewSectionThatIsIncomplete) {
    const std::string file =
        folder_.Write("broker.ini", Gbk("[DEALFIELD]\nBILLFORMAT_NEWDATE=20240102\nMONEY_MODE=9\nMATCH_RECORD=1\n"));
    const Explained explained = Run(Command(file, TemplatedStatement()));
    EXPECT_EQ(explained.json.at("template").at("section"), "MATCH_RECORD_NEW");
    EXPECT_EQ(explained.json.at("template").at("new_scheme"), true);
    EXPECT_EQ(explained.json.at("template").at("missing_key"), "START_FLAG");
    EXPECT_TRUE(Says(Run(Command(file, TemplatedStatement(), false)).output,
                     "its new description: declined at section [MATCH_RECORD_NEW], which lacks START_FLAG"));
}

TEST_F(ExplainedTemplate, SaysThatAReportWouldStopToo) {
    const std::string file = Template("PING_DETAIL", "BID");  // every closed row must have a side
    const Explained explained = Run(Command(file, TemplatedStatement()));
    EXPECT_EQ(explained.exit, 1);
    EXPECT_TRUE(explained.json.contains("error"));
    EXPECT_EQ(explained.json.at("readers").size(), 1U);
    EXPECT_EQ(explained.Section("trades").at("records"), 1);
    EXPECT_EQ(explained.Section("closed").at("records"), 0);
    EXPECT_EQ(explained.json.at("money_records"), 1);  // read before
    EXPECT_EQ(explained.json.at("error_section"), "closed");
    EXPECT_EQ(explained.json.at("error_line"), 12);
    EXPECT_TRUE(Says(Run(Command(file, TemplatedStatement(), false)).output,
                     "The reading stopped with an error in the section closed positions, at line 12, and so would a "
                     "report: "));
}

TEST_F(ExplainedTemplate, StopsAtABrokenChangeDate) {
    const std::string file = folder_.Write("broker.ini", "[DEALFIELD]\nBILLFORMAT_NEWDATE=20241319\n");
    const Explained explained = Run(Command(file, SmallStatement()));
    EXPECT_EQ(explained.exit, 1);
    EXPECT_TRUE(explained.json.contains("error"));
    EXPECT_EQ(explained.json.at("sections_found"), 0);
    EXPECT_EQ(explained.json.at("money_records"), 0);
    EXPECT_EQ(explained.json.at("error_section"), nullptr);
    EXPECT_EQ(explained.json.at("error_line"), nullptr);
    EXPECT_TRUE(Says(Run(Command(file, SmallStatement(), false)).output,
                     "The reading stopped with an error, and so would a report: a date is out of bounds"));
}

TEST_F(ExplainedTemplate, StopsAtARowAboveTheFirst) {
    const std::string file = folder_.Write(
        "broker.ini", Gbk("[DEALFIELD]\nMONEY_MODE=9\nMATCH_RECORD=1\n[MATCH_RECORD]\nSTART_FLAG=成交表\nEND_FLAG=完\n"
                          "DELIMITER=|\n"));
    const std::string text = Statement({"成交表", "a", "完"});
    const Explained stopped = Run(Command(file, text));
    EXPECT_TRUE(stopped.json.contains("error"));
    EXPECT_EQ(stopped.json.at("error_section"), "trades");
    EXPECT_EQ(stopped.json.at("error_line"), nullptr);
    EXPECT_TRUE(Says(Run(Command(file, text, false)).output, "trades, at a row that the text doesn't have, and so"));
    EXPECT_FALSE(Run(Command(file, Statement({"x"}) + text)).json.contains("error"));
}

TEST_F(ExplainedTemplate, PlaysNoPartForForeignStatements) {
    ExplainCommand command = Command(Template(), TemplatedStatement());
    command.kind = "foreign";
    command.format = {};
    const Explained explained = Run(command);
    EXPECT_FALSE(explained.json.contains("template"));
    EXPECT_EQ(explained.json.at("readers").size(), 1U);
    EXPECT_EQ(explained.json.at("readers")[0].at("layout"), "foreign");
}

TEST_F(ExplainedTemplate, IsForgottenByTheNextStatement) {
    EXPECT_EQ(Run(Command(Template(), TemplatedStatement())).json.at("readers")[0].at("layout"), "template");
    const Explained plain = Explain(SmallStatement(), "1");
    EXPECT_EQ(plain.json.at("readers").size(), 1U);
    EXPECT_EQ(plain.json.at("readers")[0].at("layout"), "fund-status");
}

TEST_F(ExplainedTemplate, IsReadAnewIfItChanged) {
    EXPECT_EQ(Run(Command(Template(), TemplatedStatement())).json.at("template").at("outcome"), "read");
    EXPECT_EQ(Run(Command(Template("OPI_SUM", "END_FLAG"), TemplatedStatement())).json.at("template").at("outcome"),
              "declined");
}

TEST_F(ExplainedTemplate, OfOneMoneyRowNeedsNoTitle) {
    const std::string file = folder_.Write(
        "broker.ini", "[DEALFIELD]\nMONEY_MODE=1\n[MONEY_RECORD]\nSTART_OFFSET=1\nDELIMITER=|\nKHQY_NAME=3\n");
    const Explained read = Run(Command(file, "x\r\n1|2|3|4|5|6|7|8|9\r\n"));  // every row contains an empty title
    EXPECT_EQ(read.exit, 0);
    EXPECT_EQ(read.Section("money").at("title_line"), 1);
    EXPECT_EQ(read.Section("money").at("money")[0].at("fields").at("KHQY"), "4");
    EXPECT_EQ(Run(Command(file, "")).exit, 3);
}

}  // namespace
}  // namespace tradebill::explain_template_test
