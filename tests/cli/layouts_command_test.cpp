#include "cli/layouts_command.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "cli/explain_words.h"
#include "platform/text_encoding.h"
#include "readers/layout_table.h"
#include "requests/carried_templates.h"
#include "requests/layout_readings.h"
#include "support/gbk_text.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::layouts_command_test {
namespace {

std::string Printed() {
    testing::internal::CaptureStdout();
    PrintLayouts();
    return testing::internal::GetCapturedStdout();
}

TEST(LayoutsCommand, ListsEveryLayoutWithItsFormatKindMarkAndSample) {
    const std::string text = Printed();
    for (const Layout& layout : Layouts()) {
        const std::string format = layout.isForeign ? "-" : std::to_string(layout.format);
        bool isListed = false;
        for (std::size_t start = 0; start < text.size();) {
            const std::string line = text.substr(start, text.find('\n', start) - start);
            isListed |= line.starts_with(format + " ") && line.find(layout.name) != std::string::npos &&
                        line.find(layout.isForeign ? "foreign" : "domestic") != std::string::npos &&
                        line.ends_with(GbkToUtf8(layout.marks.mark));
            start += line.size() + 1;
        }
        EXPECT_TRUE(isListed) << layout.name << ' ' << layout.format;
        EXPECT_TRUE(std::filesystem::is_directory(std::string(TRADEBILL_SAMPLES) + "/" + std::string(layout.name)));
    }
    EXPECT_NE(text.find("template-row"), std::string::npos);
}

TEST(LayoutsCommand, SaysWhyOneOfTwoIsChosen) {
    EXPECT_EQ(ReasonText("fund-class"), "");
    EXPECT_EQ(ReasonText("foreign"), "");
    EXPECT_EQ(ReasonText("template"), "");
    EXPECT_EQ(ReasonText("tabulated"), "tabulated because \"权利金\" isn't in the text");
    EXPECT_EQ(ReasonText("bilingual"), "bilingual because \"权利金\" is in the text");
    EXPECT_EQ(ReasonText("bilingual-new"),
              "bilingual-new because \"权利金\" is in the text and the template's change date is reached");
}

class LayoutReadings : public testing::Test {
protected:
    /// "1 fund-status 2 2 3 marks": format, layout, sections, rows, records.
    static std::string LineOf(const LayoutReading& reading) {
        return std::to_string(reading.format) + " " + reading.name + " " + std::to_string(reading.sections) + " " +
               std::to_string(reading.rows) + " " + std::to_string(reading.records) +
               (reading.hasMarks ? " marks" : "");
    }
    static std::vector<std::string> LinesOf(const std::string& text) {
        std::vector<std::string> lines;
        for (const LayoutReading& reading : ReadByEachLayout(text, "20240105")) lines.push_back(LineOf(reading));
        return lines;
    }
};

TEST_F(LayoutReadings, CountSectionsRowsAndRecordsOfEachFormat) {
    const std::string text =
        Statement({"日  期:20240105", "资金状况", "----------", "上日结存: 1.00", "----------", "成交记录",
                   "----------", "heading", "20240105 SHFE cu 2405 buy open 1 2 3 4 5 6",
                   "20240105 SHFE cu 2406 buy open 1 2 3 4 5 6", "共 2条"});
    const std::vector<std::string> lines = LinesOf(text);
    EXPECT_EQ(lines.size(), 7 + CarriedTemplates().size()) << "six formats, the foreign kind and templates";
    EXPECT_NE(std::ranges::find(lines, "3 template units 0 0 0"), lines.end()) << testing::PrintToString(lines);
    // Three rows: the one of money, and the two trades.
    EXPECT_NE(std::ranges::find(lines, "1 fund-status 2 3 3 marks"), lines.end()) << testing::PrintToString(lines);
    EXPECT_EQ(std::ranges::count_if(lines, [](const std::string& line) { return line.ends_with("marks"); }), 1);
}

TEST_F(LayoutReadings, NameTheLayoutThatTheTextChooses) {
    const std::vector<std::string> lines = LinesOf(Statement({"资金状况", "权利金"}));
    EXPECT_TRUE(std::ranges::any_of(lines, [](const std::string& line) {
        return line.starts_with("1 fund-status-premium ");
    })) << testing::PrintToString(lines);
}

TEST_F(LayoutReadings, ArePrintedForAFile) {
    const CTempFolder folder;
    const std::string file = std::string(TRADEBILL_SAMPLES) + "/tabulated/root/Users/demo/Data/Bill";
    const std::string statement = std::filesystem::directory_iterator(file)->path().string();
    const Answer read = RunProgram(folder, "layouts " + Quoted(statement));
    EXPECT_EQ(read.exit, 0) << read.err;
    EXPECT_TRUE(Says(read.out, "tabulated"));
    const Answer nothing = RunProgram(folder, "layouts " + Quoted(folder.Write("nothing.txt", "text\n")));
    EXPECT_EQ(nothing.exit, 3);
    EXPECT_TRUE(Says(nothing.out, "No layout finds a section of its own")) << nothing.out;
    EXPECT_EQ(RunProgram(folder, "layouts " + Quoted(folder.Path("missing"))).exit, 2);
}

}  // namespace
}  // namespace tradebill::layouts_command_test
