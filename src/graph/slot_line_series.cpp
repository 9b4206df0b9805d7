#include "graph/slot_line_series.h"

#include <cstddef>
#include <cstdint>
#include <optional>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {

void DrawSlotLineSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CPlotPlane plane(graph, layout);
    for (std::int32_t group = 0; group < graph.Groups(); ++group) {
        const CPenScope pen(canvas, {.width = 2, .color = graph.GroupColor(group)});
        std::optional<Point> last;
        for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
            const auto value = ValueToDraw(*graph.graphSeries[position - 1], group);
            if (!value) continue;
            const Point at = plane.At(plane.SlotMiddle(position), plane.LineHeight(*value));
            if (last) DrawLineBetween(canvas, *last, at);
            last = at;
        }
    }
}

}  // namespace tradebill
