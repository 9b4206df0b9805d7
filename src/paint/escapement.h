// The direction of a text: an escapement counts tenths of a degree, counter-clockwise from a text that runs to the
// right.
#pragma once

#include <cstdint>
#include <numbers>

#include "base/number.h"

namespace tradebill {

inline constexpr std::int32_t kUpwardsEscapement = 900;

/// Wraps at 32 bits: any number may be asked for.
[[nodiscard]] constexpr std::int32_t EscapementOfDegrees(std::int32_t degrees) {
    return WrapMultiply(degrees, 10);
}

[[nodiscard]] constexpr double EscapementRadians(std::int32_t escapement) {
    return escapement * std::numbers::pi / 1800;
}

}  // namespace tradebill
