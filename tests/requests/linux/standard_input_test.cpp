// Statements and requests that come on standard input.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/linux/redirected_program.h"
#include "platform/local_time.h"
#include "support/gbk_text.h"

namespace tradebill::linux_standard_input_test {
namespace {

class StandardInput : public RedirectedProgram {
protected:
    /// Runs the program with a file as its input, and with a pipe that holds the same; both must come to one.
    [[nodiscard]] Answer RunOn(const std::string& input, const std::string& arguments) const {
        const std::string file = folder_.Write("input", input);
        const Answer fromFile{RunTo(">out <input", arguments), ReadFile(folder_.Path("out")), Messages()};
        const int exit = RunShell("cd " + Quoted(folder_.Path()) + " && cat input | " + Quoted(TRADEBILL_PROGRAM) +
                                  " " + arguments + " >piped_out 2>piped_err");
        EXPECT_EQ(exit, fromFile.exit) << arguments;
        EXPECT_EQ(ReadFile(folder_.Path("piped_out")), fromFile.out) << arguments;
        EXPECT_EQ(ReadFile(folder_.Path("piped_err")), fromFile.err) << arguments;
        return fromFile;
    }
    [[nodiscard]] std::string StatementFile() const { return root_ + "/Users/demo/Data/Bill/D90010002.20240104o.txt"; }
};

TEST_F(StandardInput, IsExplainedLikeAFile) {
    const std::string file = StatementFile();
    std::string expected = Run("explain " + Quoted(file) + " --format 1").out;
    ASSERT_TRUE(Says(expected, file + ", "));
    expected.replace(expected.find(file), file.size(), "standard input");
    const std::string source = "(the file's name)";
    ASSERT_TRUE(Says(expected, source));
    expected.replace(expected.find(source), source.size(), "(--day)");
    const Answer answer = RunOn(ReadFile(file), "explain - --format 1 --day 20240104");
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.out, expected);
    EXPECT_EQ(answer.err, "");
}

TEST_F(StandardInput, IsOfTodayUnlessADayIsSaid) {
    const std::string before = DayText(LocalDayOf(PresentTime()));
    const Answer answer = RunOn(ReadFile(StatementFile()), "explain - --format auto");
    const std::string after = DayText(LocalDayOf(PresentTime()));
    EXPECT_EQ(answer.exit, 0);
    const auto isToday = [&](const std::string& day) {
        return Says(answer.out, "Day         " + day + " (today; --day says another)\n");
    };
    EXPECT_TRUE(isToday(before) || isToday(after)) << answer.out;
    const Answer json = RunOn(ReadFile(StatementFile()), "explain - --format auto --json");
    EXPECT_EQ(nlohmann::json::parse(json.out).at("file"), "standard input");
    EXPECT_EQ(nlohmann::json::parse(json.out).at("day_from"), "today");
}

TEST_F(StandardInput, IsOneSideOfADifference) {
    folder_.Write("b.json", R"({"schema":1})");
    const Answer left = RunOn(R"({"schema":1,"x":1})", "diff - b.json");
    EXPECT_EQ(left.exit, 3) << left.err;
    EXPECT_EQ(left.out, "x: only in standard input\n1 difference\n");
    const Answer right = RunOn(R"({"schema":1,"x":1})", "diff b.json -");
    EXPECT_EQ(right.exit, 3) << right.err;
    EXPECT_EQ(right.out, left.out);
}

TEST_F(StandardInput, IsNoLargerThanAStatementMayBe) {
    const std::string text = ReadFile(StatementFile());
    const std::string explain = "explain - --format 1 --day 20240104 --max-statement ";
    EXPECT_EQ(RunOn(text, explain + std::to_string(text.size())).exit, 0);
    const std::string most = std::to_string(text.size() - 1);
    const Answer answer = RunOn(text, explain + most);
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err, "tradebill: can't read standard input: larger than " + most + " bytes (--max-statement)\n");
}

TEST_F(StandardInput, EndsAStatementAtAZeroByteAsAFileDoes) {
    const std::string text = ReadFile(StatementFile()) + std::string(1, '\0') + "more\r\nlines\r\n";
    const std::string file = folder_.Write("zero.txt", text);
    const Answer expected = Run("explain " + Quoted(file) + " --format 1 --day 20240104 --json");
    const Answer answer = RunOn(text, "explain - --format 1 --day 20240104 --json");
    EXPECT_EQ(nlohmann::json::parse(answer.out).at("lines"), nlohmann::json::parse(expected.out).at("lines"));
}

TEST_F(StandardInput, IsNamedWhereItIsWrong) {
    EXPECT_TRUE(IsWrongUse(RunOn("no statement", "explain - --format auto"), "standard input"));
    EXPECT_EQ(RunOn("", "explain - --format 1").exit, 3);
    const std::string root = " --root " + Quoted(root_);
    EXPECT_TRUE(IsWrongUse(RunOn("[REQUEST]\nacount=1\n", "report --request -" + root), "standard input, line 2"));
    EXPECT_TRUE(IsWrongUse(RunOn("[REQUEST]\n\nnonsense\n", "report --request -" + root), "standard input, line 3"));
    EXPECT_TRUE(IsWrongUse(RunOn("[OTHER]\n", "report --request -" + root), "standard input: expected a section"));
    EXPECT_TRUE(IsWrongUse(RunOn("", "report --request -" + root), "standard input"));
}

TEST_F(StandardInput, IsRefusedIfItIsClosed) {
    for (const std::string call : {"explain - --format 1", "report --request -"}) {
        const int exit = RunTo(">out <&-", call);
        EXPECT_EQ(exit, 1) << call;
        EXPECT_EQ(ReadFile(folder_.Path("out")), "") << call;
        EXPECT_EQ(Messages(), "tradebill: can't read standard input: Bad file descriptor\n") << call;
    }
}

TEST_F(StandardInput, HoldsARequest) {
    const std::string request = ReadFile(sample_ + "/request.ini");
    const Answer expected = Run(Report());
    ASSERT_EQ(expected.exit, 0);
    const std::string page = ReadFile(PageFile());
    fs::remove(PageFile());
    const Answer answer = RunOn(request, "report --root " + Quoted(root_) + " --request -");
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.out, expected.out);
    EXPECT_EQ(ReadFile(PageFile()), page);
    const std::string chart =
        "chart equity --root " + Quoted(root_) + " --request - -o " + Quoted(folder_.Path("c.png"));
    EXPECT_EQ(RunOn(request, chart).exit, 0);
    EXPECT_TRUE(fs::exists(folder_.Path("c.png")));
}

TEST_F(StandardInput, LeavesFilesOfItsNameToTheirPath) {
    folder_.Write("-", ReadFile(StatementFile()));
    EXPECT_EQ(RunTo(">out </dev/null", "explain ./- --format 1"), 0) << Messages();
    folder_.Write("-", ReadFile(sample_ + "/request.ini"));
    EXPECT_EQ(RunTo(">out </dev/null", "report --root " + Quoted(root_) + " --request ./-"), 0) << Messages();
}

}  // namespace
}  // namespace tradebill::linux_standard_input_test
