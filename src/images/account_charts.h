// The four charts of the account over the days of a report, each in two forms: as it stands in the report, and painted
// again for the host at another size from what the report keeps.
//
// chart_kinds.h says what the charts are, chart_filling.h makes them, graph/graph.h paints them.
#pragma once

#include "images/chart_kinds.h"
#include "images/chart_values.h"
#include "paint/canvas.h"
#include "paint/geometry.h"
#include "paint/picture_file.h"

namespace tradebill {

/// Fills the rectangle from (0, 0) to `size`, which is final pixels, with a chart of the report's days; in a report
/// without records that is an empty frame with its titles. A chart whose ticks would lie on one another isn't painted.
///
/// REQUIRES: the report's statistics are complete.
void DrawAccountChart(CCanvas& canvas, const CReport& report, const AccountChart& chart, const PictureSize& size);

/// Fills `rect` with a chart of a finished report, whose days are those of the money store's date texts. Throws
/// CReportError 0x80070057, with nothing painted, if these are no days: no report has been made yet.
void StretchAccountChart(CCanvas& canvas, const CReport& report, const AccountChart& chart, const Box& rect);

}  // namespace tradebill
