// The account's figures over the report, in a picture beside the equity chart.
#pragma once

#include "paint/canvas.h"

namespace tradebill {

/// Paints the ten figures of MoneyStore at the left top of a canvas of white ground and transparent texts.
void PaintAccountTable(CCanvas& canvas);

}  // namespace tradebill
