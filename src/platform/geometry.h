// Points, boxes and colours of whatever is painted, in device pixels; y grows downwards.
#pragma once

#include <cstdint>

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

/// 0x00BBGGRR.
using Color = std::uint32_t;

}  // namespace tradebill
