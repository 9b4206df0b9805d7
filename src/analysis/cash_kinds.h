// Deposits and withdrawals by their kinds.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tradebill {

class CReport;

/// What the rows of deposits and withdrawals of one kind add up to. An amount that isn't printed, or is no number,
/// counts as nothing. Of a report that keeps no such rows there are no kinds.
struct CashKind {
    std::string type;        ///< CASH_TYPE of the rows, GBK; empty where the tables have no such column
    std::int64_t count = 0;  ///< rows
    double cashIn = 0;       ///< sum of CASH_IN
    double cashOut = 0;      ///< sum of CASH_OUT
};

/// In the order in which the kinds come up first.
[[nodiscard]] std::vector<CashKind> CashKindsOf(const CReport& report);

}  // namespace tradebill
