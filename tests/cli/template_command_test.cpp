#include "cli/template_command.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "cli/usage_error.h"
#include "support/temp_folder.h"

namespace tradebill::template_command_test {
namespace {

TEST(TemplateCommand, EndsWithOneForErrorsAndZeroForWarnings) {
    const CTempFolder folder;
    const auto run = [&](const std::string& text) {
        testing::internal::CaptureStdout();
        const int exit = RunTemplateCheck(folder.Write("t.ini", text));
        return std::pair(exit, testing::internal::GetCapturedStdout());
    };
    const auto [good, goodText] = run("[DEALFIELD]\nBILLFORMAT_NEWDATE=20240119\n");
    EXPECT_EQ(good, 0);
    EXPECT_NE(goodText.find(": 0 errors, 1 warning\n"), std::string::npos);
    const auto [bad, badText] = run("[DEALFIELD]\nTYPO=1\n");
    EXPECT_EQ(bad, 1);
    EXPECT_NE(badText.find("t.ini, line 2: error: unknown key TYPO"), std::string::npos);
    EXPECT_NE(badText.find(": 1 error, 1 warning\n"), std::string::npos);
    EXPECT_THROW(static_cast<void>(RunTemplateCheck(folder.Path("missing.ini"))), CUsageError);
}

}  // namespace
}  // namespace tradebill::template_command_test
