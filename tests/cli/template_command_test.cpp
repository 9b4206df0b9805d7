#include "cli/template_command.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "requests/usage_error.h"
#include "support/temp_folder.h"

namespace tradebill::template_command_test {
namespace {

TEST(TemplateCommand, EndsWithOneForErrorsAndZeroForWarnings) {
    const CTempFolder folder;
    const auto run = [&](const std::string& text) {
        testing::internal::CaptureStdout();
        const int exit = RunTemplateCheck({.templateFile = folder.Write("t.ini", text)});
        return std::pair(exit, testing::internal::GetCapturedStdout());
    };
    const auto [good, goodText] = run("[DEALFIELD]\nBILLFORMAT_NEWDATE=20240119\n");
    EXPECT_EQ(good, 0);
    EXPECT_NE(goodText.find(": 0 errors, 1 warning\n"), std::string::npos);
    const auto [bad, badText] = run("[DEALFIELD]\nTYPO=1\n");
    EXPECT_EQ(bad, 1);
    EXPECT_NE(badText.find("t.ini, line 2: error: unknown key TYPO"), std::string::npos);
    EXPECT_NE(badText.find(": 1 error, 1 warning\n"), std::string::npos);
    EXPECT_THROW(static_cast<void>(RunTemplateCheck({.templateFile = folder.Path("missing.ini")})), CUsageError);
}

TEST(TemplateCommand, ChecksAgainstAStatement) {
    const CTempFolder folder;
    const auto run = [](const TemplateCheckCommand& command) {
        testing::internal::CaptureStdout();
        const int exit = RunTemplateCheck(command);
        return std::pair(exit, testing::internal::GetCapturedStdout());
    };
    const std::string root = std::string(TRADEBILL_SAMPLES) + "/template-row/root";
    const std::string sample = root + "/BillTemplate/songta.ini";
    const std::string statement = root + "/Users/demo/Data/Bill/D90010012.20240129o.txt";
    EXPECT_EQ(run({.templateFile = sample, .statementFile = statement}).first, 0);
    EXPECT_EQ(run({.templateFile = sample, .statementFile = statement, .format = "201", .day = "20240129"}).first, 0);

    const std::string text =
        "[DEALFIELD]\nMONEY_MODE=9\nMATCH_RECORD=1\n[MATCH_RECORD]\nSTART_FLAG=T\nSTART_OFFSET=1\n"
        "END_FLAG=end\nEND_OFFSET=0\nDELIMITER=|\nMATCHNO=14\nTYPO=1\n";
    const std::string bad = folder.Write("bad.ini", text);
    const std::string rows = folder.Write("D1.20240102o.txt", "x\nT\n0|1|2|3|4|5|6|7|8|9|10\nend\n");
    const auto [exit, words] = run({.templateFile = bad, .statementFile = rows});
    EXPECT_EQ(exit, 1);
    const std::size_t column = words.find("bad.ini, line 10: error: MATCHNO=14: no row of [MATCH_RECORD]");
    const std::size_t typo = words.find("bad.ini, line 11: error: unknown key TYPO");
    EXPECT_LT(column, typo) << words;  // in the order of their lines
    EXPECT_NE(typo, std::string::npos) << words;
    EXPECT_NE(words.find("2 errors, 0 warnings\n"), std::string::npos) << words;

    const auto refuses = [&](const TemplateCheckCommand& command) {
        EXPECT_THROW(static_cast<void>(RunTemplateCheck(command)), CUsageError);
    };
    refuses({.templateFile = bad, .statementFile = folder.Path("missing.txt")});
    refuses({.templateFile = bad, .statementFile = rows, .format = "one"});
    refuses({.templateFile = bad, .statementFile = rows, .day = "2024"});
}

}  // namespace
}  // namespace tradebill::template_command_test
