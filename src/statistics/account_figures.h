// The part of AccountStatistics that is computed once, from the finished stores.
#pragma once

#include <span>

namespace tradebill {

/// The largest fall from any value to a later one, never below 0. One pass: the fall to a value is largest from the
/// highest value before it, and subtraction from a higher value never rounds to less.
[[nodiscard]] double MaxDrawdownOf(std::span<const double> equities);

/// Fills equity bounds, drawdown and rates of AccountStatistics from MoneyStore and TradeStatistics; its counters must
/// be complete. With no record or no closed row the figures concerned stay 0.
void ComputeAccountStatistics();

}  // namespace tradebill
