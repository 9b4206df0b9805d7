#include "platform/ini_load.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace tradebill {
namespace {

TEST(LoadIniFile, ParsesAFile) {
    const CTempFolder folder;
    const auto file = LoadIniFile(folder.Write("a.ini", "[A]\r\nx=1\r\n"));
    ASSERT_TRUE(file.has_value());
    EXPECT_EQ(file->Text("A", "x"), "1");
}

TEST(LoadIniFile, HasNothingFromWhatIsNoFile) {
    const CTempFolder folder;
    EXPECT_FALSE(LoadIniFile(folder.Path("missing.ini")).has_value());
    EXPECT_FALSE(LoadIniFile(folder.Path()).has_value());
    EXPECT_FALSE(LoadIniFile("").has_value());
}

}  // namespace
}  // namespace tradebill
