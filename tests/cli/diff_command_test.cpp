// The command `diff`: what it prints, and how it ends.
#include "cli/diff_command.h"

#include <gtest/gtest.h>

#include <string>

#include "cli/cli_fixture.h"
#include "requests/input_file.h"
#include "requests/usage_error.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::diff_command_test {
namespace {

class Diff : public testing::Test {
protected:
    std::string Put(const std::string& name, const std::string& members) const {
        return folder_.Write(name, R"({"schema":1)" + members + "}");
    }
    Answer Run() {
        testing::internal::CaptureStdout();
        Answer answer{};
        try {
            answer.exit = RunDiffCommand(command_);
        } catch (...) {
            testing::internal::GetCapturedStdout();
            throw;
        }
        answer.out = testing::internal::GetCapturedStdout();
        return answer;
    }

    CTempFolder folder_;
    DiffCommand command_;
};

TEST_F(Diff, EndsWithNothingToTellOfTheSame) {
    command_.left = Put("a.json", R"(,"x":1)");
    command_.right = Put("b.json", R"(, "x" : 1.0)");
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.out, "no differences\n");
}

TEST_F(Diff, PrintsEachDifferenceAndTheirNumber) {
    command_.left = Put("a.json", R"(,"x":1,"y":"a\u001b")");
    command_.right = Put("b.json", R"(,"x":2,"z":1)");
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 3);
    EXPECT_EQ(answer.out,
              "x: 1 -> 2\ny: only in " + command_.left + "\nz: only in " + command_.right + "\n3 differences\n");
}

TEST_F(Diff, CountsOneDifferenceAsOne) {
    command_.left = Put("a.json", R"(,"x":1)");
    command_.right = Put("b.json", R"(,"x":2)");
    EXPECT_EQ(Run().out, "x: 1 -> 2\n1 difference\n");
}

TEST_F(Diff, PrintsTwentyOfABlockUnlessAllAreWanted) {
    for (const int count : {20, 21}) {
        std::string rows;
        for (int i = 0; i < count; ++i) rows += (i == 0 ? "" : ",") + std::to_string(i);
        command_.left = Put("a.json", ",\"x\":[" + rows + "],\"y\":1");
        command_.right = Put("b.json", R"(,"x":[],"y":2)");
        command_.showsAll = false;
        const Answer answer = Run();
        EXPECT_EQ(answer.exit, 3);
        EXPECT_EQ(Says(answer.out, "and 1 more in x (--all shows them)\ny: 1 -> 2\n"), count == 21) << answer.out;
        EXPECT_EQ(Says(answer.out, "x[20]: only in"), false);
        command_.showsAll = true;
        EXPECT_EQ(Says(Run().out, "x[20]: only in"), count == 21);
    }
}

TEST_F(Diff, PrintsNothingIfQuiet) {
    command_.left = Put("a.json", R"(,"x":1)");
    command_.right = Put("b.json", R"(,"x":2)");
    command_.quiet = true;
    EXPECT_EQ(Run().out, "");
    EXPECT_EQ(Run().exit, 3);
    command_.right = command_.left;
    EXPECT_EQ(Run().out, "");
    EXPECT_EQ(Run().exit, 0);
}

TEST_F(Diff, RefusesWhatIsNoReportOfItsSchema) {
    command_.left = Put("a.json", "");
    const auto error = [this] { return UsageErrorOf([this] { return Run().exit; }); };
    command_.right = folder_.Write("b.json", "{\"schema\": 2}");
    EXPECT_EQ(error(), command_.right + ": expected the JSON of a report, schema 1, but it is of schema 2");
    command_.right = folder_.Write("b.json", "no JSON");
    EXPECT_PRED2(IsClearLine, error(), command_.right);
    command_.right = folder_.Path("none.json");
    EXPECT_PRED2(IsClearLine, error(), command_.right);
    command_.right = folder_.Path();
    EXPECT_PRED2(IsClearLine, error(), command_.right);
}

TEST_F(Diff, TakesStandardInputForOneOfTheTwo) {
    command_.left = command_.right = "-";
    EXPECT_PRED2(IsClearLine, UsageErrorOf([this] { return Run().exit; }), "standard input");
}

}  // namespace
}  // namespace tradebill::diff_command_test
