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
#include "report/money_store.h"

namespace tradebill {
namespace {

void DrawPlain(const AccountChart& chart, CCanvas& canvas, const ReportRange& days, const PictureSize& size) {
    MoneyStore.ChartSizes[chart.ownSize] = size.width;
    MoneyStore.ChartSizes[chart.ownSize + 1] = size.height;
    CGraph graph(kLineGraph);
    if (!FillChart(graph, chart, chart.plain, days)) return;
    graph.markerRadius = MarkerRadius(size.width, chart.days());
    graph.DrawGraph(canvas, {0, 0, size.width, size.height});
}

std::time_t MidnightOfText(std::string_view text) {
    const CalendarDay day = ParseDashedDay(text);
    if (!HasMidnight(day)) throw CReportError(kErrorInvalidArgument);  // whatever is wrong with it
    return MidnightOf(day);
}

/// Held where the host's corners lie further apart than a number tells.
std::int32_t WidthOf(const Box& rect) {
    return ClampToInt32(std::int64_t{rect.right} - rect.left);
}

void DrawStretched(const AccountChart& chart, CCanvas& canvas, const Box& rect) {
    const ReportRange days{MidnightOfText(MoneyStore.StartDateText), MidnightOfText(MoneyStore.EndDateText)};
    CGraph graph(kLineGraph);
    if (!FillChart(graph, chart, chart.stretched, days)) return;
    const std::int32_t savedWidth = MoneyStore.ChartSizes[chart.comparedSize];
    graph.markerRadius = StretchedMarkerRadius(WidthOf(rect), chart.days(), savedWidth);
    graph.DrawGraph(canvas, rect);
}

}  // namespace

void DrawEquityChart(CCanvas& canvas, const ReportRange& days, const PictureSize& size) {
    DrawPlain(kEquityChart, canvas, days, size);
}

void DrawAccountYieldChart(CCanvas& canvas, const ReportRange& days, const PictureSize& size) {
    DrawPlain(kAccountYieldChart, canvas, days, size);
}

void DrawTradeYieldChart(CCanvas& canvas, const ReportRange& days, const PictureSize& size) {
    DrawPlain(kTradeYieldChart, canvas, days, size);
}

void DrawOffsetChart(CCanvas& canvas, const ReportRange& days, const PictureSize& size) {
    DrawPlain(kRealisedChart, canvas, days, size);
}

void StretchEquityChart(CCanvas& canvas, const Box& rect) {
    DrawStretched(kEquityChart, canvas, rect);
}

void StretchAccountYieldChart(CCanvas& canvas, const Box& rect) {
    DrawStretched(kAccountYieldChart, canvas, rect);
}

void StretchTradeYieldChart(CCanvas& canvas, const Box& rect) {
    DrawStretched(kTradeYieldChart, canvas, rect);
}

void StretchOffsetChart(CCanvas& canvas, const Box& rect) {
    DrawStretched(kRealisedChart, canvas, rect);
}

}  // namespace tradebill
