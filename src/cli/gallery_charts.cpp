#include "cli/gallery_charts.h"

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/scale.h"
#include "base/text.h"
#include "graph/graph.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr std::int32_t kUsualDpi = 96;
constexpr std::int32_t kWidth = 500;
constexpr std::int32_t kHeight = 280;
constexpr double kPi = 3.141592653589793;

enum class SecondAxis { None, Line, Bars };

struct Kind {
    std::string_view name;
    std::string_view heading;
    std::int32_t graphType;
    std::int32_t groups;
    SecondAxis second = SecondAxis::None;
    bool isArea = false;
    bool hasQuadrants = false;
};

constexpr Kind kKinds[] = {
    {.name = "line", .heading = "Line with dots", .graphType = kLineGraph, .groups = 2, .hasQuadrants = true},
    {.name = "line-bars",
     .heading = "Line and bars on a second axis",
     .graphType = kLineGraph,
     .groups = 1,
     .second = SecondAxis::Bars},
    {.name = "line-line",
     .heading = "Line and line on a second axis",
     .graphType = kLineGraph,
     .groups = 1,
     .second = SecondAxis::Line},
    {.name = "bands",
     .heading = "Filled bands",
     .graphType = kLineGraph,
     .groups = 2,
     .isArea = true,
     .hasQuadrants = true},
    {.name = "bars", .heading = "Grouped bars", .graphType = kBarGraph, .groups = 3, .hasQuadrants = true},
    {.name = "stacked-bars",
     .heading = "Stacked bars",
     .graphType = kStackedBarGraph,
     .groups = 3,
     .hasQuadrants = true},
    {.name = "slot-lines",
     .heading = "Lines on bar slots",
     .graphType = kSlotLineGraph,
     .groups = 2,
     .hasQuadrants = true},
    {.name = "scatter", .heading = "Scattered dots", .graphType = kScatterGraph, .groups = 1, .hasQuadrants = true},
    {.name = "boxes", .heading = "Box plots", .graphType = kBoxGraph, .groups = 9, .hasQuadrants = true},
    {.name = "pie", .heading = "Pies", .graphType = kPieGraph, .groups = 5},
    {.name = "bars-3d", .heading = "Bars with depth", .graphType = kBar3dGraph, .groups = 3},
    {.name = "stacked-bars-3d", .heading = "Stacked bars with depth", .graphType = kStackedBar3dGraph, .groups = 3},
    {.name = "lines-3d", .heading = "Lines with depth", .graphType = kLine3dGraph, .groups = 3},
    {.name = "pie-3d", .heading = "Pies with depth", .graphType = kPie3dGraph, .groups = 5},
};

/// What a chart is filled with. Values of one group run between `low` and `high` in a wave.
struct Data {
    std::string_view name;
    std::string_view caption;
    std::int32_t positions;
    std::int32_t pies;  ///< positions of a pie chart, which has no room for many
    double low = 20;
    double high = 90;
    bool hasGaps = false;
    bool hasLongLabels = false;
};

constexpr Data kData[] = {
    {.name = "few", .caption = "few points", .positions = 5, .pies = 1},
    {.name = "some", .caption = "some points", .positions = 15, .pies = 2},
    {.name = "many", .caption = "many points", .positions = 250, .pies = 3},
    {.name = "gaps", .caption = "every third value missing", .positions = 12, .pies = 1, .hasGaps = true},
    {.name = "one", .caption = "one point", .positions = 1, .pies = 1},
    {.name = "none", .caption = "no points", .positions = 0, .pies = 0},
    {.name = "negative", .caption = "values under the lowest tick", .positions = 8, .pies = 1, .low = -0.9, .high = 15},
    {.name = "long-labels", .caption = "long labels", .positions = 6, .pies = 1, .hasLongLabels = true},
};

constexpr Color kColors[] = {0xC48037, 0x007CFE, 0x6AA84F, 0xB0CDA4, 0xB3AADD, 0x7A93BB, 0x404040, 0xE0B060, 0x5050C0};

struct Choice {
    const Kind* kind;
    const Data* data;
    bool isLying = false;
    std::int32_t quadrant = 1;
    std::int32_t dpi = kUsualDpi;
};

double ValueAt(const Data& data, std::int32_t position, std::int32_t group) {
    if (data.hasGaps && (position + group) % 3 == 2) return -1.0;
    const double phase = 2.0 * kPi * position / (data.positions > 1 ? data.positions : 1) + group * 0.9;
    const double share = (1.0 + std::sin(phase) * 0.8 + std::sin(phase * 3.7) * 0.2) / 2;
    return data.low + (data.high - data.low) * share;
}

std::string LabelAt(const Data& data, std::int32_t position) {
    const std::string number = std::to_string(position + 1);
    return data.hasLongLabels ? "settlement day " + number : number;
}

bool IsPieKind(const Kind& kind) {
    return kind.graphType == kPieGraph || kind.graphType == kPie3dGraph;
}

bool IsStacked(const Kind& kind) {
    return kind.graphType == kStackedBarGraph || kind.graphType == kStackedBar3dGraph;
}

std::unique_ptr<CGraphSeries> MakeSeries(const Choice& choice, std::int32_t position) {
    auto series = std::make_unique<CGraphSeries>();
    series->seriesLabel = LabelAt(*choice.data, position);
    const bool isScatter = choice.kind->graphType == kScatterGraph;
    const std::int32_t share = IsStacked(*choice.kind) ? choice.kind->groups : 1;
    for (std::int32_t group = 0; group < choice.kind->groups; ++group) {
        const double value = ValueAt(*choice.data, position, group);
        const std::int32_t place = isScatter ? (position + 1) * 90 / (choice.data->positions + 1) : group;
        series->SetData(place, value > 0 ? value / share : value);
    }
    return series;
}

void AddSecondAxis(CGraph& graph, const Choice& choice, std::int32_t positions) {
    graph.dualAxis = 1;
    graph.graphType2 = choice.kind->second == SecondAxis::Line ? 1 : 0;
    graph.graphTitle2 = "Usage";
    graph.legendKind2 = 2;
    graph.color2Low = 0xB0CDA4;
    graph.color2High = 0xB3AADD;
    graph.minTick2 = 0.0;
    graph.maxTick2 = 1.0;
    graph.tickSpace2 = 0.1;
    graph.decimalDigits2 = 0;
    CopyField(graph.unitText2, "%");
    const std::int32_t count = choice.kind->second == SecondAxis::Bars ? positions - 1 : positions;
    for (std::int32_t position = 0; position < count; ++position) {
        auto series = std::make_unique<CGraphSeries>();
        const double value = ValueAt(*choice.data, position, 1);
        series->SetData(0, value > 0 ? value / 100 : value);
        graph.graphSeries2.push_back(std::move(series));
    }
    graph.seriesSize2 = 1;
}

/// Where the axis of values runs both ways, values lie on both sides of its origin as far as they can.
void SetScale(CGraph& graph, const Choice& choice) {
    const bool isCentred = choice.quadrant == 4 || choice.quadrant == (choice.isLying ? 2 : 3);
    if (!isCentred) return;
    const bool startsAtZero = IsStacked(*choice.kind) || choice.kind->graphType == kScatterGraph;
    graph.minTick = startsAtZero ? 0.0 : 50.0;
    graph.maxTick = IsStacked(*choice.kind) ? 200.0 : graph.minTick + 100.0;
}

void SetLook(CGraph& graph, const Choice& choice) {
    const auto scaled = [&](std::int32_t value) { return ScaleByDpi(value, choice.dpi); };
    graph.dpi = choice.dpi;
    graph.graphType = choice.kind->graphType;
    graph.fillArea = choice.kind->isArea ? 1 : 0;
    graph.graphAlignment = choice.isLying ? 0 : 1;
    graph.graphQuadType = choice.quadrant;
    graph.graphTitle = choice.kind->heading;
    graph.axisXLabel = "position";
    graph.axisYLabel = "value";
    graph.tickFontSize = scaled(11);
    graph.xLabelFontSize = scaled(11);
    graph.titleFontSize = scaled(16);
    graph.markerRadius = scaled(3);
    graph.lineWidth = scaled(2);
    graph.graphHasGridLines = IsPieKind(*choice.kind) ? 0 : 1;
    graph.showValues = 1;
    graph.depthRatio = 0.1;
    graph.xAxisLabelLength = choice.data->hasLongLabels ? 16 : 4;
    graph.valueDivisor = 1.0;
    graph.decimalDigits = 0;
    CopyField(graph.unitText, "lots");
}

std::unique_ptr<CGraph> MakeGraph(const Choice& choice) {
    auto graph = std::make_unique<CGraph>(kLineGraph);
    SetLook(*graph, choice);
    SetScale(*graph, choice);
    const std::int32_t positions = IsPieKind(*choice.kind) ? choice.data->pies : choice.data->positions;
    for (std::int32_t position = 0; position < positions; ++position) {
        graph->graphSeries.push_back(MakeSeries(choice, position));
    }
    graph->seriesSize = choice.kind->groups;
    for (const Color color : kColors) {
        graph->colorList.push_back(std::make_unique<CGraphDataColor>(CGraphDataColor{0, color}));
    }
    if (choice.kind->second != SecondAxis::None) AddSecondAxis(*graph, choice, positions);
    return graph;
}

GalleryChart ChartOf(const Choice& choice, const std::string& name, const std::string& caption) {
    const std::string dpi = std::to_string(choice.dpi);
    return {.fileName = std::string(choice.kind->name) + "-" + name + "-" + dpi + ".png",
            .section = std::string(choice.kind->heading),
            .caption = caption + ", " + dpi + " DPI",
            .width = ScaleByDpi(kWidth, choice.dpi),
            .height = ScaleByDpi(kHeight, choice.dpi),
            .make = [choice] { return MakeGraph(choice); }};
}

void AddKind(const Kind& kind, std::vector<GalleryChart>& charts) {
    constexpr std::int32_t kResolutions[] = {kUsualDpi, 2 * kUsualDpi};
    constexpr std::int32_t kOtherQuadrants[] = {2, 3, 4};
    for (const std::int32_t dpi : kResolutions) {
        const auto add = [&](Choice choice, const std::string& way, const std::string& words) {
            choice.dpi = dpi;
            charts.push_back(
                ChartOf(choice, std::string(choice.data->name) + way, std::string(choice.data->caption) + words));
        };
        for (const Data& data : kData) add({.kind = &kind, .data = &data}, "", "");
        if (kind.second != SecondAxis::None || IsPieKind(kind)) continue;
        for (const Data& data : kData) add({.kind = &kind, .data = &data, .isLying = true}, "-lying", ", lying");
        if (!kind.hasQuadrants) continue;
        for (const std::int32_t quadrant : kOtherQuadrants) {
            const std::string number = std::to_string(quadrant);
            Choice choice{.kind = &kind, .data = &kData[1], .quadrant = quadrant};
            add(choice, "-quadrant-" + number, ", quadrant " + number);
            choice.isLying = true;
            add(choice, "-lying-quadrant-" + number, ", lying, quadrant " + number);
        }
    }
}

}  // namespace

std::vector<GalleryChart> GalleryCharts() {
    std::vector<GalleryChart> charts;
    for (const Kind& kind : kKinds) AddKind(kind, charts);
    return charts;
}

}  // namespace tradebill
