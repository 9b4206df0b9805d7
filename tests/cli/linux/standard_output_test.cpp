// What is printed gets out, or the program says that it didn't.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli/linux/redirected_program.h"

namespace tradebill::linux_standard_output_test {
namespace {

const std::string kRefusal = "tradebill: can't write to standard output\n";

class StandardOutput : public RedirectedProgram {
protected:
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
