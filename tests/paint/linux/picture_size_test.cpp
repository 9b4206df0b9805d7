// Sizes are read from the heads of pictures, whatever becomes of their pixels.
#include "paint/picture_file.h"

#include <gtest/gtest.h>

#include <string>

#include "support/picture_beginnings.h"
#include "support/temp_folder.h"

namespace tradebill::linux_picture_size_test {
namespace {

class HeadOfPicture : public testing::Test {
protected:
    [[nodiscard]] PictureSize Read(const std::string& content) const {
        return ReadPictureSize(folder_.Write("picture", content));
    }
    CTempFolder folder_;
};

TEST_F(HeadOfPicture, PngIsItsPixels) {
    EXPECT_EQ(Read(BeginningOfPng(1, 2)), (PictureSize{1, 2}));
    EXPECT_EQ(Read(BeginningOfPng(825, 310)), (PictureSize{825, 310}));
    EXPECT_EQ(Read(BeginningOfPng(70000, 3)), (PictureSize{70000, 3}));
}

TEST_F(HeadOfPicture, JpegIsItsPixels) {
    EXPECT_EQ(Read(BeginningOfJpeg(1, 2)), (PictureSize{1, 2}));
    EXPECT_EQ(Read(BeginningOfJpeg(825, 310)), (PictureSize{825, 310}));
}

}  // namespace
}  // namespace tradebill::linux_picture_size_test
