// Which axes a chart has and where they cross, told by its settings and data before any pixel is.
#pragma once

#include <cstdint>

#include "graph/graph.h"

namespace tradebill {

/// The axes that a chart is drawn on.
enum class AxisStyle {
    None,     ///< pies, and kinds that there aren't
    Plain,    ///< upright in the first quadrant
    Crossed,  ///< lying, scattered, or in another quadrant: numeric ticks as bit patterns
    Box,      ///< the three-dimensional kinds
};

struct AxisArrangement {
    AxisStyle style = AxisStyle::None;
    std::int32_t quadrant = 1;  ///< as set, or as found from the data of bars
    bool isLying = false;
    bool isXCentred = false;  ///< quadrants 2 and 4 put the Y axis into the middle
    bool isYCentred = false;  ///< 3 and 4 the X axis

    [[nodiscard]] bool IsCentred() const { return isXCentred || isYCentred; }
};

/// Looks through the data of bars whose quadrant isn't set.
[[nodiscard]] AxisArrangement ArrangementOf(const CGraph& graph);

}  // namespace tradebill
