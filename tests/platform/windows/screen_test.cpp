#include "platform/screen.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace tradebill {
namespace {

TEST(WindowsScreen, IsAsWideAsTheDisplayUntilSomethingElseIsSet) {
    const HDC display = ::CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
    const int width = ::GetDeviceCaps(display, HORZRES);
    ::DeleteDC(display);
    ASSERT_GT(width, 0);
    EXPECT_EQ(ScreenWidth(), width);
    SetScreenWidthPixels(2560);
    EXPECT_EQ(ScreenWidth(), 2560);
    SetScreenWidthPixels(-5);
    EXPECT_EQ(ScreenWidth(), width);
}

}  // namespace
}  // namespace tradebill
