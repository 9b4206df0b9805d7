// `explain`, `layouts`, `template check` and `--format auto` as commands of the program: exit codes and outputs.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "support/gbk_text.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::explain_program_test {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

class ExplainingProgram : public testing::Test {
protected:
    Answer Run(const std::string& arguments) const { return RunProgram(folder_, arguments); }
    [[nodiscard]] Answer Explain(const std::string& file, const std::string& options) const {
        return Run("explain " + Quoted(file) + " " + options);
    }
    /// A copy of a sample's root folder.
    [[nodiscard]] std::string RootOf(const std::string& sample) const {
        fs::copy(std::string(TRADEBILL_SAMPLES) + "/" + sample + "/root", folder_.Path(sample),
                 fs::copy_options::recursive);
        fs::remove_all(folder_.Path(sample) + "/Users/demo/Data/Bill/Image");  // of a report made before
        return folder_.Path(sample);
    }
    [[nodiscard]] std::string MoneyOnly() const {
        return folder_.Write("D1.20240102o.txt",
                             Statement({"结算单", "资金状况", "---------", "客户权益: 1.00", "---------"}));
    }

    CTempFolder folder_;
};

TEST_F(ExplainingProgram, EndsWithZeroForAMoneyRecord) {
    const Answer answer = Explain(MoneyOnly(), "--format 1");
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.err, "");
    EXPECT_TRUE(Says(answer.out, "1 section found, 1 money record.\n")) << answer.out;
    EXPECT_TRUE(Says(answer.out, "D1.20240102o.txt, 5 lines\n")) << answer.out;
    EXPECT_TRUE(Says(answer.out, "Day         20240102 (the file's name)\n")) << answer.out;
}

TEST_F(ExplainingProgram, EndsWithOneForSectionsWithoutAMoneyRecord) {
    const std::string file = folder_.Write("x.txt", Statement({"结算单", "成交记录", "-", "-", "共"}));
    const Answer answer = Explain(file, "--format 1 --day 20240102");
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err, "");
    EXPECT_TRUE(Says(answer.out, "1 section found, but no money record")) << answer.out;
    EXPECT_TRUE(Says(answer.out, "Day         20240102 (--day)\n")) << answer.out;
}

TEST_F(ExplainingProgram, EndsWithThreeIfNothingWasRecognised) {
    const Answer empty = Explain(folder_.Write("empty.txt", ""), "--format 1");
    EXPECT_EQ(empty.exit, 3);
    EXPECT_EQ(empty.err, "");
    EXPECT_TRUE(Says(empty.out, "Nothing was recognised.\n")) << empty.out;
    const Answer other = Explain(MoneyOnly(), "--format 6");
    EXPECT_EQ(other.exit, 3);
    EXPECT_TRUE(Says(other.out, "This looks like --format 1.\n")) << other.out;
    std::string rubbish;
    for (unsigned i = 0; i < 20000; ++i) rubbish.push_back(static_cast<char>(1 + (i * 2654435761U >> 13) % 255));
    for (const std::string options : {"--format 0", "--format 3", "--format 201", "--kind foreign"}) {
        EXPECT_EQ(Explain(folder_.Write("rubbish.txt", rubbish), options).exit, 3) << options;
    }
}

TEST_F(ExplainingProgram, RefusesWrongUse) {
    const std::string file = MoneyOnly();
    EXPECT_TRUE(IsWrongUse(Run("explain"), "FILE"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format"), "--format"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format 5"), "--format"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format 1x"), "--format"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format -1"), "--format"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format ''"), "--format"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format 1 --kind both"), "--kind"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format 1 --day yesterday"), "--day"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format 1 --day 2024-13-02"), "--day"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format 1 --day 2024010"), "--day"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format 1 --day 202401021"), "--day"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format 1 --template " + Quoted(folder_.Path("no.ini"))), "--template"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format 1 --template " + Quoted(folder_.Path())), "--template"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "--format 1 --colour"), "--colour"));
    EXPECT_TRUE(IsWrongUse(Explain(file, "more --format 1"), "more"));
}

TEST_F(ExplainingProgram, RefusesADayThatIsNoDate) {
    const std::string file = MoneyOnly();
    for (const std::string day : {"20241301", "20240132", "20240001", "20240100", "99999999", "00000000"}) {
        EXPECT_TRUE(IsWrongUse(Explain(file, "--format 1 --day " + day), "--day")) << day;
    }
    EXPECT_EQ(Explain(file, "--format 1 --day 20241231").exit, 0);
}

TEST_F(ExplainingProgram, RefusesFilesThatCannotBeRead) {
    EXPECT_TRUE(IsWrongUse(Explain(folder_.Path("missing.txt"), "--format 1"), "missing.txt"));
    EXPECT_TRUE(IsWrongUse(Explain(folder_.Path(), "--format 1"), folder_.Path()));
    EXPECT_TRUE(IsWrongUse(Explain(kNullDevice, "--format 1"), kNullDevice));
    EXPECT_TRUE(IsWrongUse(Explain(folder_.Path("missing.txt"), "--format auto"), "missing.txt"));
    EXPECT_FALSE(fs::exists(folder_.Path("missing.txt")));
}

TEST_F(ExplainingProgram, PrintsJsonForPrograms) {
    const Answer answer = Explain(MoneyOnly(), "--format 1 --json");
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.err, "");
    EXPECT_TRUE(answer.out.ends_with("}\n"));
    const Json json = Json::parse(answer.out);
    EXPECT_EQ(json.at("day"), "20240102");
    EXPECT_EQ(json.at("money_records"), 1);
    EXPECT_EQ(json.at("exit"), 0);
    const Answer nothing = Explain(MoneyOnly(), "--format 6 --json");
    EXPECT_EQ(nothing.exit, 3);
    EXPECT_EQ(Json::parse(nothing.out).at("exit"), 3);
    EXPECT_EQ(Json::parse(nothing.out).at("looks_like"), (Json{"--format 1"}));
}

#if !defined(_WIN32)  // where no file may be called so
TEST_F(ExplainingProgram, PrintsJsonOfAFileWithAnOddName) {
    const std::string file = folder_.Write("\xFF\"\\.txt", ReadFile(MoneyOnly()));
    const Answer answer = Explain(file, "--format 1 --json");
    EXPECT_EQ(answer.exit, 0);
    EXPECT_TRUE(Json::accept(answer.out)) << answer.out;
}
#endif

TEST_F(ExplainingProgram, LeavesTheStatementAlone) {
    const std::string file = MoneyOnly();
    const std::string before = ReadFile(file);
    ASSERT_EQ(Explain(file, "--format 1").exit, 0);
    EXPECT_EQ(ReadFile(file), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator()), 3);  // and two outputs
}

TEST_F(ExplainingProgram, ListsItsOptions) {
    const Answer answer = Run("explain --help");
    EXPECT_EQ(answer.exit, 0);
    for (const char* const option : {"FILE", "--format", "--kind", "--template", "--day", "--json", "auto"}) {
        EXPECT_TRUE(Says(answer.out, option)) << option;
    }
    const Answer all = Run("--help");
    for (const char* const command : {"report", "explain", "layouts", "template"}) {
        EXPECT_TRUE(Says(all.out, command)) << command;
    }
}

TEST_F(ExplainingProgram, ListsLayouts) {
    const Answer answer = Run("layouts");
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.err, "");
    EXPECT_TRUE(Says(answer.out, "客户帐单_资金清单")) << answer.out;
    EXPECT_TRUE(IsWrongUse(Run("layouts all"), "all"));
}

TEST_F(ExplainingProgram, ChecksTemplates) {
    const std::string good = folder_.Write("good.ini", "[DEALFIELD]\nBILLFORMAT_NEWDATE=20240119\n");
    const std::string bad = folder_.Write("bad.ini", "[DEALFIELD]\nMONEY_MODE=9\nMATCH_RECORD=1\n");
    const Answer checked = Run("template check " + Quoted(bad));
    EXPECT_EQ(checked.exit, 1);
    EXPECT_EQ(checked.err, "");
    EXPECT_TRUE(Says(checked.out, "bad.ini, line 3: error: ")) << checked.out;
    EXPECT_EQ(Run("template check " + Quoted(good)).exit, 0);
    EXPECT_TRUE(IsWrongUse(Run("template check " + Quoted(folder_.Path("no.ini"))), "no.ini"));
    EXPECT_TRUE(IsWrongUse(Run("template check " + Quoted(folder_.Path())), "template file"));
    EXPECT_TRUE(IsWrongUse(Run("template check"), "FILE"));
    EXPECT_TRUE(IsWrongUse(Run("template check " + Quoted(good) + " --format 1"), "--against"));
    EXPECT_TRUE(IsWrongUse(Run("template check " + Quoted(good) + " --against no.txt"), "no.txt"));
    EXPECT_EQ(Run("template check " + Quoted(good) + " --against " + Quoted(MoneyOnly())).exit, 0);
    EXPECT_TRUE(Says(Run("template check --help").out, "(default: 201 if open positions hold both sides"));
    EXPECT_TRUE(IsWrongUse(Run("template"), "a command"));
}

TEST_F(ExplainingProgram, ReportsByTheMarksAsByTheNumber) {
    const std::string options = " --user demo --account 90010007 --from 2024-01-02 --to 2024-01-05";
    const std::string root = RootOf("spaced-title");
    const std::string page = root + "/Users/demo/Data/Bill/Image/TradeBill.html";
    const Answer numbered = Run("report --root " + Quoted(root) + options + " --format 6");
    ASSERT_EQ(numbered.exit, 0) << numbered.err;
    const std::string expected = ReadFile(page);
    fs::remove(page);
    const Answer picked = Run("report --root " + Quoted(root) + options + " --format auto");
    EXPECT_EQ(picked.exit, 0);
    EXPECT_TRUE(Says(picked.err, "format 6 (spaced-title)")) << picked.err;
    EXPECT_TRUE(Says(picked.err, "D90010007.20240102o.txt")) << picked.err;
    EXPECT_EQ(ReadFile(page), expected);
    EXPECT_EQ(picked.out, numbered.out);
}

TEST_F(ExplainingProgram, RefusesAReportWhoseFormatCannotBeTold) {
    const std::string root = RootOf("foreign");
    const std::string options = " --user demo --account 60010001 --from 2024-01-02 --to 2024-01-05 --format auto";
    EXPECT_TRUE(IsWrongUse(Run("report --root " + Quoted(root) + options), "no statement was found"));
    EXPECT_EQ(Run("report --quiet --root " + Quoted(root) + options + " --kind foreign").exit, 0);
    const std::string by = RootOf("template-row");
    const std::string row = " --user demo --account 90010012 --from 2024-01-02 --to 2024-01-05 --format auto";
    EXPECT_TRUE(IsWrongUse(Run("report --root " + Quoted(by) + row + " --template songta"), "no layout's mark"));
    EXPECT_FALSE(fs::exists(by + "/Users/demo/Data/Bill/Image/TradeBill.html"));
}

}  // namespace
}  // namespace tradebill::explain_program_test
