#include "platform/root_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tradebill::linux_root_folder_test {
namespace {

TEST(LinuxProgramFolder, IsTheExecutablesFolder) {
    const std::string folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    EXPECT_EQ(ProgramFolder(), folder);
}

}  // namespace
}  // namespace tradebill::linux_root_folder_test
