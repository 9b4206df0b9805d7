// Lighter and darker forms of a colour, for what is lit from above.
#pragma once

#include <algorithm>
#include <cstdint>

#include "paint/geometry.h"

namespace tradebill {

/// Each of the three channels changed by as much, as far as it goes.
[[nodiscard]] constexpr Color Shaded(Color color, std::int32_t change) {
    Color shaded = 0;
    for (const int shift : {0, 8, 16}) {
        const auto channel = static_cast<std::int32_t>(color >> shift & 0xFF);
        shaded |= static_cast<Color>(std::clamp(channel + change, 0, 255)) << shift;
    }
    return shaded;
}
[[nodiscard]] constexpr Color Lighter(Color color, std::int32_t by) {
    return Shaded(color, by);
}
[[nodiscard]] constexpr Color Darker(Color color, std::int32_t by) {
    return Shaded(color, -by);
}

}  // namespace tradebill
