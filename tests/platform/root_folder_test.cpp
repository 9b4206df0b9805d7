#include "platform/root_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace tradebill::root_folder_test {
namespace {

TEST(RootFolder, IsWhatItIsNamed) {
    EXPECT_EQ(RootFolderAt("/srv/accounts"), "/srv/accounts");
    EXPECT_EQ(RootFolderAt("relative folder"), "relative folder");
}

TEST(RootFolder, HasNoSeparatorAtItsEnd) {
    EXPECT_EQ(RootFolderAt("/srv/accounts///"), "/srv/accounts");
}

TEST(RootFolder, IsCutAt259Bytes) {
    const std::string longest = "/" + std::string(258, 'a');
    EXPECT_EQ(RootFolderAt(longest), longest);
    EXPECT_EQ(RootFolderAt(longest + "b"), longest);
}

}  // namespace
}  // namespace tradebill::root_folder_test
