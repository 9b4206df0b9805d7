#include "images/account_charts.h"

#include <cstdint>
#include <ctime>
#include <string_view>

#include "base/day.h"
#include "base/number.h"
#include "base/report_error.h"
#include "graph/graph.h"
#include "images/chart_filling.h"
#include "images/chart_kinds.h"
#include "images/chart_markers.h"
#include "paint/canvas.h"
#include "paint/geometry.h"
#include "paint/picture_file.h"
#include "report/money_store.h"
#include "report/report.h"
#include "report/request_copy.h"

namespace tradebill {
namespace {

std::time_t MidnightOfText(std::string_view text) {
    const CalendarDay day = ParseDashedDay(text);
    const auto midnight = TryMidnightOf(day);
    if (!midnight) throw CReportError(kErrorInvalidArgument);  // whatever is wrong with it
    return *midnight;
}

/// Held where the host's corners lie further apart than a number tells.
std::int32_t WidthOf(const Box& rect) {
    return ClampToInt32(std::int64_t{rect.right} - rect.left);
}

}  // namespace

void DrawAccountChart(CCanvas& canvas, const CReport& report, const AccountChart& chart, const PictureSize& size) {
    CGraph graph(kLineGraph);
    FillChart(graph, report, chart, chart.plain, report.ReportDays);
    if (graph.tickSpace == 0.0) return;  // a stretched chart is painted all the same
    graph.markerRadius = MarkerRadius({.width = size.width, .days = chart.days(report), .dpi = report.Request.Dpi});
    graph.DrawGraph(canvas, {0, 0, size.width, size.height});
}

void StretchAccountChart(CCanvas& canvas, const CReport& report, const AccountChart& chart, const Box& rect) {
    const CMoneyStore& store = report.MoneyStore;
    const ReportRange days{MidnightOfText(store.StartDateText), MidnightOfText(store.EndDateText)};
    CGraph graph(kLineGraph);
    FillChart(graph, report, chart, chart.stretched, days);
    graph.markerRadius =
        StretchedMarkerRadius({.width = WidthOf(rect), .days = chart.days(report), .dpi = report.Request.Dpi},
                              store.ChartSizes[chart.comparedSize]);
    graph.DrawGraph(canvas, rect);
}

}  // namespace tradebill
