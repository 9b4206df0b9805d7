// How the rectangle is shared out among title, axes, tick rows and captions.
#include <algorithm>
#include <cmath>

#include "base/number.h"
#include "base/scale.h"
#include "base/text.h"
#include "graph/graph.h"
#include "graph/graph_measures.h"

namespace tradebill {
namespace {

std::int32_t WidthIn(CCanvas& canvas, const Font& font, std::string_view text) {
    const CFontScope scope(canvas, font);
    return text.empty() ? 0 : canvas.MeasureText(text).width;
}

}  // namespace

std::int32_t CGraph::Scaled(std::int32_t value) const {
    return ScaleByDpi(value, dpi);
}

Color CGraph::GroupColor(std::int32_t group) const {
    const auto index = static_cast<std::size_t>(group);
    return group >= 0 && index < colorList.size() ? colorList[index]->color : 0;
}

/// Ticks that are drawn; a scale of more would only be a black bar.
std::int32_t CGraph::TickCount() const {
    constexpr std::int32_t kMostTicks = 10'000;
    return std::min(numTicks, kMostTicks);
}

/// Tick rows with the spare ones above and below.
std::int32_t CGraph::Rows() const {
    return TickCount() + (topRowMode == 0 || topRowMode == 1 ? 1 : 0) + (baseRow == 1 ? 1 : 0);
}

double CGraph::TickStep() const {
    return static_cast<double>(yAxisHeight) / TickCount();
}

std::int32_t CGraph::TickY(std::int32_t tick) const {
    return ToPixel(yApexPoint - tick * TickStep());
}

/// X of a position, counted from 1, among `count` of them.
std::int32_t CGraph::PointX(std::size_t position, std::size_t count) const {
    if (position == 1) return xApexPoint;
    const double step = static_cast<double>(xAxisWidth - 10) / (static_cast<double>(count) - 1);
    return ToPixel(step * (static_cast<double>(position) - 1) + xApexPoint);
}

std::string CGraph::LeftTickText(std::int32_t tick) const {
    const double value = (tick * tickSpace + minTick) / valueDivisor;
    return std::string(CNumberText::Fixed(value, decimalDigits).View()).append(FieldText(valueSuffix));
}

/// As the layout measures it: the axis itself multiplies.
std::string CGraph::RightTickTextMeasured(std::int32_t tick) const {
    const double value = (tick * tickSpace2 + minTick2) / valueDivisor2;
    return std::string(CNumberText::Fixed(value, decimalDigits2).View()).append(FieldText(valueSuffix2));
}

/// The longest of the tick texts, the last one of several; the lowest tick isn't looked at.
template <class TextOfTick>
std::string CGraph::Longest(TextOfTick textOf) const {
    std::string longest;
    for (std::int32_t tick = 1; tick <= TickCount(); ++tick) {
        std::string text = textOf(tick);
        if (text.size() >= longest.size()) longest = std::move(text);
    }
    return longest;
}

void CGraph::LayOut(CCanvas& canvas, const TextExtent& title) {
    const Font tickFont = ChartFont(kTahoma, tickFontSize);
    const Font unitFont = ChartFont(kSong, tickFontSize);
    const std::int32_t left = WidthIn(canvas, tickFont, Longest([this](auto tick) { return LeftTickText(tick); }));
    const std::int32_t leftUnit = WidthIn(canvas, unitFont, FieldText(unitText));
    const std::int32_t yTitle = WidthIn(canvas, tickFont, axisYLabel);
    xApexPoint = ToPixel(outline.left + 10 + std::max(left, leftUnit) + yTitle * 1.5 + 20.0);

    if (xAxisAlign != 0) {
        axisBottom = maxHeight - xAxisLabelLength * (xLabelFontSize / 2) + outline.top - 15;
    } else if (!axisXLabel.empty()) {
        const CFontScope scope(canvas, tickFont);
        axisBottom = maxHeight - canvas.MeasureText(axisXLabel).height - Scaled(35) + outline.top;
    } else {
        axisBottom = maxHeight - Scaled(30) + outline.top;
    }
    plotHeight = axisBottom - Scaled(10) - outline.top;
    if (title.height > 0) plotHeight -= Scaled(10) + title.height;

    xAxisWidth = outline.left - xApexPoint + maxWidth - 20;
    if (dualAxis == 1) {
        const std::int32_t right =
            WidthIn(canvas, tickFont, Longest([this](auto tick) { return RightTickTextMeasured(tick); }));
        xAxisWidth -= std::max(right, WidthIn(canvas, unitFont, FieldText(unitText2)));
    }
    const std::int32_t row = Rows() > 0 ? plotHeight / Rows() : 0;
    yApexPoint = axisBottom - (baseRow == 1 ? row : 0);
    yAxisHeight = row * TickCount();
}

void CGraph::DrawGraph(CCanvas& canvas, const Box& rect) {
    canvas.SelectTextColor(kAxisColor);
    outline = rect;
    DrawFrame(canvas);
    maxHeight = rect.bottom - rect.top;
    maxWidth = rect.right - rect.left;
    const TextExtent title = DrawTitle(canvas);
    LayOut(canvas, title);
    if (graphHasGridLines == 1) DrawGridLines(canvas);
    hideAxisLabels = 0;
    DrawAxis(canvas);
    if (dualAxis == 1) {
        DrawRightAxis(canvas);
        if (graphType2 == 1) DrawSecondLine(canvas);
        if (graphType2 == 0) DrawSecondBars(canvas);
    }
    DrawSeries(canvas);
}

}  // namespace tradebill
