#include "paint/canvas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace tradebill::canvas_test {
namespace {

constexpr Color kRed = 0x0000FF;
constexpr Color kBlue = 0xFF0000;
constexpr std::uint32_t kRedPixel = 0xFF0000;
constexpr std::uint32_t kBluePixel = 0x0000FF;
constexpr std::uint32_t kWhitePixel = 0xFFFFFF;

struct Picture {
    CBitmap bitmap;
    std::unique_ptr<CCanvas> canvas;

    Picture(std::int32_t width, std::int32_t height) : bitmap(width, height, kWhite), canvas(MakeCanvas(bitmap)) {}

    [[nodiscard]] std::uint32_t At(std::int32_t x, std::int32_t y) const { return bitmap.Row(y)[x]; }
    [[nodiscard]] int Painted() const {
        int count = 0;
        for (const std::uint32_t pixel : bitmap.Pixels()) count += pixel != kWhitePixel ? 1 : 0;
        return count;
    }
};

TEST(Bitmap, LiesBottomUpInMemoryAndCountsRowsFromTheTop) {
    CBitmap bitmap(3, 2, kRed);
    bitmap.Row(0)[1] = kBluePixel;
    EXPECT_THAT(bitmap.Pixels(), testing::ElementsAre(kRedPixel, kRedPixel, kRedPixel,  //
                                                      kRedPixel, kBluePixel, kRedPixel));
}

TEST(Bitmap, HasNoPixelsWithoutASizeOrBeyondAllMeasure) {
    const struct {
        std::int32_t width;
        std::int32_t height;
    } cases[] = {{0, 5}, {5, 0}, {-1, 5}, {5, -1}, {1 << 15, 1 << 14}, {std::numeric_limits<std::int32_t>::max(), 2}};
    for (const auto& size : cases) {
        const CBitmap bitmap(size.width, size.height, kWhite);
        const bool fits = size.width > 0 && size.height > 0 && std::int64_t{size.width} * size.height <= (1 << 28);
        EXPECT_EQ(bitmap.Width() != 0, fits) << size.width << ' ' << size.height;
    }
}

TEST(Canvas, BeginsWithABlackThinPenAWhiteBrushAndThePositionAtTheCorner) {
    Picture picture(10, 10);
    picture.canvas->LineTo({3, 0});
    EXPECT_EQ(picture.At(0, 0), 0u);
    EXPECT_EQ(picture.At(2, 0), 0u);
    EXPECT_EQ(picture.At(3, 0), kWhitePixel);  // the last pixel is left out
    EXPECT_EQ(picture.canvas->SelectPen({}), (Pen{.width = 1, .color = 0}));
    EXPECT_EQ(picture.canvas->SelectBrush({}), Brush(kWhite));
}

TEST(Canvas, PaintsOverWithTheWhiteBrushAndLeavesAloneWithNone) {
    for (const bool hasBrush : {true, false}) {
        Picture picture(6, 6);
        picture.canvas->FillSolid({0, 0, 6, 6}, kBlue);
        if (!hasBrush) picture.canvas->SelectBrush({});
        picture.canvas->Rectangle({0, 0, 6, 6});
        EXPECT_EQ(picture.At(0, 0), 0u);
        EXPECT_EQ(picture.At(2, 2), hasBrush ? kWhitePixel : kBluePixel);
    }
}

TEST(Canvas, HandsBackWhatWasSelectedBefore) {
    Picture picture(4, 4);
    {
        const CPenScope pen(*picture.canvas, {.width = 3, .color = kRed});
        const CBrushScope brush(*picture.canvas, kBlue);
        const CPenScope inner(*picture.canvas, {.width = 5, .color = kBlue});
        EXPECT_EQ(picture.canvas->SelectPen({.width = 7, .color = 1}), (Pen{.width = 5, .color = kBlue}));
    }
    EXPECT_EQ(picture.canvas->SelectPen({}), (Pen{.width = 1, .color = 0}));
    EXPECT_EQ(picture.canvas->SelectBrush({}), Brush(kWhite));
}

TEST(Canvas, FillsNoShapeWithoutABrush) {
    constexpr std::int32_t kEdge = 20;
    const Box box{2, 2, 18, 18};
    const std::vector<Point> corners{{2, 2}, {18, 2}, {18, 18}, {2, 18}};
    const std::pair<Point, std::function<void(CCanvas&)>> shapes[] = {
        {{10, 10}, [&](CCanvas& canvas) { canvas.Ellipse(box); }},
        {{6, 7},
         [&](CCanvas& canvas) {
             canvas.Pie(box, {18, 2}, {2, 18});
         }},
        {{10, 10}, [&](CCanvas& canvas) { canvas.Polygon(corners); }},
        {{10, 10},
         [&](CCanvas& canvas) {
             canvas.BeginPath();
             canvas.MoveTo(corners.front());
             for (const Point& corner : corners) canvas.LineTo(corner);
             canvas.EndPath();
             canvas.FillPath();
         }},
    };
    for (const bool hasBrush : {true, false}) {
        for (const auto& [inside, paint] : shapes) {
            Picture picture(kEdge, kEdge);
            picture.canvas->FillSolid({0, 0, kEdge, kEdge}, kBlue);
            if (!hasBrush) picture.canvas->SelectBrush({});
            paint(*picture.canvas);
            EXPECT_EQ(picture.At(inside.x, inside.y), hasBrush ? kWhitePixel : kBluePixel);
        }
    }
}

TEST(Canvas, PaintsEachEllipseByItsOwnSize) {
    for (const Box& second : {Box{0, 0, 12, 9}, Box{0, 0, 9, 12}}) {
        Picture both(20, 20);
        both.canvas->Ellipse({0, 0, 12, 12});
        both.canvas->FillSolid({0, 0, 20, 20}, kWhite);
        both.canvas->Ellipse(second);
        Picture alone(20, 20);
        alone.canvas->Ellipse(second);
        for (std::int32_t y = 0; y < 20; ++y) {
            for (std::int32_t x = 0; x < 20; ++x) EXPECT_EQ(both.At(x, y), alone.At(x, y)) << x << ", " << y;
        }
    }
}

TEST(Canvas, TakesColorsWithRedInTheLowestByte) {
    Picture picture(2, 1);
    picture.canvas->SetPixel({0, 0}, 0x123456);
    EXPECT_EQ(picture.At(0, 0), 0x563412u);
}

/// Paints one shape of this number from random points.
void PaintShape(CCanvas& canvas, int shape, const std::vector<Point>& at) {
    const Box box{at[0].x, at[0].y, at[1].x, at[1].y};
    switch (shape) {
        case 0:
            canvas.MoveTo(at[0]);
            return canvas.LineTo(at[1]);
        case 1:
            return canvas.Rectangle(box);
        case 2:
            return canvas.Ellipse(box);
        case 3:
            return canvas.Pie(box, at[2], at[3]);
        case 4:
            return canvas.Polygon(at);
        case 5:
            return canvas.FillSolid(box, kBlue);
        default:
            canvas.BeginPath();
            canvas.MoveTo(at[0]);
            for (const Point& point : at) canvas.LineTo(point);
            canvas.EndPath();
            canvas.FillPath();
    }
}

constexpr int kEllipse = 2;
constexpr int kPie = 3;
constexpr int kShapes = 7;

#if defined(_WIN32)
// The system's own device contexts round a little otherwise at a clip what is round or wide.
constexpr std::int32_t kWidestExactPen = 1;
constexpr bool kIsRoundExact = false;
#else
constexpr std::int32_t kWidestExactPen = 6;
constexpr bool kIsRoundExact = true;
#endif

TEST(Canvas, ClipsWithoutBendingAnything) {
    constexpr std::int32_t kSmall = 16;
    constexpr std::int32_t kShift = 48;
    constexpr std::int32_t kLarge = kSmall + 2 * kShift;
    std::mt19937 random(7);
    std::uniform_int_distribution<std::int32_t> coordinate(2, kLarge - 3);
    for (int round = 0; round < 3000; ++round) {
        Picture large(kLarge, kLarge);
        Picture small(kSmall, kSmall);
        std::vector<Point> far(4);
        std::vector<Point> near(4);
        for (std::size_t i = 0; i < far.size(); ++i) {
            far[i] = {coordinate(random), coordinate(random)};
            near[i] = {far[i].x - kShift, far[i].y - kShift};
        }
        const bool isRound = round % kShapes == kEllipse || round % kShapes == kPie;
        if (isRound && !kIsRoundExact) continue;
        const std::int32_t width = round % 2 == 0 ? 1 : std::min(1 + round % 6, kWidestExactPen);
        for (const auto& [picture, at] : {std::pair{&large, &far}, std::pair{&small, &near}}) {
            picture->canvas->SelectPen({.width = width, .color = kRed});
            picture->canvas->SelectBrush(kBlue);
            PaintShape(*picture->canvas, round % kShapes, *at);
        }
        int differences = 0;
        for (std::int32_t y = 0; y < kSmall; ++y) {
            for (std::int32_t x = 0; x < kSmall; ++x) {
                differences += small.At(x, y) != large.At(x + kShift, y + kShift) ? 1 : 0;
            }
        }
        EXPECT_EQ(differences, 0) << "shape " << round % kShapes << ", width " << width << ", round " << round;
    }
}

TEST(Canvas, IsSafeWithCoordinatesAndPensOfAnySize) {
    constexpr std::int32_t kValues[] = {std::numeric_limits<std::int32_t>::min(),
                                        std::numeric_limits<std::int32_t>::min() + 1,
                                        -1'000'000,
                                        -1,
                                        0,
                                        5,
                                        40'000,
                                        std::numeric_limits<std::int32_t>::max() - 1,
                                        std::numeric_limits<std::int32_t>::max()};
    constexpr std::int32_t kWidths[] = {-5, 0, 1, 2, 1000, std::numeric_limits<std::int32_t>::max()};
    std::mt19937 random(11);
    const auto any = [&](const auto& values) { return values[random() % std::size(values)]; };
    for (int round = 0; round < 70; ++round) {
        Picture picture(20, 10);
        std::vector<Point> at(4);
        for (Point& point : at) point = {any(kValues), any(kValues)};
        picture.canvas->SelectPen({.width = any(kWidths), .color = kRed});
        picture.canvas->SelectBrush(round % 3 == 0 ? Brush() : Brush(kBlue));
        PaintShape(*picture.canvas, round % kShapes, at);
    }
}

TEST(Canvas, PaintsWhatIsSeenOfALineAcrossTheWorld) {
    constexpr std::int32_t kFar = std::numeric_limits<std::int32_t>::max();
    Picture picture(10, 10);
    picture.canvas->MoveTo({-kFar, -kFar});
    picture.canvas->LineTo({kFar, kFar});
    for (std::int32_t i = 0; i < 10; ++i) EXPECT_EQ(picture.At(i, i), 0u);
    EXPECT_EQ(picture.Painted(), 10);
}

TEST(Canvas, PaintsNothingOnABitmapWithoutPixels) {
    Picture picture(0, 0);
    for (int shape = 0; shape < kShapes; ++shape) {
        PaintShape(*picture.canvas, shape, {{0, 0}, {5, 5}, {1, 1}, {3, 3}});
    }
    EXPECT_EQ(picture.Painted(), 0);
}

TEST(Canvas, FillsAPathOnceAndForgetsIt) {
    Picture picture(12, 12);
    picture.canvas->SelectBrush(kBlue);
    const auto square = [&](std::int32_t from, std::int32_t to) {
        picture.canvas->MoveTo({from, from});
        picture.canvas->LineTo({to, from});
        picture.canvas->LineTo({to, to});
        picture.canvas->LineTo({from, to});
    };
    picture.canvas->FillPath();  // there is none
    EXPECT_EQ(picture.Painted(), 0);
    picture.canvas->BeginPath();
    square(1, 11);
    square(4, 8);  // a square in a square is a hole
    picture.canvas->EndPath();
    picture.canvas->FillPath();
    EXPECT_EQ(picture.Painted(), 10 * 10 - 4 * 4);
    picture.canvas->FillSolid({0, 0, 12, 12}, kWhite);
    picture.canvas->FillPath();
    EXPECT_EQ(picture.Painted(), 0);
}

/// The box of what isn't white; right and bottom are left out.
Box PaintedBox(const CBitmap& bitmap) {
    Box box{bitmap.Width(), bitmap.Height(), 0, 0};
    for (std::int32_t y = 0; y < bitmap.Height(); ++y) {
        for (std::int32_t x = 0; x < bitmap.Width(); ++x) {
            if (bitmap.Row(y)[x] == kWhitePixel) continue;
            box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                   std::max(box.bottom, y + 1)};
        }
    }
    return box;
}

TEST(Canvas, WritesTextInsideItsCells) {
    Picture picture(200, 60);
    picture.canvas->SelectFont({.face = "Arial", .cellHeight = 20, .weight = 700});
    picture.canvas->WriteText({30, 10}, "8888");
    const TextExtent extent = picture.canvas->MeasureText("8888");
    const Box box = PaintedBox(picture.bitmap);
    EXPECT_GE(box.left, 30);
    EXPECT_GE(box.top, 10);
    EXPECT_LE(box.right, 30 + extent.width);
    EXPECT_LE(box.bottom, 10 + extent.height);
    EXPECT_GT((box.right - box.left) * 2, extent.width);  // and fills most of them
    EXPECT_GT((box.bottom - box.top) * 2, extent.height);
}

TEST(Canvas, WhitensTheCellsOfAnOpaqueTextAlone) {
    for (const TextBackground background : {TextBackground::Opaque, TextBackground::Transparent}) {
        Picture picture(60, 40);
        picture.canvas->FillSolid({0, 0, 60, 40}, kBlue);
        picture.canvas->SelectFont({.face = "Arial", .cellHeight = 16});
        EXPECT_EQ(picture.canvas->SelectTextBackground(background), TextBackground::Opaque);
        picture.canvas->WriteText({10, 10}, "  ");
        const TextExtent extent = picture.canvas->MeasureText("  ");
        const bool isOpaque = background == TextBackground::Opaque;
        EXPECT_EQ(picture.At(10, 10), isOpaque ? kWhitePixel : kBluePixel);
        EXPECT_EQ(picture.At(10 + extent.width - 1, 10 + extent.height - 1), isOpaque ? kWhitePixel : kBluePixel);
        EXPECT_EQ(picture.At(9, 10), kBluePixel);
        EXPECT_EQ(picture.At(10, 9), kBluePixel);
        EXPECT_EQ(picture.At(10 + extent.width, 10), kBluePixel);
        EXPECT_EQ(picture.At(10, 10 + extent.height), kBluePixel);
    }
}

TEST(Canvas, WritesInItsTextColor) {
    Picture picture(60, 60);
    picture.canvas->SelectFont({.face = "Arial", .cellHeight = 48, .weight = 700});
    EXPECT_EQ(picture.canvas->SelectTextColor(kRed), 0u);
    picture.canvas->WriteText({5, 5}, "I");
    bool hasFullColor = false;
    for (const std::uint32_t pixel : picture.bitmap.Pixels()) {
        hasFullColor |= pixel == kRedPixel;
        EXPECT_EQ(pixel >> 16, 0xFFu);  // between white and red no pixel loses its red
    }
    EXPECT_TRUE(hasFullColor);
}

TEST(Canvas, TurnsTextCounterClockwiseAroundItsCorner) {
    Picture level(200, 200);
    Picture upright(200, 200);
    level.canvas->SelectFont({.face = "Arial", .cellHeight = 20});
    upright.canvas->SelectFont({.face = "Arial", .cellHeight = 20, .weight = 400, .escapement = 900});
    level.canvas->WriteText({100, 100}, "turned");
    upright.canvas->WriteText({100, 100}, "turned");
    const Box before = PaintedBox(level.bitmap);
    const Box after = PaintedBox(upright.bitmap);
    EXPECT_NEAR(after.left - 100, before.top - 100, 1);  // what lay below the corner lies to its right
    EXPECT_NEAR(after.right - 100, before.bottom - 100, 1);
    EXPECT_NEAR(100 - after.top, before.right - 100, 2);  // and what lay to the right above it
    EXPECT_EQ(upright.canvas->MeasureText("turned").width, level.canvas->MeasureText("turned").width);
}

TEST(Canvas, ClipsTextAnywhere) {
    Picture picture(20, 20);
    for (const std::int32_t at :
         {std::numeric_limits<std::int32_t>::min(), -10, 15, std::numeric_limits<std::int32_t>::max()}) {
        for (const std::int32_t escapement : {0, 450, -2'000'000'000}) {
            picture.canvas->SelectFont({.face = "Tahoma", .cellHeight = 16, .weight = 700, .escapement = escapement});
            picture.canvas->WriteText({at, at}, "clipped \xB9\xFA \xFF");
        }
    }
}

}  // namespace
}  // namespace tradebill::canvas_test
