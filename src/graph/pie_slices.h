// What both forms of a pie share: where it stands, its slices, and their labels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {

/// Distances that go by the selected font.
struct PieMeasures {
    std::int32_t labelWidth;
    std::int32_t lineHeight;
};
[[nodiscard]] PieMeasures MeasurePie(const CCanvas& canvas);

/// Degrees run counter-clockwise from the left.
struct PieCircle {
    std::int32_t left;
    std::int32_t middleY;
    std::int32_t radius;  ///< 0 if there is no room

    [[nodiscard]] Point Middle() const { return {left + radius, middleY}; }
    [[nodiscard]] Box Bounds() const;
    /// Where the first slice starts.
    [[nodiscard]] Point Start() const { return {left, middleY - 1}; }
    /// The direction of an angle, on the diamond inside of the circle: its angles are uneven, which is the shape of the
    /// flat pie's slices.
    [[nodiscard]] Point DiamondPoint(std::int32_t degrees) const;
    /// The same on the circle itself.
    [[nodiscard]] Point RimPoint(std::int32_t degrees) const;
};
/// The circle of a position, counted from 1.
/// REQUIRES: the chart has that position; `measures` were taken in the font of its labels.
[[nodiscard]] PieCircle CircleOf(const CGraph& graph, const GraphLayout& layout, const PieMeasures& measures,
                                 std::size_t position);

struct PieSlice {
    std::int32_t group;
    std::int32_t startDegrees;
    std::int32_t middleDegrees;
    std::int32_t endDegrees;
    std::int32_t percent;
};
/// The values over 0 of a series, cut to whole numbers. They leave a gap for what was cut off.
[[nodiscard]] std::vector<PieSlice> SlicesOf(const CGraphSeries& series, std::int32_t groups);

/// One percentage beside a pie.
struct CGraphPieLabel {
    std::int32_t lineXStart = 0;  ///< of the leader, inside the slice
    std::int32_t lineYStart = 0;
    std::int32_t lineXEnd = 0;
    std::int32_t lineYEnd = 0;
    std::int32_t topLeftX = 0;  ///< of the text
    std::int32_t topLeftY = 0;
    std::int32_t quadrant = 0;  ///< of the slice's middle: 0 to 3, counter-clockwise from the lower left
    std::string pieLabel;
};
/// The label of a slice whose middle lies at `edge`.
[[nodiscard]] CGraphPieLabel LabelOf(const PieCircle& circle, const PieMeasures& measures, const PieSlice& slice,
                                     Point edge);
/// Moves labels that begin inside an earlier one: up in the upper half, down in the lower.
void SpreadLabels(std::vector<CGraphPieLabel>& labels, const PieMeasures& measures);

/// What the forms differ in: how slices are painted, and which point of their edge an angle means.
struct PieForm {
    void (*drawSlices)(CCanvas& canvas, const CGraph& graph, const PieCircle& circle,
                       const std::vector<PieSlice>& slices);
    Point (PieCircle::*edgePoint)(std::int32_t degrees) const;
};
/// A pie for each position, with its caption under it and percentages around it.
void DrawPies(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, const PieForm& form);

}  // namespace tradebill
