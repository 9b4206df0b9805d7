// Grid, axes, ticks and captions of an upright chart in the first quadrant, and its right axis.
#include <algorithm>
#include <optional>
#include <string>

#include "base/number.h"
#include "base/text.h"
#include "graph/graph.h"
#include "graph/graph_axes.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "paint/text_block.h"

namespace tradebill {
namespace {

constexpr std::int32_t kHalfTick = 3;

}  // namespace

/// Axes that aren't plain bring their own grid.
void CGraph::DrawGridLines(CCanvas& canvas) {
    const AxisStyle style = AxisStyleOf(*this);
    if (style == AxisStyle::Crossed || style == AxisStyle::Box) return;
    const std::int32_t xEnd = xAxisWidth + xApexPoint - 10;
    if (graphSeries.size() < 2) xAxisLast = xEnd;
    for (std::int32_t tick = 0; tick <= TickCount(); ++tick) {
        const bool isThick = midLineThick == 1 && tick == numTicks / 2;
        const CPenScope pen(canvas, {.width = isThick ? 3 : 1, .color = kGridColor});
        DrawLineBetween(canvas, {xApexPoint, TickY(tick)}, {xEnd, TickY(tick)});
    }
    const std::int32_t top = TickY(topRowMode == 1 ? TickCount() + 1 : TickCount());
    const CPlotPlane plane(*this);
    const CPenScope pen(canvas, {.width = 1, .color = kGridColor});
    std::optional<std::int32_t> last;  // where positions are many, several fall on one column
    for (std::size_t position = 2; position <= graphSeries.size(); ++position) {
        const std::int32_t x = plane.PointX(position, graphSeries.size());
        if (x != last) DrawLineBetween(canvas, {x, top}, {x, axisBottom});
        last = x;
    }
}

void CGraph::DrawAxis(CCanvas& canvas) {
    const AxisStyle style = AxisStyleOf(*this);
    if (style == AxisStyle::None) return;
    canvas.SelectTextColor(kAxisColor);
    const CFontScope font(canvas, ChartFont(kTahoma, 12));
    if (style == AxisStyle::Plain) DrawPlainAxes(canvas);
    if (style == AxisStyle::Crossed) DrawCrossedAxes(*this, canvas);
    if (style == AxisStyle::Box) DrawBoxAxes(*this, canvas);
    if (IsLying(*this)) return;
    if (style == AxisStyle::Crossed) DrawYTitle(canvas);
    if (style != AxisStyle::Plain) DrawXTitle(canvas);
    if (graphType != kScatterGraph) DrawXLabels(canvas);
}

void CGraph::DrawPlainAxes(CCanvas& canvas) {
    DrawAxisLines(canvas);
    DrawYTitle(canvas);
    DrawXTitle(canvas);
    DrawLeftTicks(canvas);
    if (unitText[0] == '\0') return;
    const CFontScope unitFont(canvas, ChartFont(kSong, tickFontSize));
    const std::string caption = " " + std::string(FieldText(unitText)) + " ";
    canvas.SelectTextBackground(TextBackground::Transparent);
    canvas.WriteText({xApexPoint - canvas.MeasureText(caption).width, axisBottom - plotHeight}, caption);
}

void CGraph::DrawAxisLines(CCanvas& canvas) const {
    const CPenScope pen(canvas, kAxisPen);
    const double lineTop = axisBottom - Rows() * TickStep();
    DrawLineBetween(canvas, {xApexPoint, axisBottom}, {xApexPoint, ToPixel(lineTop)});
    const bool isClosed = dualAxis == 1 || rightBorder == 1;
    const std::int32_t xEnd = xApexPoint + xAxisWidth + (isClosed ? -10 : 5);  // past the last point by 15
    const std::int32_t top = ToPixel(lineTop + 1.0);
    DrawLineBetween(canvas, {xApexPoint, axisBottom}, {xEnd, axisBottom});
    if (topRowMode == 1) DrawLineBetween(canvas, {xApexPoint, top}, {xEnd, top});
    if (dualAxis != 1 && rightBorder == 1) DrawLineBetween(canvas, {xEnd, top}, {xEnd, axisBottom});
}

/// The height that the axis titles fit in.
std::int32_t CGraph::AxisTitleHeight() const {
    const bool isUpright = maxWidth > maxHeight;
    const auto length = static_cast<std::int64_t>((isUpright ? axisYLabel : axisXLabel).size());
    const std::int64_t side = isUpright ? maxHeight : maxWidth;
    std::int32_t height = 16;
    if (length * 8 <= side) return height;
    while (height > 0 && height / 2 * length > side) height -= 2;
    return height;
}

void CGraph::DrawYTitle(CCanvas& canvas) const {
    if (axisYLabel.empty()) return;
    const CFontScope font(canvas, ChartFont(kTahoma, AxisTitleHeight()));
    const std::int32_t height = MeasureTextBlock(canvas, axisYLabel).height;
    const CPlotPlane plane(*this);
    WriteTextBlock(canvas, {outline.left + 10, plane.Bottom() - height / 2 - yAxisHeight / 2}, axisYLabel);
}

/// Under the labels; scattered dots leave no room there, and have it over the end of the axis.
void CGraph::DrawXTitle(CCanvas& canvas) const {
    if (axisXLabel.empty()) return;
    const CFontScope font(canvas, ChartFont(kTahoma, AxisTitleHeight()));
    const CPlotPlane plane(*this);
    if (graphType == kScatterGraph) {
        const TextExtent extent = canvas.MeasureText(axisXLabel);
        canvas.WriteText({plane.Left() + xAxisWidth - extent.width, plane.Bottom() - extent.height - 5}, axisXLabel);
        return;
    }
    const double halfWidth = static_cast<double>(LengthOf(axisXLabel) / 2) * canvas.Metrics().averageWidth;
    canvas.WriteText({xAxisWidth / 2 - ToPixel(halfWidth) + plane.Left(), plane.Bottom() + 25}, axisXLabel);
}

void CGraph::DrawLeftTicks(CCanvas& canvas) {
    const CFontScope font(canvas, ChartFont(kTahoma, tickFontSize));
    for (std::int32_t tick = 0; tick <= TickCount(); ++tick) {
        const std::int32_t y = TickY(tick);
        DrawLineBetween(canvas, {xApexPoint - kHalfTick, y}, {xApexPoint + kHalfTick, y});
        const std::string text = LeftTickText(tick);
        const TextExtent extent = canvas.MeasureText(text);
        canvas.WriteText({xApexPoint - extent.width - 10, y - extent.height / 2}, text);
        yAxisLast = y;
    }
}

void CGraph::DrawRightAxis(CCanvas& canvas) {
    constexpr double kPerCent = 100.0;  // the rule of this axis, whatever the divisor
    const std::int32_t xRight = xAxisWidth + xApexPoint - 10;
    {
        const CPenScope pen(canvas, kAxisPen);
        DrawLineBetween(canvas, {xRight, axisBottom}, {xRight, ToPixel(axisBottom - Rows() * TickStep())});
    }
    DrawYTitle(canvas);  // once more, where it stands already
    {
        const CFontScope font(canvas, ChartFont(kTahoma, tickFontSize));
        for (std::int32_t tick = 0; tick <= TickCount(); ++tick) {
            const std::int32_t y = TickY(tick);
            DrawLineBetween(canvas, {xRight - kHalfTick, y}, {xRight + kHalfTick, y});
            const double value = (tick * tickSpace2 + minTick2) * kPerCent;
            const std::string text =
                std::string(CNumberText::Fixed(value, decimalDigits2).View()).append(FieldText(valueSuffix2));
            canvas.WriteText({xRight + 10, y - canvas.MeasureText(text).height / 2}, text);
        }
    }
    const CFontScope font(canvas, ChartFont(kSong, tickFontSize));
    canvas.SelectTextBackground(TextBackground::Transparent);
    canvas.WriteText({xRight, axisBottom - plotHeight}, " " + std::string(FieldText(unitText2)) + " ");
}

}  // namespace tradebill
