#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "paint/picture_file.h"
#include "support/decoded_picture.h"
#include "support/temp_folder.h"

namespace tradebill::picture_save_test {
namespace {

/// Red above, blue below, and a green pixel at the left top corner.
CBitmap Flag(std::int32_t width, std::int32_t height) {
    CBitmap bitmap(width, height, 0x0000FF);
    for (std::int32_t y = height / 2; y < height; ++y) {
        for (std::int32_t x = 0; x < width; ++x) bitmap.Row(y)[x] = 0x0000FF;
    }
    bitmap.Row(0)[0] = 0x00FF00;
    return bitmap;
}

class SavedPicture : public testing::Test {
protected:
    [[nodiscard]] std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }
    CTempFolder folder_;
};

TEST_F(SavedPicture, PngKeepsEveryPixel) {
    ASSERT_TRUE(SavePng(Flag(3, 4), Path("flag.png")));
    EXPECT_EQ(ReadPictureSize(Path("flag.png")), (PictureSize{3, 4}));
    const CPicture picture = DecodedPicture(Path("flag.png"));
    constexpr std::uint32_t kRed = 0xFFFF0000;
    constexpr std::uint32_t kGreen = 0xFF00FF00;
    constexpr std::uint32_t kBlue = 0xFF0000FF;
    EXPECT_EQ(picture.Pixels(), (std::vector<std::uint32_t>{kGreen, kRed, kRed,   //
                                                            kRed, kRed, kRed,     //
                                                            kBlue, kBlue, kBlue,  //
                                                            kBlue, kBlue, kBlue}));
}

TEST_F(SavedPicture, JpegKeepsColorsAndTheRightWayUp) {
    ASSERT_TRUE(SaveJpeg(Flag(64, 32), Path("flag.jpg")));
    const PictureSize size = ReadPictureSize(Path("flag.jpg"));
    ASSERT_EQ(size, (PictureSize{64, 32}));
    const CPicture picture = DecodedPicture(Path("flag.jpg"));
    const auto channel = [&](int x, int y, int index) { return picture.Row(y)[x] >> (16 - 8 * index) & 0xFF; };
    EXPECT_GT(channel(40, 4, 0), 200u);  // red above
    EXPECT_LT(channel(40, 4, 2), 60u);
    EXPECT_GT(channel(40, 28, 2), 200u);  // blue below
    EXPECT_LT(channel(40, 28, 0), 60u);
}

TEST_F(SavedPicture, IsThoseBytesThatTheEncodersGive) {
    ASSERT_TRUE(SavePng(Flag(3, 4), Path("flag.png")));
    ASSERT_TRUE(SaveJpeg(Flag(3, 4), Path("flag.jpg"), 90));
    ASSERT_TRUE(SavePictureFile("any bytes", Path("any")));
    EXPECT_EQ(ReadFile(Path("flag.png")), EncodePng(Flag(3, 4)));
    EXPECT_EQ(ReadFile(Path("flag.jpg")), EncodeJpeg(Flag(3, 4), 90));
    EXPECT_EQ(ReadFile(Path("any")), "any bytes");
}

TEST_F(SavedPicture, TakesThePlaceOfAnOlderOneAndLeavesNothingElse) {
    ASSERT_TRUE(SavePng(Flag(3, 4), Path("picture")));
    ASSERT_TRUE(SaveJpeg(Flag(8, 9), Path("picture")));
    EXPECT_EQ(ReadPictureSize(Path("picture")), (PictureSize{8, 9}));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 1);
}

TEST_F(SavedPicture, IsRefusedWithoutPixelsOrAPlace) {
    EXPECT_FALSE(SavePng(CBitmap(0, 5, 0), Path("none.png")));
    EXPECT_FALSE(SaveJpeg(CBitmap(5, 0, 0), Path("none.jpg")));
    EXPECT_FALSE(SavePictureFile("", Path("none")));
    EXPECT_EQ(EncodePng(CBitmap(5, 0, 0)), "");
    EXPECT_EQ(EncodePng(CPicture(0, 5)), "");
    EXPECT_EQ(EncodeJpeg(CBitmap(0, 5, 0)), "");
    EXPECT_EQ(EncodeJpeg(CBitmap(70'000, 1, 0)), "");  // wider than a JPEG may be
    EXPECT_FALSE(SavePng(Flag(2, 2), Path("missing/none.png")));
    EXPECT_FALSE(SaveJpeg(Flag(2, 2), Path("missing/none.jpg")));
    std::filesystem::create_directory(Path("folder"));
    EXPECT_FALSE(SavePng(Flag(2, 2), Path("folder")));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 1);
}

}  // namespace
}  // namespace tradebill::picture_save_test
