// What the tests of the painted tables share.
#pragma once

#include <string>
#include <string_view>

#include "graph/recording_canvas.h"
#include "support/store_fixture.h"

namespace tradebill {

inline constexpr Pen kTablePen{.width = 1, .color = 0xD7D7D7};

/// For the order of painting: so many rows of the same operations.
inline std::string Rows(int count, std::string_view operations) {
    std::string order;
    for (int row = 0; row < count; ++row) order += operations;
    return order;
}

}  // namespace tradebill
