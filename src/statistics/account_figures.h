// The figures of the whole report that are computed once, when all days are read.
#pragma once

#include <span>

namespace tradebill {

class CReport;

/// The largest fall from any value to a later one, never below 0. One pass: the fall to a value is largest from the
/// highest value before it, and subtraction from a higher value never rounds to less.
[[nodiscard]] double MaxDrawdownOf(std::span<const double> equities);

/// Fills equity bounds, drawdown and rates of the report's AccountStatistics from its money store and daily series.
/// With no record or no closed row the figures concerned stay 0.
///
/// REQUIRES: all closed rows are folded, and ComputeYields has run.
void ComputeAccountStatistics(CReport& report);

}  // namespace tradebill
