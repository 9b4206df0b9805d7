#include "graph/graph_plane.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "paint/geometry.h"

namespace tradebill {

bool IsArea(const CGraph& graph) {
    return graph.graphType == kLineGraph && graph.fillArea == 1;
}

CPlotPlane::CPlotPlane(const CGraph& graph, const GraphLayout& layout)
    : graph_(graph),
      layout_(layout),
      left_(layout.xApexPoint - (layout.axes.isXCentred ? layout.xAxisWidth / 2 : 0)),
      bottom_(layout.yApexPoint + (layout.axes.isYCentred ? layout.yAxisHeight / 2 : 0)) {}

std::int32_t CPlotPlane::PointX(std::size_t position, std::size_t count) const {
    if (graph_.graphType == kBar3dGraph || graph_.graphType == kStackedBar3dGraph) return left_ + SlotMiddle(position);
    if (graph_.graphType == kLine3dGraph) return ToPixel((Slot() + 1.0) * static_cast<double>(position) + left_);
    if (!IsArea(graph_)) return LineX(position, count);
    const auto last = static_cast<std::int64_t>(std::max<std::size_t>(count, 2) - 1);
    return ToPixel(static_cast<double>(layout_.xAxisWidth / last) * (static_cast<double>(position) - 1) + left_);
}

std::int32_t CPlotPlane::LineX(std::size_t position, std::size_t count) const {
    if (position == 1) return left_;
    const double steps = static_cast<double>(position) - 1;
    return ToPixel((layout_.xAxisWidth - 10) / (static_cast<double>(count) - 1) * steps + left_);
}

std::int32_t CPlotPlane::Slot() const {
    const auto count = static_cast<std::int64_t>(graph_.graphSeries.size());
    return count > 0 ? static_cast<std::int32_t>(PositionLength() / count) : 0;
}

std::int32_t CPlotPlane::SlotMiddle(std::size_t position) const {
    return ToPixel(static_cast<double>(Slot()) * static_cast<double>(position)) - Slot() / 2;
}

Point CPlotPlane::At(std::int32_t along, std::int32_t height) const {
    return IsLying() ? Point{layout_.xApexPoint + height, bottom_ - along}
                     : Point{left_ + along, layout_.yApexPoint - height};
}

Box CPlotPlane::Bar(std::int32_t along, std::int32_t thickness, std::int32_t from, std::int32_t to) const {
    const Point first = At(along, from);
    const Point second = At(along + thickness, to);
    return {first.x, second.y, second.x, first.y};
}

/// A value just over the bottom lifts off the axis by the pixels of one unit.
std::int32_t CPlotPlane::LiftedHeight(double value, double scale) const {
    const double above = value - graph_.minTick;
    const std::int32_t height = ToPixel(above * scale);
    return above > 0.0 && height < 1 ? ToPixel(scale) : height;
}

std::int32_t CPlotPlane::BarHeight(double value) const {
    return LiftedHeight(value, (ValueLength() - 10) / (graph_.maxTick - graph_.minTick));
}

std::int32_t CPlotPlane::LineHeight(double value) const {
    const double range = graph_.maxTick - graph_.minTick;
    const double scale = ValueLength() / range;
    const std::int32_t height = LiftedHeight(value, scale);
    return !IsLying() && height > layout_.yApexPoint ? ToPixel(range * scale) + 5 : height;
}

std::int32_t CPlotPlane::SecondLineHeight(double value) const {
    const double range = graph_.maxTick2 - graph_.minTick2;
    const double scale = layout_.yAxisHeight / range;
    const std::int32_t height = ToPixel((value - graph_.minTick2) * scale);
    return height > layout_.yApexPoint ? ToPixel(range * scale) + 5 : height;
}

std::int32_t CPlotPlane::Limited(std::int32_t height) const {
    if (!layout_.axes.IsCentred()) return std::min(height, ValueLength());
    const std::int32_t half = std::max(ValueLength() / 2, 0);
    return std::clamp(height, -half, half);
}

}  // namespace tradebill
