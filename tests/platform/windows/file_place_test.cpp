// Files that somebody holds open, which keeps them in their places on this system alone.
#include "platform/file_place.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/windows/unique_handle.h"
#include "support/temp_folder.h"
#include "support/windows_header.h"

namespace tradebill::windows_file_place_test {
namespace {

class HeldPlace : public testing::Test {
protected:
    /// As a viewer may have it: nobody can move or remove the file.
    [[nodiscard]] CUniqueHandle Hold(DWORD sharing) const {
        return CUniqueHandle(::CreateFileA(place_.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING,
                                           FILE_ATTRIBUTE_NORMAL, nullptr));
    }

    CTempFolder folder_;
    std::string made_ = folder_.Write("work/page", "new");
    std::string place_ = folder_.Write("page", "an old one that is longer");
};

TEST_F(HeldPlace, IsWrittenOverWhereItIs) {
    {
        const CUniqueHandle viewer = Hold(FILE_SHARE_READ | FILE_SHARE_WRITE);
        ASSERT_TRUE(viewer.IsValid());
        EXPECT_TRUE(PutInPlace(made_, place_));
    }
    EXPECT_EQ(ReadFile(place_), "new");
    EXPECT_EQ(ReadFile(made_), "");  // gone
}

TEST_F(HeldPlace, StaysIfNobodyElseMayWrite) {
    {
        const CUniqueHandle viewer = Hold(FILE_SHARE_READ);
        ASSERT_TRUE(viewer.IsValid());
        EXPECT_FALSE(PutInPlace(made_, place_));
    }
    EXPECT_EQ(ReadFile(place_), "an old one that is longer");
    EXPECT_EQ(ReadFile(made_), "new");
}

}  // namespace
}  // namespace tradebill::windows_file_place_test
