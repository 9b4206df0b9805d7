#include "explore/sum_tables.h"

#include <span>

#include "analysis/analysis.h"
#include "analysis/analysis_fields.h"
#include "export/analysis_tables.h"
#include "export/run_tables.h"
#include "export/table.h"

namespace tradebill {
namespace {

// clang-format off
constexpr ExportTable kSumTables[] = {
    {"days",        kAnalysisColumns<kDayResultFields>,        true,  WalkAnalysis<kDayResultFields, &Analysis::days>},
    {"months",      kAnalysisColumns<kMonthFields>,            true,  WalkAnalysis<kMonthFields, &Analysis::months>},
    {"years",       kAnalysisColumns<kYearFields>,             true,  WalkAnalysis<kYearFields, &Analysis::years>},
    {"weekdays",    kAnalysisColumns<kWeekdayFields>,          true,  WalkAnalysis<kWeekdayFields, &Analysis::weekdays>},
    {"drawdowns",   kAnalysisColumns<kDrawdownFields>,         false, WalkAnalysis<kDrawdownFields, &Analysis::drawdowns>},
    {"margin",      kAnalysisColumns<kProductMarginFields>,    false, WalkAnalysis<kProductMarginFields, analysis_tables::ProductMargins>},
    {"margin_days", kAnalysisColumns<kProductMarginDayFields>, false, WalkAnalysis<kProductMarginDayFields, analysis_tables::ProductMarginDays>},
    {"figures",     kFigureColumns,                            true,  WalkAnalysisFigures},
};
// clang-format on

}  // namespace

std::span<const ExportTable> SumTables() {
    return kSumTables;
}

}  // namespace tradebill
