// Labels of the X axis, thinned out.
#include "graph/graph.h"
#include "graph/graph_measures.h"

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

}  // namespace

void CGraph::DrawXTick(CCanvas& canvas, std::int32_t x) const {
    DrawLineBetween(canvas, {x, axisBottom - 3}, {x, axisBottom + 3});
}

void CGraph::DrawXLabels(CCanvas& canvas) {
    const std::size_t count = graphSeries.size();
    std::int32_t averageWidth = 0;
    {
        const CFontScope font(canvas, ChartFont(kTahoma, AxisTitleHeight()));
        averageWidth = canvas.Metrics().averageWidth;  // of the axis titles, not of the labels
    }
    const CFontScope font(canvas, ChartFont(kTahoma, xLabelFontSize, xAxisAlign * 10));
    std::int32_t lastRight = 0;
    Box lastLabel;
    for (std::size_t position = 1; position <= count; ++position) {
        const std::string& label = graphSeries[position - 1]->seriesLabel;
        const std::int32_t x = PointX(position, count);
        const std::int32_t width = static_cast<std::int32_t>(label.size()) * averageWidth;
        xAxisLast = x;
        if (xAxisAlign != 0) {
            const Point at = xAxisAlign >= 180
                                 ? Point{x + 2, yApexPoint + 8}
                                 : Point{x - 8, xAxisLabelLength * canvas.Metrics().averageWidth + yApexPoint + 8};
            canvas.WriteText(at, label);
            continue;
        }
        const Point at{x - width / 2, axisBottom + 8};
        if (avoidLabelOverlap != 0) {
            DrawXTick(canvas, x);
            const Box box{at.x, at.y, x + width / 2, at.y + canvas.MeasureText(label).height};
            if (position > 1 && (Holds(lastLabel, at) || Holds(lastLabel, {at.x, box.bottom}))) continue;
            canvas.WriteText(at, label);
            lastLabel = box;
            continue;
        }
        const bool isRegular = count <= kAllShown || position == 1 || (position - 1) % LabelInterval(count) == 0;
        const bool isLast = position == count && x - lastRight >= width / 2;
        if (!isRegular && !isLast) continue;
        if (isRegular && position > 1) lastRight = x + width / 2;
        DrawXTick(canvas, x);
        canvas.WriteText(at, label);
    }
}

}  // namespace tradebill
