#include "platform/root_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace tradebill {
namespace {

class RootFolderPath : public testing::Test {
protected:
    ~RootFolderPath() override { SetRootFolderPath(former_); }

private:
    std::string former_ = RootFolder();
};

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
