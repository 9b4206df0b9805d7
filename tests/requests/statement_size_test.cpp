#include "requests/statement_size.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

#include "cli/program_fixture.h"
#include "requests/usage_error.h"
#include "support/shell.h"

namespace tradebill::statement_size_test {
namespace {

TEST(StatementSize, IsGivenInBytesOrWithAUnit) {
    EXPECT_EQ(StatementLimitOf(std::nullopt).mostBytes, 268435456U);
    struct Case {
        const char* text;
        std::uint64_t bytes;
    };
    for (const Case& tried : {Case{"1", 1}, Case{"4000", 4000}, Case{"1K", 1024}, Case{"512M", 536870912},
                              Case{"1G", 1073741824}, Case{"17179869183G", 18446744072635809792U}}) {
        EXPECT_EQ(StatementLimitOf(tried.text).mostBytes, tried.bytes) << tried.text;
    }
}

TEST(StatementSize, RefusesWhatIsNoSize) {
    for (const char* const text :
         {"", "0", "0M", "M", "-1", "1 M", "1m", "1MB", "1.5G", "17179869184G", "1T", "18446744073709551616", "0x10"}) {
        EXPECT_THROW(static_cast<void>(StatementLimitOf(text)), CUsageError) << text;
    }
}

class StatementSizeInProgram : public Program {
protected:
    static constexpr const char* kDay = "Users/demo/Data/Bill/D90010002.20240102o.txt";

    [[nodiscard]] std::string Day() const { return root_ + "/" + kDay; }
    /// As the option's value: a limit that the first day's statement is at, or beyond by one byte.
    [[nodiscard]] std::string AtLimit() const { return std::to_string(fs::file_size(Day())); }
    [[nodiscard]] std::string BelowLimit() const { return std::to_string(fs::file_size(Day()) - 1); }
    /// The first day's statement is the larger one of the two.
    void SetUp() override {
        const std::string other = root_ + "/Users/demo/Data/Bill/D90010002.20240103o.txt";
        const auto first = fs::file_size(Day());
        const auto second = fs::file_size(other);
        if (first <= second) fs::resize_file(Day(), second + 1);  // zero bytes, before which a statement ends
    }
    [[nodiscard]] std::string Told() const { return "larger than " + BelowLimit() + " bytes (--max-statement)"; }
};

TEST_F(StatementSizeInProgram, LeavesOutALargerStatementOfAReportAndSaysSo) {
    EXPECT_EQ(Run(Options() + " --max-statement " + AtLimit()).exit, 0);
    const Answer answer = Run(Options() + " --max-statement " + BelowLimit());
    EXPECT_EQ(answer.exit, 1);
    EXPECT_NE(answer.err.find("20240102: can't read "), std::string::npos) << answer.err;
    EXPECT_NE(answer.err.find(Told()), std::string::npos) << answer.err;
    EXPECT_NE(answer.out.find("statements read   1 "), std::string::npos) << answer.out;
}

TEST_F(StatementSizeInProgram, IsAFindingOfACheck) {
    const std::string check = "check" + Options().substr(std::string("report").size()) + " --max-statement ";
    EXPECT_EQ(Run(check + AtLimit()).out.find("unreadable"), std::string::npos);
    const Answer answer = Run(check + BelowLimit());
    EXPECT_NE(answer.exit, 0);
    EXPECT_NE(answer.out.find("error unreadable: "), std::string::npos) << answer.out;
    EXPECT_NE(answer.out.find(Told()), std::string::npos) << answer.out;
}

TEST_F(StatementSizeInProgram, HoldsForExplain) {
    const std::string explain = "explain " + Quoted(Day()) + " --format 1 --max-statement ";
    EXPECT_EQ(Run(explain + AtLimit()).exit, 0);
    const Answer answer = Run(explain + BelowLimit());
    EXPECT_EQ(answer.exit, 1);
    EXPECT_NE(answer.err.find(Told()), std::string::npos) << answer.err;
}

TEST_F(StatementSizeInProgram, HoldsForTheFormatByMarks) {
    fs::remove(root_ + "/Users/demo/Data/Bill/D90010002.20240103o.txt");
    const std::string report = Options("--format", "auto") + " --max-statement ";
    EXPECT_EQ(Run(report + AtLimit()).exit, 0);
    const Answer answer = Run(report + BelowLimit());
    EXPECT_EQ(answer.exit, 1);
    EXPECT_NE(answer.err.find(Told()), std::string::npos) << answer.err;
}

TEST_F(StatementSizeInProgram, HoldsForTheSampleOfATemplate) {
    const std::string check =
        "template check " + Quoted(folder_.Write("t.ini", "")) + " --against " + Quoted(Day()) + " --max-statement ";
    EXPECT_EQ(Run(check + AtLimit()).err.find("larger than"), std::string::npos);
    const Answer answer = Run(check + BelowLimit());
    EXPECT_EQ(answer.exit, 1);
    EXPECT_NE(answer.err.find(Told()), std::string::npos) << answer.err;
}

}  // namespace
}  // namespace tradebill::statement_size_test
