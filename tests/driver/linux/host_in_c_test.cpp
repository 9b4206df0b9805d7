#include "driver/linux/host_in_c.h"

#include <gtest/gtest.h>

namespace tradebill::linux_host_in_c_test {
namespace {

TEST(HostInC, CanUseAllOfTheHeader) {
    EXPECT_EQ(RunHostInC(), 0);
}

}  // namespace
}  // namespace tradebill::linux_host_in_c_test
