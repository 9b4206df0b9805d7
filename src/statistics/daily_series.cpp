#include "statistics/daily_series.h"

#include <cstddef>

#include "base/number.h"
#include "report/chain_table.h"
#include "report/day_usage.h"
#include "report/report.h"

namespace tradebill {
namespace {

void TakeMargin(ContractPosition& larger, ContractPosition& smaller) {
    larger.Margin -= smaller.Margin;
    larger.NetLots = larger.Margin / larger.UnitMargin;
    smaller.Margin = 0;
    smaller.NetLots = 0;
}

void Net(ContractPosition& head, ContractPosition& other) {
    if (head.Margin >= other.Margin) {
        TakeMargin(head, other);
    } else {
        TakeMargin(other, head);
    }
}

void OffsetDay(CDayUsage& usage, const CChainTable& chains) {
    for (std::size_t i = 0; i < usage.Positions.size(); ++i) {
        ContractPosition& head = *usage.Positions[i];
        // The test goes one way only: the earlier position must head a chain of which the later one is an item.
        const CContractChain* const chain = chains.FindChain(head.Product);
        if (chain == nullptr) continue;
        for (std::size_t k = i + 1; k < usage.Positions.size() && head.Margin > 0; ++k) {
            ContractPosition& other = *usage.Positions[k];
            if (head.Side != other.Side && chain->Contains(other.Product)) Net(head, other);
        }
    }
    if (usage.HasFigures != 1 || !(usage.Equity > kSmallestAmount) || usage.Positions.empty()) return;
    usage.Margin = 0;
    for (const auto& position : usage.Positions) {
        if (position->Margin > 0) usage.Margin += position->Margin;
    }
    usage.Risk = usage.Margin / usage.Equity;
}

}  // namespace

void OffsetMargins(CReport& report) {
    for (const auto& usage : report.TradeStatistics.DayUsages.Days) OffsetDay(*usage, report.ChainTable);
}

void ComputeYields(CReport& report) {
    const double open = report.MoneyStore.OpeningEquity;
    double flow = 0;
    for (const auto& day : report.TradeStatistics.DayFigures.Days) {
        flow += day->CashFlow;
        if (open > kSmallestAmount) {
            day->Yield = (day->Closing - flow - open) / open;
        } else if (flow > kSmallestAmount) {
            day->Yield = (day->Closing - flow - open) / flow;
        } else {
            day->Yield = 0;
        }
    }
}

}  // namespace tradebill
