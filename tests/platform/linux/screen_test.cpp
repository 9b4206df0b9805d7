#include "platform/screen.h"

#include <gtest/gtest.h>

#include "driver/report_request.h"

namespace tradebill {
namespace {

TEST(Screen, IsAsWideAsTheHostSays) {
    EXPECT_EQ(ScreenWidth(), 1920);
    SetScreenWidth(2560);
    EXPECT_EQ(ScreenWidth(), 2560);
    SetScreenWidth(0);
    EXPECT_EQ(ScreenWidth(), 1920);
    SetScreenWidth(1);
    EXPECT_EQ(ScreenWidth(), 1);
    SetScreenWidth(-5);
    EXPECT_EQ(ScreenWidth(), 1920);
}

}  // namespace
}  // namespace tradebill
