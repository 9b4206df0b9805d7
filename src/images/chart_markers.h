// How large the dots on the points of an account chart are.
#pragma once

#include <cstdint>

namespace tradebill {

/// Radius in pixels for a chart of the report, `width` pixels wide: smaller where the days lie closer than six pixels.
[[nodiscard]] std::int32_t MarkerRadius(std::int32_t width, std::int32_t days);

/// For a chart painted again: grows with the width that it had in the report, `savedWidth`, by whole times, and is 0
/// in a narrower chart, as long as the days lie far enough apart. Without a saved width it is as in the report.
[[nodiscard]] std::int32_t StretchedMarkerRadius(std::int32_t width, std::int32_t days, std::int32_t savedWidth);

}  // namespace tradebill
