#include "platform/file.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <new>
#include <string>

#include "platform/system_error.h"
#include "support/temp_folder.h"

namespace tradebill::file_saving_test {
namespace {

class SavedFile : public testing::Test {
protected:
    SavedFile() { folder_.Write("a.txt", "old"); }

    [[nodiscard]] bool Save(const std::string& content, bool isWritten,
                            Durability durability = Durability::AsItComes) const {
        const auto write = [&](CFile& file) {
            EXPECT_TRUE(file.Write(content));
            EXPECT_EQ(ReadFile(path_), "old");  // until all is written
            return isWritten;
        };
        return SaveInOneStep(path_, write, durability);
    }
    [[nodiscard]] std::ptrdiff_t Files() const {
        return std::distance(std::filesystem::directory_iterator(folder_.Path()), {});
    }

    CTempFolder folder_;
    std::string path_ = folder_.Path("a.txt");
};

TEST_F(SavedFile, TakesThePlaceOfTheOldOne) {
    EXPECT_TRUE(Save("new", true));
    EXPECT_EQ(ReadFile(path_), "new");
    EXPECT_EQ(Files(), 1);
}

TEST_F(SavedFile, MayBeBroughtToTheDiskFirst) {
    EXPECT_TRUE(Save("new", true, Durability::OnDisk));
    EXPECT_EQ(ReadFile(path_), "new");
    EXPECT_EQ(Files(), 1);
}

TEST_F(SavedFile, LeavesTheOldOneAndNothingElseIfItCantBeWritten) {
    EXPECT_FALSE(Save("half", false));
    EXPECT_EQ(ReadFile(path_), "old");
    EXPECT_EQ(Files(), 1);
}

TEST_F(SavedFile, LeavesTheOldOneAndNothingElseIfItsWriterThrows) {
    const auto throwing = [](CFile& file) -> bool {
        EXPECT_TRUE(file.Write("half"));
        throw std::bad_alloc();
    };
    EXPECT_THROW(static_cast<void>(SaveInOneStep(path_, throwing)), std::bad_alloc);
    EXPECT_EQ(ReadFile(path_), "old");
    EXPECT_EQ(Files(), 1);
}

// As a system says of what it took before, and can't keep.
TEST_F(SavedFile, LeavesTheOldOneAndNothingElseIfItCantBeClosed) {
    const auto closing = [](CFile& file) { return file.Write("new") && file.Close(); };
    EXPECT_FALSE(SaveInOneStep(path_, closing));  // a second time
    EXPECT_FALSE(SaveInOneStep(path_, closing, Durability::OnDisk));
    EXPECT_EQ(ReadFile(path_), "old");
    EXPECT_EQ(Files(), 1);
}

TEST_F(SavedFile, IsntTriedWithoutAPlace) {
    const auto write = [](CFile& /*file*/) -> bool { throw std::bad_alloc(); };
    EXPECT_FALSE(SaveInOneStep(folder_.Path("missing/a.txt"), write));
    EXPECT_EQ(Files(), 1);
}

TEST_F(SavedFile, LeavesAFolderInItsPlaceAndTheSystemsReason) {
    std::filesystem::remove(path_);
    std::filesystem::create_directories(path_ + "/inner");
    ForgetSystemError();
    EXPECT_FALSE(SaveInOneStep(path_, [](CFile& file) { return file.Write("new"); }));
    EXPECT_NE(LastSystemError(), 0U);
    EXPECT_NE(SystemErrorText(LastSystemError()), "");
    EXPECT_EQ(SystemErrorText(0), "");
    EXPECT_TRUE(std::filesystem::is_directory(path_));
    EXPECT_EQ(Files(), 1);
}

}  // namespace
}  // namespace tradebill::file_saving_test
