// Drawdowns of the index of returns.
#pragma once

#include <optional>
#include <vector>

#include "analysis/day_figures.h"
#include "analysis/day_results.h"

namespace tradebill {

/// How far an index may lie from another to be the same: what returns and their product are rounded by.
inline constexpr double kSameIndex = 1e-12;

struct DrawdownFigures {
    std::vector<Drawdown> drawdowns;       ///< deepest first, of equal ones the earlier
    std::optional<double> timeUnderWater;  ///< share of days in one; nothing without days
};

[[nodiscard]] DrawdownFigures DrawdownsOf(const DayFigures& figures);

}  // namespace tradebill
