// Labels of the X axis, thinned out.
#include "base/number.h"
#include "graph/graph.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"

namespace tradebill {
namespace {

constexpr std::size_t kAllShown = 5;

/// Every so many positions have a label: five to eight of them, however many there are.
std::size_t LabelInterval(std::size_t count) {
    if (count <= kAllShown) return 1;
    return count / kAllShown >= 2 ? count / kAllShown : 2;
}

bool Holds(const Box& box, Point point) {
    return point.x >= box.left && point.x < box.right && point.y >= box.top && point.y < box.bottom;
}

std::int32_t LabelWidth(const std::string& label, std::int32_t averageWidth) {
    return ToPixel(static_cast<double>(LengthOf(label)) * averageWidth);
}

}  // namespace

/// Bands and crossed axes have their ticks at the lowest value, above the spare row.
std::int32_t CGraph::XTickY() const {
    return AxisStyleOf(*this) != AxisStyle::Plain || IsArea(*this) ? yApexPoint : axisBottom;
}

/// Labels stay out of a plot whose axis runs through its middle.
std::int32_t CGraph::XLabelY() const {
    return (AxisStyleOf(*this) == AxisStyle::Plain && IsArea(*this) ? yApexPoint : axisBottom) + 8;
}

void CGraph::DrawXTick(CCanvas& canvas, std::int32_t x) const {
    const std::int32_t y = XTickY();
    if (AxisStyleOf(*this) == AxisStyle::Box) {
        const std::int32_t outward = ToPixel(depth * 0.2);
        DrawLineBetween(canvas, {x, y}, {x - outward, y + outward});
    } else {
        DrawLineBetween(canvas, {x, y - 3}, {x, y + 3});
    }
}

void CGraph::DrawXLabels(CCanvas& canvas) {
    std::int32_t averageWidth = 0;
    {
        const CFontScope font(canvas, ChartFont(kTahoma, AxisTitleHeight()));
        averageWidth = canvas.Metrics().averageWidth;  // of the axis titles, not of the labels
    }
    const CFontScope font(canvas, ChartFont(kTahoma, xLabelFontSize, WrapMultiply(xAxisAlign, 10)));
    if (xAxisAlign != 0) {
        DrawTurnedLabels(canvas);
    } else if (avoidLabelOverlap != 0) {
        DrawLabelsApart(canvas, averageWidth);
    } else {
        DrawThinnedLabels(canvas, averageWidth);
    }
}

/// All of them, without ticks.
void CGraph::DrawTurnedLabels(CCanvas& canvas) {
    const CPlotPlane plane(*this);
    const std::int32_t reserved = ToPixel(static_cast<double>(xAxisLabelLength) * canvas.Metrics().averageWidth);
    for (std::size_t position = 1; position <= graphSeries.size(); ++position) {
        const std::int32_t x = plane.PointX(position, graphSeries.size());
        const Point at = xAxisAlign >= 180 ? Point{x + 2, yApexPoint + 8} : Point{x - 8, reserved + yApexPoint + 8};
        canvas.WriteText(at, graphSeries[position - 1]->seriesLabel);
        xAxisLast = x;
    }
}

/// A tick for each, and each label that doesn't begin inside the one before.
void CGraph::DrawLabelsApart(CCanvas& canvas, std::int32_t averageWidth) {
    const CPlotPlane plane(*this);
    Box lastLabel;
    for (std::size_t position = 1; position <= graphSeries.size(); ++position) {
        const std::string& label = graphSeries[position - 1]->seriesLabel;
        const std::int32_t x = plane.PointX(position, graphSeries.size());
        const std::int32_t halfWidth = LabelWidth(label, averageWidth) / 2;
        const Box box{x - halfWidth, XLabelY(), x + halfWidth, XLabelY() + canvas.MeasureText(label).height};
        DrawXTick(canvas, x);
        xAxisLast = x;
        if (position > 1 && (Holds(lastLabel, {box.left, box.top}) || Holds(lastLabel, {box.left, box.bottom})))
            continue;
        canvas.WriteText({box.left, box.top}, label);
        lastLabel = box;
    }
}

/// Ticks and labels at every so many positions, and at the last one if there is room.
void CGraph::DrawThinnedLabels(CCanvas& canvas, std::int32_t averageWidth) {
    const CPlotPlane plane(*this);
    const std::size_t count = graphSeries.size();
    std::int32_t lastRight = 0;
    for (std::size_t position = 1; position <= count; ++position) {
        const std::string& label = graphSeries[position - 1]->seriesLabel;
        const std::int32_t x = plane.PointX(position, count);
        const std::int32_t halfWidth = LabelWidth(label, averageWidth) / 2;
        xAxisLast = x;
        const bool isRegular = position == 1 || (position - 1) % LabelInterval(count) == 0;
        const bool isLast = position == count && x - lastRight >= halfWidth;
        if (!isRegular && !isLast) continue;
        if (isRegular && position > 1) lastRight = x + halfWidth;
        DrawXTick(canvas, x);
        canvas.WriteText({x - halfWidth, XLabelY()}, label);
    }
}

}  // namespace tradebill
