// Every chart of the gallery, painted by the raster and by GDI in one process.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "cli/gallery_charts.h"
#include "comparison/windows/two_canvases.h"

namespace tradebill::windows_gallery_canvases_test {
namespace {

/// How a chart is looked at. What isn't told is as in the gallery.
struct View {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t dpi = 0;
};

CanvasComparison Compared(const GalleryChart& chart, const View& view) {
    const std::int32_t width = view.width > 0 ? view.width : chart.width;
    const std::int32_t height = view.height > 0 ? view.height : chart.height;
    CTwoCanvases canvases(width, height);
    canvases.PaintBoth([&](CCanvas& canvas) {
        const auto graph = chart.make();
        if (view.dpi > 0) graph->dpi = view.dpi;
        graph->DrawGraph(canvas, {0, 0, width, height});
    });
    return canvases.Compare();
}

void ExpectTheSame(const View& view) {
    for (const GalleryChart& chart : GalleryCharts()) {
        const CanvasComparison result = Compared(chart, view);
        // What is hidden behind texts isn't compared: of the gallery's own charts there must be more.
        const bool isOwnSize = view.width == 0;
        if (isOwnSize) {
            EXPECT_GT(result.compared, chart.width * chart.height / 10) << chart.fileName;
        }
        EXPECT_EQ(result.differing, 0) << chart.fileName << ", the first at (" << result.first.value_or(Point{}).x
                                       << ", " << result.first.value_or(Point{}).y << ")";
    }
}

TEST(GalleryCanvases, PaintEveryChartAlike) {
    ExpectTheSame({});
}

TEST(GalleryCanvases, PaintEveryChartAlikeAtOtherSizes) {
    ExpectTheSame({.width = 825, .height = 250});
    ExpectTheSame({.width = 97, .height = 161});
}

TEST(GalleryCanvases, PaintEveryChartAlikeAtOtherResolutions) {
    for (const std::int32_t dpi : {120, 144}) ExpectTheSame({.width = 600, .height = 350, .dpi = dpi});
}

TEST(TwoCanvases, FindWhatOneAlonePaintsOutsideOfTexts) {
    CTwoCanvases canvases(40, 30);
    Point other{10, 20};
    canvases.PaintBoth([&](CCanvas& canvas) {
        canvas.SetPixel({5, 6}, 0x0000FF);
        canvas.SetPixel(other, 0x0000FF);
        other = {11, 20};
    });
    const CanvasComparison result = canvases.Compare();
    EXPECT_EQ(result.compared, 40 * 30);
    EXPECT_EQ(result.differing, 2);
    EXPECT_EQ(result.first, (Point{10, 20}));
}

TEST(TwoCanvases, LeaveOutWhereTextsStand) {
    CTwoCanvases canvases(200, 100);
    bool isFirst = true;
    canvases.PaintBoth([&](CCanvas& canvas) {
        canvas.WriteText({50, 40}, isFirst ? "1111" : "8888");
        isFirst = false;
    });
    const CanvasComparison result = canvases.Compare();
    EXPECT_EQ(result.differing, 0);
    EXPECT_GT(result.compared, 0);
    EXPECT_LT(result.compared, 200 * 100);
}

TEST(TwoCanvases, MeasureTextsAlike) {
    CTwoCanvases canvases(1, 1);
    for (const std::int32_t cellHeight : {8, 11, 16, 33}) {
        for (const char* const text : {"", "0", "1,234.50%", "settlement day", "\xD6\xD0\xB9\xFA 12"}) {
            TextExtent first;
            TextMetrics metrics;
            bool isFirst = true;
            canvases.PaintBoth([&](CCanvas& canvas) {
                canvas.SelectFont({.face = "Tahoma", .cellHeight = cellHeight, .weight = 700});
                if (isFirst) first = canvas.MeasureText(text);
                if (isFirst) metrics = canvas.Metrics();
                isFirst = false;
                EXPECT_EQ(canvas.MeasureText(text).width, first.width) << cellHeight << " " << text;
                EXPECT_EQ(canvas.MeasureText(text).height, first.height) << cellHeight;
                EXPECT_EQ(canvas.Metrics().ascent, metrics.ascent) << cellHeight;
                EXPECT_EQ(canvas.Metrics().averageWidth, metrics.averageWidth) << cellHeight;
            });
        }
    }
}

}  // namespace
}  // namespace tradebill::windows_gallery_canvases_test
