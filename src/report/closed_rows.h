// Closed positions on their way into a report's tallies and counters.
#pragma once

#include "report/records.h"

namespace tradebill {

class CReport;

/// Folds a row of the domestic family into its contract's tally: its P/L is computed from prices, lots and the
/// contract's unit, which is asked for, not taken from the statement. Counts it in AccountStatistics.
///
/// REQUIRES: the report's request and products are set; they decide contract and unit.
void FoldClosedRow(const PingDetail& row, CReport& report);

/// Folds a row of the foreign family, into the long fields alone: the statement's P/L as it stands.
void FoldForeignClosedRow(const PingDetail& row, CReport& report);

}  // namespace tradebill
