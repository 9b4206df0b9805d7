#include "platform/root_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace tradebill {
namespace {

TEST(WindowsRootFolder, LosesTheSeparatorsAtItsEndButNoHalfOfACharacter) {
    const std::string former = RootFolder();
    SetRootFolderPath("C:\\trade\\/\\");
    EXPECT_EQ(RootFolder(), "C:\\trade");
    SetRootFolderPath("C:\\\x81\x5C");  // one character, whose second byte is a backslash
    EXPECT_EQ(RootFolder(), "C:\\\x81\x5C");
    SetRootFolderPath(former);
}

}  // namespace
}  // namespace tradebill
