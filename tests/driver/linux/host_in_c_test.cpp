#include "driver/linux/host_in_c.h"

#include <gtest/gtest.h>

namespace tradebill {
namespace {

TEST(HostInC, CanUseAllOfTheHeader) {
    EXPECT_EQ(RunHostInC(), 0);
}

}  // namespace
}  // namespace tradebill
