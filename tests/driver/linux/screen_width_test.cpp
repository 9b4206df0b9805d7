#include <gtest/gtest.h>

#include <cstdint>

#include "driver/host_module.h"
#include "driver/report_request.h"

namespace tradebill::linux_screen_width_test {
namespace {

TEST(ScreenWidth, IsWhatTheHostSays) {
    struct Case {
        std::int32_t said;
        std::int32_t width;
    };
    for (const Case& tried : {Case{2560, 2560}, Case{0, 1920}, Case{1, 1}, Case{-5, 1920}}) {
        SetScreenWidth(tried.said);
        EXPECT_EQ(TheModule().ReportForRun().ScreenWidth, tried.width) << tried.said;
    }
}

}  // namespace
}  // namespace tradebill::linux_screen_width_test
