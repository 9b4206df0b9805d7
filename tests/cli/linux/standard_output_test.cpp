// What is printed gets out, or the program says that it didn't.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>
#include <vector>

#include "cli/program_fixture.h"

namespace tradebill::linux_standard_output_test {
namespace {

const std::string kRefusal = "tradebill: can't write to standard output\n";

class StandardOutput : public Program {
protected:
    /// Runs the program with `redirections` of the shell; its messages are in Messages().
    [[nodiscard]] int RunTo(const std::string& redirections, const std::string& arguments) const {
        return RunShell(Quoted(TRADEBILL_PROGRAM) + " " + arguments + " 2>" + Quoted(folder_.Path("err")) + " " +
                        redirections);
    }
    [[nodiscard]] std::string Messages() const { return ReadFile(folder_.Path("err")); }

    /// One call of every command that prints; but for the gallery, which paints for seconds first.
    [[nodiscard]] std::vector<std::string> PrintingCalls() const {
        return {"--help",
                "--version",
                "layouts",
                "report --help",
                Report(),
                "explain " + Quoted(Statement()) + " --format 1",
                "explain " + Quoted(Statement()) + " --format 1 --json",
                "template check " + Quoted(folder_.Write("bad.ini", "[DEALFIELD]\nMONEY_MODE=9\n"))};
    }
    [[nodiscard]] std::string Statement() const { return root_ + "/Users/demo/Data/Bill/D90010002.20240104o.txt"; }
};

/// Runs the program with its output in a pipe that nobody reads any more. -1 if it didn't end by itself.
int RunWithoutReader(std::vector<std::string> arguments, const std::string& err) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return -1;
    ::close(ends[0]);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    std::string program = TRADEBILL_PROGRAM;
    std::vector<char*> words{program.data()};
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    pid_t child = 0;
    const int failure = ::posix_spawn(&child, program.c_str(), &actions, nullptr, words.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    int status = -1;
    if (failure != 0 || ::waitpid(child, &status, 0) != child) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(StandardOutput, IsMissedByEveryCommandIfItIsFull) {
    for (const std::string& call : PrintingCalls()) {
        EXPECT_EQ(RunTo(">/dev/full", call), 1) << call;
        EXPECT_EQ(Messages(), kRefusal) << call;
    }
}

TEST_F(StandardOutput, IsMissedByEveryCommandIfItIsClosed) {
    for (const std::string& call : PrintingCalls()) {
        EXPECT_EQ(RunTo(">&-", call), 1) << call;
        EXPECT_EQ(Messages(), kRefusal) << call;
    }
}

TEST_F(StandardOutput, IsntMissedIfNothingIsPrinted) {
    EXPECT_EQ(RunTo(">&-", Report("--quiet")), 0) << Messages();
    EXPECT_EQ(RunTo(">/dev/full", Report("--quiet")), 0) << Messages();
    EXPECT_TRUE(IsWrongUse({RunTo(">&-", "explode"), "", Messages()}, "subcommand"));
}

TEST_F(StandardOutput, MayGoWithTheOtherStreams) {
    EXPECT_EQ(RunShell(Quoted(TRADEBILL_PROGRAM) + " layouts >&- 2>&- <&-"), 1);
    EXPECT_EQ(RunShell(Quoted(TRADEBILL_PROGRAM) + " " + Report() + " >" + Quoted(folder_.Path("out")) + " 2>&- <&-"),
              0);
    EXPECT_TRUE(ReadFile(folder_.Path("out")).starts_with("Report from"));
}

// As `explain FILE | head -1` may: no words, but no success either.
TEST_F(StandardOutput, EndsQuietlyWithoutItsReader) {
    const std::string err = folder_.Path("err");
    EXPECT_EQ(RunWithoutReader({"explain", Statement(), "--format", "1"}, err), 1);
    EXPECT_EQ(Messages(), "");
    EXPECT_EQ(RunWithoutReader({"layouts"}, err), 1);
    EXPECT_EQ(Messages(), "");
}

TEST_F(StandardOutput, LetsAReportBeFinishedWithoutItsReader) {
    EXPECT_EQ(RunWithoutReader({"report", "--root", root_, "--request", sample_ + "/request.ini"}, folder_.Path("err")),
              1);
    EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
}

}  // namespace
}  // namespace tradebill::linux_standard_output_test
