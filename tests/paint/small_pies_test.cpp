// Pies whose rim is hardly more than their middle.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "paint/canvas.h"
#include "paint/raster/raster_canvas.h"

namespace tradebill::small_pies_test {
namespace {

constexpr std::int32_t kEdge = 10;  // left and top of every box
constexpr std::int32_t kSide = 30;  // of the bitmap

/// The rows of a box, from the top: '#' is painted, '.' isn't. "outside" if anything is painted beside it.
std::string RowsOf(const CBitmap& bitmap, std::int32_t width, std::int32_t height) {
    std::string rows;
    for (std::int32_t y = 0; y < kSide; ++y) {
        for (std::int32_t x = 0; x < kSide; ++x) {
            const bool isPainted = bitmap.Row(y)[x] != PixelOf(kWhite);
            const bool isInside = x >= kEdge && y >= kEdge && x < kEdge + width && y < kEdge + height;
            if (isPainted && !isInside) return "outside";
            if (isInside) rows += isPainted ? '#' : '.';
        }
        if (y >= kEdge && y < kEdge + height - 1) rows += '/';
    }
    return rows;
}

/// With the pen and the brush that a canvas begins with.
std::string Painted(std::unique_ptr<CCanvas> make(CBitmap& bitmap), std::int32_t width, std::int32_t height,
                    Point start, Point end) {
    CBitmap bitmap(kSide, kSide, kWhite);
    make(bitmap)->Pie({kEdge, kEdge, kEdge + width, kEdge + height}, start, end);
    return RowsOf(bitmap, width, height);
}

// As a device context paints them.
TEST(SmallPies, HaveThePixelsOfTheirQuarters) {
    struct Quarters {
        std::int32_t width;
        std::int32_t height;
        std::string_view upperRight;
        std::string_view upperLeft;
        std::string_view lowerLeft;
        std::string_view lowerRight;
    };
    constexpr Quarters kQuarters[] = {
        {1, 1, ".", ".", ".", "."},
        {1, 2, "#/#", "#/#", "#/#", "./."},
        {2, 1, "##", "..", "##", ".."},
        {2, 2, "##/##", ".#/.#", "#./##", "../.."},
        {1, 3, "././.", "././.", "././.", "././."},
        {3, 1, ".##", "...", "##.", ".##"},
        {2, 3, "../##/..", "../../..", "../##/..", "../../.."},
        {3, 2, "..#/.#.", ".#./.#.", "##./##.", ".../.##"},
        {3, 3, ".../.##/...", ".#./.#./...", ".../##./.#.", ".../.##/..."},
    };
    for (const Quarters& row : kQuarters) {
        const Point middle{kEdge + row.width / 2, kEdge + row.height / 2};
        const Point right{middle.x + 10, middle.y};
        const Point top{middle.x, middle.y - 10};
        const Point left{middle.x - 10, middle.y};
        const Point bottom{middle.x, middle.y + 10};
        for (const auto make : {&MakeCanvas, &MakeRasterCanvas}) {
            SCOPED_TRACE(std::to_string(row.width) + " by " + std::to_string(row.height));
            EXPECT_EQ(Painted(make, row.width, row.height, right, top), row.upperRight);
            EXPECT_EQ(Painted(make, row.width, row.height, top, left), row.upperLeft);
            EXPECT_EQ(Painted(make, row.width, row.height, left, bottom), row.lowerLeft);
            EXPECT_EQ(Painted(make, row.width, row.height, bottom, right), row.lowerRight);
        }
    }
}

// The directions don't lie on the axes: the middle is at (11, 11).
TEST(SmallPies, HaveOneColumnBetweenDirectionsRightAndLeftOfTheTop) {
    for (const auto make : {&MakeCanvas, &MakeRasterCanvas}) {
        EXPECT_EQ(Painted(make, 2, 2, {20, 10}, {10, 0}), ".#/.#");
    }
}

// A direction down and to the right of a narrow box comes behind all pixels of its rim, and the one to the right before
// them: from one to the other there is nothing, and not a whole turn.
TEST(SmallPies, AreNothingFromTheEndOfTheRimToItsBeginning) {
    for (const auto make : {&MakeCanvas, &MakeRasterCanvas}) {
        EXPECT_EQ(Painted(make, 2, 2, {12, 20}, {20, 11}), "../..");
        EXPECT_EQ(Painted(make, 2, 2, {20, 11}, {12, 20}), "##/##");
        EXPECT_EQ(Painted(make, 2, 2, {20, 11}, {20, 11}), "##/##");
    }
}

}  // namespace
}  // namespace tradebill::small_pies_test
