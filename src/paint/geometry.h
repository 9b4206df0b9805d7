// Points, boxes and colours of whatever is painted, in device pixels; y grows downwards.
#pragma once

#include <algorithm>
#include <cstdint>

#include "base/number.h"

namespace tradebill {

struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const Point&) const = default;
};

/// Right and bottom are left out by all that fills or frames a box.
struct Box {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    bool operator==(const Box&) const = default;
};

/// What lies in both boxes; a box without inside if nothing does.
[[nodiscard]] constexpr Box Intersection(const Box& one, const Box& other) {
    return {std::max(one.left, other.left), std::max(one.top, other.top), std::min(one.right, other.right),
            std::min(one.bottom, other.bottom)};
}

/// A coordinate worked out with 64 bits, held at the ends of the range: they are beyond every bitmap too.
[[nodiscard]] constexpr std::int32_t ClampCoordinate(std::int64_t value) {
    return ClampToInt32(value);
}

/// 0x00BBGGRR.
using Color = std::uint32_t;

}  // namespace tradebill
