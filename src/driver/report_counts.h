// How much a report holds, as people count it.
#pragma once

namespace tradebill {

class CReport;

/// Closed positions: rows, and in the foreign family, which only tallies them, what the tallies count.
[[nodiscard]] int CountClosedRows(const CReport& report);

/// Money figures, trades, closed positions, positions and position sums together.
[[nodiscard]] int CountRecords(const CReport& report);

}  // namespace tradebill
