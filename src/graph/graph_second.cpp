// The secondary series, scaled against the right axis: bars between the points of the line, or a line of its own.
#include "graph/graph.h"
#include "graph/graph_measures.h"
#include "graph/value_labels.h"

namespace tradebill {
namespace {

constexpr double kHighFrom = 50.0;  // of the shown value

}  // namespace

void CGraph::CollectPointX(std::vector<std::int32_t>& positions) const {
    positions.clear();
    for (std::size_t position = 1; position <= graphSeries.size(); ++position) {
        positions.push_back(PointX(position, graphSeries.size()));
    }
}

Color CGraph::SecondColor(double value) const {
    return value / valueDivisor2 > kHighFrom ? color2High : color2Low;
}

void CGraph::DrawSecondBars(CCanvas& canvas) {
    std::vector<std::int32_t> positions;
    CollectPointX(positions);
    if (positions.size() != graphSeries2.size() + 1) return;
    for (std::size_t bar = 0; bar < graphSeries2.size(); ++bar) {
        for (std::int32_t group = 0; group < seriesSize; ++group) {
            const CGraphDataSet* const data = graphSeries2[bar]->FindData(group);
            if (data != nullptr && !(data->yValue > -1.0)) continue;
            DrawSecondBar(canvas, positions[bar], positions[bar + 1], data != nullptr ? data->yValue : 0.0);
        }
    }
}

/// A full bar stops ten pixels short of the top tick.
void CGraph::DrawSecondBar(CCanvas& canvas, std::int32_t x0, std::int32_t x1, double value) const {
    const double scale = (yAxisHeight - 10) / (maxTick2 - minTick2);
    std::int32_t height = ToPixel((value - minTick2) * scale);
    if (value - minTick2 > 0.0 && height < 1) height = 1;
    const std::int32_t top = yApexPoint - (height > yAxisHeight ? yAxisHeight : height);
    const std::int32_t inset = (x1 - x0) / 6;
    {
        const CBrushScope brush(canvas, SecondColor(value));
        canvas.Rectangle({x0 + inset, top, x1 - inset, yApexPoint});
    }
    if (showValues != 1) return;
    const std::string text = ShownValue(value, valueDivisor2, decimalDigits2);
    const TextExtent extent = canvas.MeasureText(text);
    canvas.SelectTextBackground(TextBackground::Transparent);
    const std::int32_t middle = x0 + (x1 - x0) / 2;
    const std::int32_t left = middle - extent.width / 2;
    if (left > x0 && middle + extent.width / 2 < x1) canvas.WriteText({left, top - extent.height - 5}, text);
}

void CGraph::DrawSecondLine(CCanvas& canvas) {
    if (seriesSize2 < 1) return;
    const CFontScope font(canvas, ChartFont(kTahoma, tickFontSize));
    const std::size_t count = graphSeries2.size();
    const double scale = yAxisHeight / (maxTick2 - minTick2);
    for (std::int32_t group = 0; group < seriesSize2; ++group) {
        CValueLabels labels(markerRadius, LabelGap());
        Point previous;
        for (std::size_t position = 1; position <= count; ++position) {
            const double value = graphSeries2[position - 1]->ValueOf(group);
            std::int32_t height = ToPixel((value - minTick2) * scale);
            if (height > yApexPoint) height = ToPixel((maxTick2 - minTick2) * scale) + 5;
            const Point at{PointX(position, count), yApexPoint - height};
            DrawPoint(canvas, SecondColor(value), position > 1 ? &previous : nullptr, at);
            if (showValues == 1) {
                labels.Place(canvas, {at, PointX(position + 1, count), position == 1, position == count},
                             ShownValue(value, valueDivisor2, decimalDigits2));
            }
            previous = at;
            labels.PassPoint(at);
        }
    }
}

}  // namespace tradebill
