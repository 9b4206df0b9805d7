// The four charts of the account over the days of a report, each in two forms: as it stands in the report, and painted
// again for the host at another size from what the last run left in the stores.
//
// chart_kinds.h says what the charts are, chart_filling.h makes them, graph/graph.h paints them.
#pragma once

#include "paint/canvas.h"
#include "paint/geometry.h"
#include "paint/picture_file.h"
#include "report/request_copy.h"

namespace tradebill {

// Each notes `size`, which is final pixels, in MoneyStore.ChartSizes and fills the rectangle from (0, 0) to it with the
// chart of `days`; in a store without records that is an empty frame with its titles.
void DrawEquityChart(CCanvas& canvas, const ReportRange& days, const PictureSize& size);
void DrawAccountYieldChart(CCanvas& canvas, const ReportRange& days, const PictureSize& size);
void DrawTradeYieldChart(CCanvas& canvas, const ReportRange& days, const PictureSize& size);
/// Paints nothing if all realised amounts are next to nothing, but not 0.
void DrawOffsetChart(CCanvas& canvas, const ReportRange& days, const PictureSize& size);

// Each fills `rect` with the chart of the last report, whose days are those of MoneyStore's date texts. Throws
// CReportError 0x80070057, with nothing painted, if these are no days: no report has been made yet.
void StretchEquityChart(CCanvas& canvas, const Box& rect);
void StretchAccountYieldChart(CCanvas& canvas, const Box& rect);
void StretchTradeYieldChart(CCanvas& canvas, const Box& rect);
void StretchOffsetChart(CCanvas& canvas, const Box& rect);

}  // namespace tradebill
