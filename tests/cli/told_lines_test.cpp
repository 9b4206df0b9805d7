#include "cli/told_lines.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>
#include <vector>

namespace tradebill::told_lines_test {
namespace {

using Lines = std::vector<std::string>;

TEST(ToldLines, AreFailuresAndWarningsWithoutTheProgramsName) {
    CToldLines told;
    std::cerr << "tradebill: can't read a\ntradebill: warning: b: c\nbare\n\ntradebill: " << std::flush;
    const CToldLines::Lines lines = told.Take();
    EXPECT_EQ(lines.failures, (Lines{"can't read a", "bare"}));
    EXPECT_EQ(lines.warnings, (Lines{"b: c"}));
    EXPECT_TRUE(told.Take().failures.empty());
}

TEST(ToldLines, EndWithTheirTaker) {
    testing::internal::CaptureStderr();
    {
        const CToldLines told;
        std::cerr << "kept\n";
    }
    std::cerr << "told\n";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "told\n");
}

}  // namespace
}  // namespace tradebill::told_lines_test
