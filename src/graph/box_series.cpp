// Box plots: whiskers to the ends of a position's values, a box between their quartiles, a line at the median.
#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

#include "graph/graph_measures.h"
#include "graph/graph_painters.h"
#include "graph/graph_plane.h"

namespace tradebill {
namespace {

constexpr double kBoxShare = 0.8;
constexpr Pen kMedianPen{.width = 1, .color = 0x0000FF};
constexpr std::int32_t kCap = 3;
constexpr std::int32_t kHalfStem = 2;

std::int32_t WholeNumber(double value) {
    constexpr std::int32_t kEnd = std::numeric_limits<std::int32_t>::max();
    return value >= kEnd ? kEnd : static_cast<std::int32_t>(value);
}

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
        if (data->yValue > -1.0) numbers.push_back(WholeNumber(data->yValue));
    }
    std::ranges::sort(numbers);
    return numbers;
}

class CBoxPainter {
public:
    CBoxPainter(const CGraph& graph, CCanvas& canvas)
        : graph_(graph),
          canvas_(canvas),
          plane_(graph),
          thickness_(ToPixel(plane_.Slot() * kBoxShare)),
          tickPixels_(graph.TickCount() > 0 ? (plane_.ValueLength() - 10) / graph.TickCount() : 0) {}

    void Draw(std::size_t position, const FiveNumbers& numbers) {
        const std::int32_t along = plane_.SlotMiddle(position) - thickness_ / 2;
        const std::int32_t least = HeightOf(numbers.least);
        const std::int32_t greatest = HeightOf(numbers.greatest);
        const std::int32_t median = HeightOf(numbers.median);
        const CBrushScope brush(canvas_, Color{0});
        canvas_.Rectangle(plane_.Bar(along, thickness_, greatest - kCap, greatest));
        canvas_.Rectangle(plane_.Bar(along, thickness_, least, least + kCap));
        canvas_.Rectangle(plane_.Bar(along + thickness_ / 2 - kHalfStem, 2 * kHalfStem, least, greatest));
        canvas_.Rectangle(
            plane_.Bar(along, thickness_, HeightOf(numbers.lowerQuartile), HeightOf(numbers.upperQuartile)));
        const CPenScope pen(canvas_, kMedianPen);
        DrawLineBetween(canvas_, plane_.At(along, median), plane_.At(along + thickness_, median));
    }

private:
    /// Whole pixels a tick.
    [[nodiscard]] std::int32_t HeightOf(std::int32_t value) const {
        return ToPixel((value - graph_.minTick) / graph_.tickSpace * tickPixels_);
    }

    const CGraph& graph_;
    CCanvas& canvas_;
    CPlotPlane plane_;
    std::int32_t thickness_;
    std::int32_t tickPixels_;
};

}  // namespace

void DrawBoxSeries(CGraph& graph, CCanvas& canvas) {
    CBoxPainter painter(graph, canvas);
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        const std::vector<std::int32_t> numbers = RisingValues(*graph.graphSeries[position - 1]);
        graph.seriesSize = static_cast<std::int32_t>(numbers.size());
        if (!numbers.empty()) painter.Draw(position, Summarize(numbers));
    }
}

}  // namespace tradebill
