#include "cli/awaited_work.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace tradebill::awaited_work_test {
namespace {

/// What `action` shows of work where standard error is a file.
template <class Action>
std::string Shown(bool quiet, CAwaitedWork::Duration longWork, Action action) {
    testing::internal::CaptureStderr();
    {
        CAwaitedWork work(quiet, longWork);
        action(work);
    }
    return testing::internal::GetCapturedStderr();
}

void DoAll(CAwaitedWork& work) {
    for (int day = 1; day <= 1000; ++day) work.OnDay(day, 1000, "20240102");
    work.OnStage("statistics");
    work.BeginStep("files", 1, 1);
    work.BeginFile("one.json");
}

constexpr CAwaitedWork::Duration kAnHour = std::chrono::hours(1);
constexpr CAwaitedWork::Duration kNothing{};

TEST(AwaitedWork, IsSilentInAFileAsLongAsItIsShort) {
    EXPECT_EQ(Shown(false, kAnHour, DoAll), "");
}

TEST(AwaitedWork, HasPlainLinesInAFileOnceItIsLong) {
    const std::string shown = Shown(false, kNothing, [](CAwaitedWork& work) {
        DoAll(work);
        work.OnDay(3, 4, "20240105");
    });
    EXPECT_EQ(shown,
              "tradebill: reading day 1 of 1000  20240102\n"  // and then none of the days for five seconds
              "tradebill: statistics ...\n"
              "tradebill: one.json ...\n");
}

TEST(AwaitedWork, IsSilentIfQuiet) {
    EXPECT_EQ(Shown(true, kNothing, DoAll), "");
}

}  // namespace
}  // namespace tradebill::awaited_work_test
