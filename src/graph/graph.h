// A chart that knows nothing of accounts: a caller fills a CGraph with series, colours and scale and asks it once to
// paint itself. graph_layout.cpp shares out the rectangle; graph_title.cpp, plain_axes.cpp, position_labels.cpp,
// crossed_axes.cpp and box_axes.cpp draw what stands around the data; graph_painters.h lists the painters of the data,
// one for each kind of chart.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
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

/// Fields are public and written directly. Coordinates are device pixels, texts GBK. Those marked computed hold nothing
/// before DrawGraph, which is meant to run once.
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
    std::int32_t maxHeight = 0;           ///< computed
    std::int32_t maxWidth = 0;            ///< computed
    ColorList colorList;                  ///< element n is the colour of group n; a group without one is black
    ColorList colorList2;                 ///< read by nothing
    std::string axisYLabel;
    std::string axisXLabel;
    std::int32_t yApexPoint = 0;          ///< computed: y of the lowest tick
    std::int32_t xApexPoint = 0;          ///< computed: x of the Y axis
    std::int32_t yAxisHeight = 0;         ///< computed: from the lowest to the highest tick
    std::int32_t xAxisWidth = 0;          ///< computed: points use this less 10
    std::int32_t axisBottom = 0;          ///< computed: y of the X axis
    std::int32_t plotHeight = 0;          ///< computed: shared out among the tick rows
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
    std::int32_t yAxisLast = 0;           ///< computed: y of the last tick drawn
    std::int32_t xAxisLast = 0;           ///< computed: x of the last label drawn
    std::int32_t depth = 0;               ///< of the three-dimensional kinds, pixels
    double depthRatio = 0.05;             ///< of `yAxisHeight`
    std::int32_t graphQuadType = 1;
    std::int32_t quadSetManually = 1;     ///< 0: DrawGraph works out `graphQuadType` (bars only)
    std::int32_t hideAxisLabels = 0;      ///< computed
    std::int32_t depthShiftX = 0;
    std::int32_t depthShiftY = 0;
    Box outline;                          ///< computed: the rectangle painted
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

    std::string message;  ///< computed: what kept the data from being painted; empty if nothing did

    /// Paints the chart into `rect`.
    void DrawGraph(CCanvas& canvas, const Box& rect);

    // The steps of DrawGraph behind frame, title and layout.
    void DrawGridLines(CCanvas& canvas);
    void DrawAxis(CCanvas& canvas);
    void DrawRightAxis(CCanvas& canvas);
    void DrawSeries(CCanvas& canvas);

    [[nodiscard]] Color GroupColor(std::int32_t group) const;
    /// Of a secondary value: by whether it shows as more than 50.
    [[nodiscard]] Color SecondColor(double value) const;
    /// Groups that painters walk: `seriesSize` and `seriesSize2`, within reason.
    [[nodiscard]] std::int32_t Groups() const;
    [[nodiscard]] std::int32_t SecondGroups() const;
    /// Tick intervals that are drawn: `numTicks`, within reason.
    [[nodiscard]] std::int32_t TickCount() const;
    /// Height of the font in which the axis titles fit their sides.
    [[nodiscard]] std::int32_t AxisTitleHeight() const;

private:
    // graph_title.cpp
    void DrawFrame(CCanvas& canvas) const;
    TextExtent DrawTitle(CCanvas& canvas);
    void DrawSwatchTitle(CCanvas& canvas, const TextExtent& title) const;
    bool DrawSecondSwatch(CCanvas& canvas, Point at, std::int32_t textHeight) const;
    std::int32_t DrawLineSwatch(CCanvas& canvas, Point at) const;
    std::int32_t DrawTwoBarSwatch(CCanvas& canvas, Point at, std::int32_t textHeight) const;
    std::int32_t DrawBarSwatch(CCanvas& canvas, Point at, std::int32_t textHeight) const;
    TextExtent DrawCentredTitle(CCanvas& canvas) const;

    // graph_layout.cpp
    void LayOut(CCanvas& canvas, const TextExtent& title);
    void LayOutUpright(CCanvas& canvas, const TextExtent& title);
    void LayOutNumeric(CCanvas& canvas);
    void LayOutPies();
    void MoveApexToQuadrant();
    [[nodiscard]] std::int32_t DetectQuadrant() const;
    [[nodiscard]] std::int32_t Scaled(std::int32_t value) const;
    [[nodiscard]] std::int32_t Rows() const;
    [[nodiscard]] double TickStep() const;
    [[nodiscard]] std::int32_t TickY(std::int32_t tick) const;
    [[nodiscard]] std::string LeftTickText(std::int32_t tick) const;
    [[nodiscard]] std::string RightTickTextMeasured(std::int32_t tick) const;
    template <class TextOfTick>
    [[nodiscard]] std::string Longest(TextOfTick textOf) const;

    // plain_axes.cpp, position_labels.cpp
    void DrawPlainAxes(CCanvas& canvas);
    void DrawAxisLines(CCanvas& canvas) const;
    void DrawYTitle(CCanvas& canvas) const;
    void DrawXTitle(CCanvas& canvas) const;
    void DrawLeftTicks(CCanvas& canvas);
    void DrawXTick(CCanvas& canvas, std::int32_t x) const;
    void DrawXLabels(CCanvas& canvas);
    void DrawTurnedLabels(CCanvas& canvas);
    void DrawLabelsApart(CCanvas& canvas, std::int32_t averageWidth);
    void DrawThinnedLabels(CCanvas& canvas, std::int32_t averageWidth);
    [[nodiscard]] std::int32_t XTickY() const;
    [[nodiscard]] std::int32_t XLabelY() const;
};

}  // namespace tradebill
