#include "graph/graph_kinds.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>

#include "graph/area_series.h"
#include "graph/line_series.h"

namespace tradebill::graph_kinds_test {
namespace {

TEST(GraphKinds, HaveARowAndAPainterEach) {
    using Painter = decltype(GraphKindRow::drawSeries);
    std::set<Painter> painters;
    for (const std::int32_t kind : {0, 1, 2, 3, 4, 20, 21, 30, 31, 32, 320}) {
        CGraph graph(1);
        graph.graphType = kind;
        const GraphKindRow* const row = FindGraphKind(graph);
        ASSERT_NE(row, nullptr) << kind;
        EXPECT_EQ(row->kind, kind);
        EXPECT_TRUE(painters.insert(row->drawSeries).second) << kind;
    }
}

TEST(GraphKinds, AreBandsForFilledLinesAlone) {
    CGraph graph(1);
    for (const std::int32_t fill : {0, -1, 2}) {
        graph.fillArea = fill;
        EXPECT_EQ(FindGraphKind(graph)->drawSeries, &DrawLineSeries) << fill;
    }
    graph.fillArea = 1;
    EXPECT_EQ(FindGraphKind(graph)->drawSeries, &DrawAreaSeries);
    graph.graphType = kBarGraph;
    EXPECT_FALSE(FindGraphKind(graph)->isArea);
}

TEST(GraphKinds, AreNoOthers) {
    CGraph graph(1);
    for (const std::int32_t kind : {-1, 5, 22, 33, 321}) {
        graph.graphType = kind;
        EXPECT_EQ(FindGraphKind(graph), nullptr) << kind;
    }
}

}  // namespace
}  // namespace tradebill::graph_kinds_test
