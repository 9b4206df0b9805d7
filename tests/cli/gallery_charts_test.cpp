#include "cli/gallery_charts.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tradebill::gallery_charts_test {
namespace {

TEST(GalleryCharts, HaveNamesOfTheirOwnInWholeSections) {
    std::set<std::string> names;
    std::set<std::string> sections;
    std::string last;
    for (const GalleryChart& chart : GalleryCharts()) {
        EXPECT_TRUE(names.insert(chart.fileName).second) << chart.fileName;
        if (chart.section != last) {
            EXPECT_TRUE(sections.insert(chart.section).second) << chart.section;
        }
        last = chart.section;
    }
    EXPECT_EQ(sections.size(), 14U);
}

TEST(GalleryCharts, ShowEveryKindInEveryWay) {
    std::set<std::int32_t> kinds;
    std::set<std::int32_t> quadrants;
    std::set<std::int32_t> alignments;
    std::set<std::int32_t> resolutions;
    for (const GalleryChart& chart : GalleryCharts()) {
        const auto graph = chart.make();
        kinds.insert(graph->graphType);
        quadrants.insert(graph->graphQuadType);
        alignments.insert(graph->graphAlignment);
        resolutions.insert(graph->dpi);
        EXPECT_EQ(chart.width, 500 * graph->dpi / 96);
    }
    EXPECT_EQ(kinds, (std::set<std::int32_t>{0, 1, 2, 3, 4, 20, 21, 30, 31, 32, 320}));
    EXPECT_EQ(quadrants, (std::set<std::int32_t>{1, 2, 3, 4}));
    EXPECT_EQ(alignments, (std::set<std::int32_t>{0, 1}));
    EXPECT_EQ(resolutions, (std::set<std::int32_t>{96, 192}));
}

}  // namespace
}  // namespace tradebill::gallery_charts_test
