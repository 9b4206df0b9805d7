// Pies in boxes of a few pixels, painted by the raster and by GDI: where the rim's quarters have a pixel or two, each
// direction counts.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "comparison/windows/two_canvases.h"

namespace tradebill::windows_small_pies_canvases_test {
namespace {

/// To all sides, and to the middle itself.
std::vector<Point> DirectionsFrom(Point middle) {
    std::vector<Point> directions;
    for (std::int32_t y = -2; y <= 2; ++y) {
        for (std::int32_t x = -2; x <= 2; ++x) directions.push_back({middle.x + x, middle.y + y});
    }
    return directions;
}

int DifferingPies(std::int32_t width, std::int32_t height, const Pen& pen) {
    constexpr std::int32_t kEdge = 6;
    constexpr std::int32_t kSide = 16;
    int differing = 0;
    const std::vector<Point> directions = DirectionsFrom({kEdge + width / 2, kEdge + height / 2});
    for (const Point& start : directions) {
        for (const Point& end : directions) {
            CTwoCanvases canvases(kSide, kSide);
            canvases.PaintBoth([&](CCanvas& canvas) {
                canvas.SelectPen(pen);
                canvas.SelectBrush(Brush(0x00FF00));
                canvas.Pie({kEdge, kEdge, kEdge + width, kEdge + height}, start, end);
            });
            differing += canvases.Compare().differing != 0 ? 1 : 0;
        }
    }
    return differing;
}

TEST(SmallPiesCanvases, PaintEveryDirectionAlike) {
    for (const std::int32_t penWidth : {1, 2, 3}) {
        for (std::int32_t width = 1; width <= 4; ++width) {
            for (std::int32_t height = 1; height <= 4; ++height) {
                EXPECT_EQ(DifferingPies(width, height, {.width = penWidth, .color = 0x0000FF}), 0)
                    << width << " by " << height << ", pen " << penWidth;
            }
        }
    }
}

}  // namespace
}  // namespace tradebill::windows_small_pies_canvases_test
