// Amounts in fields that may state none.
#pragma once

#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>

#include "base/number.h"
#include "base/text.h"

namespace tradebill {

/// The plain number that a field holds, and nothing else; nothing if it is empty or holds anything else.
template <std::size_t N>
[[nodiscard]] std::optional<double> StatedAmount(const char (&field)[N]) {
    const std::string_view text = Trim(FieldText(field));
    return IsAmount(text) ? std::optional(ParseAmount(text)) : std::nullopt;
}

/// The same in base currency; nothing too if `rate` is no number above 0, or so small that the amount outgrows all
/// figures.
template <std::size_t N>
[[nodiscard]] std::optional<double> StatedAmount(const char (&field)[N], double rate) {
    constexpr double kLargest = 1e30;
    const auto amount = StatedAmount(field);
    if (!amount || !(rate > 0)) return std::nullopt;
    const double based = *amount / rate;
    return std::fabs(based) <= kLargest ? std::optional(based) : std::nullopt;
}

}  // namespace tradebill
