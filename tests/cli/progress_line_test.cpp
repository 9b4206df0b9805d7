#include "cli/progress_line.h"

#include <gtest/gtest.h>

#include <string>

namespace tradebill::progress_line_test {
namespace {

/// What `action` shows while a progress line lives.
template <class Action>
std::string Shown(Action action) {
    testing::internal::CaptureStderr();
    {
        CProgressLine line;
        action(line);
    }
    return testing::internal::GetCapturedStderr();
}

TEST(ProgressLine, ShowsDayAndStage) {
    const std::string shown = Shown([](CProgressLine& line) {
        line.OnDay(1, 2, "20240102");
        line.OnStage("statistics");
    });
    EXPECT_NE(shown.find("day 1 of 2"), std::string::npos);
    EXPECT_NE(shown.find("20240102"), std::string::npos);
    EXPECT_NE(shown.find("statistics"), std::string::npos);
}

TEST(ProgressLine, StaysOnOneLineAndTakesItselfAway) {
    const std::string shown = Shown([](CProgressLine& line) {
        line.OnDay(1, 2, "20240102");
        line.OnDay(2, 2, "20240103");
        line.OnStage("page");
    });
    EXPECT_EQ(shown.find('\n'), std::string::npos);
    EXPECT_TRUE(shown.ends_with("\r\x1B[K"));
}

TEST(ProgressLine, ShowsTheLastDayHoweverQuick) {
    const std::string shown = Shown([](CProgressLine& line) {
        for (int day = 1; day <= 1000; ++day) line.OnDay(day, 1000, "20240102");
    });
    EXPECT_NE(shown.find("day 1000 of 1000"), std::string::npos);
    EXPECT_LT(shown.size(), 1000 * 20U);  // most days pass unseen
}

}  // namespace
}  // namespace tradebill::progress_line_test
