// From days and open positions to the use of margin.
#pragma once

#include "analysis/day_figures.h"
#include "analysis/margin_results.h"

namespace tradebill {

class CProductNames;
class CReport;

[[nodiscard]] MarginResult MarginOf(const CReport& report, const DayFigures& days, CProductNames& products);

}  // namespace tradebill
