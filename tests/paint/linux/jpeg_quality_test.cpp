#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "paint/picture_file.h"
#include "support/temp_folder.h"

namespace tradebill::linux_jpeg_quality_test {
namespace {

TEST(JpegQuality, MakesASmallerFileIfItIsLower) {
    const CTempFolder folder;
    CBitmap noise(64, 64, 0);
    for (std::int32_t y = 0; y < 64; ++y) {
        for (std::int32_t x = 0; x < 64; ++x)
            noise.Row(y)[x] = static_cast<std::uint32_t>(x * 7919 + y * 104729) & 0xFFFFFF;
    }
    std::vector<std::uintmax_t> sizes;
    for (const int quality : {-3, 1, 40, 75, 100, 1000}) {
        ASSERT_TRUE(SaveJpeg(noise, folder.Path("noise.jpg"), quality));
        sizes.push_back(std::filesystem::file_size(folder.Path("noise.jpg")));
    }
    EXPECT_EQ(sizes[0], sizes[1]);
    EXPECT_LT(sizes[1], sizes[2]);
    EXPECT_LT(sizes[2], sizes[3]);
    EXPECT_LT(sizes[3], sizes[4]);
    EXPECT_EQ(sizes[4], sizes[5]);
    ASSERT_TRUE(SaveJpeg(noise, folder.Path("noise.jpg")));
    EXPECT_EQ(std::filesystem::file_size(folder.Path("noise.jpg")), sizes[3]);
}

}  // namespace
}  // namespace tradebill::linux_jpeg_quality_test
