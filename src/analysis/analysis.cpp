#include "analysis/analysis.h"

#include <utility>

#include "analysis/cash_kinds.h"
#include "analysis/closed_groups.h"
#include "analysis/day_figures.h"
#include "analysis/finished_analysis.h"
#include "analysis/open_positions.h"
#include "analysis/product_margins.h"
#include "analysis/product_names.h"
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

}  // namespace

Analysis Analyse(const CReport& report, const AnalysisOptions& options) {
    CProductNames products(report);
    const CTradeTally trades(report, products);
    DayFigures figures = DayFiguresOf(report, trades);
    CProductMargins margins;
    margins.Add(report, products);
    Analysis analysis;
    analysis.tradingDays = options.tradingDays;
    TakeClosed(ClosedGroupsOf(report, trades, products), analysis);
    analysis.open = OpenPositionsOf(report, figures);
    analysis.cashKinds = CashKindsOf(report);
    FinishAnalysis(std::move(figures), std::move(margins), report.IsForeign(), analysis);
    return analysis;
}

}  // namespace tradebill
