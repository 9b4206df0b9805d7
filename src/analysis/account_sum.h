// Accounts of one owner, added up day by day as if they were one.
#pragma once

#include <optional>
#include <vector>

#include "analysis/analysis.h"
#include "analysis/day_figures.h"
#include "analysis/product_margins.h"

namespace tradebill {

class CReport;

/// What accounts come to together.
struct SummedAccounts {
    std::optional<double>
        opening;        ///< equity before the first day, of those accounts that begin on it; null if unknown
    Analysis analysis;  ///< of days and margin; closed and open positions are the accounts' own
};

/// On a day on which an account has no statement, it stands as on its last one before: with that equity and margin,
/// without cash flow and fees. An account that begins later than the first comes in as a cash flow: by what it had
/// before its first day, or, if that isn't known, by its equity at the end of it. A figure that one of the accounts
/// doesn't state is null.
class CAccountSum {
public:
    /// REQUIRES: as Analyse. The report needn't stay.
    void Add(const CReport& report);

    /// REQUIRES: all accounts are domestic, or all are foreign ones of one base currency. Nothing may be added behind.
    [[nodiscard]] SummedAccounts Finish(const AnalysisOptions& options = {});

private:
    std::vector<DayFigures> accounts_;  // those with days; their records are gone
    CProductMargins margins_;
    bool isForeign_ = false;
};

}  // namespace tradebill
