#include "export/table_list.h"

#include <span>

#include "analysis/analysis.h"
#include "analysis/analysis_fields.h"
#include "export/analysis_tables.h"
#include "export/run_tables.h"
#include "export/store_tables.h"
#include "export/table.h"

namespace tradebill {
namespace {

// clang-format off
constexpr ExportTable kTables[] = {
    {"days",          kDayColumns,                            true,  WalkDays},
    {"currency_days", kCurrencyDayColumns,                    false, WalkCurrencyDays},
    {"trades",        kTradeColumns,                          false, WalkTrades},
    {"closed",        kClosedColumns,                         false, WalkClosed},
    {"positions",     kPositionColumns,                       false, WalkPositions},
    {"position_sums", kPositionSumColumns,                    false, WalkPositionSums},
    {"cash",          kCashColumns,                           false, WalkCash},
    {"exercises",     kExerciseColumns,                       false, WalkExercises},
    {"deliveries",    kDeliveryColumns,                       false, WalkDeliveries},
    {"contracts",     kAnalysisColumns<kContractFields>,      false, WalkAnalysis<kContractFields, &Analysis::contracts>},
    {"products",      kAnalysisColumns<kProductFields>,       false, WalkAnalysis<kProductFields, &Analysis::products>},
    {"sides",         kAnalysisColumns<kSideFields>,          false, WalkAnalysis<kSideFields, &Analysis::sides>},
    {"exchanges",     kAnalysisColumns<kExchangeFields>,      false, WalkAnalysis<kExchangeFields, &Analysis::exchanges>},
    {"closed_months", kAnalysisColumns<kClosedMonthFields>,   false, WalkAnalysis<kClosedMonthFields, &Analysis::closedMonths>},
    {"months",        kAnalysisColumns<kMonthFields>,         true,  WalkAnalysis<kMonthFields, &Analysis::months>},
    {"years",         kAnalysisColumns<kYearFields>,          true,  WalkAnalysis<kYearFields, &Analysis::years>},
    {"weekdays",      kAnalysisColumns<kWeekdayFields>,       true,  WalkAnalysis<kWeekdayFields, &Analysis::weekdays>},
    {"drawdowns",     kAnalysisColumns<kDrawdownFields>,      false, WalkAnalysis<kDrawdownFields, &Analysis::drawdowns>},
    {"margin",        kAnalysisColumns<kProductMarginFields>, false, WalkAnalysis<kProductMarginFields, analysis_tables::ProductMargins>},
    {"margin_days",   kAnalysisColumns<kProductMarginDayFields>, false, WalkAnalysis<kProductMarginDayFields, analysis_tables::ProductMarginDays>},
    {"open",          kAnalysisColumns<kOpenPositionFields>,  false, WalkAnalysis<kOpenPositionFields, &Analysis::open>},
    {"concentration", kAnalysisColumns<kConcentrationFields>, false, WalkAnalysis<kConcentrationFields, &Analysis::concentration>},
    {"cash_kinds",    kAnalysisColumns<kCashKindFields>,      false, WalkAnalysis<kCashKindFields, &Analysis::cashKinds>},
    {"units",         kUnitColumns,                           false, WalkUnits},
    {"figures",       kFigureColumns,                         true,  WalkFigures},
    {"findings",      kFindingColumns,                        false, WalkFindings},
};
// clang-format on

}  // namespace

std::span<const ExportTable> Tables() {
    return kTables;
}

}  // namespace tradebill
