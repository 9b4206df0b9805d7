#include "images/chart_filling.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/day.h"
#include "base/text.h"
#include "graph/graph.h"
#include "images/chart_kinds.h"
#include "images/chart_scale.h"
#include "images/chart_values.h"
#include "platform/local_time.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/report.h"
#include "report/request_copy.h"

namespace tradebill {
namespace {

constexpr std::int32_t kFontSize = 11;
constexpr std::int32_t kLineWidth = 2;

template <class Value>
void Set(Value& field, const std::optional<Value>& value) {
    if (value) field = *value;
}

void ApplySecondAxis(CGraph& graph, const SecondAxisSettings& second) {
    graph.dualAxis = 1;
    graph.graphTitle2 = second.title;
    CopyField(graph.unitText2, second.unit);
    CopyField(graph.valueSuffix2, second.suffix);
    graph.graphType2 = second.graphType;
    graph.legendKind2 = second.legendKind;
    graph.color2Low = second.colorLow;
    graph.color2High = second.colorHigh;
    graph.valueDivisor2 = second.valueDivisor;
    graph.minTick2 = second.minTick;
    graph.maxTick2 = second.maxTick;
    graph.decimalDigits2 = second.decimals;
}

void ApplySettings(CGraph& graph, const CReport& report, const ChartSettings& settings, const FormSettings& form) {
    graph.dpi = report.Request.Dpi;
    graph.screenWidth = report.ScreenWidth;
    graph.graphHasGridLines = 1;
    graph.lineWidth = kLineWidth;
    graph.tickFontSize = graph.xLabelFontSize = report.Scaled(kFontSize);
    graph.graphTitle = settings.title;
    graph.colorList.push_back(std::make_unique<CGraphDataColor>(CGraphDataColor{0, settings.lineColor}));
    if (!settings.unit.empty()) CopyField(graph.unitText, settings.unit);
    CopyField(graph.valueSuffix, settings.suffix);
    Set(graph.valueDivisor, settings.valueDivisor);
    Set(graph.decimalDigits, settings.decimals);
    Set(graph.titleFontSize, settings.titleFontSize);
    Set(graph.valueGapDivisor, settings.valueGapDivisor);
    graph.topRowMode = settings.topRowMode;
    graph.baseRow = settings.baseRow;
    graph.rightBorder = settings.rightBorder;
    graph.swatchTitle = settings.swatchTitle;
    graph.midLineThick = settings.midLineThick;
    if (settings.second) ApplySecondAxis(graph, *settings.second);
    graph.avoidLabelOverlap = form.avoidLabelOverlap;
    graph.showValues = form.showValues;
}

void ApplyScale(CGraph& graph, const ChartScale& scale) {
    graph.minTick = scale.minTick;
    graph.maxTick = scale.maxTick;
    graph.tickSpace = scale.tickSpace;
    graph.numTicks = scale.numTicks;
    Set(graph.decimalDigits, scale.decimals);
    if (graph.dualAxis == 1) graph.tickSpace2 = (graph.maxTick2 - graph.minTick2) / graph.numTicks;
}

void AddPoint(SeriesList& list, std::int32_t& size, const std::string& label, double value) {
    auto series = std::make_unique<CGraphSeries>();
    series->SetData(0, value);
    series->seriesLabel = label;
    size = std::max(size, static_cast<std::int32_t>(series->dataValues.size()));
    list.push_back(std::move(series));
}

std::string LabelOf(const CalendarDay& day, bool isOneYear) {
    std::array<char, 48> text{};
    if (isOneYear) {
        std::snprintf(text.data(), text.size(), "%02d/%02d", day.month, day.day);
    } else {
        std::snprintf(text.data(), text.size(), "%02d/%02d/%02d", day.year, day.month, day.day);
    }
    return text.data();
}

bool IsOneYear(const ReportRange& range) {
    return LocalDayOf(range.first).year == LocalDayOf(range.last).year;
}

/// From the midnight of the earliest record to the one after the latest; empty without records.
ReportRange DaysOfRecords(const CMoneyStore& store) {
    std::optional<ReportRange> days;
    for (const auto& record : store.Records) {
        const auto midnight = TryMidnightOf(ParsePackedDay(FieldText(record->BILL_DATE)));
        if (!midnight) continue;
        if (!days) days = {*midnight, *midnight};
        days->first = std::min(days->first, *midnight);
        days->last = std::max(days->last, *midnight);
    }
    if (!days) return {.first = 0, .last = -1};
    days->last += 2 * kSecondsPerDay;  // the day when clocks go back is longer than its seconds
    return *days;
}

/// The part of a walk in steps of a day that can meet records, so that centuries around them cost nothing. The steps
/// stay where they were: when clocks change they run into an hour of another day.
ReportRange WalkWorthTaking(const ReportRange& range, const CMoneyStore& store) {
    const ReportRange records = DaysOfRecords(store);
    std::time_t first = std::max(range.first, std::time_t{0});
    const std::time_t skipped = records.first / kSecondsPerDay - first / kSecondsPerDay - 1;
    if (skipped > 0) first += skipped * kSecondsPerDay;
    return {first, std::min(range.last, records.last)};
}

void AddDays(CGraph& graph, const CReport& report, const AccountChart& chart, const FormSettings& form,
             const ReportRange& range) {
    const bool isOneYear = IsOneYear(range);
    const ReportRange walk = WalkWorthTaking(range, report.MoneyStore);
    double last = 0.0;
    for (std::time_t cursor = walk.first; cursor <= walk.last; cursor += kSecondsPerDay) {
        const CalendarDay day = LocalDayOf(cursor);
        const std::string text = DayText(day);
        const MoneyRecord* const money = report.MoneyStore.FindDay(text);
        if (money == nullptr) continue;
        const ChartDay chartDay{report, text, *money};
        const std::string label = LabelOf(day, isOneYear);
        const double value = chart.value(chartDay).value_or(form.holdsLastValue ? last : 0.0);
        last = value;
        AddPoint(graph.graphSeries, graph.seriesSize, label, value);
        if (chart.secondValue == nullptr) continue;
        AddPoint(graph.graphSeries2, graph.seriesSize2, label, chart.secondValue(chartDay).value_or(0.0));
    }
}

}  // namespace

void FillChart(CGraph& graph, const CReport& report, const AccountChart& chart, const FormSettings& form,
               const ReportRange& days) {
    ApplySettings(graph, report, chart.settings, form);
    if (chart.beginsWithOpening && report.MoneyStore.Count() > 0) {
        AddPoint(graph.graphSeries, graph.seriesSize, LabelOf(LocalDayOf(days.first), IsOneYear(days)),
                 report.MoneyStore.OpeningEquity);
    }
    AddDays(graph, report, chart, form, days);
    ApplyScale(graph, chart.scale(report, graph.graphSeries));
}

}  // namespace tradebill
