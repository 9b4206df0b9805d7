#include "platform/screen.h"

#include <gtest/gtest.h>

namespace tradebill::linux_screen_test {
namespace {

TEST(LinuxScreen, IsAsWideAsDisplaysUsuallyAre) {
    EXPECT_EQ(DisplayWidth(), 1920);
}

}  // namespace
}  // namespace tradebill::linux_screen_test
