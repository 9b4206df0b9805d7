// The surface of a host on which charts are repainted.
#pragma once

#include "driver/report_request.h"
#include "platform/bitmap.h"

namespace tradebill {

/// Copies the pixels of `part` of `bitmap` to `target`, the left top corner of the part to `at`. What lies outside of
/// either is left out.
[[nodiscard]] ChartStatus ShowOnSurface(ChartTarget& target, const CBitmap& bitmap, const Box& part, Point at);

void SetSurfaceStatus(ChartTarget& target, ChartStatus status);

}  // namespace tradebill
