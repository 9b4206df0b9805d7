// The one size rule of pictures and page.
#pragma once

#include <cstdint>

namespace tradebill {

/// value * numerator / denominator, to the nearest whole number with halves away from 0. -1 if the denominator is 0 or
/// the result doesn't fit 32 bits.
[[nodiscard]] constexpr int MulDiv(int value, int numerator, int denominator) {
    if (denominator == 0) return -1;
    const std::int64_t product = std::int64_t{value} * numerator;
    const bool negative = (product < 0) != (denominator < 0);
    const std::int64_t magnitude = product < 0 ? -product : product;
    const std::int64_t divisor = denominator < 0 ? -std::int64_t{denominator} : std::int64_t{denominator};
    const std::int64_t rounded = (magnitude + divisor / 2) / divisor;
    const std::int64_t result = negative ? -rounded : rounded;
    if (result > INT32_MAX || result < INT32_MIN) return -1;
    return static_cast<int>(result);
}

/// A measure of 96 dots per inch in pixels at `dpi`; the factor is rounded to whole per cent first. `dpi` 0 is no
/// scaling.
[[nodiscard]] constexpr int ScaleByDpi(int value, int dpi) {
    return dpi == 0 ? value : MulDiv(value, MulDiv(dpi, 100, 96), 100);
}

}  // namespace tradebill
