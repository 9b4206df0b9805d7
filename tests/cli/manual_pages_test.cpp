#include "cli/manual_pages.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/manual_command.h"
#include "cli/program_outline.h"

namespace tradebill::manual_pages_test {
namespace {

const ManualEdition kEdition{.version = "1.2.3", .date = "2024-01-31"};

bool Has(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

/// A command with one of everything.
OutlinedCommand OddCommand() {
    return {.path = {"template", "check"},
            .help = "Find what's \"wrong\"",
            .row = {.group = "template",
                    .name = "check",
                    .help = "",
                    .declare = nullptr,
                    .example = "template check .ini",
                    .exits = "0 done; 75 later; those of batch",
                    .guide = "docs/a.md",
                    .notes = "To know.\n  typed -x"},
            .options = {{.names = {"-o", "--output"}, .value = "FILE", .help = ".png or C:\\x", .isRequired = true},
                        {.names = {"--wait"},
                         .value = "SECONDS",
                         .help = "How long",
                         .range = "0 - 9",
                         .defaultValue = "5",
                         .needed = {"--output"}}},
            .words = {{.names = {"FILE"}, .help = "The file", .isRequired = true, .isRepeated = true}}};
}

std::string OddPage() {
    return ManualPages({.commands = {OddCommand()}}, kEdition).back().text;
}

TEST(ManualPages, BearTheEdition) {
    EXPECT_TRUE(OddPage().starts_with(
        ".TH \"TRADEBILL\\-TEMPLATE\\-CHECK\" 1 \"2024-01-31\" \"tradebill 1.2.3\" \"User Commands\"\n"))
        << OddPage();
}

TEST(ManualPages, TellHowACommandIsCalled) {
    EXPECT_TRUE(Has(OddPage(),
                    "\\fBtradebill template check\\fR \\fB\\-o\\fR, \\fB\\-\\-output\\fR \\fIFILE\\fR "
                    "[\\fIOPTIONS\\fR] \\fIFILE\\fR ...\n"))
        << OddPage();
    EXPECT_TRUE(Has(OddPage(), "tradebill\\-template\\-check \\- Find what\\(aqs \\(dqwrong\\(dq\n"));
    EXPECT_TRUE(Has(OddPage(), ".nf\ntradebill template check .ini\n.fi\n"));
}

TEST(ManualPages, KeepTextsAsTheyAre) {
    EXPECT_TRUE(Has(OddPage(), "\n\\&.png or C:\\ex. Required.\n"));
    EXPECT_TRUE(Has(OddPage(), "\nHow long. In the range 0 \\- 9. Default: 5. Goes with \\-\\-output.\n"));
    EXPECT_TRUE(Has(OddPage(), ".PP\nTo know.\n.PP\n.RS 4\n.nf\ntyped \\-x\n.fi\n.RE\n"));
}

TEST(ManualPages, TellEachExitCode) {
    EXPECT_TRUE(Has(OddPage(), ".TP\n\\fB0\\fR\ndone\n.TP\n\\fB75\\fR\nlater\n.PP\nthose of batch\n"));
}

TEST(ManualPages, AreThereForEveryCommand) {
    const ProgramOutline program = OutlineOfProgram();
    const std::vector<ManualPage> pages = ManualPages(program, kEdition);
    ASSERT_EQ(pages.size(), program.commands.size() + 1);
    EXPECT_EQ(pages.front().name, "tradebill");
    for (std::size_t i = 0; i < program.commands.size(); ++i) {
        for (const OutlinedOption& option : program.commands[i].options) {
            std::string name = option.names.back();
            for (std::size_t at = 0; (at = name.find('-', at)) != std::string::npos; at += 2) name.insert(at, "\\");
            EXPECT_TRUE(Has(pages[i + 1].text, "\\fB" + name + "\\fR")) << pages[i + 1].name << " " << name;
        }
    }
}

TEST(ManualPages, SayNothingOfWhatIsHidden) {
    for (const ManualPage& page : ManualPages(OutlineOfProgram(), kEdition)) {
        EXPECT_FALSE(Has(page.text, "batch\\-worker")) << page.name;
        EXPECT_FALSE(Has(page.text, ".manual")) << page.name;
    }
}

TEST(DateOfEpoch, IsThatOfGreenwich) {
    EXPECT_EQ(DateOfEpoch("0"), "1970-01-01");
    EXPECT_EQ(DateOfEpoch("86399"), "1970-01-01");
    EXPECT_EQ(DateOfEpoch("1709164800"), "2024-02-29");
    for (const char* const wrong : {"", "-1", "12x", " 1", "253402300800"})
        EXPECT_EQ(DateOfEpoch(wrong), std::nullopt) << wrong;
}

}  // namespace
}  // namespace tradebill::manual_pages_test
