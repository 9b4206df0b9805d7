// Any numbers, texts and settings in a chart of any kind: it is painted within its bitmap, and painted twice is the
// same.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/text.h"
#include "fuzz_target.h"
#include "graph/graph.h"
#include "paint/bitmap.h"
#include "paint/canvas.h"

namespace tradebill {
namespace {

constexpr std::int32_t kKinds[] = {kBarGraph,    kLineGraph,       kPieGraph,          kScatterGraph,
                                   kBoxGraph,    kStackedBarGraph, kSlotLineGraph,     kBar3dGraph,
                                   kLine3dGraph, kPie3dGraph,      kStackedBar3dGraph, 7};
constexpr std::size_t kMostPositions = 12;
constexpr std::int32_t kMostGroups = 4;

/// Mostly what charts show: any double only now and then.
double TakeValue(CFuzzInput& input) {
    switch (input.Choice(4)) {
        case 0:
            return input.Amount();
        case 1:
            return input.Integer();
        case 2:
            return static_cast<std::int8_t>(input.Byte());
        default:
            return input.Byte() / 16.0;
    }
}

std::int32_t TakeSmall(CFuzzInput& input) {
    return input.Choice(16) == 15 ? input.Integer() : static_cast<std::int8_t>(input.Byte());
}

void TakeScale(CGraph& graph, CFuzzInput& input) {
    for (double* const value : {&graph.tickSpace, &graph.minTick, &graph.maxTick, &graph.tickSpace2, &graph.minTick2,
                                &graph.maxTick2, &graph.valueDivisor, &graph.valueDivisor2, &graph.depthRatio}) {
        if (input.Choice(2) == 1) *value = TakeValue(input);
    }
}

void TakeSettings(CGraph& graph, CFuzzInput& input) {
    for (std::int32_t* const setting :
         {&graph.numTicks,         &graph.graphType2,        &graph.graphAlignment,    &graph.decimalDigits,
          &graph.decimalDigits2,   &graph.seriesSize,        &graph.seriesSize2,       &graph.xAxisAlign,
          &graph.xAxisLabelLength, &graph.graphHasGridLines, &graph.graphQuadType,     &graph.quadSetManually,
          &graph.depthShiftX,      &graph.depthShiftY,       &graph.lineWidth,         &graph.fillArea,
          &graph.midLineThick,     &graph.markerRadius,      &graph.avoidLabelOverlap, &graph.showValues,
          &graph.valueGapDivisor,  &graph.dualAxis,          &graph.legendKind2,       &graph.topRowMode,
          &graph.baseRow,          &graph.rightBorder,       &graph.swatchTitle,       &graph.dpi}) {
        if (input.Choice(4) == 3) *setting = TakeSmall(input);
    }
}

void TakeSeries(SeriesList& list, std::int32_t groups, CFuzzInput& input) {
    const std::size_t positions = input.Choice(kMostPositions);
    for (std::size_t i = 0; i < positions; ++i) {
        auto series = std::make_unique<CGraphSeries>();
        for (std::int32_t group = 0; group < groups; ++group) series->SetData(group, TakeValue(input));
        list.push_back(std::move(series));
    }
}

void TakeTexts(CGraph& graph, CFuzzInput& input) {
    for (std::string* const text : {&graph.graphTitle, &graph.graphTitle2, &graph.axisXLabel, &graph.axisYLabel}) {
        *text = input.Text();
    }
    CopyField(graph.unitText, input.Text());
    CopyField(graph.valueSuffix, input.Text());
    for (const auto& series : graph.graphSeries) series->seriesLabel = input.Text();
}

std::unique_ptr<CGraph> MakeGraph(CFuzzInput& input) {
    auto graph = std::make_unique<CGraph>(0);
    graph->graphType = RowOf(kKinds, input);
    graph->seriesSize = static_cast<std::int32_t>(input.Choice(kMostGroups));
    graph->seriesSize2 = static_cast<std::int32_t>(input.Choice(2));
    TakeSeries(graph->graphSeries, graph->seriesSize, input);
    TakeSeries(graph->graphSeries2, graph->seriesSize2, input);
    TakeScale(*graph, input);
    TakeSettings(*graph, input);
    TakeTexts(*graph, input);
    return graph;
}

CBitmap Painted(const CGraph& graph, const Box& rect, std::int32_t side) {
    CBitmap bitmap(side, side, kWhite);
    const auto canvas = MakeCanvas(bitmap);
    static_cast<void>(graph.DrawGraph(*canvas, rect));
    return bitmap;
}

}  // namespace

void FuzzChart(std::string_view bytes) {
    CFuzzInput input(bytes);
    const std::int32_t side = 40 + input.Byte();
    const bool isWhole = input.Choice(4) != 3;
    const Box rect =
        isWhole ? Box{0, 0, side, side} : Box{TakeSmall(input), TakeSmall(input), TakeSmall(input), TakeSmall(input)};
    const auto graph = MakeGraph(input);
    const CBitmap one = Painted(*graph, rect, side);
    const CBitmap other = Painted(*graph, rect, side);
    Require(std::ranges::equal(one.Pixels(), other.Pixels()), "a chart painted twice is the same");
}

}  // namespace tradebill
