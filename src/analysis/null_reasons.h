// Why figures are null.
#pragma once

#include <string_view>
#include <vector>

#include "analysis/analysis.h"

namespace tradebill {

/// What the figures themselves don't tell.
struct NullCauses {
    bool isForeign = false;
    bool leavesOutFloating = false;        ///< DayFigures
    std::string_view moneyWeightedReturn;  ///< MoneyWeightedReturn::reason
};

/// One for each null of `analysis`, in the order of its figures.
[[nodiscard]] std::vector<NullReason> NullReasonsOf(const Analysis& analysis, const NullCauses& causes);

}  // namespace tradebill
