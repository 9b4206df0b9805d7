#include "platform/file.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "support/temp_folder.h"

namespace tradebill::file_saving_test {
namespace {

class SavedFile : public testing::Test {
protected:
    SavedFile() { folder_.Write("a.txt", "old"); }

    [[nodiscard]] bool Save(const std::string& content, bool isWritten) const {
        return SaveInOneStep(path_, [&](const std::string& unfinished) {
            std::ofstream(unfinished, std::ios::binary) << content;
            EXPECT_EQ(ReadFile(path_), "old");  // until all is written
            return isWritten;
        });
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

TEST_F(SavedFile, LeavesTheOldOneAndNothingElseIfItCantBeWritten) {
    EXPECT_FALSE(Save("half", false));
    EXPECT_EQ(ReadFile(path_), "old");
    EXPECT_EQ(Files(), 1);
}

TEST_F(SavedFile, LeavesAFolderInItsPlace) {
    std::filesystem::remove(path_);
    std::filesystem::create_directories(path_ + "/inner");
    EXPECT_FALSE(SaveInOneStep(path_, [](const std::string& unfinished) {
        std::ofstream(unfinished, std::ios::binary) << "new";
        return true;
    }));
    EXPECT_TRUE(std::filesystem::is_directory(path_));
    EXPECT_EQ(Files(), 1);
}

}  // namespace
}  // namespace tradebill::file_saving_test
