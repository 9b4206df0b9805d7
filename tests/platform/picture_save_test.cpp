#include <gtest/gtest.h>
#include <png.h>
#include <turbojpeg.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/file.h"
#include "platform/picture_file.h"
#include "support/temp_folder.h"

namespace tradebill {
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

/// Three bytes a pixel, rows from the top.
std::vector<std::uint8_t> DecodePng(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_NE(png_image_begin_read_from_file(&image, path.c_str()), 0);
    EXPECT_EQ(image.format & PNG_FORMAT_FLAG_ALPHA, 0u);
    image.format = PNG_FORMAT_RGB;
    std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(image));
    EXPECT_NE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr), 0);
    return pixels;
}

std::vector<std::uint8_t> DecodeJpeg(const std::string& path, PictureSize size) {
    const std::string content = CFile(path, FileMode::Read).ReadAll().value_or("");
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 3);
    const tjhandle decoder = tjInitDecompress();
    EXPECT_EQ(tjDecompress2(decoder, reinterpret_cast<const unsigned char*>(content.data()), content.size(),
                            pixels.data(), size.width, 0, size.height, TJPF_RGB, 0),
              0);
    tjDestroy(decoder);
    return pixels;
}

class SavedPicture : public testing::Test {
protected:
    [[nodiscard]] std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }
    CTempFolder folder_;
};

TEST_F(SavedPicture, PngKeepsEveryPixel) {
    ASSERT_TRUE(SavePng(Flag(3, 4), Path("flag.png")));
    EXPECT_EQ(ReadPictureSize(Path("flag.png")), (PictureSize{3, 4}));
    const auto pixels = DecodePng(Path("flag.png"));
    const std::vector<std::uint8_t> firstRow(pixels.begin(), pixels.begin() + 9);
    const std::vector<std::uint8_t> lastRow(pixels.end() - 9, pixels.end());
    EXPECT_EQ(firstRow, (std::vector<std::uint8_t>{0, 255, 0, 255, 0, 0, 255, 0, 0}));
    EXPECT_EQ(lastRow, (std::vector<std::uint8_t>{0, 0, 255, 0, 0, 255, 0, 0, 255}));
}

TEST_F(SavedPicture, JpegKeepsColorsAndTheRightWayUp) {
    ASSERT_TRUE(SaveJpeg(Flag(64, 32), Path("flag.jpg")));
    const PictureSize size = ReadPictureSize(Path("flag.jpg"));
    ASSERT_EQ(size, (PictureSize{64, 32}));
    const auto pixels = DecodeJpeg(Path("flag.jpg"), size);
    const auto channel = [&](int x, int y, int index) {
        return pixels[static_cast<std::size_t>((y * 64 + x) * 3 + index)];
    };
    EXPECT_GT(channel(40, 4, 0), 200);  // red above
    EXPECT_LT(channel(40, 4, 2), 60);
    EXPECT_GT(channel(40, 28, 2), 200);  // blue below
    EXPECT_LT(channel(40, 28, 0), 60);
}

TEST_F(SavedPicture, JpegIsSmallerOfLowerQuality) {
    CBitmap noise(64, 64, 0);
    for (std::int32_t y = 0; y < 64; ++y) {
        for (std::int32_t x = 0; x < 64; ++x)
            noise.Row(y)[x] = static_cast<std::uint32_t>(x * 7919 + y * 104729) & 0xFFFFFF;
    }
    std::vector<std::uintmax_t> sizes;
    for (const int quality : {-3, 1, 40, 75, 100, 1000}) {
        ASSERT_TRUE(SaveJpeg(noise, Path("noise.jpg"), quality));
        sizes.push_back(std::filesystem::file_size(Path("noise.jpg")));
    }
    EXPECT_EQ(sizes[0], sizes[1]);
    EXPECT_LT(sizes[1], sizes[2]);
    EXPECT_LT(sizes[2], sizes[3]);
    EXPECT_LT(sizes[3], sizes[4]);
    EXPECT_EQ(sizes[4], sizes[5]);
    ASSERT_TRUE(SaveJpeg(noise, Path("noise.jpg")));
    EXPECT_EQ(std::filesystem::file_size(Path("noise.jpg")), sizes[3]);
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
    EXPECT_FALSE(SavePng(Flag(2, 2), Path("missing/none.png")));
    EXPECT_FALSE(SaveJpeg(Flag(2, 2), Path("missing/none.jpg")));
    std::filesystem::create_directory(Path("folder"));
    EXPECT_FALSE(SavePng(Flag(2, 2), Path("folder")));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 1);
}

}  // namespace
}  // namespace tradebill
