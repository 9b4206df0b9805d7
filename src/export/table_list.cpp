#include "export/table_list.h"

#include <span>

#include "export/run_tables.h"
#include "export/store_tables.h"
#include "export/table.h"

namespace tradebill {
namespace {

// clang-format off
constexpr ExportTable kTables[] = {
    {"days",          kMoneyDayColumns,    true,  WalkMoneyDays},
    {"currency_days", kCurrencyDayColumns, false, WalkCurrencyDays},
    {"trades",        kTradeColumns,       false, WalkTrades},
    {"closed",        kClosedColumns,      false, WalkClosed},
    {"positions",     kPositionColumns,    false, WalkPositions},
    {"position_sums", kPositionSumColumns, false, WalkPositionSums},
    {"units",         kUnitColumns,        false, WalkUnits},
    {"figures",       kFigureColumns,      true,  WalkFigures},
    {"findings",      kFindingColumns,     false, WalkFindings},
};
// clang-format on

}  // namespace

std::span<const ExportTable> Tables() {
    return kTables;
}

}  // namespace tradebill
