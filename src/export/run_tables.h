// The tables of a run as a whole: its contract units, its figures, what was found in its statements.
#pragma once

#include "export/table.h"

namespace tradebill {

// clang-format off
inline constexpr ExportColumn kUnitColumns[] = {
    {"product", ColumnKind::Text, true},
    {"unit",    ColumnKind::Count},
    {"source",  ColumnKind::Text},
};

inline constexpr ExportColumn kFigureColumns[] = {
    {"name",   ColumnKind::Text, true},
    {"value",  ColumnKind::Number},
    {"reason", ColumnKind::Text},
};

inline constexpr ExportColumn kFindingColumns[] = {
    {"code",     ColumnKind::Text},
    {"severity", ColumnKind::Text},
    {"day",      ColumnKind::Day, true},
    {"file",     ColumnKind::Text},
    {"row",      ColumnKind::Count},
    {"section",  ColumnKind::Text},
    {"expected", ColumnKind::Text},
    {"found",    ColumnKind::Text},
    {"text",     ColumnKind::Text},
};
// clang-format on

void WalkUnits(const ExportSource& source, CRowSink& sink);
/// Each figure under the path that leads to it in the JSON: "money.ClosingEquity", "ratios.sharpe", and why it is
/// nothing. Figures that are texts have no row.
void WalkFigures(const ExportSource& source, CRowSink& sink);
/// The same of the analysis alone.
void WalkAnalysisFigures(const ExportSource& source, CRowSink& sink);
void WalkFindings(const ExportSource& source, CRowSink& sink);

}  // namespace tradebill
