// Any number in any field of a chart.
#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <limits>
#include <string>

#include "graph/bad_charts.h"

namespace tradebill::bad_charts_test {
namespace {

using IntegerField = std::int32_t CGraph::*;
using NumberField = double CGraph::*;

constexpr IntegerField kIntegers[] = {
    &CGraph::graphType,        &CGraph::graphType2,        &CGraph::graphAlignment,    &CGraph::tickFontSize,
    &CGraph::xLabelFontSize,   &CGraph::titleFontSize,     &CGraph::numTicks,          &CGraph::decimalDigits,
    &CGraph::decimalDigits2,   &CGraph::seriesSize,        &CGraph::seriesSize2,       &CGraph::xAxisAlign,
    &CGraph::xAxisLabelLength, &CGraph::graphHasGridLines, &CGraph::graphQuadType,     &CGraph::quadSetManually,
    &CGraph::depthShiftX,      &CGraph::depthShiftY,       &CGraph::lineWidth,         &CGraph::fillArea,
    &CGraph::midLineThick,     &CGraph::markerRadius,      &CGraph::avoidLabelOverlap, &CGraph::showValues,
    &CGraph::valueGapDivisor,  &CGraph::dualAxis,          &CGraph::legendKind2,       &CGraph::topRowMode,
    &CGraph::baseRow,          &CGraph::rightBorder,       &CGraph::swatchTitle,       &CGraph::dpi,
    &CGraph::screenWidth};
constexpr NumberField kNumbers[] = {&CGraph::tickSpace,  &CGraph::minTick,      &CGraph::maxTick,
                                    &CGraph::minTick2,   &CGraph::maxTick2,     &CGraph::tickSpace2,
                                    &CGraph::depthRatio, &CGraph::valueDivisor, &CGraph::valueDivisor2};
constexpr double kEndless = std::numeric_limits<double>::infinity();
const double kOddNumbers[] = {std::numeric_limits<double>::quiet_NaN(),
                              kEndless,
                              -kEndless,
                              0.0,
                              std::numeric_limits<double>::max(),
                              std::numeric_limits<double>::lowest(),
                              std::numeric_limits<double>::denorm_min()};

TEST_F(BadCharts, TakeTheEndsOfEveryInteger) {
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t alignment : {0, 1}) {
            for (std::size_t field = 0; field < std::size(kIntegers); ++field) {
                for (const std::int32_t value : {kLeast, kLeast + 1, -1, 0, 1, 4, kMost - 1, kMost}) {
                    CGraph graph(1);
                    Fill(graph, kind);
                    graph.graphAlignment = alignment;
                    graph.*kIntegers[field] = value;
                    DrawRecorded(graph);
                }
            }
        }
    }
}

TEST_F(BadCharts, TakeTheEndsOfEveryIntegerOnPixels) {
    for (const std::int32_t kind : kKinds) {
        for (std::size_t field = 0; field < std::size(kIntegers); ++field) {
            for (const std::int32_t value : {kLeast, kMost}) {
                CGraph graph(1);
                Fill(graph, kind);
                graph.*kIntegers[field] = value;
                DrawPixels(graph);
            }
        }
    }
}

TEST_F(BadCharts, TakeTheEndsOfEveryIntegerInTheOtherQuadrants) {
    for (const std::int32_t kind : {0, 1, 3, 4, 20, 21}) {
        for (std::size_t field = 0; field < std::size(kIntegers); ++field) {
            for (const std::int32_t value : {kLeast, kMost}) {
                CGraph graph(1);
                Fill(graph, kind);
                graph.graphQuadType = 4;
                graph.*kIntegers[field] = value;
                DrawRecorded(graph);
            }
        }
    }
}

TEST_F(BadCharts, TakeAnyNumber) {
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t alignment : {0, 1}) {
            for (const NumberField field : kNumbers) {
                for (const double value : kOddNumbers) {
                    CGraph graph(1);
                    Fill(graph, kind);
                    graph.graphAlignment = alignment;
                    graph.*field = value;
                    DrawRecorded(graph);
                }
            }
        }
    }
}

TEST_F(BadCharts, TakeAnyValue) {
    for (const std::int32_t kind : kKinds) {
        for (const double value : kOddNumbers) {
            CGraph graph(1);
            Fill(graph, kind);
            for (SeriesList* const list : {&graph.graphSeries, &graph.graphSeries2}) {
                for (const auto& series : *list) series->dataValues[0]->yValue = value;
            }
            DrawRecorded(graph);
            DrawPixels(graph);
        }
    }
}

TEST_F(BadCharts, TakeAnyPositionOfAValue) {
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t position : {kLeast, -1, kMost}) {
            CGraph graph(1);
            Fill(graph, kind);
            graph.quadSetManually = 0;
            for (const auto& series : graph.graphSeries) series->dataValues[0]->xPosition = position;
            DrawRecorded(graph);
            DrawPixels(graph);
        }
    }
}

TEST_F(BadCharts, TakeAScaleOfEqualEnds) {
    for (const std::int32_t kind : kKinds) {
        for (const double end : {0.0, 50.0, -kEndless}) {
            CGraph graph(1);
            Fill(graph, kind);
            graph.minTick = graph.maxTick = graph.minTick2 = graph.maxTick2 = end;
            DrawRecorded(graph);
            DrawPixels(graph);
        }
    }
}

}  // namespace
}  // namespace tradebill::bad_charts_test
