// Closed positions on their way into a report's tallies and counters.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "report/records.h"

namespace tradebill {

class CReport;

/// What a row of the domestic family comes to by its prices.
struct ClosedFigures {
    bool isLong;  ///< side of the position that was closed
    std::int32_t lots;
    double closePrice;
    std::int32_t unit;
    double points;  ///< lots x gain in price
    double pl;      ///< points x unit
};

/// Nothing for a row without a side. Asks the report's products for the unit, whatever the row says.
[[nodiscard]] std::optional<ClosedFigures> ClosedFiguresOf(const PingDetail& row, const CReport& report);

/// Of a closed position: empty where its row names none.
struct ClosedSides {
    std::string_view position = {};  ///< "long" or "short"
    std::string_view trade = {};     ///< that of the trade that closed it: "buy" or "sell"
};

/// A row of the domestic family names the position's side, one of the foreign family the trade's.
[[nodiscard]] ClosedSides ClosedSidesOf(const PingDetail& row, bool isForeign);

/// Folds a row of the domestic family into its contract's tally: its P/L is computed from prices, lots and the
/// contract's unit, which is asked for, not taken from the statement. Counts it in AccountStatistics.
///
/// REQUIRES: the report's request and products are set; they decide contract and unit.
void FoldClosedRow(const PingDetail& row, CReport& report);

/// Folds a row of the foreign family, into the long fields alone: the statement's P/L as it stands.
void FoldForeignClosedRow(const PingDetail& row, CReport& report);

}  // namespace tradebill
