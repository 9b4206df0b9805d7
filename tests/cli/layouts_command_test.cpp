#include "cli/layouts_command.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/explain_words.h"
#include "platform/text_encoding.h"
#include "readers/layout_table.h"

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

}  // namespace
}  // namespace tradebill::layouts_command_test
