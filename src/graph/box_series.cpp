#include "graph/box_series.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/number.h"
#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr double kBoxShare = 0.8;
constexpr Pen kMedianPen{.width = 1, .color = 0x0000FF};
constexpr std::int32_t kCap = 3;
constexpr std::int32_t kHalfStem = 2;

/// Of rising numbers; at least one.
std::int32_t MiddleOf(std::span<const std::int32_t> numbers) {
    const std::size_t half = numbers.size() / 2;
    if (numbers.size() % 2 != 0) return numbers[half];
    const std::int32_t below = numbers[half - 1];
    return below + (numbers[half] - below) / 2;
}

struct FiveNumbers {
    std::int32_t least, lowerQuartile, median, upperQuartile, greatest;
};

/// A half without numbers, of a single one, is that number.
FiveNumbers Summarize(std::span<const std::int32_t> numbers) {
    const std::size_t half = std::max<std::size_t>(numbers.size() / 2, 1);
    return {numbers.front(), MiddleOf(numbers.first(half)), MiddleOf(numbers), MiddleOf(numbers.last(half)),
            numbers.back()};
}

std::vector<std::int32_t> RisingValues(const CGraphSeries& series) {
    std::vector<std::int32_t> numbers;
    for (const auto& data : series.dataValues) {
        if (data->yValue > -1.0) numbers.push_back(TruncateToInt32(data->yValue));
    }
    std::ranges::sort(numbers);
    return numbers;
}

/// Heights of whole numbers, in whole pixels a tick.
struct BoxScale {
    double minTick;
    double tickSpace;
    std::int32_t tickPixels;

    [[nodiscard]] std::int32_t HeightOf(std::int32_t value) const {
        return ToPixel((value - minTick) / tickSpace * tickPixels);
    }
};

BoxScale BoxScaleOf(const CGraph& graph, const CPlotPlane& plane) {
    const std::int32_t count = graph.TickCount();
    return {graph.minTick, graph.tickSpace, count > 0 ? (plane.ValueLength() - 10) / count : 0};
}

void DrawBoxPlot(CCanvas& canvas, const CPlotPlane& plane, const BoxScale& scale, std::size_t position,
                 const FiveNumbers& numbers) {
    const std::int32_t thickness = ToPixel(plane.Slot() * kBoxShare);
    const std::int32_t along = plane.SlotMiddle(position) - thickness / 2;
    const std::int32_t stem = along + thickness / 2 - kHalfStem;
    const std::int32_t least = scale.HeightOf(numbers.least);
    const std::int32_t greatest = scale.HeightOf(numbers.greatest);
    const std::int32_t lower = scale.HeightOf(numbers.lowerQuartile);
    const std::int32_t upper = scale.HeightOf(numbers.upperQuartile);
    const std::int32_t median = scale.HeightOf(numbers.median);
    const CBrushScope brush(canvas, Color{0});
    canvas.Rectangle(plane.Bar(along, thickness, greatest - kCap, greatest));
    canvas.Rectangle(plane.Bar(along, thickness, least, least + kCap));
    canvas.Rectangle(plane.Bar(stem, 2 * kHalfStem, least, greatest));
    canvas.Rectangle(plane.Bar(along, thickness, lower, upper));
    const CPenScope pen(canvas, kMedianPen);
    DrawLineBetween(canvas, plane.At(along, median), plane.At(along + thickness, median));
}

}  // namespace

void DrawBoxSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CPlotPlane plane(graph, layout);
    const BoxScale scale = BoxScaleOf(graph, plane);
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        const std::vector<std::int32_t> numbers = RisingValues(*graph.graphSeries[position - 1]);
        if (!numbers.empty()) DrawBoxPlot(canvas, plane, scale, position, Summarize(numbers));
    }
}

}  // namespace tradebill
