// One chart again, at a size that the host chooses.
#pragma once

#include "driver/report_request.h"
#include "images/chart_kinds.h"
#include "images/chart_values.h"
#include "paint/picture_file.h"

namespace tradebill {

/// Paints `chart` of a finished report into `rect` of a painting area of `size` and draws that part on `target`,
/// centred in the area. Lets no exception out: what goes wrong is a status of the target. Nothing for a null or for an
/// empty rectangle.
///
/// REQUIRES: `report` isn't being filled on another thread.
void Repaint(const CReport& report, const AccountChart& chart, ChartTarget* target, const ChartRect* rect,
             const PictureSize& size);

}  // namespace tradebill
