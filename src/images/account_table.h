// The account's figures over the report, in a picture beside the equity chart.
#pragma once

#include "paint/canvas.h"

namespace tradebill {

class CReport;

/// Paints the ten figures of the money store at the left top.
///
/// REQUIRES: the ground of `canvas` is white, its texts transparent.
void PaintAccountTable(CCanvas& canvas, const CReport& report);

}  // namespace tradebill
