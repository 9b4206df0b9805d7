// What an account holds in the end.
#pragma once

#include <vector>

#include "analysis/day_figures.h"
#include "analysis/margin_results.h"

namespace tradebill {

class CReport;

/// The positions of the last statement.
[[nodiscard]] std::vector<OpenPosition> OpenPositionsOf(const CReport& report, const DayFigures& days);

}  // namespace tradebill
