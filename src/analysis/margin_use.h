// From days and open positions to the use of margin.
#pragma once

#include "analysis/day_figures.h"
#include "analysis/margin_results.h"
#include "analysis/product_margins.h"

namespace tradebill {

/// Equities are in base currency: where margin of products isn't (`isForeign`), it is set in relation to none.
[[nodiscard]] MarginResult MarginOf(CProductMargins products, const DayFigures& days, bool isForeign);

}  // namespace tradebill
