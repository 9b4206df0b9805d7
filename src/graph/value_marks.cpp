#include "graph/value_marks.h"

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

#include "base/number.h"
#include "graph/axis_arrangement.h"
#include "graph/graph.h"
#include "graph/graph_measures.h"

namespace tradebill {
namespace {

std::string TextAt(const CGraph& graph, const AxisArrangement& axes, std::int32_t tick, double tickSpace) {
    if (tick == 0 && axes.IsCentred()) return "0";
    return PatternText(tick * tickSpace + graph.minTick);
}

/// Whole pixels apart; in the other quadrants half as many ticks, with a line between each two.
std::vector<ValueMark> ScatterMarks(const CGraph& graph, const AxisArrangement& axes, const ValueAxis& axis) {
    const bool isHalved = axes.IsCentred();
    const std::int32_t ticks = graph.TickCount() / (isHalved ? 2 : 1);
    if (ticks < 1) return {};
    const std::int32_t reach = (axis.length - axis.margin) / (axis.isCentred ? 2 : 1);
    const std::int32_t spacing = reach / ticks;
    const double tickSpace = graph.tickSpace * (isHalved ? 2 : 1);
    std::vector<ValueMark> marks;
    for (std::int32_t tick = axis.isCentred ? -ticks : 0; tick <= ticks; ++tick) {
        const bool isFirst = marks.empty();
        if (isHalved && !isFirst) marks.push_back({tick * spacing - spacing / 2, {}, true});
        marks.push_back({tick * spacing, TextAt(graph, axes, tick, tickSpace), false});
    }
    return marks;
}

}  // namespace

std::string PatternText(double value) {
    const auto lowHalf = static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(value));
    return std::string(CNumberText(static_cast<std::int32_t>(lowHalf)).View());
}

std::vector<ValueMark> MarksOf(const CGraph& graph, const AxisArrangement& axes, const ValueAxis& axis) {
    if (graph.graphType == kScatterGraph) return ScatterMarks(graph, axes, axis);
    const std::int32_t count = graph.TickCount();
    if (count < 1) return {};
    const double step = static_cast<double>(axis.length) / count;
    const std::int32_t last = axis.isCentred ? count / 2 : count;
    std::vector<ValueMark> marks;
    for (std::int32_t tick = axis.isCentred ? -last : 0; tick <= last; ++tick) {
        marks.push_back({ToPixel(tick * step), TextAt(graph, axes, tick, graph.tickSpace), false});
    }
    return marks;
}

}  // namespace tradebill
