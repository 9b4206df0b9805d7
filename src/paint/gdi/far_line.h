// Coordinates that the system's device contexts can work with: they count with fewer bits than ours have, and what they
// do with others isn't the same in every version.
#pragma once

#include <algorithm>
#include <optional>
#include <utility>

#include "paint/geometry.h"

namespace tradebill {

/// Of corners and of the ends of wide lines: what it costs to paint a shape may grow with its size, and nothing that
/// far off can be seen.
inline constexpr std::int32_t kFarthest = 1 << 16;
/// Of the ends of thin lines, which cost no more for being long.
inline constexpr std::int32_t kFarthestThin = 1 << 26;

[[nodiscard]] constexpr std::int32_t Clamped(std::int32_t coordinate) {
    return std::clamp(coordinate, -kFarthest, kFarthest);
}
[[nodiscard]] constexpr Point Clamped(Point point) {
    return {Clamped(point.x), Clamped(point.y)};
}
[[nodiscard]] constexpr Box Clamped(const Box& box) {
    return {Clamped(box.left), Clamped(box.top), Clamped(box.right), Clamped(box.bottom)};
}

/// The part of a line whose coordinates lie between -limit and limit, with the direction it has; nothing if there is
/// none.
[[nodiscard]] std::optional<std::pair<Point, Point>> NearPartOf(Point from, Point to, std::int32_t limit);

}  // namespace tradebill
