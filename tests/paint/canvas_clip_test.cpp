#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "paint/canvas.h"

namespace tradebill::canvas_clip_test {
namespace {

constexpr Color kRed = 0x0000FF;
constexpr std::uint32_t kWhitePixel = 0xFFFFFF;
constexpr std::int32_t kSize = 60;
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

struct Picture {
    CBitmap bitmap{kSize, kSize, kWhite};
    std::unique_ptr<CCanvas> canvas = MakeCanvas(bitmap);

    [[nodiscard]] int Painted() const {
        int count = 0;
        for (const std::uint32_t pixel : bitmap.Pixels()) count += pixel != kWhitePixel ? 1 : 0;
        return count;
    }
};

/// One of each thing that paints, all across the picture.
void PaintShape(CCanvas& canvas, int shape) {
    const std::vector<Point> corners{{2, 3}, {57, 8}, {50, 55}, {5, 40}};
    canvas.SelectBrush(0x123456);
    switch (shape) {
        case 0:
            canvas.MoveTo({1, 2});
            return canvas.LineTo({58, 50});
        case 1:
            return canvas.Rectangle({2, 2, 58, 58});
        case 2:
            return canvas.Ellipse({1, 5, 58, 55});
        case 3:
            return canvas.Pie({0, 0, 60, 60}, {60, 30}, {30, 60});
        case 4:
            return canvas.Polygon(corners);
        case 5:
            return canvas.FillSolid({0, 0, 60, 60}, kRed);
        case 6:
            for (const Point& corner : corners) canvas.SetPixel(corner, kRed);
            return canvas.SetPixel({15, 25}, kRed);
        case 7:
            canvas.BeginPath();
            for (const Point& corner : corners) canvas.LineTo(corner);
            canvas.EndPath();
            return canvas.FillPath();
        default:
            canvas.SelectFont({.face = "Arial", .cellHeight = 30, .weight = 700, .escapement = shape == 8 ? 0 : 100});
            return canvas.WriteText({0, 12}, "clipped");
    }
}

constexpr int kShapes = 10;

TEST(CanvasClip, HidesWhatIsOutsideAndBendsNothingInside) {
    const Box clip{12, 20, 40, 41};
    for (int shape = 0; shape < kShapes; ++shape) {
        for (const std::int32_t penWidth : {1, 5}) {
            Picture whole;
            Picture clipped;
            clipped.canvas->SelectClip(clip);
            for (Picture* const picture : {&whole, &clipped}) {
                picture->canvas->SelectPen({.width = penWidth, .color = kRed});
                PaintShape(*picture->canvas, shape);
            }
            int differences = 0;
            for (std::int32_t y = 0; y < kSize; ++y) {
                for (std::int32_t x = 0; x < kSize; ++x) {
                    const bool isInside = x >= 12 && x < 40 && y >= 20 && y < 41;
                    const std::uint32_t expected = isInside ? whole.bitmap.Row(y)[x] : kWhitePixel;
                    differences += clipped.bitmap.Row(y)[x] != expected ? 1 : 0;
                }
            }
            EXPECT_EQ(differences, 0) << "shape " << shape << ", pen " << penWidth;
            EXPECT_GT(clipped.Painted(), 0) << "shape " << shape << ", pen " << penWidth;
        }
    }
}

TEST(CanvasClip, IsNoneAtFirstAndHandsBackWhatWasThere) {
    Picture picture;
    EXPECT_EQ(picture.canvas->SelectClip(Box{1, 2, 3, 4}), Clip());
    EXPECT_EQ(picture.canvas->SelectClip({}), (Clip(Box{1, 2, 3, 4})));
    picture.canvas->FillSolid({0, 0, kSize, kSize}, kRed);
    EXPECT_EQ(picture.Painted(), kSize * kSize);
}

TEST(CanvasClip, HidesAllWithoutAnInside) {
    for (const Box& clip : {Box{10, 10, 10, 20}, Box{20, 10, 10, 20}, Box{10, 20, 20, 20}, Box{10, 20, 20, 10},
                            Box{kSize, 0, kMost, kSize}, Box{kLeast, kLeast, 0, 0}}) {
        Picture picture;
        picture.canvas->SelectClip(clip);
        for (int shape = 0; shape < kShapes; ++shape) PaintShape(*picture.canvas, shape);
        EXPECT_EQ(picture.Painted(), 0) << clip.left << ' ' << clip.top << ' ' << clip.right << ' ' << clip.bottom;
    }
}

TEST(CanvasClip, ReachesNoFurtherThanTheBitmap) {
    Picture picture;
    picture.canvas->SelectClip(Box{kLeast, kLeast, kMost, kMost});
    picture.canvas->FillSolid({kLeast, kLeast, kMost, kMost}, kRed);
    EXPECT_EQ(picture.Painted(), kSize * kSize);
    for (int shape = 0; shape < kShapes; ++shape) PaintShape(*picture.canvas, shape);
}

TEST(CanvasClip, OfAScopeNarrowsTheOneAroundItAndEndsWithIt) {
    Picture picture;
    {
        const CClipScope outer(*picture.canvas, {10, 10, 30, 30});
        {
            const CClipScope inner(*picture.canvas, {20, 0, 50, 15});
            picture.canvas->FillSolid({0, 0, kSize, kSize}, kRed);
            EXPECT_EQ(picture.Painted(), 10 * 5);
        }
        picture.canvas->FillSolid({0, 0, kSize, kSize}, kRed);
        EXPECT_EQ(picture.Painted(), 20 * 20);
    }
    EXPECT_EQ(picture.canvas->SelectClip({}), Clip());
}

}  // namespace
}  // namespace tradebill::canvas_clip_test
