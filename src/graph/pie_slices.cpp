#include "graph/pie_slices.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/number.h"
#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr std::int32_t kQuarter = 90;

/// The factor that the charts are drawn with, a little less than pi / 180.
constexpr double kRadiansPerDegree = 0.017453277777777776;

std::int32_t SineOf(std::int32_t radius, std::int32_t degrees) {
    return ToPixel(radius * std::sin(degrees * kRadiansPerDegree));
}

/// Strictly inside of where another text may stand.
bool BeginsInside(const CGraphPieLabel& label, const CGraphPieLabel& other, const PieMeasures& measures) {
    return label.topLeftX > other.topLeftX && label.topLeftX < other.topLeftX + measures.labelWidth &&
           label.topLeftY > other.topLeftY && label.topLeftY < other.topLeftY + measures.lineHeight;
}

bool IsInUpperHalf(std::int32_t quadrant) {
    return quadrant == 2 || quadrant == 3;
}

void MoveClear(CGraphPieLabel& label, const CGraphPieLabel& other, std::int32_t lineHeight) {
    const std::int32_t step = IsInUpperHalf(label.quadrant) ? -lineHeight : lineHeight;
    label.topLeftY = other.topLeftY + step;
    label.lineYEnd = other.lineYEnd + step;
}

void DrawCaption(CCanvas& canvas, const PieCircle& circle, const PieMeasures& measures, const std::string& label) {
    canvas.WriteText({circle.Middle().x - WidthInBytes(label) * 8 / 2,
                      circle.middleY + ToPixel(1.5 * circle.radius) + measures.lineHeight + 15},
                     label);
}

void DrawLabels(CCanvas& canvas, const std::vector<CGraphPieLabel>& labels) {
    const CBrushScope brush(canvas, Color{0});
    for (const CGraphPieLabel& label : labels) {
        DrawLineBetween(canvas, {label.lineXStart, label.lineYStart}, {label.lineXEnd, label.lineYEnd});
        canvas.WriteText({label.topLeftX, label.topLeftY}, label.pieLabel);
    }
}

}  // namespace

PieMeasures MeasurePie(const CCanvas& canvas) {
    const TextMetrics metrics = canvas.Metrics();
    return {.labelWidth = metrics.maxWidth + 10, .lineHeight = metrics.height + 6};
}

Box PieCircle::Bounds() const {
    return {left, middleY - radius, left + 2 * radius, middleY + radius};
}

Point PieCircle::DiamondPoint(std::int32_t degrees) const {
    const auto offset = static_cast<std::int32_t>(std::int64_t{degrees} * radius / kQuarter);
    switch (degrees / kQuarter) {
        case 0:
            return {left + offset, middleY + offset};
        case 1:
            return {left + offset, middleY + 2 * radius - offset};
        case 2:
            return {left + 4 * radius - offset, middleY + 2 * radius - offset};
        case 3:
            return {left + 4 * radius - offset, middleY + offset - 4 * radius};
        default:
            return Start();
    }
}

Point PieCircle::RimPoint(std::int32_t degrees) const {
    const std::int32_t angle = degrees % kQuarter;
    const std::int32_t along = SineOf(radius, angle);
    const std::int32_t across = SineOf(radius, kQuarter - angle);
    const auto [x, y] = Middle();
    switch (degrees / kQuarter) {
        case 0:
            return {x - across, y + along};
        case 1:
            return {x + along, y + across};
        case 2:
            return {x + across, y - along};
        case 3:
            return {x - along, y - across};
        default:
            return Start();
    }
}

PieCircle CircleOf(const CGraph& graph, const GraphLayout& layout, const PieMeasures& measures, std::size_t position) {
    const auto count = static_cast<std::int64_t>(graph.graphSeries.size());
    const std::int64_t share = std::min(layout.xAxisWidth, layout.yAxisHeight) / count;
    const auto radius = std::max(static_cast<std::int32_t>((share - std::int64_t{3} * measures.labelWidth) / 3), 0);
    const std::int32_t middleY = (layout.yAxisHeight + 60) / 2;
    if (count == 1) return {layout.xAxisWidth / 2 + layout.xApexPoint - radius, middleY, radius};
    const std::int64_t middleX = layout.xAxisWidth / count / 2 * (2 * static_cast<std::int64_t>(position) - 1);
    return {static_cast<std::int32_t>(middleX) + layout.xApexPoint - radius + 15, middleY, radius};
}

std::vector<PieSlice> SlicesOf(const CGraphSeries& series, std::int32_t groups) {
    double total = 0;
    for (std::int32_t group = 0; group < groups; ++group) total += ValueToDraw(series, group).value_or(0.0);
    const auto degreesAt = [total](double run) { return ToPixel(run / total * 100 * 360 / 100); };
    std::vector<PieSlice> slices;
    double run = 0;
    for (std::int32_t group = 0; group < groups; ++group) {
        const double whole = ValueToDraw(series, group).value_or(0.0);
        if (!(whole > 0.0)) continue;
        const double value = std::trunc(whole);
        const std::int32_t start = degreesAt(run);
        run += value;
        slices.push_back({group, start, degreesAt(run - value / 2), degreesAt(run), ToPixel(value * 100 / total)});
    }
    return slices;
}

CGraphPieLabel LabelOf(const PieCircle& circle, const PieMeasures& measures, const PieSlice& slice, Point edge) {
    const std::int32_t quadrant = std::clamp(slice.middleDegrees / kQuarter, 0, 3);
    const bool isRight = quadrant == 1 || quadrant == 2;
    const std::int32_t reach = circle.radius / 2;
    const Point middle = circle.Middle();
    const Point start{(edge.x + middle.x) / 2, (edge.y + middle.y) / 2};
    const Point end{start.x + (isRight ? reach : -reach), start.y + (IsInUpperHalf(quadrant) ? -reach : reach)};
    return {.lineXStart = start.x,
            .lineYStart = start.y,
            .lineXEnd = end.x,
            .lineYEnd = end.y,
            .topLeftX = isRight ? end.x + 5 : end.x - measures.labelWidth,
            .topLeftY = end.y - (IsInUpperHalf(quadrant) ? measures.lineHeight : 0),
            .quadrant = quadrant,
            .pieLabel = std::string(CNumberText(slice.percent).View()) + "%"};
}

/// A label moves one way only, so it comes to rest.
void SpreadLabels(std::vector<CGraphPieLabel>& labels, const PieMeasures& measures) {
    for (std::size_t index = 1; index < labels.size(); ++index) {
        for (std::size_t other = 0; other < index;) {
            if (BeginsInside(labels[index], labels[other], measures)) {
                MoveClear(labels[index], labels[other], measures.lineHeight);
                other = 0;
            } else {
                ++other;
            }
        }
    }
}

void DrawPies(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, const PieForm& form) {
    const PieMeasures measures = MeasurePie(canvas);
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        const CGraphSeries& series = *graph.graphSeries[position - 1];
        const PieCircle circle = CircleOf(graph, layout, measures, position);
        const std::vector<PieSlice> slices = SlicesOf(series, graph.Groups());
        DrawCaption(canvas, circle, measures, series.seriesLabel);
        if (circle.radius > 0) form.drawSlices(canvas, graph, circle, slices);
        std::vector<CGraphPieLabel> labels;
        labels.reserve(slices.size());
        for (const PieSlice& slice : slices) {
            labels.push_back(LabelOf(circle, measures, slice, (circle.*form.edgePoint)(slice.middleDegrees)));
        }
        SpreadLabels(labels, measures);
        DrawLabels(canvas, labels);
    }
}

}  // namespace tradebill
