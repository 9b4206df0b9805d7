// The rate of return that an account's payments bear, as a spreadsheet's XIRR has it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "analysis/day_figures.h"

namespace tradebill {

struct Payment {
    std::int64_t day;  ///< DayNumberOf
    double amount;     ///< below 0: paid in
};

/// The yearly rate (365 days) at which `payments` are worth nothing together, by bisection of its factor between 1e-6
/// and 1e6. Nothing if their worth has the same sign at both ends.
///
/// REQUIRES: `payments` are in order of their days.
[[nodiscard]] std::optional<double> InternalRateOf(std::span<const Payment> payments);

/// A rate, or why there is none.
struct MoneyWeightedReturn {
    std::optional<double> rate;
    std::string_view reason;  ///< empty if there is a rate
};

[[nodiscard]] MoneyWeightedReturn MoneyWeightedReturnOf(const DayFigures& figures);

}  // namespace tradebill
