// Where positions and values of a chart lie in pixels, whichever way it stands and wherever its axes cross.
#pragma once

#include <cstddef>
#include <cstdint>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/geometry.h"

namespace tradebill {

/// A line whose groups bound bands.
[[nodiscard]] bool IsArea(const CGraph& graph);

/// Positions are counted from 1. Heights are pixels along the axis of values, from its zero.
class CPlotPlane {
public:
    /// Both must outlive it.
    CPlotPlane(const CGraph& graph, const GraphLayout& layout);

    [[nodiscard]] bool IsLying() const { return layout_.axes.isLying; }
    [[nodiscard]] std::int32_t Left() const { return left_; }      ///< where upright positions begin
    [[nodiscard]] std::int32_t Bottom() const { return bottom_; }  ///< where lying ones do
    [[nodiscard]] std::int32_t PositionLength() const { return IsLying() ? layout_.yAxisHeight : layout_.xAxisWidth; }
    [[nodiscard]] std::int32_t ValueLength() const { return IsLying() ? layout_.xAxisWidth : layout_.yAxisHeight; }

    /// X of a position of an upright chart, also the one behind the last.
    [[nodiscard]] std::int32_t PointX(std::size_t position, std::size_t count) const;
    /// The same as lines on plain axes have it, whatever the chart's kind: the secondary series go by it.
    [[nodiscard]] std::int32_t LineX(std::size_t position, std::size_t count) const;
    /// Pixels of a position's slot, and to its middle from where positions begin.
    [[nodiscard]] std::int32_t Slot() const;
    [[nodiscard]] std::int32_t SlotMiddle(std::size_t position) const;

    /// The point so far along the positions and so far from zero.
    [[nodiscard]] Point At(std::int32_t along, std::int32_t height) const;
    /// What a bar covers that begins `along` the positions and reaches from one height to another.
    [[nodiscard]] Box Bar(std::int32_t along, std::int32_t thickness, std::int32_t from, std::int32_t to) const;

    /// Pixels of a value as bars have them: the highest tick lies ten pixels beyond a full bar.
    [[nodiscard]] std::int32_t BarHeight(double value) const;
    /// As lines have them. Upright, one that would leave the image stands just over the highest tick.
    [[nodiscard]] std::int32_t LineHeight(double value) const;
    /// On the right axis, as its line has them: nothing is lifted, and what would leave the image is cut likewise.
    [[nodiscard]] std::int32_t SecondLineHeight(double value) const;
    /// Cut at the end of the axis; in the quadrants but the first at half of it, either way.
    [[nodiscard]] std::int32_t Limited(std::int32_t height) const;

private:
    [[nodiscard]] std::int32_t LiftedHeight(double value, double scale) const;

    const CGraph& graph_;
    const GraphLayout& layout_;
    std::int32_t left_;
    std::int32_t bottom_;
};

/// The rule by which a painter has the height of a value.
using HeightOfValue = std::int32_t (CPlotPlane::*)(double value) const;

}  // namespace tradebill
