// Whole powers and roots by sums, products and quotients of doubles alone, which every system rounds alike: what a
// system's own exp and pow give differs in the last digit from one to the other.
#pragma once

#include <cstdint>

namespace tradebill {

/// A number of about 32 digits: the unevaluated sum of two doubles.
struct Precise {
    double high = 0;
    double low = 0;
};

[[nodiscard]] Precise PreciseSum(const Precise& left, double right);
[[nodiscard]] Precise PreciseProduct(const Precise& left, const Precise& right);
/// 1 / `number`.
[[nodiscard]] Precise PreciseInverse(const Precise& number);

/// `base` to the power of `exponent`, which isn't below 0. What leaves the range of doubles is infinite or 0.
[[nodiscard]] Precise PrecisePower(Precise base, std::int64_t exponent);

/// The h for which (1 + h) to the power of `exponent` is `value`.
///
/// REQUIRES: `value` is above 0 and finite, `exponent` above 0.
[[nodiscard]] double RootLessOne(double value, std::int64_t exponent);

}  // namespace tradebill
