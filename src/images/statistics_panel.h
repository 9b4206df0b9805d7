// How the account did: win rate, extremes and yields, with notes on how each is worked out.
#pragma once

#include "paint/canvas.h"

namespace tradebill {

class CReport;

/// Paints the seven account figures at the left top, and the notes below. The right part stays free: the page lays two
/// charts over it.
///
/// REQUIRES: the ground of `canvas` is white, its texts transparent; the statistics are complete.
void PaintStatisticsPanel(CCanvas& canvas, const CReport& report);

}  // namespace tradebill
