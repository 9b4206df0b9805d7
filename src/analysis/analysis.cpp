#include "analysis/analysis.h"

#include <string_view>
#include <utility>
#include <vector>

#include "analysis/cash_kinds.h"
#include "analysis/closed_groups.h"
#include "analysis/day_figures.h"
#include "analysis/distribution.h"
#include "analysis/drawdowns.h"
#include "analysis/margin_use.h"
#include "analysis/money_weighted_return.h"
#include "analysis/null_reasons.h"
#include "analysis/open_positions.h"
#include "analysis/periods.h"
#include "analysis/product_names.h"
#include "analysis/ratios.h"
#include "analysis/trade_tally.h"
#include "report/report.h"

namespace tradebill {
namespace {

void TakeClosed(ClosedFiguresByGroup figures, Analysis& analysis) {
    analysis.products = std::move(figures.products);
    analysis.contracts = std::move(figures.contracts);
    analysis.sides = std::move(figures.sides);
    analysis.exchanges = std::move(figures.exchanges);
    analysis.closedMonths = std::move(figures.months);
    analysis.concentration = std::move(figures.concentration);
}

/// All that days tell but themselves. Returns why there is no money-weighted return.
std::string_view TakeReturns(const DayFigures& figures, Analysis& analysis) {
    DrawdownFigures drawdowns = DrawdownsOf(figures);
    analysis.months = PeriodsOf(figures.results, kMonthLength);
    analysis.years = PeriodsOf(figures.results, kYearLength);
    analysis.weekdays = WeekdaysOf(figures);
    analysis.streaks = StreaksOf(figures.results);
    const std::vector<double> returns = ReturnsOf(figures.results);
    analysis.distribution = DistributionOf(returns);
    analysis.ratios = RatiosOf({.returns = returns,
                                .distribution = analysis.distribution,
                                .lastIndex = figures.results.empty() ? 1 : figures.results.back().index,
                                .drawdowns = drawdowns,
                                .tradingDays = analysis.tradingDays});
    const MoneyWeightedReturn moneyWeighted = MoneyWeightedReturnOf(figures);
    analysis.ratios.moneyWeightedReturn = moneyWeighted.rate;
    analysis.drawdowns = std::move(drawdowns.drawdowns);
    return moneyWeighted.reason;
}

}  // namespace

Analysis Analyse(const CReport& report, const AnalysisOptions& options) {
    CProductNames products(report);
    const CTradeTally trades(report, products);
    DayFigures figures = DayFiguresOf(report, trades);
    Analysis analysis;
    analysis.tradingDays = options.tradingDays;
    NullCauses causes{.isForeign = report.IsForeign(),
                      .leavesOutFloating = figures.leavesOutFloating,
                      .moneyWeightedReturn = TakeReturns(figures, analysis)};
    TakeClosed(ClosedGroupsOf(report, trades, products), analysis);
    analysis.margin = MarginOf(report, figures, products);
    analysis.open = OpenPositionsOf(report, figures);
    analysis.cashKinds = CashKindsOf(report);
    analysis.days = std::move(figures.results);
    analysis.reasons = NullReasonsOf(analysis, causes);
    return analysis;
}

}  // namespace tradebill
