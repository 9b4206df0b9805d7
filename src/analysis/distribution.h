// How the returns of days are spread.
#pragma once

#include <span>
#include <vector>

#include "analysis/day_results.h"

namespace tradebill {

/// The returns of those days that have one.
[[nodiscard]] std::vector<double> ReturnsOf(std::span<const DayResult> days);

[[nodiscard]] Distribution DistributionOf(std::span<const double> returns);

/// What lies `share` of the way from the least value to the largest, by linear interpolation.
///
/// REQUIRES: `values` are in order, and there is one; `share` is 0 to 1.
[[nodiscard]] double QuantileOf(std::span<const double> values, double share);

}  // namespace tradebill
