// What is printed gets out, or the program says that it didn't.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "cli/batch_worker.h"
#include "cli/command_table.h"
#include "cli/completion_command.h"
#include "cli/linux/redirected_program.h"
#include "cli/manual_command.h"

namespace tradebill::linux_standard_output_test {
namespace {

const std::string kRefusal = "tradebill: can't write to standard output\n";

class StandardOutput : public RedirectedProgram {
protected:
    /// A call of each command that prints, by the command's name as it is called; but for the gallery, which paints for
    /// seconds first.
    [[nodiscard]] std::map<std::string, std::string> CallsOfCommands() const {
        const std::string bad = folder_.Write("bad.ini", "[DEALFIELD]\nMONEY_MODE=9\n");
        const std::string run = Quoted(folder_.Write("run.json", R"({"schema": 1, "money": {"ClosingEquity": 1}})"));
        return {{"layouts", "layouts"},
                {"completion", "completion bash"},
                {"report", Report()},
                {"check", "check " + Request()},
                {"diff", "diff " + run + " " + run},
                {"import", "import " + Quoted(Statement()) + " --root " + Quoted(folder_.Path("new")) + " --user me"},
                {"export", "export --csv " + Quoted(folder_.Path("tables")) + " " + Request()},
                {"explore", "explore -o " + Quoted(folder_.Path("explored.html")) + " " + Request()},
                {"batch", "batch --discover --root " + Quoted(root_) + " --out " + Quoted(folder_.Path("batch"))},
                {"batch-merge", "batch-merge --out " + Quoted(TwoTasks())},
                {"explain", "explain " + Quoted(Statement()) + " --format 1"},
                {"template check", "template check " + Quoted(bad)},
                {"anonymise", "anonymise " + Quoted(root_) + " --out " + Quoted(folder_.Path(NextCopy()))}};
    }
    /// A folder with what two tasks of a batch have left, which had no account to make.
    [[nodiscard]] std::string TwoTasks() const {
        const std::string tasks = folder_.Path("tasks");
        fs::create_directories(tasks);
        for (const char* const task : {"-1-of-2", "-2-of-2"}) {
            std::ofstream(tasks + "/results" + task + ".jsonl");
            std::ofstream(tasks + "/batch" + task + ".json") << R"({"accounts":0,"today":"2024-01-05","version":"0"})";
        }
        return tasks;
    }
    /// A folder's name that no call has had: a copy needs a new place.
    [[nodiscard]] std::string NextCopy() const { return "copy" + std::to_string(++copies_); }
    [[nodiscard]] std::vector<std::string> PrintingCalls() const {
        std::vector<std::string> calls = {"--help", "--version", "template --help", "check --codes",
                                          "explain " + Quoted(Statement()) + " --format 1 --json"};
        for (const auto& [name, call] : CallsOfCommands()) {
            calls.push_back(call);
            calls.push_back(name + " --help");
        }
        return calls;
    }
    [[nodiscard]] std::string Request() const {
        return "--root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini");
    }
    [[nodiscard]] std::string Statement() const { return root_ + "/Users/demo/Data/Bill/D90010002.20240104o.txt"; }

private:
    mutable int copies_ = 0;
};

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

TEST_F(StandardOutput, IsMissedWhereAnOptionNamesItToo) {
    for (const std::string& call : {Report("--json -"), Report("--standalone -"), Report("--explore -"),
                                    "check --json - " + Request(), "chart equity -o - " + Request()}) {
        EXPECT_EQ(RunTo(">/dev/full", call), 1) << call;
        EXPECT_TRUE(Says(Messages(), "tradebill: can't write standard output\n")) << call << Messages();
    }
}

// A command that is added has a call above, unless it prints nothing.
TEST_F(StandardOutput, IsTriedWithEveryCommandThatPrints) {
    const auto calls = CallsOfCommands();
    for (const Command& command : Commands()) {
        const std::string name =
            (command.group.empty() ? "" : std::string(command.group) + " ") + std::string(command.name);
        const bool isApart = name == "chart" || name == "reset" || name == "gallery" || name == kWorkerCommand ||
                             name == kCompleteCommand || name == kManualCommand;
        EXPECT_EQ(calls.contains(name), !isApart) << name;
    }
    EXPECT_EQ(RunTo(">/dev/full", "reset page.html"), 0) << Messages();
}

TEST_F(StandardOutput, TakesNoMoreThanAFileMayHold) {
    const std::string calls[] = {Report("--json j.json --out o"), "reset page.html",
                                 "chart equity -o c.png --size 900x900 " + Request()};
    for (const std::string& call : calls) {
        EXPECT_EQ(RunShell("cd " + Quoted(folder_.Path()) + " && ulimit -f 0 && " + Quoted(TRADEBILL_PROGRAM) + " " +
                           call + " >/dev/null 2>/dev/null"),
                  1)
            << call;
    }
    for (const auto& entry : fs::recursive_directory_iterator(folder_.Path())) {
        EXPECT_NE(entry.path().extension(), ".part") << entry.path();
    }
}

TEST_F(StandardOutput, IsntMissedIfNothingIsPrinted) {
    EXPECT_EQ(RunTo(">&-", Report("--quiet")), 0) << Messages();
    EXPECT_EQ(RunTo(">/dev/full", Report("--quiet")), 0) << Messages();
    EXPECT_TRUE(IsWrongUse({RunTo(">&-", "explode"), "", Messages()}, "explode"));
}

TEST_F(StandardOutput, MayGoWithTheOtherStreams) {
    EXPECT_EQ(RunShell(Quoted(TRADEBILL_PROGRAM) + " layouts >&- 2>&- <&-"), 1);
    EXPECT_EQ(RunShell(Quoted(TRADEBILL_PROGRAM) + " " + Report() + " >" + Quoted(folder_.Path("out")) + " 2>&- <&-"),
              0);
    EXPECT_TRUE(ReadFile(folder_.Path("out")).starts_with("Report from"));
}

// As `explain FILE | head -1` may: no words, but no success either.
TEST_F(StandardOutput, EndsQuietlyWithoutItsReader) {
    EXPECT_EQ(RunWithoutReader({"explain", Statement(), "--format", "1"}), 1);
    EXPECT_EQ(Messages(), "");
    EXPECT_EQ(RunWithoutReader({"layouts"}), 1);
    EXPECT_EQ(Messages(), "");
}

TEST_F(StandardOutput, LetsAReportBeFinishedWithoutItsReader) {
    EXPECT_EQ(RunWithoutReader({"report", "--root", root_, "--request", sample_ + "/request.ini"}), 1);
    EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
}

}  // namespace
}  // namespace tradebill::linux_standard_output_test
