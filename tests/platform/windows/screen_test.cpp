#include "platform/screen.h"

#include <gtest/gtest.h>

#include "support/windows_header.h"

namespace tradebill::windows_screen_test {
namespace {

TEST(WindowsScreen, IsAsWideAsTheDisplay) {
    const HDC display = ::CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
    const int width = ::GetDeviceCaps(display, HORZRES);
    ::DeleteDC(display);
    ASSERT_GT(width, 0);
    EXPECT_EQ(DisplayWidth(), width);
}

}  // namespace
}  // namespace tradebill::windows_screen_test
