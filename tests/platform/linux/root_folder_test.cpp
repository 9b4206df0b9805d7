#include "platform/root_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace tradebill {
namespace {

TEST(LinuxRootFolder, IsTheExecutablesFolderAtFirst) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // a process of its own, in which nobody has set another
    const std::string folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    EXPECT_EXIT(std::exit(RootFolder() == folder ? 0 : 1), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace tradebill
