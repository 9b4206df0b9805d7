#include "platform/screen.h"

#include <gtest/gtest.h>

namespace tradebill {
namespace {

TEST(LinuxScreen, IsAsWideAsDisplaysUsuallyAre) {
    EXPECT_EQ(DisplayWidth(), 1920);
}

}  // namespace
}  // namespace tradebill
