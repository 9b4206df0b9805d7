// How the rectangle is shared out among title, axes, tick rows and captions: in full for upright charts, with fixed
// margins for those whose values run along X, and not at all for pies.
#include <algorithm>
#include <cmath>

#include "base/number.h"
#include "base/scale.h"
#include "base/text.h"
#include "graph/graph.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "paint/text_block.h"

namespace tradebill {
namespace {

std::int32_t WidthIn(CCanvas& canvas, const Font& font, std::string_view text) {
    const CFontScope scope(canvas, font);
    return canvas.MeasureText(text).width;
}

/// Of a title or caption, which may have several lines.
TextExtent BlockIn(CCanvas& canvas, const Font& font, std::string_view text) {
    const CFontScope scope(canvas, font);
    return MeasureTextBlock(canvas, text);
}

}  // namespace

std::int32_t CGraph::Scaled(std::int32_t value) const {
    return ScaleByDpi(value, dpi);
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
    if (IsPie(graphType)) {
        LayOutPies();
        return;
    }
    if (IsLying(*this) || graphType == kScatterGraph) {
        LayOutNumeric(canvas);
    } else {
        LayOutUpright(canvas, title);
    }
    MoveApexToQuadrant();
}

void CGraph::LayOutUpright(CCanvas& canvas, const TextExtent& title) {
    const Font tickFont = ChartFont(kTahoma, tickFontSize);
    const Font unitFont = ChartFont(kSong, tickFontSize);
    const std::int32_t left = WidthIn(canvas, tickFont, Longest([this](auto tick) { return LeftTickText(tick); }));
    const std::int32_t leftUnit = BlockIn(canvas, unitFont, FieldText(unitText)).width;
    const std::int32_t yTitle = BlockIn(canvas, tickFont, axisYLabel).width;
    const std::int32_t xTitle = BlockIn(canvas, tickFont, axisXLabel).height;
    xApexPoint = ToPixel(outline.left + 10 + std::max(left, leftUnit) + yTitle * 1.5 + 20.0);

    if (xAxisAlign != 0) {
        axisBottom =
            ToPixel(maxHeight - static_cast<double>(xAxisLabelLength) * (xLabelFontSize / 2)) + outline.top - 15;
    } else if (xTitle != 0) {
        axisBottom = maxHeight - xTitle - Scaled(35) + outline.top;
    } else {
        axisBottom = maxHeight - Scaled(30) + outline.top;
    }
    plotHeight = axisBottom - Scaled(10) - outline.top;
    if (title.height > 0) plotHeight -= Scaled(10) + title.height;

    xAxisWidth = outline.left - xApexPoint + maxWidth - 20;
    if (dualAxis == 1) {
        const std::int32_t right =
            WidthIn(canvas, tickFont, Longest([this](auto tick) { return RightTickTextMeasured(tick); }));
        xAxisWidth -= std::max(right, BlockIn(canvas, unitFont, FieldText(unitText2)).width);
    }
    const std::int32_t row = Rows() > 0 ? plotHeight / Rows() : 0;
    yApexPoint = axisBottom - (baseRow == 1 ? row : 0);
    yAxisHeight = row * TickCount();
}

/// Lying charts and scattered dots: room for labels of a length told beforehand at the left, for numbers below.
void CGraph::LayOutNumeric(CCanvas& canvas) {
    const CFontScope font(canvas, ChartFont(kTahoma, graphType == kLineGraph ? tickFontSize : AxisTitleHeight()));
    const TextMetrics metrics = canvas.Metrics();
    const std::string& sideTitle = IsLying(*this) ? axisXLabel : axisYLabel;
    const std::int32_t titleGap = sideTitle.empty() ? 0 : metrics.height + 10;
    const std::string longest = Longest([this](auto tick) { return LeftTickText(tick); });
    xApexPoint = ToPixel(static_cast<double>(xAxisLabelLength) * metrics.averageWidth) + outline.left + titleGap + 5;
    yApexPoint = maxHeight - metrics.height + outline.top - 15;
    yAxisHeight = yApexPoint - outline.top - 50;
    xAxisWidth = ToPixel(maxWidth - tickFontSize / 2 * static_cast<double>(LengthOf(longest))) - 65;
    axisBottom = yApexPoint;
    plotHeight = yAxisHeight;
}

void CGraph::LayOutPies() {
    xAxisWidth = maxWidth - 10;
    yAxisHeight = maxHeight - 50;
    xApexPoint = outline.left + 5;
    yApexPoint = maxHeight + outline.top - 5;
    axisBottom = yApexPoint;
    plotHeight = yAxisHeight;
}

/// Bars can have their quadrant found: by the least position and value of the first data of each series.
std::int32_t CGraph::DetectQuadrant() const {
    std::int32_t leastX = 0;
    std::int32_t leastY = 0;
    for (const auto& series : graphSeries) {
        if (series->dataValues.empty()) continue;
        leastX = std::min(leastX, series->dataValues.front()->xPosition);
        leastY = std::min(leastY, ToPixel(series->dataValues.front()->yValue));
    }
    if (leastX < 0) return leastY < 0 ? 4 : 2;
    return leastY < 0 ? 3 : 1;
}

void CGraph::MoveApexToQuadrant() {
    if (quadSetManually == 0 && graphType == kBarGraph) graphQuadType = DetectQuadrant();
    if (IsXCentred(*this)) xApexPoint += xAxisWidth / 2;
    if (IsYCentred(*this)) yApexPoint -= yAxisHeight / 2;
}

}  // namespace tradebill
