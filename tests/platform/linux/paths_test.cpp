#include "platform/paths.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/temp_folder.h"

namespace tradebill::linux_paths_test {
namespace {

namespace fs = std::filesystem;

TEST(ExchangeFolders, LeavesEachInThePlaceOfTheOther) {
    const CTempFolder folder;
    folder.Write("new/page", "1");
    folder.Write("place/page", "2");
    ASSERT_TRUE(ExchangeFolders(folder.Path("new"), folder.Path("place")));
    EXPECT_EQ(ReadFile(folder.Path("place/page")), "1");
    EXPECT_EQ(ReadFile(folder.Path("new/page")), "2");
}

TEST(ExchangeFolders, NeedsBoth) {
    const CTempFolder folder;
    folder.Write("new/page", "1");
    EXPECT_FALSE(ExchangeFolders(folder.Path("new"), folder.Path("place")));
    EXPECT_TRUE(fs::exists(folder.Path("new/page")));
    EXPECT_FALSE(fs::exists(folder.Path("place")));
}

}  // namespace
}  // namespace tradebill::linux_paths_test
