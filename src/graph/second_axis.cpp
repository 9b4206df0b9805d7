#include "graph/second_axis.h"

#include <cstdint>
#include <string>

#include "base/number.h"
#include "base/text.h"
#include "graph/axis_titles.h"
#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "paint/canvas.h"

namespace tradebill {
namespace {

/// In per cent: the rule of this axis, whatever the divisor.
std::string RightTickText(const CGraph& graph, std::int32_t tick) {
    constexpr double kPerCent = 100.0;
    const double value = (tick * graph.tickSpace2 + graph.minTick2) * kPerCent;
    return std::string(CNumberText::Fixed(value, graph.decimalDigits2).View()).append(FieldText(graph.valueSuffix2));
}

void DrawRightTicks(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, std::int32_t x) {
    const CFontScope font(canvas, ChartFont(kTahoma, graph.tickFontSize));
    for (std::int32_t tick = 0; tick <= graph.TickCount(); ++tick) {
        const std::int32_t y = TickY(graph, layout, tick);
        DrawLineBetween(canvas, {x - kHalfTick, y}, {x + kHalfTick, y});
        const std::string text = RightTickText(graph, tick);
        canvas.WriteText({x + 10, y - canvas.MeasureText(text).height / 2}, text);
    }
}

}  // namespace

void DrawSecondAxis(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const std::int32_t x = layout.xAxisWidth + layout.xApexPoint - 10;
    {
        const CPenScope pen(canvas, kAxisPen);
        DrawLineBetween(canvas, {x, layout.axisBottom}, {x, ToPixel(TopOfRows(graph, layout))});
    }
    DrawYTitle(canvas, graph, layout);  // once more, where it stands already
    DrawRightTicks(canvas, graph, layout, x);
    const CFontScope font(canvas, ChartFont(kSong, graph.tickFontSize));
    canvas.SelectTextBackground(TextBackground::Transparent);
    canvas.WriteText({x, layout.axisBottom - layout.plotHeight}, " " + std::string(FieldText(graph.unitText2)) + " ");
}

}  // namespace tradebill
