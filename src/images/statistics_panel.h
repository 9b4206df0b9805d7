// How the account did: win rate, extremes and yields, with notes on how each is worked out.
#pragma once

#include "paint/canvas.h"

namespace tradebill {

/// Paints the seven figures of AccountStatistics at the left top of a canvas of white ground and transparent texts, and
/// the notes below. The right part stays free: the page lays two charts over it.
void PaintStatisticsPanel(CCanvas& canvas);

}  // namespace tradebill
