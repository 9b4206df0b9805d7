#include "analysis/day_figures.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "analysis/account_days.h"
#include "analysis/cash_flow.h"
#include "analysis/compensated_sum.h"
#include "analysis/day_results.h"
#include "analysis/opened_before.h"
#include "analysis/stated_amount.h"
#include "analysis/trade_tally.h"
#include "base/day_number.h"
#include "report/money_record.h"
#include "report/report.h"

namespace tradebill {
namespace {

double FeesOf(const MoneyRecord& record) {
    const double rate = record.EXCHANGE_RATE;
    return std::fabs(StatedAmount(record.SXF, rate).value_or(0)) +
           std::fabs(StatedAmount(record.XQSXF, rate).value_or(0));
}

void TakeTrades(const DayTrades* trades, bool isForeign, DayResult& result) {
    result.lots = trades != nullptr ? trades->lots : 0;
    if (isForeign || (trades != nullptr && !trades->statesTurnover)) return;
    result.turnover = trades != nullptr ? trades->turnover.Total() : 0;
}

/// What the day's record and trades say of it alone.
DayResult ResultOf(const AccountDay& day, const CReport& report, const CCashFlows& flows, const CTradeTally& trades) {
    const MoneyRecord& record = *day.record;
    DayResult result;
    result.day = NumberedDay(day.number);
    result.equity = StatedAmount(record.KHQY, record.EXCHANGE_RATE);
    result.cashFlow = flows.Of(day);
    result.margin = StatedAmount(record.BZJZY, record.EXCHANGE_RATE);
    result.fees = FeesOf(record);
    TakeTrades(trades.FindDay(day.number), report.IsForeign(), result);
    return result;
}

/// Use of margin, and P/L and return against the equity of the day before.
void Measure(std::optional<double> before, DayResult& result) {
    if (result.margin && result.equity.value_or(0) > 0) result.marginUse = *result.margin / *result.equity;
    if (!before || !result.equity || !result.cashFlow) return;
    result.pl = *result.equity - *before - *result.cashFlow;
    const double base = *before + std::max(*result.cashFlow, 0.0);
    if (base > 0) result.dayReturn = *result.pl / base;
}

/// Carries the index on to the next day, whose return is null where there is nothing left that could gain.
double NextIndex(double index, DayResult& result) {
    const double next = index * (1 + result.dayReturn.value_or(0));
    if (!(index > 0) || !std::isfinite(next)) {
        result.dayReturn.reset();
        return index;
    }
    return std::max(next, 0.0);
}

void TakeIndexes(std::vector<DayResult>& results) {
    double index = 1;
    CCompensatedSum flows;
    bool knowsFlows = true;
    for (DayResult& result : results) {
        index = NextIndex(index, result);
        result.index = index;
        flows.Add(result.cashFlow.value_or(0));
        knowsFlows &= result.cashFlow.has_value();
        if (knowsFlows && result.equity) result.moneyIndex = *result.equity - flows.Total();
    }
}

}  // namespace

DayFigures DayFiguresOf(const CReport& report, const CTradeTally& trades) {
    DayFigures figures{.days = AccountDaysOf(report), .results = {}, .opening = {}};
    if (figures.days.empty()) return figures;
    const CCashFlows flows(report);
    figures.results.reserve(figures.days.size());
    for (const AccountDay& day : figures.days) figures.results.push_back(ResultOf(day, report, flows, trades));

    const AccountDay& first = figures.days.front();
    figures.leavesOutFloating = report.IsForeign() && MayHoldBefore(report, first);
    if (!figures.leavesOutFloating) figures.opening = StatedAmount(first.record->QCQY, first.record->EXCHANGE_RATE);
    MeasureDays(figures);
    return figures;
}

void MeasureDays(DayFigures& figures) {
    std::optional<double> before = figures.opening;
    for (DayResult& result : figures.results) {
        Measure(before, result);
        before = result.equity;
    }
    TakeIndexes(figures.results);
}

}  // namespace tradebill
