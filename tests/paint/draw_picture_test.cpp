#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

#include "paint/canvas.h"

namespace tradebill::draw_picture_test {
namespace {

using Pixels = std::vector<std::uint32_t>;
constexpr std::uint32_t kWhitePixel = 0xFFFFFF;

/// Of one opaque color, but for the left top pixel.
CPicture Marked(std::int32_t width, std::int32_t height) {
    CPicture picture(width, height);
    for (std::int32_t y = 0; y < height; ++y) {
        for (std::int32_t x = 0; x < width; ++x) picture.Row(y)[x] = 0xFF0000FF;
    }
    picture.Row(0)[0] = 0xFF00FF00;
    return picture;
}

Pixels RowOf(const CBitmap& bitmap, std::int32_t y) {
    return {bitmap.Row(y), bitmap.Row(y) + bitmap.Width()};
}

TEST(DrawnPicture, StandsWithItsLeftTopCornerAtThePoint) {
    CBitmap bitmap(4, 3, kWhite);
    MakeCanvas(bitmap)->DrawPicture(Marked(2, 2), {1, 1});
    EXPECT_EQ(RowOf(bitmap, 0), (Pixels{kWhitePixel, kWhitePixel, kWhitePixel, kWhitePixel}));
    EXPECT_EQ(RowOf(bitmap, 1), (Pixels{kWhitePixel, 0x00FF00, 0x0000FF, kWhitePixel}));
    EXPECT_EQ(RowOf(bitmap, 2), (Pixels{kWhitePixel, 0x0000FF, 0x0000FF, kWhitePixel}));
}

TEST(DrawnPicture, CoversAsFarAsEachPixelIsOpaque) {
    const struct {
        std::uint32_t pixel;
        Color ground;
        std::uint32_t result;
    } cases[] = {
        {0xFFFFFFFF, 0x0000FF, 0xFFFFFF}, {0x00FFFFFF, 0x0000FF, 0xFF0000},  // a ground of pure red
        {0x80FFFFFF, 0x0000FF, 0xFF8080},                                    // 255 * 128 / 255 over 0
        {0x80000000, 0xFFFFFF, 0x7F7F7F},                                    // 255 * 127 / 255 of the ground
        {0x01FFFFFF, 0x000000, 0x010101}, {0xFE000000, 0xFFFFFF, 0x010101},
        {0x33640000, 0x0000C8, 0xB40000},  // 200 * 0.8 + 100 * 0.2
    };
    for (const auto& test : cases) {
        CBitmap bitmap(1, 1, test.ground);
        CPicture picture(1, 1);
        picture.Row(0)[0] = test.pixel;
        MakeCanvas(bitmap)->DrawPicture(picture, {0, 0});
        EXPECT_EQ(bitmap.Row(0)[0], test.result) << std::hex << test.pixel;
    }
}

TEST(DrawnPicture, IsCutAtEveryEdge) {
    CBitmap bitmap(3, 3, kWhite);
    MakeCanvas(bitmap)->DrawPicture(Marked(3, 3), {2, 2});
    EXPECT_EQ(RowOf(bitmap, 2), (Pixels{kWhitePixel, kWhitePixel, 0x00FF00}));
    EXPECT_EQ(RowOf(bitmap, 1), (Pixels{kWhitePixel, kWhitePixel, kWhitePixel}));

    bitmap = CBitmap(3, 3, kWhite);
    MakeCanvas(bitmap)->DrawPicture(Marked(3, 3), {-2, -2});
    EXPECT_EQ(RowOf(bitmap, 0), (Pixels{0x0000FF, kWhitePixel, kWhitePixel}));
    EXPECT_EQ(RowOf(bitmap, 1), (Pixels{kWhitePixel, kWhitePixel, kWhitePixel}));

    bitmap = CBitmap(3, 1, kWhite);
    MakeCanvas(bitmap)->DrawPicture(Marked(5, 5), {-1, 0});
    EXPECT_EQ(RowOf(bitmap, 0), (Pixels{0x0000FF, 0x0000FF, 0x0000FF}));
}

TEST(DrawnPicture, LeavesNothingIfItLiesOutside) {
    constexpr std::int32_t kFar = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kNear = std::numeric_limits<std::int32_t>::min();
    CBitmap bitmap(3, 3, kWhite);
    const auto canvas = MakeCanvas(bitmap);
    const Point places[] = {{3, 0},    {0, 3},         {-2, 0},       {0, -2},       {kFar, 0},
                            {0, kFar}, {kNear, kNear}, {kFar, kNear}, {kNear, kFar}, {kFar, kFar}};
    for (const Point& place : places) canvas->DrawPicture(Marked(2, 2), place);
    EXPECT_THAT(bitmap.Pixels(), testing::Each(kWhitePixel));
}

TEST(DrawnPicture, MayBeEmptyOnABitmapThatMayBeEmptyToo) {
    CBitmap bitmap(2, 1, kWhite);
    MakeCanvas(bitmap)->DrawPicture(CPicture(0, 0), {0, 0});
    EXPECT_THAT(bitmap.Pixels(), testing::Each(kWhitePixel));
    CBitmap none(0, 0, kWhite);
    MakeCanvas(none)->DrawPicture(Marked(2, 2), {0, 0});
    EXPECT_TRUE(none.Pixels().empty());
}

TEST(DrawnPicture, NeverSetsTheByteAboveTheColors) {
    std::mt19937 random(11);
    CPicture picture(16, 16);
    for (std::int32_t y = 0; y < 16; ++y) {
        for (std::int32_t x = 0; x < 16; ++x) picture.Row(y)[x] = static_cast<std::uint32_t>(random());
    }
    CBitmap bitmap(16, 16, 0x123456);
    MakeCanvas(bitmap)->DrawPicture(picture, {0, 0});
    for (const std::uint32_t pixel : bitmap.Pixels()) EXPECT_EQ(pixel >> 24, 0u);
}

}  // namespace
}  // namespace tradebill::draw_picture_test
