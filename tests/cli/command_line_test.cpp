// What the program answers to a command line as a whole, whatever the command.
#include "cli/command_line.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <sstream>
#include <string>

#include "cli/command_table.h"
#include "cli/wrapped_text.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::command_line_test {
namespace {

class CommandLine : public testing::Test {
protected:
    [[nodiscard]] Answer Run(const std::string& arguments) const { return RunProgram(folder_, arguments); }

    /// Exit 2, nothing on the output and this line on the other.
    void ExpectRefusal(const std::string& arguments, const std::string& line) const {
        const Answer answer = Run(arguments);
        EXPECT_EQ(answer.exit, 2) << arguments;
        EXPECT_EQ(answer.out, "") << arguments;
        EXPECT_EQ(answer.err, "tradebill: " + line + "\n");
    }

    CTempFolder folder_;
};

TEST_F(CommandLine, NamesAWordThatIsNoCommandAndTheNearest) {
    constexpr const char* kListed = " (tradebill --help lists what is expected)";
    ExpectRefusal("reprot", std::string("there is no command \"reprot\", did you mean report?") + kListed);
    ExpectRefusal("Report", std::string("there is no command \"Report\", did you mean report?") + kListed);
    ExpectRefusal("xyzzy", std::string("there is no command \"xyzzy\"") + kListed);
    ExpectRefusal("", std::string("expected a command") + kListed);
    ExpectRefusal(
        "template chekc",
        "there is no command \"chekc\", did you mean check? (tradebill template --help lists what is expected)");
    ExpectRefusal("template", "expected a command (tradebill template --help lists what is expected)");
}

TEST_F(CommandLine, ShowsAnOptionAsItWasTypedWithTheNearest) {
    ExpectRefusal("report --rot=x",
                  "there is no option --rot=x, did you mean --root? (tradebill report --help lists what "
                  "is expected)");
    ExpectRefusal("check --quite",
                  "there is no option --quite, did you mean --quiet? (tradebill check --help lists what "
                  "is expected)");
    ExpectRefusal("report -z", "there is no option -z (tradebill report --help lists what is expected)");
    ExpectRefusal(
        "template check a.ini --againts b",
        "there is no option --againts, did you mean --against? (tradebill template check --help lists what is "
        "expected)");
    ExpectRefusal("--halp",
                  "there is no option --halp, did you mean --help? (tradebill --help lists what is expected)");
}

TEST_F(CommandLine, NamesWhatIsLeftOver) {
    ExpectRefusal("layouts one two",
                  "nobody knows what \"two\" is for (tradebill layouts --help lists what is expected)");
}

TEST_F(CommandLine, HelpsInEachWay) {
    const Answer help = Run("--help");
    EXPECT_EQ(help.exit, 0);
    EXPECT_EQ(help.err, "");
    EXPECT_EQ(Run("help").out, help.out);
    for (const Command& command : Commands()) {
        const bool isHidden = command.example.empty();
        EXPECT_EQ(Says(help.out, "\n  " + std::string(command.group.empty() ? command.name : command.group) + " "),
                  !isHidden)
            << command.name;
        if (isHidden) continue;
        const std::string name = command.group.empty() ? std::string(command.name)
                                                       : std::string(command.group) + " " + std::string(command.name);
        const Answer own = Run(name + " --help");
        EXPECT_EQ(own.exit, 0) << name;
        EXPECT_EQ(Run("help " + name).out, own.out) << name;
    }
    ExpectRefusal("help reprot",
                  "there is no command \"reprot\", did you mean report? (tradebill --help lists what is "
                  "expected)");
}

TEST_F(CommandLine, HelpLeadsWithACallAndEndsWithExitCodesAndWhereToReadOn) {
    for (const Command& command : Commands()) {
        if (command.example.empty()) continue;
        const std::string name = command.group.empty() ? std::string(command.name)
                                                       : std::string(command.group) + " " + std::string(command.name);
        const std::string help = Run(name + " --help").out;
        const std::size_t call = help.find("tradebill " + name + " ");
        const std::size_t options = help.find("\nOptions:");
        const std::size_t exits = help.find("\nExit codes: 0 ");
        const std::size_t guide = help.find("\nRead on: ");
        EXPECT_LT(call, options) << help;
        EXPECT_LT(options, exits) << help;
        EXPECT_LT(exits, guide) << help;
        EXPECT_NE(guide, std::string::npos) << help;
    }
}

TEST_F(CommandLine, HelpFitsATerminalAndSpeaksPlainly) {
    for (const Command& command : Commands()) {
        if (command.example.empty()) continue;
        const std::string help = Run("help " + std::string(command.group) + " " + std::string(command.name)).out;
        std::istringstream lines(help);
        for (std::string line; std::getline(lines, line);) EXPECT_LE(ColumnsOf(line), 100U) << line;
        EXPECT_FALSE(Says(help, ":INT")) << help;
    }
    const std::string report = Run("help report").out;
    EXPECT_TRUE(Says(report, "reckoned (1 - 366;")) << report;
    EXPECT_TRUE(Says(Run("help batch-merge").out, "--out DIR REQUIRED  ")) << report;
}

TEST_F(CommandLine, TellsTheVersionAndTheSourcesOfTheBuild) {
    const Answer version = Run("--version");
    EXPECT_EQ(version.exit, 0);
    EXPECT_EQ(version.err, "");
    const std::string head = std::string("tradebill ") + TRADEBILL_VERSION + " (source ";
    ASSERT_TRUE(version.out.starts_with(head)) << version.out;
    const std::string rest = version.out.substr(head.size());
    EXPECT_EQ(rest.find_first_not_of("0123456789abcdef"), 16U);
    EXPECT_EQ(rest.substr(16), ")\n");
    EXPECT_EQ(Run("version").out, version.out);
}

TEST_F(CommandLine, TakesNoColoursBeforeAndBehindTheCommand) {
    EXPECT_EQ(Run("--no-color layouts").exit, 0);
    EXPECT_EQ(Run("layouts --no-color").exit, 0);
}

}  // namespace
}  // namespace tradebill::command_line_test
