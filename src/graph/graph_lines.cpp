// The line with dots.
#include "graph/graph.h"
#include "graph/graph_measures.h"
#include "graph/value_labels.h"

namespace tradebill {

std::int32_t CGraph::LabelGap() const {
    return valueGapDivisor != 0 ? screenWidth / valueGapDivisor : 0;
}

/// Pixels above the lowest tick on the left axis.
std::int32_t CGraph::HeightOf(double value) const {
    const double scale = yAxisHeight / (maxTick - minTick);
    std::int32_t height = ToPixel((value - minTick) * scale);
    if (value - minTick > 0.0 && height < 1) height = ToPixel(scale);  // a value just over the bottom lifts off
    if (height > yApexPoint) height = ToPixel((maxTick - minTick) * scale) + 5;  // it would leave the image
    return height;
}

void CGraph::DrawLineSeries(CCanvas& canvas) {
    const CFontScope font(canvas, ChartFont(kTahoma, tickFontSize));
    const std::size_t count = graphSeries.size();
    for (std::int32_t group = 0; group < seriesSize; ++group) {
        CValueLabels labels(markerRadius, LabelGap());
        Point previous;
        for (std::size_t position = 1; position <= count; ++position) {
            const double value = graphSeries[position - 1]->ValueOf(group);
            const Point at{PointX(position, count), yApexPoint - HeightOf(value)};
            DrawPoint(canvas, GroupColor(group), position > 1 ? &previous : nullptr, at);
            if (showValues == 1) {
                labels.Place(canvas, {at, PointX(position + 1, count), position == 1, position == count},
                             ShownValue(value, valueDivisor, decimalDigits));
            }
            previous = at;
            labels.PassPoint(at);
        }
    }
}

/// The segment that arrives at a point, and its dot, outlined by the pen in use.
void CGraph::DrawPoint(CCanvas& canvas, Color color, const Point* previous, Point at) const {
    if (previous != nullptr) {
        const CPenScope pen(canvas, {.width = lineWidth, .color = color});
        DrawLineBetween(canvas, *previous, at);
    }
    const CBrushScope brush(canvas, color);
    canvas.Ellipse({at.x - markerRadius, at.y - markerRadius, at.x + markerRadius, at.y + markerRadius});
}

void CGraph::DrawSeries(CCanvas& canvas) {
    if (graphType == kLineGraph && fillArea != 1) DrawLineSeries(canvas);
}

}  // namespace tradebill
