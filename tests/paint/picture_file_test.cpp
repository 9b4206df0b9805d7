#include "paint/picture_file.h"

#include <gtest/gtest.h>

#include <string>

#include "support/picture_beginnings.h"
#include "support/temp_folder.h"

namespace tradebill::picture_file_test {
namespace {

using namespace std::string_literals;

class PictureSizeOf : public testing::Test {
protected:
    [[nodiscard]] PictureSize Read(const std::string& content) const {
        return ReadPictureSize(folder_.Write("picture", content));
    }
    CTempFolder folder_;
};

TEST_F(PictureSizeOf, IsThatOfASavedPicture) {
    const std::string path = folder_.Path("picture");
    for (const PictureSize& size : {PictureSize{1, 2}, {825, 310}, {4000, 1}}) {
        ASSERT_TRUE(SavePng(CBitmap(size.width, size.height, 0), path));
        EXPECT_EQ(ReadPictureSize(path), size);
        ASSERT_TRUE(SaveJpeg(CBitmap(size.width, size.height, 0), path));
        EXPECT_EQ(ReadPictureSize(path), size);
    }
}

TEST_F(PictureSizeOf, AnythingElseIsNothing) {
    EXPECT_EQ(Read(""), PictureSize{});
    EXPECT_EQ(Read("GIF89a\x10\0\x10\0"s), PictureSize{});
    EXPECT_EQ(Read("no picture at all"), PictureSize{});
    EXPECT_EQ(ReadPictureSize(folder_.Path("missing.png")), PictureSize{});
    EXPECT_EQ(ReadPictureSize(folder_.Path()), PictureSize{});
    EXPECT_EQ(ReadPictureSize(""), PictureSize{});
}

TEST_F(PictureSizeOf, ACutPictureIsNothing) {
    EXPECT_EQ(Read(BeginningOfPng(825, 310).substr(0, 20)), PictureSize{});
    EXPECT_EQ(Read(BeginningOfJpeg(825, 310).substr(0, 8)), PictureSize{});
}

TEST_F(PictureSizeOf, APngWithoutPixelsIsNothing) {
    EXPECT_EQ(Read(BeginningOfPng(0, 10)), PictureSize{});
    EXPECT_EQ(Read(BeginningOfPng(10, 0)), PictureSize{});
}

}  // namespace
}  // namespace tradebill::picture_file_test
