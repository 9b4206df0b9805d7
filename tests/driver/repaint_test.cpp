// Repainting on a host's surface: where the part lands, what is cut off, and what the host is told.
#include "driver/repaint.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <new>
#include <stdexcept>

#include "base/report_error.h"
#include "driver/host_module.h"
#include "images/account_charts.h"
#include "paint/bitmap.h"
#include "paint/canvas.h"
#include "support/store_fixture.h"
#include "support/surface.h"

namespace tradebill::repaint_test {
namespace {

constexpr std::uint32_t kUntouched = 0x12345678;
constexpr std::uint32_t kFrame = 0xFF383838;  // of every chart

/// A finished report of two days without records: its charts are empty frames.
class Repainting : public StoreFixture {
protected:
    Repainting() {
        report.MoneyStore.StartDateText = "2024-01-02";
        report.MoneyStore.EndDateText = "2024-01-03";
    }

    void RepaintOn(ChartTarget* target, const ChartRect* rect, const PictureSize& size) const {
        Repaint(report, kEquityChart, target, rect, size);
    }

    /// How many pixels of the surface show the chart as it is painted into `rect` of an area of `size`, the area's
    /// pixel (0, 0) at `origin` of the surface.
    [[nodiscard]] int CountOfShown(const CSurface& surface, const PictureSize& surfaceSize, const ChartRect& rect,
                                   const PictureSize& size, const Point& origin) const {
        CBitmap area(size.width, size.height, 0);
        StretchAccountChart(*MakeCanvas(area), report, kEquityChart, {rect.Left, rect.Top, rect.Right, rect.Bottom});
        int count = 0;
        for (std::int32_t y = 0; y < surfaceSize.height; ++y) {
            for (std::int32_t x = 0; x < surfaceSize.width; ++x) {
                const Point at{x - origin.x, y - origin.y};
                const bool inArea = at.x >= 0 && at.y >= 0 && at.x < size.width && at.y < size.height;
                if (inArea && surface.At(x, y) == (area.Row(at.y)[at.x] | 0xFF000000)) ++count;
            }
        }
        return count;
    }
};

TEST_F(Repainting, DrawsARectangleOfTheWholeAreaAtTheOrigin) {
    CSurface surface(30, 20, kUntouched);
    const ChartRect rect{0, 0, 30, 20};
    RepaintOn(surface.Target(), &rect, {30, 20});
    EXPECT_EQ(surface.At(0, 0), kFrame);
    EXPECT_EQ(surface.CountOf(kUntouched), 0);
    EXPECT_EQ(CountOfShown(surface, {30, 20}, rect, {30, 20}, {0, 0}), 30 * 20);
    EXPECT_EQ(surface.LastStatus(), kChartDone);
}

// 10 by 5 in 30 by 20: at ((30 - 10) / 2, (20 - 5) / 2), which is 7 right of and 6 below where it was painted.
TEST_F(Repainting, CentresAPartOfTheArea) {
    CSurface surface(30, 20, kUntouched);
    const ChartRect rect{3, 1, 13, 6};
    RepaintOn(surface.Target(), &rect, {30, 20});
    EXPECT_NE(surface.At(10, 7), kUntouched);
    EXPECT_NE(surface.At(19, 11), kUntouched);
    EXPECT_EQ(surface.CountOf(kUntouched), 30 * 20 - 10 * 5);
    EXPECT_EQ(CountOfShown(surface, {30, 20}, rect, {30, 20}, {7, 6}), 10 * 5);
}

// A rectangle wider than the area begins left of it: (20 - 26) / 2 is -3. Only 20 columns of it were painted.
TEST_F(Repainting, CutsOffWhatLiesOutside) {
    CSurface surface(12, 4, kUntouched);
    const ChartRect rect{0, 0, 26, 4};
    RepaintOn(surface.Target(), &rect, {20, 4});
    EXPECT_EQ(CountOfShown(surface, {12, 4}, rect, {20, 4}, {-3, 0}), 12 * 4);
    const ChartRect beyond{-5, -5, 5, 5};  // 5 by 5 pixels of it lie on the area, and land at 5 more
    CSurface other(20, 20, kUntouched);
    RepaintOn(other.Target(), &beyond, {20, 20});
    EXPECT_EQ(other.CountOf(kUntouched), 20 * 20 - 5 * 5);
    EXPECT_EQ(CountOfShown(other, {20, 20}, beyond, {20, 20}, {10, 10}), 5 * 5);
    EXPECT_NE(other.At(10, 10), kUntouched);
    EXPECT_EQ(other.At(9, 10), kUntouched);
}

TEST_F(Repainting, DoesNothingWithoutTargetOrRectangle) {
    CSurface surface(8, 8, kUntouched);
    const ChartRect rect{0, 0, 8, 8};
    RepaintOn(nullptr, &rect, {8, 8});
    RepaintOn(surface.Target(), nullptr, {8, 8});
    for (const ChartRect& empty : {ChartRect{4, 0, 4, 8}, ChartRect{0, 4, 8, 4}, ChartRect{8, 0, 0, 8}}) {
        RepaintOn(surface.Target(), &empty, {8, 8});
    }
    EXPECT_EQ(surface.CountOf(kUntouched), 8 * 8);
    EXPECT_EQ(surface.LastStatus(), kChartDone);
}

TEST_F(Repainting, TellsOfAnAreaThatCannotBe) {
    const ChartRect rect{0, 0, 8, 8};
    for (const PictureSize& size : {PictureSize{0, 8}, {8, 0}, {-8, 8}, {30'000, 30'000}}) {
        CSurface surface(8, 8, kUntouched);
        RepaintOn(surface.Target(), &rect, size);
        EXPECT_EQ(surface.LastStatus(), kChartInvalidParameter) << size.width;
        EXPECT_EQ(surface.CountOf(kUntouched), 8 * 8);
    }
}

TEST_F(Repainting, LetsNoExceptionOut) {
    const ChartRect rect{0, 0, 8, 8};
    CSurface surface(8, 8, kUntouched);
    AccountChart chart = kEquityChart;
    chart.days = [](const CReport&) -> std::int32_t { throw CReportError(kErrorInvalidArgument); };
    Repaint(report, chart, surface.Target(), &rect, {8, 8});
    EXPECT_EQ(surface.LastStatus(), kChartWrongState);
    chart.days = [](const CReport&) -> std::int32_t { throw std::bad_alloc(); };
    Repaint(report, chart, surface.Target(), &rect, {8, 8});
    EXPECT_EQ(surface.LastStatus(), kChartOutOfMemory);
    chart.days = [](const CReport&) -> std::int32_t { throw std::runtime_error("any other"); };
    Repaint(report, chart, surface.Target(), &rect, {8, 8});
    EXPECT_EQ(surface.LastStatus(), kChartInvalidParameter);
    EXPECT_EQ(surface.CountOf(kUntouched), 8 * 8);
}

TEST_F(Repainting, TakesTheFurthestRectangles) {
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    CSurface surface(8, 8, kUntouched);
    for (const ChartRect& rect : {ChartRect{kLeast, kLeast, kMost, kMost}, ChartRect{kLeast, 0, 0, 8},
                                  ChartRect{0, 0, kMost, kMost}, ChartRect{kMost - 1, 0, kMost, 8}}) {
        RepaintOn(surface.Target(), &rect, {8, 8});
    }
    EXPECT_TRUE(surface.IsRoomUntouched());
}

TEST(ChartExports, TellThatThereWasNoReport) {
    TheModule().report.MoneyStore.StartDateText.clear();  // as before the first of all
    TheModule().report.MoneyStore.EndDateText.clear();
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
}  // namespace tradebill::repaint_test
