#include "graph/row_labels.h"

#include <limits>

#include "graph/graph_measures.h"
#include "graph/graph_plane.h"

namespace tradebill {

void DrawRowLabels(const CGraph& graph, CCanvas& canvas, const RowLabelPlace& place) {
    const CPlotPlane plane(graph);
    const CFontScope font(canvas, ChartFont(kTahoma, graph.xLabelFontSize));
    std::int32_t lastTop = std::numeric_limits<std::int32_t>::max();
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        const std::int32_t y = plane.Bottom() - plane.SlotMiddle(position);
        DrawLineBetween(canvas, {place.tick - 3, y}, {place.tick + 3, y});
        const std::string& label = graph.graphSeries[position - 1]->seriesLabel;
        const TextExtent extent = canvas.MeasureText(label);
        const std::int32_t top = y - extent.height / 2;
        if (graph.hideAxisLabels != 0 || top + extent.height > lastTop) continue;
        canvas.WriteText({place.edge - extent.width - 5, top}, label);
        lastTop = top;
    }
}

void DrawLyingTitles(const CGraph& graph, CCanvas& canvas) {
    constexpr std::int32_t kUpwards = 900;
    const CPlotPlane plane(graph);
    const std::int32_t middle = plane.Bottom() - graph.yAxisHeight / 2;
    if (!graph.axisXLabel.empty()) {
        const CFontScope font(canvas, ChartFont(kTahoma, graph.AxisTitleHeight(), kUpwards));
        canvas.WriteText({graph.outline.left + 5, middle + canvas.MeasureText(graph.axisXLabel).width / 2},
                         graph.axisXLabel);
    }
    if (graph.axisYLabel.empty()) return;
    const CFontScope font(canvas, ChartFont(kTahoma, graph.AxisTitleHeight()));
    const TextExtent extent = canvas.MeasureText(graph.axisYLabel);
    const std::int32_t top =
        plane.Bottom() - graph.yAxisHeight - (AxisStyleOf(graph) == AxisStyle::Box ? graph.depth : 0);
    canvas.WriteText({plane.Left() + graph.xAxisWidth / 2 - extent.width / 2, top - extent.height - 5},
                     graph.axisYLabel);
}

}  // namespace tradebill
