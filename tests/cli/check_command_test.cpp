// The program's `check`: what a user meets who has damaged files without knowing it, and the rules of its output.
#include "cli/check_command.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli/program_fixture.h"
#include "cli/shown_findings.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "platform/text_encoding.h"
#include "requests/report_options.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::check_command_test {
namespace {

using Json = nlohmann::json;

class CheckProgram : public Program {
protected:
    [[nodiscard]] std::string Check(const std::string& more = {}) const {
        return "check --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") + " " + more;
    }
    [[nodiscard]] std::string PathOf(const std::string& day) const {
        return root_ + "/Users/demo/Data/Bill/D90010002." + day + "o.txt";
    }
    void Write(const std::string& day, const std::string& bytes) const {
        std::ofstream(PathOf(day), std::ios::binary | std::ios::trunc) << bytes;
    }
    [[nodiscard]] Json Findings(const std::string& more = {}) const {
        const std::string file = folder_.Path("found.json");
        EXPECT_NE(Run(Check("--quiet --json " + Quoted(file) + " " + more)).exit, 1);
        return Json::parse(ReadFile(file), nullptr, false);
    }
    /// Codes and days of all errors and warnings.
    [[nodiscard]] std::set<std::string> FoundKeys(const std::string& more = {}) const {
        std::set<std::string> keys;
        const Json found = Findings(more);
        for (const Json& finding : found.at("findings")) {
            if (finding.at("severity") == "note") continue;
            keys.insert(finding.at("code").get<std::string>() + " " + finding.at("day").get<std::string>());
        }
        return keys;
    }
};

using Keys = std::set<std::string>;

TEST_F(CheckProgram, FindsNothingInACleanAccountAndWritesNothing) {
    fs::remove_all(root_ + "/Users/demo/Data/Bill/Image");
    const Answer answer = Run(Check());
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_EQ(answer.out, "nothing was found\n");
    EXPECT_FALSE(fs::exists(root_ + "/Users/demo/Data/Bill/Image"));
    EXPECT_EQ(Run(Check("--quiet")).out, "");
}

TEST_F(CheckProgram, FindsNothingInAnySample) {
    for (const auto& entry : fs::directory_iterator(TRADEBILL_SAMPLES)) {
        const std::string sample = entry.path().generic_string();
        if (!fs::exists(sample + "/request.ini")) continue;
        const Answer answer =
            Run("check --quiet --root " + Quoted(sample + "/root") + " --request " + Quoted(sample + "/request.ini"));
        EXPECT_EQ(answer.exit, 0) << sample << "\n" << answer.out << answer.err;
        EXPECT_EQ(answer.out.find("error"), std::string::npos) << answer.out;
    }
}

TEST_F(CheckProgram, FindsNothingInStatementsAsCountersPrintThemToday) {
    for (const std::string form : {"classic", "classic-trade-type", "classic-cash"}) {
        fs::create_directories(folder_.Path(form + "/Users/demo/Data/Bill"));
        fs::copy(std::string(TRADEBILL_SAMPLES) + "/field/" + form, folder_.Path(form + "/Users/demo/Data/Bill"),
                 fs::copy_options::recursive);
        const Answer answer = Run("check --root " + Quoted(folder_.Path(form)) +
                                  " --user demo --account 103988 --from 2021-09-15 --to 2021-09-15 --format 3");
        EXPECT_EQ(answer.exit, 0) << form << answer.err;
        EXPECT_EQ(answer.out, "nothing was found\n") << form;
    }
}

TEST_F(CheckProgram, FindsADayOfTwentyFiveThatIsMissing) {
    fs::remove(PathOf("20240116"));
    EXPECT_EQ(FoundKeys(), Keys{"gap 20240116"});
    EXPECT_EQ(Run(Check()).exit, 3);
}

TEST_F(CheckProgram, FindsAFileOfNoBytes) {
    Write("20240116", "");
    EXPECT_EQ(FoundKeys(), Keys{"empty 20240116"});
}

TEST_F(CheckProgram, FindsAFileSavedAsUtf8) {
    Write("20240116", GbkToUtf8(ReadFile(PathOf("20240116"))));
    EXPECT_EQ(FoundKeys(), Keys{"encoding 20240116"});
}

TEST_F(CheckProgram, FindsAFileThatIsCutInHalf) {
    const std::string whole = ReadFile(PathOf("20240116"));
    Write("20240116", whole.substr(0, whole.size() / 2));
    EXPECT_EQ(FoundKeys(), Keys{"cut-off 20240116"});
}

TEST_F(CheckProgram, FindsTheFileOfTheDayBefore) {
    Write("20240116", ReadFile(PathOf("20240115")));
    const Keys found = FoundKeys();
    for (const char* const key : {"wrong-day 20240116", "repeated 20240116", "continuity 20240116",
                                  "continuity 20240117", "lots 20240116", "lots 20240117"}) {
        EXPECT_TRUE(found.contains(key)) << key;
    }
    EXPECT_EQ(found.size(), 6U);
}

TEST_F(CheckProgram, FindsTheFileOfAnotherAccount) {
    // An account of the same layout, whose equity would be mixed in.
    std::string text = ReadFile(PathOf("20240110"));
    text.replace(text.find("90010002"), 8, "80000007");
    Write("20240116", text);
    const Keys found = FoundKeys();
    EXPECT_TRUE(found.contains("wrong-account 20240116"));
    EXPECT_TRUE(found.contains("continuity 20240116"));
    EXPECT_TRUE(found.contains("continuity 20240117"));
}

TEST_F(CheckProgram, FindsThatTheFormatIsAnother) {
    const Json found = Findings("--format 3");
    ASSERT_EQ(found.at("findings").size(), 25U);
    for (const Json& finding : found.at("findings")) {
        EXPECT_EQ(finding.at("code"), "unrecognised");
        EXPECT_EQ(finding.at("expected"), "--format 3");
        EXPECT_EQ(finding.at("found"), "--format 1");
    }
    EXPECT_EQ(found.at("counts"), (Json{{"unrecognised", 25}}));
}

TEST_F(CheckProgram, PrintsTwentyOfACodeAndHowManyMore) {
    const Answer answer = Run(Check("--format 3"));
    EXPECT_EQ(answer.exit, 3);
    EXPECT_EQ(std::ranges::count(answer.out, '\n'), 1 + 20 + 1 + 1 + 1 + 1) << answer.out;
    EXPECT_NE(answer.out.find("\n  ... and 5 more\n"), std::string::npos);
    EXPECT_TRUE(answer.out.ends_with("\n25 errors\n"));
    EXPECT_EQ(Run(Check("--format 3 --quiet")).out, answer.out);
}

TEST_F(CheckProgram, TellsDayFileRowAndSection) {
    std::string text = ReadFile(PathOf("20240116"));
    const std::size_t fee = text.find(Utf8ToGbk("手续费:").value_or(""));
    text.replace(text.find('.', fee), 3, ".99");
    Write("20240116", text);
    const Json found = Findings();
    EXPECT_EQ(found.at("schema"), 1);
    ASSERT_EQ(found.at("findings").size(), 1U);
    const Json& finding = found.at("findings").at(0);
    EXPECT_EQ(finding.at("code"), "identity");
    EXPECT_EQ(finding.at("severity"), "error");
    EXPECT_EQ(finding.at("day"), "20240116");
    EXPECT_EQ(finding.at("file"), "D90010002.20240116o.txt");
    EXPECT_EQ(finding.at("row"), 7);
    EXPECT_EQ(finding.at("section"), "money");
    EXPECT_NE(finding.at("expected"), finding.at("found"));
    EXPECT_TRUE(finding.at("text").get<std::string>().ends_with(KindOf(FindingCode::Identity).advice));
}

TEST_F(CheckProgram, EndsWellWithNotesAlone) {
    const std::string sample = std::string(TRADEBILL_SAMPLES) + "/one-year";
    const Answer answer =
        Run("check --root " + Quoted(sample + "/root") + " --request " + Quoted(sample + "/request.ini"));
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(answer.out.starts_with("note gap: ")) << answer.out;
}

TEST_F(CheckProgram, RefusesWhatItCantDoBeforeAnythingElse) {
    EXPECT_EQ(Run(Check("--json " + Quoted(folder_.Path("no/such/folder.json")))).exit, 2);
    EXPECT_EQ(Run("check --user demo").exit, 2);
    EXPECT_EQ(Run(Check("--standalone x.html")).exit, 2);
}

TEST_F(CheckProgram, ListsAllCodes) {
    const Answer answer = Run("check --codes");
    EXPECT_EQ(answer.exit, 0);
    for (const FindingKind& kind : FindingKinds()) {
        const std::string entry = std::string(kind.name) + " (" + std::string(SeverityName(kind.severity)) + ")\n  " +
                                  std::string(kind.when) + "\n  " + std::string(kind.advice) + "\n";
        EXPECT_NE(answer.out.find(entry), std::string::npos) << kind.name;
    }
}

TEST_F(CheckProgram, RefusesARangeWithoutAnyFile) {
    const Answer answer = Run(Check("--quiet --from 2030-01-01 --to 2030-01-10"));
    EXPECT_EQ(answer.exit, 2);
    EXPECT_TRUE(Says(answer.err, "there is nothing to check")) << answer.err;
    fs::create_directories(root_ + "/Users/demo/Data/Bill/D90010002.20300102o.txt");
    EXPECT_EQ(Run(Check("--quiet --from 2030-01-01 --to 2030-01-10")).exit, 3);  // one that is no file is found
}

TEST_F(CheckProgram, IsStrictForReportsThatAskForIt) {
    const std::string report =
        "report --quiet --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini");
    EXPECT_EQ(Run(report + " --strict").exit, 0);
    fs::remove(PathOf("20240116"));
    const Answer lax = Run(report);
    EXPECT_EQ(lax.exit, 0);
    EXPECT_TRUE(Says(lax.err, "gap: 20240116")) << lax.err;
    const Answer strict = Run(report + " --strict");
    EXPECT_EQ(strict.exit, 3);
    EXPECT_EQ(strict.err, lax.err);
}

#if !defined(_WIN32)  // which has no device that is always full
TEST_F(CheckProgram, FailsIfItsJsonCantBeWritten) {
    const Answer answer = Run(Check("--quiet --json /dev/full"));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "tradebill: can't write /dev/full")) << answer.err;
}
#endif

TEST(CheckCommandLine, QuotesWhatAShellWouldTakeApart) {
    ReportOptions options;
    EXPECT_EQ(CheckCommandLine(options), "tradebill check");
    options.root = "a b";
    options.user = "";
    options.account = "it's";
    options.from = "2024-01-02";
    EXPECT_EQ(CheckCommandLine(options),
              R"(tradebill check --root 'a b' --user '' --account 'it'\''s' --from 2024-01-02)");
}

TEST(CheckCommandLine, WritesBytesThatATerminalWouldObeyAsTheirNumbers) {
    ReportOptions options;
    options.root = "it's\x1B[2J \\ \x7F";
    options.user = "\xD5\xCB~";
    EXPECT_EQ(CheckCommandLine(options), R"(tradebill check --root $'it\x27s\x1b[2J \x5c \x7f' --user $'\xd5\xcb~')");
}

TEST(ShownFindings, AreTenAndHowManyMore) {
    const auto shown = [](std::size_t count, Severity severity) {
        std::ostringstream err;
        std::streambuf* const before = std::cerr.rdbuf(err.rdbuf());
        ShowFindings(std::vector<Finding>(count, {.code = FindingCode::Gap, .severity = severity, .text = "One."}), {});
        std::cerr.rdbuf(before);
        return err.str();
    };
    const std::string line = "tradebill: warning gap: One.\n";
    const std::string last = "all of them, and what to do: tradebill check\n";
    EXPECT_EQ(shown(0, Severity::Warning), "");
    EXPECT_EQ(shown(3, Severity::Note), "");
    EXPECT_EQ(shown(1, Severity::Warning), line + "tradebill: " + last);
    std::string ten;
    for (int i = 0; i < 10; ++i) ten += line;
    EXPECT_EQ(shown(10, Severity::Warning), ten + "tradebill: " + last);
    EXPECT_EQ(shown(12, Severity::Warning), ten + "tradebill: and 2 more; " + last);
}

}  // namespace
}  // namespace tradebill::check_command_test
