// From money records and trades to the results of days.
#pragma once

#include <optional>
#include <vector>

#include "analysis/account_days.h"
#include "analysis/day_results.h"

namespace tradebill {

class CReport;
class CTradeTally;

/// An account's days and what they started with.
struct DayFigures {
    std::vector<AccountDay> days;
    std::vector<DayResult> results;  ///< one for each
    /// Opening balance of the first day. Null without days, if it isn't stated, and where it isn't what the first day
    /// is measured by: the foreign account's that leaves out floating P/L.
    std::optional<double> opening;
    bool leavesOutFloating = false;  ///< the opening balance is stated, but no measure
};

[[nodiscard]] DayFigures DayFiguresOf(const CReport& report, const CTradeTally& trades);

/// Sets what days have against those before: use of margin, P/L, returns and indexes, of equity, cash flow and margin.
void MeasureDays(DayFigures& figures);

}  // namespace tradebill
