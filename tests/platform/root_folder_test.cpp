#include "platform/root_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace tradebill {
namespace {

class RootFolderPath : public testing::Test {
protected:
    ~RootFolderPath() override { SetRootFolderPath(former_); }

private:
    std::string former_ = RootFolder();
};

TEST_F(RootFolderPath, IsTheExecutablesFolderAtFirst) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // a process of its own, in which nobody has set another
    const std::string folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    EXPECT_EXIT(std::exit(RootFolder() == folder ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST_F(RootFolderPath, IsWhatItWasSetTo) {
    SetRootFolderPath("/srv/accounts");
    EXPECT_EQ(RootFolder(), "/srv/accounts");
    SetRootFolderPath("relative folder");
    EXPECT_EQ(RootFolder(), "relative folder");
}

TEST_F(RootFolderPath, HasNoSeparatorAtItsEnd) {
    SetRootFolderPath("/srv/accounts///");
    EXPECT_EQ(RootFolder(), "/srv/accounts");
}

TEST_F(RootFolderPath, IsCutAt259Bytes) {
    const std::string longest = "/" + std::string(258, 'a');
    SetRootFolderPath(longest);
    EXPECT_EQ(RootFolder(), longest);
    SetRootFolderPath(longest + "b");
    EXPECT_EQ(RootFolder(), longest);
}

TEST_F(RootFolderPath, HoldsItsOwnCopy) {
    std::string path = "/srv/one";
    SetRootFolderPath(path);
    path = "/srv/two";
    EXPECT_EQ(RootFolder(), "/srv/one");
}

}  // namespace
}  // namespace tradebill
