// A chart that knows nothing of accounts: a caller fills a CGraph with series, colours and scale and asks it to paint
// itself. A painting is values and free functions: graph_layout.h shares out the rectangle, graph_title.h and the
// headers of axes draw what stands around the data, and graph_kinds.h has a row for each kind of chart, with the
// painter of its data. Read graph.cpp next, which is all of it in order.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {

/// One value of a series, in the unit of the scale of its axis.
struct CGraphDataSet {
    std::int32_t xPosition = 0;  ///< the group that it belongs to
    double yValue = 0;
};

/// One position on the X axis: its label (GBK) and its values, one per group.
class CGraphSeries {
public:
    std::string seriesLabel;
    std::vector<std::unique_ptr<CGraphDataSet>> dataValues;

    void SetData(std::int32_t xPosition, double yValue);
    [[nodiscard]] std::string GetLabel() const { return seriesLabel; }

    /// The value of a group; 0 if there is none.
    [[nodiscard]] double ValueOf(std::int32_t group) const;
    [[nodiscard]] const CGraphDataSet* FindData(std::int32_t group) const;
};

/// The value of a group as all painters but that of the upright line take it: -1 and less is a missing one.
[[nodiscard]] std::optional<double> ValueToDraw(const CGraphSeries& series, std::int32_t group);

/// The colour of a group. Painters go by the place in the list.
struct CGraphDataColor {
    std::int32_t group = 0;
    Color color = 0;
};

/// Filled by nothing: the swatches beside the title stand for it.
struct CGraphLegend {
    std::int32_t legendLength = 0;
    std::vector<std::string> legendLabels;
};

using SeriesList = std::vector<std::unique_ptr<CGraphSeries>>;
using ColorList = std::vector<std::unique_ptr<CGraphDataColor>>;

/// Of `graphType`.
enum GraphKind : std::int32_t {
    kBarGraph = 0,
    kLineGraph = 1,  ///< with dots; with `fillArea` 1 filled bands
    kPieGraph = 2,
    kScatterGraph = 3,  ///< numeric on both axes
    kBoxGraph = 4,
    kStackedBarGraph = 20,
    kSlotLineGraph = 21,  ///< lines whose points stand where bars would
    kBar3dGraph = 30,
    kLine3dGraph = 31,
    kPie3dGraph = 32,
    kStackedBar3dGraph = 320,
};

/// What a chart shows, and how. Fields are public and written directly; painting reads them alone. Sizes are device
/// pixels, texts GBK.
class CGraph {
public:
    /// The argument is ignored: a new chart is of kind 1.
    explicit CGraph(std::int32_t kind);
    CGraph(const CGraph&) = delete;
    CGraph& operator=(const CGraph&) = delete;

    // clang-format off
    double tickSpace = 10.0;              ///< value between two ticks of the left axis
    SeriesList graphSeries;               ///< one per X position
    SeriesList graphSeries2;              ///< scaled against the right axis
    std::int32_t graphType = kLineGraph;
    std::int32_t graphType2 = 1;          ///< of the secondary series: 1 line, 0 bars
    std::int32_t graphAlignment = 1;      ///< 1 upright, 0 lying
    ColorList colorList;                  ///< element n is the colour of group n; a group without one is black
    ColorList colorList2;                 ///< read by nothing
    std::string axisYLabel;
    std::string axisXLabel;
    std::int32_t tickFontSize = 11;
    std::int32_t xLabelFontSize = 11;
    std::int32_t titleFontSize = 16;
    std::int32_t numTicks = 10;
    double minTick = 0.0;
    double maxTick = 100.0;
    double minTick2 = 0.0;
    double maxTick2 = 100.0;
    double tickSpace2 = 10.0;
    std::int32_t decimalDigits = 3;       ///< of left-axis and point labels
    std::int32_t decimalDigits2 = 2;      ///< of right-axis and bar labels
    std::int32_t seriesSize = 0;          ///< groups that painters walk; set by the caller
    std::int32_t seriesSize2 = 0;
    CGraphLegend graphLegend;
    std::int32_t xAxisAlign = 0;          ///< angle of the X labels in degrees
    std::int32_t xAxisLabelLength = 0;    ///< characters
    std::string graphTitle;
    std::string graphTitle2;
    std::int32_t graphHasGridLines = 0;
    double depthRatio = 0.05;             ///< depth by height of the axes; of a pie, by its radius
    std::int32_t graphQuadType = 1;       ///< the quadrant that the data lie in, of flat kinds
    std::int32_t quadSetManually = 1;     ///< 0: the quadrant of bars is found from their data instead
    std::int32_t depthShiftX = 0;         ///< moves the first point of lines with depth
    std::int32_t depthShiftY = 0;
    std::int32_t lineWidth = 1;           ///< of series, swatches and the outer frame
    std::int32_t fillArea = 0;            ///< with kind 1: 1 paints bands
    std::int32_t midLineThick = 0;
    std::int32_t markerRadius = 3;
    std::int32_t avoidLabelOverlap = 0;
    std::int32_t showValues = 0;
    std::int32_t valueGapDivisor = 15;    ///< screen width by this: least gap between two value labels
    double valueDivisor = 10000.0;        ///< shown values are divided by it
    char unitText[32];                    ///< over the left axis
    std::int32_t dualAxis = 0;
    double valueDivisor2 = 0.01;
    char unitText2[32];
    std::int32_t legendKind2 = 1;         ///< swatch of `graphTitle2`: 1 one colour, 2 two, else none
    Color color2Low = 0;                  ///< of secondary values up to 50
    Color color2High = 0;                 ///< and above
    char valueSuffix[32];
    char valueSuffix2[32];
    std::int32_t topRowMode = 0;          ///< 0 and 1: a spare row above the highest tick; 1 closes it with a line
    std::int32_t baseRow = 0;             ///< 1: a spare row under the lowest tick
    std::int32_t rightBorder = 0;
    std::int32_t swatchTitle = 0;         ///< 1: title at the left behind a swatch
    // clang-format on

    std::int32_t dpi = 0;             ///< screen resolution that fixed distances grow with; 0 leaves them
    std::int32_t screenWidth = 1920;  ///< pixels; the gap between value labels follows it

    /// Paints the chart into `rect`. Returns what kept the data from being painted; empty if nothing did. Pen, brush,
    /// font and clip of the canvas are left as they were, colour and background of its texts aren't.
    /// REQUIRES: no entry of the chart's lists is null.
    std::string_view DrawGraph(CCanvas& canvas, const Box& rect) const;

    [[nodiscard]] Color GroupColor(std::int32_t group) const;
    /// Of a secondary value: by whether it shows as more than 50.
    [[nodiscard]] Color SecondColor(double value) const;
    /// Groups that painters walk: `seriesSize` and `seriesSize2`, within reason.
    [[nodiscard]] std::int32_t Groups() const;
    [[nodiscard]] std::int32_t SecondGroups() const;
    /// Tick intervals that are drawn: `numTicks`, within reason.
    [[nodiscard]] std::int32_t TickCount() const;
};

}  // namespace tradebill
