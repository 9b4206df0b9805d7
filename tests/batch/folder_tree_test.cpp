#include "batch/folder_tree.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "platform/sha256.h"
#include "support/temp_folder.h"

namespace tradebill::folder_tree_test {
namespace {

namespace fs = std::filesystem;

std::string DigestOf(const std::string& text) {
    CSha256 sha;
    sha.Add(text);
    return sha.Digest();
}

class Tree : public testing::Test {
protected:
    void Put(const std::string& name, const std::string& text) const {
        fs::create_directories(fs::path(folder_.Path(name)).parent_path());
        std::ofstream(folder_.Path(name), std::ios::binary) << text;
    }

    CTempFolder folder_;
};

TEST_F(Tree, HasTheDigestsOfFilesAndOfTheListsOfFolders) {
    Put("t/page.html", "abc");
    Put("t/pictures/b.png", "2");
    Put("t/pictures/a.png", "1");
    Put("t/pictures/deep/c", "3");
    // The well-known digest of "abc".
    constexpr const char* kOfAbc = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
    const std::string list = DigestOf("1") + "  a.png\n" + DigestOf("2") + "  b.png\n" + DigestOf("3") + "  deep/c\n";
    const auto digests = DigestsIn(folder_.Path("t"));
    ASSERT_TRUE(digests);
    EXPECT_EQ(*digests, (std::map<std::string, std::string>{{"page.html", kOfAbc}, {"pictures/", DigestOf(list)}}));
    EXPECT_FALSE(DigestsIn(folder_.Path("none")));
}

TEST_F(Tree, IsGoneWithAllInIt) {
    Put("t/a/b/c", "1");
    Put("t/d", "2");
    Put("beside", "3");
    EXPECT_TRUE(RemoveTree(folder_.Path("t")));
    EXPECT_FALSE(fs::exists(folder_.Path("t")));
    EXPECT_TRUE(fs::exists(folder_.Path("beside")));
    EXPECT_TRUE(RemoveTree(folder_.Path("t")));
}

#if !defined(_WIN32)
TEST_F(Tree, IsntFollowedThroughLinks) {
    Put("kept/file", "1");
    fs::create_directories(folder_.Path("t"));
    fs::create_directory_symlink(folder_.Path("kept"), folder_.Path("t/link"));
    EXPECT_TRUE(RemoveTree(folder_.Path("t")));
    EXPECT_TRUE(fs::exists(folder_.Path("kept/file")));
}
#endif

}  // namespace
}  // namespace tradebill::folder_tree_test
