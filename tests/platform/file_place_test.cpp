#include "platform/file_place.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/system_error.h"
#include "support/temp_folder.h"

namespace tradebill::file_place_test {
namespace {

namespace fs = std::filesystem;

class FilePlace : public testing::Test {
protected:
    CTempFolder folder_;
    std::string made_ = folder_.Write("work/page", "the new one");
    std::string place_ = folder_.Path("page");
};

TEST_F(FilePlace, TakesAFileWhereNoneIs) {
    EXPECT_TRUE(PutInPlace(made_, place_));
    EXPECT_EQ(ReadFile(place_), "the new one");
    EXPECT_FALSE(fs::exists(made_));
}

TEST_F(FilePlace, HasTheNewFileInsteadOfTheOld) {
    folder_.Write("page", "an old one that is longer");
    EXPECT_TRUE(PutInPlace(made_, place_));
    EXPECT_EQ(ReadFile(place_), "the new one");
    EXPECT_FALSE(fs::exists(made_));
}

TEST_F(FilePlace, KeepsAFolderThatIsThere) {
    folder_.Write("page/old", "text");
    ForgetSystemError();
    EXPECT_FALSE(PutInPlace(made_, place_));
    EXPECT_NE(LastSystemError(), 0U);
    EXPECT_EQ(ReadFile(folder_.Path("page/old")), "text");
    EXPECT_EQ(ReadFile(made_), "the new one");
}

TEST_F(FilePlace, IsNothingWithoutItsFolder) {
    ForgetSystemError();
    EXPECT_FALSE(PutInPlace(made_, folder_.Path("missing/page")));
    EXPECT_TRUE(MeansMissing(LastSystemError()));
    EXPECT_EQ(ReadFile(made_), "the new one");
}

TEST_F(FilePlace, KeepsTheOldFileIfThereIsNoNewOne) {
    folder_.Write("page", "old");
    ForgetSystemError();
    EXPECT_FALSE(PutInPlace(folder_.Path("work/missing"), place_));
    EXPECT_NE(LastSystemError(), 0U);
    EXPECT_EQ(ReadFile(place_), "old");
}

TEST_F(FilePlace, CanGetACopy) {
    const std::string large(3 * 256 * 1024 + 17, 'x');
    const std::string source = folder_.Write("large", large);
    folder_.Write("copy", large + "more");
    EXPECT_TRUE(CopyOver(source, folder_.Path("copy")));
    EXPECT_EQ(ReadFile(folder_.Path("copy")), large);
    EXPECT_EQ(ReadFile(source), large);
    EXPECT_TRUE(CopyOver(folder_.Write("empty", ""), folder_.Path("copy")));
    EXPECT_EQ(ReadFile(folder_.Path("copy")), "");
    EXPECT_FALSE(CopyOver(folder_.Path("missing"), folder_.Path("copy")));
    EXPECT_FALSE(CopyOver(source, folder_.Path("missing/copy")));
}

TEST_F(FilePlace, HoldsTheSameBytesOrNot) {
    const std::string blocks(9000, 'x');
    const std::string one = folder_.Write("one", blocks);
    EXPECT_TRUE(HoldSameBytes(one, one));
    EXPECT_TRUE(HoldSameBytes(one, folder_.Write("same", blocks)));
    EXPECT_TRUE(HoldSameBytes(folder_.Write("empty", ""), folder_.Write("other empty", "")));
    EXPECT_FALSE(HoldSameBytes(one, folder_.Write("shorter", blocks.substr(1))));
    EXPECT_FALSE(HoldSameBytes(one, folder_.Write("first", "y" + blocks.substr(1))));
    EXPECT_FALSE(HoldSameBytes(one, folder_.Write("last", blocks.substr(1) + "y")));
    EXPECT_FALSE(HoldSameBytes(one, folder_.Path("missing")));
    EXPECT_FALSE(HoldSameBytes(folder_.Path("missing"), one));
}

}  // namespace
}  // namespace tradebill::file_place_test
