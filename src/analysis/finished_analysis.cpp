#include "analysis/finished_analysis.h"

#include <string_view>
#include <utility>
#include <vector>

#include "analysis/analysis.h"
#include "analysis/day_figures.h"
#include "analysis/distribution.h"
#include "analysis/drawdowns.h"
#include "analysis/margin_use.h"
#include "analysis/money_weighted_return.h"
#include "analysis/null_reasons.h"
#include "analysis/periods.h"
#include "analysis/product_margins.h"
#include "analysis/ratios.h"

namespace tradebill {
namespace {

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

void FinishAnalysis(DayFigures figures, CProductMargins margins, bool isForeign, Analysis& analysis) {
    const NullCauses causes{.isForeign = isForeign,
                            .leavesOutFloating = figures.leavesOutFloating,
                            .moneyWeightedReturn = TakeReturns(figures, analysis)};
    analysis.margin = MarginOf(std::move(margins), figures, isForeign);
    analysis.days = std::move(figures.results);
    analysis.reasons = NullReasonsOf(analysis, causes);
}

}  // namespace tradebill
