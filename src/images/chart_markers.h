// How large the dots on the points of an account chart are.
#pragma once

#include <cstdint>

namespace tradebill {

/// The room that dots have.
struct DotSpace {
    std::int32_t width = 0;  ///< of the chart, pixels
    std::int32_t days = 0;   ///< that stand side by side in it
    std::int32_t dpi = 0;    ///< resolution that dots grow with
};

/// Radius in pixels for a chart of the report: smaller where the days lie closer than six pixels.
[[nodiscard]] std::int32_t MarkerRadius(const DotSpace& space);

/// For a chart painted again: grows with the width that it had in the report, `savedWidth`, by whole times, and is 0
/// in a narrower chart, as long as the days lie far enough apart. Without a saved width it is as in the report.
[[nodiscard]] std::int32_t StretchedMarkerRadius(const DotSpace& space, std::int32_t savedWidth);

}  // namespace tradebill
