// One group of closed positions on its way to its figures.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/closed_results.h"
#include "analysis/compensated_sum.h"

namespace tradebill {

/// What one closed row adds to its groups.
struct ClosedRow {
    std::int64_t lots = 0;
    double pl = 0;
    std::optional<double> statedPl;
    std::optional<std::int64_t> holdingDays;  ///< from opening to closing
    std::optional<double> fees;               ///< as far as trades tell; nothing if they tell neither day's
    bool lacksFees = false;                   ///< they don't tell both days'
    std::optional<double> turnover;
};

class CClosedTally {
public:
    void Add(const ClosedRow& row);

    /// Sets all figures of `group`; its texts stay.
    ///
    /// REQUIRES: a row was added.
    void Fill(ClosedGroup& group);

private:
    void AddResult(double pl);
    void FillResults(ClosedGroup& group) const;
    void FillHolding(ClosedGroup& group);

    std::int64_t count_ = 0;
    std::int64_t lots_ = 0;
    CCompensatedSum pl_;
    CCompensatedSum statedPl_;
    bool statesPl_ = true;
    std::int64_t winCount_ = 0;
    std::int64_t lossCount_ = 0;
    CCompensatedSum wins_;
    CCompensatedSum losses_;
    double largestWin_ = 0;
    double largestLoss_ = 0;
    std::vector<std::int64_t> holdingDays_;
    CCompensatedSum fees_;
    bool knowsFees_ = false;
    std::int64_t lotsWithoutFees_ = 0;
    CCompensatedSum turnover_;
    bool knowsTurnover_ = true;
};

}  // namespace tradebill
