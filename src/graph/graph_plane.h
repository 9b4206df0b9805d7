// Where positions and values of a chart lie in pixels, whichever way it stands and wherever its axes cross.
#pragma once

#include <cstddef>
#include <cstdint>

#include "graph/graph.h"
#include "paint/geometry.h"

namespace tradebill {

/// The axes that a chart is drawn on.
enum class AxisStyle {
    None,     ///< pies, and kinds that there aren't
    Plain,    ///< upright in the first quadrant
    Crossed,  ///< lying, scattered, or in another quadrant: numeric ticks as bit patterns
    Box,      ///< the three-dimensional kinds
};
[[nodiscard]] AxisStyle AxisStyleOf(const CGraph& graph);

[[nodiscard]] bool IsPie(std::int32_t kind);
[[nodiscard]] bool IsLying(const CGraph& graph);
/// A line whose groups bound bands.
[[nodiscard]] bool IsArea(const CGraph& graph);
/// Quadrants 2 and 4 put the Y axis into the middle, 3 and 4 the X axis.
[[nodiscard]] bool IsXCentred(const CGraph& graph);
[[nodiscard]] bool IsYCentred(const CGraph& graph);

/// Made of a chart whose computed fields stand. Positions are counted from 1, the second measure is in pixels along
/// the axis of values, from its zero.
class CPlotPlane {
public:
    explicit CPlotPlane(const CGraph& graph);

    [[nodiscard]] bool IsLying() const { return isLying_; }
    [[nodiscard]] std::int32_t Left() const { return left_; }      ///< where upright positions begin
    [[nodiscard]] std::int32_t Bottom() const { return bottom_; }  ///< where lying ones do
    [[nodiscard]] std::int32_t PositionLength() const { return isLying_ ? graph_.yAxisHeight : graph_.xAxisWidth; }
    [[nodiscard]] std::int32_t ValueLength() const { return isLying_ ? graph_.xAxisWidth : graph_.yAxisHeight; }

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
    /// Held at the end of the axis; in the quadrants but the first at half of it, either way.
    [[nodiscard]] std::int32_t Limited(std::int32_t height) const;

private:
    [[nodiscard]] std::int32_t LiftedHeight(double value, double scale) const;

    const CGraph& graph_;
    bool isLying_;
    std::int32_t left_;
    std::int32_t bottom_;
};

}  // namespace tradebill
