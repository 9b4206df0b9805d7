// Ticks of the axes that aren't plain.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "graph/axis_arrangement.h"
#include "graph/graph.h"

namespace tradebill {

struct ValueMark {
    std::int32_t offset;  ///< pixels from the origin, towards greater values
    std::string text;
    bool isBetween;  ///< a grid line without tick and text
};

/// How an axis of values runs.
struct ValueAxis {
    std::int32_t length;  ///< pixels, all of it
    std::int32_t margin;  ///< that scattered dots leave free
    bool isCentred;       ///< half of it lies under the origin
};

/// In the order of drawing. The last one of a one-sided axis, and of the upper half of a centred one, stands at the
/// end.
[[nodiscard]] std::vector<ValueMark> MarksOf(const CGraph& graph, const AxisArrangement& axes, const ValueAxis& axis);

/// What these axes print of a number: the lower half of its bit pattern, as a signed number. 0 for 10 and 20.
[[nodiscard]] std::string PatternText(double value);

}  // namespace tradebill
