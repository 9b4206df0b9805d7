// Ratios of return and risk, per year.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "analysis/day_figures.h"
#include "analysis/day_results.h"
#include "analysis/drawdowns.h"

namespace tradebill {

/// What ratios are made of.
struct RatioSources {
    std::span<const double> returns;
    const Distribution& distribution;
    double lastIndex;  ///< 1 without days
    const DrawdownFigures& drawdowns;
    std::int64_t tradingDays;  ///< of a year
};

/// All but the money-weighted return (money_weighted_return.h).
[[nodiscard]] Ratios RatiosOf(const RatioSources& sources);

}  // namespace tradebill
