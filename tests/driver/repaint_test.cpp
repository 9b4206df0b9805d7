// Repainting on a host's surface: where the part lands, what is cut off, and what the host is told.
#include "driver/repaint.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <new>

#include "base/report_error.h"
#include "support/store_fixture.h"
#include "support/surface.h"

namespace tradebill {
namespace {

constexpr std::uint32_t kUntouched = 0x12345678;
constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kBlue = 0xFF0000FF;

/// Red all over, with one blue pixel at the rectangle's left top corner.
void PaintRed(CCanvas& canvas, const Box& rect) {
    canvas.FillSolid(rect, 0x0000FF);
    canvas.SetPixel({rect.left, rect.top}, 0xFF0000);
}

TEST(Repaint, DrawsARectangleOfTheWholeAreaAtTheOrigin) {
    CSurface surface(30, 20, kUntouched);
    const ChartRect rect{0, 0, 30, 20};
    Repaint(surface.Target(), &rect, {30, 20}, PaintRed);
    EXPECT_EQ(surface.At(0, 0), kBlue);
    EXPECT_EQ(surface.At(29, 19), kRed);
    EXPECT_EQ(surface.CountOf(kRed), 30 * 20 - 1);
    EXPECT_EQ(surface.LastStatus(), kChartDone);
}

// 10 by 5 in 30 by 20: at ((30 - 10) / 2, (20 - 5) / 2).
TEST(Repaint, CentresAPartOfTheArea) {
    CSurface surface(30, 20, kUntouched);
    const ChartRect rect{3, 1, 13, 6};
    Repaint(surface.Target(), &rect, {30, 20}, PaintRed);
    EXPECT_EQ(surface.At(10, 7), kBlue);
    EXPECT_EQ(surface.At(19, 11), kRed);
    EXPECT_EQ(surface.CountOf(kRed), 10 * 5 - 1);
}

// A rectangle wider than the area begins left of it: (20 - 26) / 2 is -3. Only 20 columns of it were painted.
TEST(Repaint, CutsOffWhatLiesOutside) {
    CSurface surface(12, 4, kUntouched);
    const ChartRect rect{0, 0, 26, 4};
    Repaint(surface.Target(), &rect, {20, 4}, PaintRed);
    EXPECT_EQ(surface.CountOf(kRed), 12 * 4);
    const ChartRect beyond{-5, -5, 5, 5};  // 5 by 5 pixels of it lie on the area, and land at 5 more
    CSurface other(20, 20, kUntouched);
    Repaint(other.Target(), &beyond, {20, 20}, PaintRed);
    EXPECT_EQ(other.CountOf(kRed), 5 * 5);
    EXPECT_EQ(other.At(10, 10), kRed);
    EXPECT_EQ(other.At(9, 10), kUntouched);
}

TEST(Repaint, DoesNothingWithoutTargetOrRectangle) {
    CSurface surface(8, 8, kUntouched);
    const ChartRect rect{0, 0, 8, 8};
    Repaint(nullptr, &rect, {8, 8}, PaintRed);
    Repaint(surface.Target(), nullptr, {8, 8}, PaintRed);
    for (const ChartRect& empty : {ChartRect{4, 0, 4, 8}, ChartRect{0, 4, 8, 4}, ChartRect{8, 0, 0, 8}}) {
        Repaint(surface.Target(), &empty, {8, 8}, PaintRed);
    }
    EXPECT_EQ(surface.CountOf(kUntouched), 8 * 8);
    EXPECT_EQ(surface.LastStatus(), kChartDone);
}

TEST(Repaint, TellsOfAnAreaThatCannotBe) {
    const ChartRect rect{0, 0, 8, 8};
    for (const PictureSize& size : {PictureSize{0, 8}, {8, 0}, {-8, 8}, {30'000, 30'000}}) {
        CSurface surface(8, 8, kUntouched);
        Repaint(surface.Target(), &rect, size, PaintRed);
        EXPECT_EQ(surface.LastStatus(), kChartInvalidParameter) << size.width;
        EXPECT_EQ(surface.CountOf(kUntouched), 8 * 8);
    }
}

TEST(Repaint, LetsNoExceptionOut) {
    const ChartRect rect{0, 0, 8, 8};
    CSurface surface(8, 8, kUntouched);
    Repaint(surface.Target(), &rect, {8, 8}, [](CCanvas&, const Box&) { throw CReportError(kErrorInvalidArgument); });
    EXPECT_EQ(surface.LastStatus(), kChartWrongState);
    Repaint(surface.Target(), &rect, {8, 8}, [](CCanvas&, const Box&) { throw std::bad_alloc(); });
    EXPECT_EQ(surface.LastStatus(), kChartOutOfMemory);
    EXPECT_EQ(surface.CountOf(kUntouched), 8 * 8);
}

TEST(Repaint, TakesTheFurthestRectangles) {
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    CSurface surface(8, 8, kUntouched);
    for (const ChartRect& rect : {ChartRect{kLeast, kLeast, kMost, kMost}, ChartRect{kLeast, 0, 0, 8},
                                  ChartRect{0, 0, kMost, kMost}, ChartRect{kMost - 1, 0, kMost, 8}}) {
        Repaint(surface.Target(), &rect, {8, 8}, PaintRed);
    }
    EXPECT_TRUE(surface.IsRoomUntouched());
}

/// The four exports, before any report.
TEST_F(StoreFixture, ChartExportsTellThatThereWasNoReport) {
    const ChartRect rect{0, 0, 40, 30};
    for (auto* const stretch : {StretchZjGraph, StretchRiskAndProfit, StretchRisk, StretchOffsetGraph}) {
        CSurface surface(40, 30, kUntouched);
        stretch(surface.Target(), &rect, 40, 30);
        EXPECT_EQ(surface.LastStatus(), kChartWrongState);
        EXPECT_EQ(surface.CountOf(kUntouched), 40 * 30);
        stretch(nullptr, &rect, 40, 30);
    }
}

}  // namespace
}  // namespace tradebill
