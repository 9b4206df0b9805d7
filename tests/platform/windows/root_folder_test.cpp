#include "platform/root_folder.h"

#include <gtest/gtest.h>

namespace tradebill::windows_root_folder_test {
namespace {

TEST(WindowsRootFolder, LosesTheSeparatorsAtItsEndButNoHalfOfACharacter) {
    EXPECT_EQ(RootFolderAt("C:\\trade\\/\\"), "C:\\trade");
    EXPECT_EQ(RootFolderAt("C:\\\x81\x5C"), "C:\\\x81\x5C");  // one character, whose second byte is a backslash
}

}  // namespace
}  // namespace tradebill::windows_root_folder_test
