// Coordinates that the system's device contexts can work with: they count with fewer bits than ours have, and what they
// do with others isn't the same in every version.
#pragma once

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/geometry.h"

namespace tradebill {

/// Nothing that far off can be seen.
inline constexpr std::int32_t kFarthest = 1 << 16;

[[nodiscard]] constexpr std::int32_t Held(std::int32_t coordinate) {
    return std::clamp(coordinate, -kFarthest, kFarthest);
}
[[nodiscard]] constexpr Point Held(Point point) {
    return {Held(point.x), Held(point.y)};
}
[[nodiscard]] constexpr Box Held(const Box& box) {
    return {Held(box.left), Held(box.top), Held(box.right), Held(box.bottom)};
}

/// The part of a line that isn't too far off, with the direction it has; nothing if all of it is.
[[nodiscard]] std::optional<std::pair<Point, Point>> NearPartOf(Point from, Point to);

}  // namespace tradebill
