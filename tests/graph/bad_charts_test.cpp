// Charts that make no sense: each has to end soon, without a crash, on a canvas that takes anything and on a small one
// with pixels.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "graph/graph_fixture.h"

namespace tradebill {
namespace {

using IntegerField = std::int32_t CGraph::*;
using NumberField = double CGraph::*;

constexpr IntegerField kIntegers[] = {&CGraph::graphType,
                                      &CGraph::graphType2,
                                      &CGraph::graphAlignment,
                                      &CGraph::maxHeight,
                                      &CGraph::maxWidth,
                                      &CGraph::yApexPoint,
                                      &CGraph::xApexPoint,
                                      &CGraph::yAxisHeight,
                                      &CGraph::xAxisWidth,
                                      &CGraph::axisBottom,
                                      &CGraph::plotHeight,
                                      &CGraph::tickFontSize,
                                      &CGraph::xLabelFontSize,
                                      &CGraph::titleFontSize,
                                      &CGraph::numTicks,
                                      &CGraph::decimalDigits,
                                      &CGraph::decimalDigits2,
                                      &CGraph::seriesSize,
                                      &CGraph::seriesSize2,
                                      &CGraph::xAxisAlign,
                                      &CGraph::xAxisLabelLength,
                                      &CGraph::graphHasGridLines,
                                      &CGraph::yAxisLast,
                                      &CGraph::xAxisLast,
                                      &CGraph::depth,
                                      &CGraph::graphQuadType,
                                      &CGraph::quadSetManually,
                                      &CGraph::hideAxisLabels,
                                      &CGraph::depthShiftX,
                                      &CGraph::depthShiftY,
                                      &CGraph::lineWidth,
                                      &CGraph::fillArea,
                                      &CGraph::midLineThick,
                                      &CGraph::markerRadius,
                                      &CGraph::avoidLabelOverlap,
                                      &CGraph::showValues,
                                      &CGraph::valueGapDivisor,
                                      &CGraph::dualAxis,
                                      &CGraph::legendKind2,
                                      &CGraph::topRowMode,
                                      &CGraph::baseRow,
                                      &CGraph::rightBorder,
                                      &CGraph::swatchTitle,
                                      &CGraph::dpi,
                                      &CGraph::screenWidth};
constexpr NumberField kNumbers[] = {&CGraph::tickSpace,  &CGraph::minTick,      &CGraph::maxTick,
                                    &CGraph::minTick2,   &CGraph::maxTick2,     &CGraph::tickSpace2,
                                    &CGraph::depthRatio, &CGraph::valueDivisor, &CGraph::valueDivisor2};
constexpr std::int32_t kKinds[] = {0, 1, 2, 3, 4, 20, 21, 30, 31, 32, 320, 5};
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr double kEndless = std::numeric_limits<double>::infinity();
const double kOddNumbers[] = {std::numeric_limits<double>::quiet_NaN(),
                              kEndless,
                              -kEndless,
                              0.0,
                              std::numeric_limits<double>::max(),
                              std::numeric_limits<double>::lowest(),
                              std::numeric_limits<double>::denorm_min()};
constexpr Box kUsual{0, 0, 64, 48};

/// A chart that uses as much of the control as one can.
void Fill(CGraph& graph, std::int32_t kind) {
    graph.graphType = kind;
    graph.graphTitle = "Title";
    graph.graphTitle2 = "Second";
    graph.axisXLabel = "X";
    graph.axisYLabel = "Y";
    graph.graphHasGridLines = 1;
    graph.showValues = 1;
    graph.dualAxis = 1;
    graph.graphType2 = kind % 2;
    graph.midLineThick = 1;
    graph.seriesSize = graph.seriesSize2 = 2;
    for (int i = 0; i < 4; ++i) {
        for (SeriesList* const list : {&graph.graphSeries, &graph.graphSeries2}) {
            if (list->size() == 3 && graph.graphType2 == 0 && list == &graph.graphSeries2) continue;
            auto series = std::make_unique<CGraphSeries>();
            series->seriesLabel = "label";
            series->SetData(0, 10.0 * i);
            series->SetData(1, 30.0);
            list->push_back(std::move(series));
        }
    }
}

void AddValue(CGraph& graph, double value) {
    graph.graphSeries.push_back(std::make_unique<CGraphSeries>());
    graph.graphSeries.back()->seriesLabel = "label";
    graph.graphSeries.back()->SetData(0, value);
}

void DrawRecorded(CGraph& graph, const Box& rect = kUsual) {
    CRecordingCanvas canvas;
    graph.DrawGraph(canvas, rect);
}

void DrawPixels(CGraph& graph, const Box& rect = kUsual) {
    CBitmap bitmap(64, 48, kWhite);
    graph.DrawGraph(*MakeCanvas(bitmap), rect);
}

/// Fails a test that takes longer than a second for one painting.
class BadCharts : public testing::Test {
protected:
    using Clock = std::chrono::steady_clock;

    template <class Draw>
    static void ExpectSoon(const std::string& what, Draw draw) {
        const auto start = Clock::now();
        draw();
        const std::chrono::duration<double> taken = Clock::now() - start;
        EXPECT_LT(taken.count(), kPatience) << what;
    }

#if defined(__SANITIZE_ADDRESS__)
    static constexpr double kPatience = 10.0;
#else
    static constexpr double kPatience = 1.0;
#endif
};

TEST_F(BadCharts, TakeTheEndsOfEveryInteger) {
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t alignment : {0, 1}) {
            for (std::size_t field = 0; field < std::size(kIntegers); ++field) {
                for (const std::int32_t value : {kLeast, kLeast + 1, -1, 0, 1, 4, kMost - 1, kMost}) {
                    CGraph graph(1);
                    Fill(graph, kind);
                    graph.graphAlignment = alignment;
                    graph.*kIntegers[field] = value;
                    ExpectSoon(std::to_string(kind) + " " + std::to_string(field), [&] { DrawRecorded(graph); });
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
                ExpectSoon(std::to_string(kind) + " " + std::to_string(field), [&] { DrawPixels(graph); });
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

TEST_F(BadCharts, TakeAnyRectangle) {
    const Box kRectangles[] = {{},
                               {10, 10, 10, 10},
                               {64, 48, 0, 0},
                               {-5, -5, -1, -1},
                               {0, 0, 20'000, 20'000},
                               {kLeast, kLeast, kMost, kMost},
                               {kMost, kMost, kLeast, kLeast},
                               {kMost, kMost, kMost, kMost},
                               {kLeast, kLeast, kLeast, kLeast},
                               {0, 0, kMost, 1},
                               {0, 0, 1, kMost}};
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t alignment : {0, 1}) {
            for (const Box& rect : kRectangles) {
                for (const std::int32_t dpi : {0, 192, kMost}) {
                    CGraph graph(1);
                    Fill(graph, kind);
                    graph.graphAlignment = alignment;
                    graph.dpi = dpi;
                    DrawRecorded(graph, rect);
                    ExpectSoon(std::to_string(kind), [&] { DrawPixels(graph, rect); });
                }
            }
        }
    }
}

TEST_F(BadCharts, TakeNoData) {
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t alignment : {0, 1}) {
            CGraph graph(1);
            graph.graphType = kind;
            graph.graphAlignment = alignment;
            graph.graphHasGridLines = 1;
            graph.seriesSize = 3;
            DrawRecorded(graph);
            graph.graphSeries.push_back(std::make_unique<CGraphSeries>());  // nor has this one any
            DrawRecorded(graph);
        }
    }
}

TEST_F(BadCharts, TakeManyPoints) {
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t alignment : {0, 1}) {
            CGraph graph(1);
            graph.graphType = kind;
            graph.graphAlignment = alignment;
            graph.graphHasGridLines = 1;
            graph.showValues = 1;
            graph.seriesSize = 1;
            for (int i = 0; i < 100'000; ++i) AddValue(graph, i % 100);
            ExpectSoon(std::to_string(kind), [&] { DrawRecorded(graph); });
        }
    }
}

TEST_F(BadCharts, TakeManyGroups) {
    for (const std::int32_t kind : kKinds) {
        CGraph graph(1);
        graph.graphType = kind;
        graph.seriesSize = 1'000;
        for (int i = 0; i < 3; ++i) {
            graph.graphSeries.push_back(std::make_unique<CGraphSeries>());
            for (std::int32_t group = 0; group < 1'000; ++group) graph.graphSeries.back()->SetData(group, group % 7);
        }
        ExpectSoon(std::to_string(kind), [&] { DrawRecorded(graph); });
    }
}

TEST_F(BadCharts, TakeLongTexts) {
    const std::string endless(100'000, 'w');
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t alignment : {0, 1}) {
            CGraph graph(1);
            Fill(graph, kind);
            graph.graphAlignment = alignment;
            graph.graphTitle = graph.graphTitle2 = graph.axisXLabel = graph.axisYLabel = endless;
            for (const auto& series : graph.graphSeries) series->seriesLabel = endless;
            DrawRecorded(graph);
            if (kind < 2) ExpectSoon(std::to_string(kind), [&] { DrawPixels(graph); });
        }
    }
}

}  // namespace
}  // namespace tradebill
