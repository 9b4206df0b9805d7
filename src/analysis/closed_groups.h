// From closed rows to results by product, contract, side, exchange and month.
#pragma once

#include <vector>

#include "analysis/closed_results.h"

namespace tradebill {

class CProductNames;
class CReport;
class CTradeTally;

struct ClosedFiguresByGroup {
    std::vector<ClosedGroup> products;
    std::vector<ClosedGroup> contracts;
    std::vector<ClosedGroup> sides;
    std::vector<ClosedGroup> exchanges;
    std::vector<ClosedGroup> months;
    std::vector<Concentration> concentration;
};

/// Lists are in order of currency, then pl, the lowest first, then key.
[[nodiscard]] ClosedFiguresByGroup ClosedGroupsOf(const CReport& report, const CTradeTally& trades,
                                                  CProductNames& products);

}  // namespace tradebill
