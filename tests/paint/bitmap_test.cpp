#include "paint/bitmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "paint/geometry.h"

namespace tradebill::bitmap_test {
namespace {

constexpr Color kRed = 0x0000FF;
constexpr std::uint32_t kRedPixel = 0xFF0000;

void ExpectAll(const CBitmap& bitmap, std::size_t count, std::uint32_t pixel) {
    EXPECT_EQ(bitmap.Pixels().size(), count);
    EXPECT_TRUE(std::ranges::all_of(bitmap.Pixels(), [&](std::uint32_t found) { return found == pixel; }));
}

TEST(Bitmap, HasOneColorAtFirst) {
    for (const auto& [width, height] : {std::pair{1, 1}, {1, 9}, {9, 1}, {7, 5}}) {
        const CBitmap bitmap(width, height, kRed);
        EXPECT_EQ(bitmap.Width(), width);
        EXPECT_EQ(bitmap.Height(), height);
        ExpectAll(bitmap, static_cast<std::size_t>(width * height), kRedPixel);
    }
}

TEST(Bitmap, BeginsAnewInWhateverSize) {
    CBitmap bitmap(0, 0, 0);
    for (const auto& [width, height] : {std::pair{6, 4}, {3, 8}, {2, 2}, {24, 1}, {50, 40}, {4, 6}}) {
        bitmap.Begin(width, height, kRed);
        EXPECT_EQ(bitmap.Width(), width);
        EXPECT_EQ(bitmap.Height(), height);
        ExpectAll(bitmap, static_cast<std::size_t>(width * height), kRedPixel);
        std::ranges::fill_n(bitmap.Row(height - 1), width * height, 0x123456);  // the lowest row comes first
        ExpectAll(bitmap, static_cast<std::size_t>(width * height), 0x123456);
    }
}

TEST(Bitmap, HasNoPixelsInASizeThatNoneHas) {
    CBitmap bitmap(6, 4, 0);
    for (const auto& [width, height] : {std::pair{0, 4}, {4, 0}, {-1, 4}, {4, -1}, {1 << 14, (1 << 14) + 1}}) {
        bitmap.Begin(width, height, kRed);
        EXPECT_EQ(bitmap.Width(), 0);
        EXPECT_EQ(bitmap.Height(), 0);
        EXPECT_TRUE(bitmap.Pixels().empty());
    }
    bitmap.Begin(2, 3, kRed);
    ExpectAll(bitmap, 6, kRedPixel);
}

}  // namespace
}  // namespace tradebill::bitmap_test
