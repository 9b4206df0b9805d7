// Labels beside points at y 100, of radius 3, 12 pixels wide and 10 high: above from y 82 to 92, below from 108 to 118.
#include "graph/value_labels.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graph/recording_canvas.h"

namespace tradebill::value_labels_test {
namespace {

using Points = std::vector<Point>;

class ValueLabels : public testing::Test {
protected:
    ValueLabels() { canvas_.SelectFont({.face = "Tahoma", .cellHeight = 10}); }

    void PlaceIfWanted(const LabelledPoint& point, const std::string& text) {
        if (labels_.IsWanted(point)) labels_.Place(canvas_, point, text);
    }
    void Place(Point at, std::int32_t nextX = 10'000, const std::string& text = "ab") {
        PlaceIfWanted({at, nextX, false, false}, text);
    }
    void PlaceLast(Point at) { PlaceIfWanted({at, 0, false, true}, "ab"); }

    CRecordingCanvas canvas_;
    CValueLabels labels_{3, 50};
};

TEST_F(ValueLabels, StandAboveTheirPoints) {
    Place({200, 100});
    EXPECT_EQ(canvas_.PlacesOf("ab"), (Points{{194, 82}}));
}

TEST_F(ValueLabels, AreNoneForTheFirstPoint) {
    EXPECT_FALSE(labels_.IsWanted({{200, 100}, 300, true, false}));
    EXPECT_FALSE(labels_.IsWanted({{200, 100}, 300, true, true}));
}

// From the middle of one label to the next point there have to be more than 50 pixels.
TEST_F(ValueLabels, KeepTheirDistance) {
    Place({50, 100});  // from the left edge
    EXPECT_EQ(canvas_.texts.size(), 0u);
    Place({51, 100});
    EXPECT_EQ(canvas_.texts.size(), 1u);
    Place({101, 100});
    EXPECT_EQ(canvas_.texts.size(), 1u);
    Place({102, 100});
    EXPECT_EQ(canvas_.texts.size(), 2u);
}

TEST_F(ValueLabels, GoBelowWhereTheDotBeforeIsInTheWay) {
    labels_.PassPoint({191, 90});  // its dot ends at 194
    Place({200, 100});
    labels_.PassPoint({292, 90});  // at 295
    Place({300, 100});
    EXPECT_EQ(canvas_.PlacesOf("ab"), (Points{{194, 82}, {294, 108}}));
}

// The label before is 120 wide and reaches to x 260; the dot before lies where the lower label would.
TEST_F(ValueLabels, AreLeftOutWhereBothPlacesAreTaken) {
    Place({200, 100}, 10'000, "twenty bytes of text");
    labels_.PassPoint({255, 112});
    Place({260, 100});
    EXPECT_EQ(canvas_.PlacesOf("ab"), Points{});
    labels_.PassPoint({240, 112});
    Place({260, 100});
    EXPECT_EQ(canvas_.PlacesOf("ab"), (Points{{254, 108}}));
}

TEST_F(ValueLabels, OfTheLastPointNeedNoDistance) {
    Place({200, 100});  // to x 206
    PlaceLast({212, 100});
    EXPECT_EQ(canvas_.PlacesOf("ab"), (Points{{194, 82}, {206, 82}}));
}

TEST_F(ValueLabels, OfTheLastPointGoBelowTheLabelBefore) {
    Place({200, 100});
    PlaceLast({211, 100});
    EXPECT_EQ(canvas_.PlacesOf("ab"), (Points{{194, 82}, {205, 108}}));
}

TEST_F(ValueLabels, OfTheLastPointMayFindNoPlace) {
    Place({200, 100});
    labels_.PassPoint({212, 112});
    PlaceLast({211, 100});
    EXPECT_EQ(canvas_.PlacesOf("ab").size(), 1u);
}

// An empty text has no width, and sets the distance anew.
TEST_F(ValueLabels, CountAlthoughEmpty) {
    Place({200, 100}, 10'000, "");
    Place({250, 100});
    EXPECT_EQ(canvas_.PlacesOf("ab").size(), 0u);
    Place({251, 100});
    EXPECT_EQ(canvas_.PlacesOf("ab").size(), 1u);
    EXPECT_EQ(canvas_.PlacesOf(""), (Points{{200, 82}}));
}

}  // namespace
}  // namespace tradebill::value_labels_test
