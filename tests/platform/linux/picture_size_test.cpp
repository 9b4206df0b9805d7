// Sizes are read from the heads of pictures, whatever becomes of their pixels.
#include "platform/picture_file.h"

#include <gtest/gtest.h>

#include <string>

#include "support/png_bytes.h"
#include "support/temp_folder.h"

namespace tradebill {
namespace {

using namespace std::string_literals;

/// A PNG of RGB pixels as far as a size is concerned: its image data stops at once.
std::string Png(unsigned width, unsigned height) {
    return PngOf({.width = width, .height = height, .depth = 8, .kind = 2}, "\x78\x9C");
}

/// A grey JPEG as far as the start of its pixels.
std::string Jpeg(unsigned width, unsigned height) {
    return "\xFF\xD8"
           "\xFF\xC0\x00\x0B\x08"s +
           BigEndian(height, 2) + BigEndian(width, 2) + "\x01\x01\x11\x00"s +
           "\xFF\xDA\x00\x08\x01\x01\x00\x00\x3F\x00"s;
}

class HeadOfPicture : public testing::Test {
protected:
    [[nodiscard]] PictureSize Read(const std::string& content) const {
        return ReadPictureSize(folder_.Write("picture", content));
    }
    CTempFolder folder_;
};

TEST_F(HeadOfPicture, PngIsItsPixels) {
    EXPECT_EQ(Read(Png(1, 2)), (PictureSize{1, 2}));
    EXPECT_EQ(Read(Png(825, 310)), (PictureSize{825, 310}));
    EXPECT_EQ(Read(Png(70000, 3)), (PictureSize{70000, 3}));
}

TEST_F(HeadOfPicture, JpegIsItsPixels) {
    EXPECT_EQ(Read(Jpeg(1, 2)), (PictureSize{1, 2}));
    EXPECT_EQ(Read(Jpeg(825, 310)), (PictureSize{825, 310}));
}

}  // namespace
}  // namespace tradebill
