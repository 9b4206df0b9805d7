// From the days of one account or of several, and the margin of their products, to all figures over time.
#pragma once

#include "analysis/day_figures.h"
#include "analysis/product_margins.h"

namespace tradebill {

struct Analysis;

/// Sets all of `analysis` that comes of days and margin, and the reasons of all its nulls. REQUIRES: the rest of it is
/// there.
void FinishAnalysis(DayFigures figures, CProductMargins margins, bool isForeign, Analysis& analysis);

}  // namespace tradebill
