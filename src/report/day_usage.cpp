#include "report/day_usage.h"

#include <mutex>

#include "base/number.h"
#include "report/chain_table.h"

namespace tradebill {
namespace {

constexpr double kLeastEquity = 1.1920928955078125e-7;  // single-precision epsilon

void OpenPosition(ContractPosition& position, const PositionRow& row) {
    if (row.lots <= 0) return;
    position.Side = row.side;
    position.Lots = row.lots;
    position.Day = row.day;
    position.Margin = row.margin;
    position.UnitMargin = row.margin / row.lots;
}

void AddToPosition(ContractPosition& position, const PositionRow& row) {
    position.Lots = WrapAdd(position.Lots, row.lots);
    if (position.Lots == 0) {  // a detail row may take all lots away; the margin per lot stays
        position.Margin = 0;
        return;
    }
    position.UnitMargin = (row.margin + position.Margin) / position.Lots;
    position.Margin = position.Lots * position.UnitMargin;
}

/// A row of the other side: the margin per lot becomes the mean over all lots of both sides.
void TakeFromPosition(ContractPosition& position, const PositionRow& row) {
    const std::int32_t old = position.Lots;
    const bool turns = old < row.lots;
    position.Lots = turns ? WrapSubtract(row.lots, old) : WrapSubtract(old, row.lots);
    const std::int32_t all = WrapAdd(old, row.lots);
    if (all != 0) position.UnitMargin = (row.margin + position.Margin) / all;
    position.Margin = position.Lots * position.UnitMargin;
    if (turns) position.Side = row.side;
}

void ApplyRow(ContractPosition& position, const PositionRow& row) {
    if (row.isSummary && row.lots <= 0) return;
    if (position.Lots < 1) {
        OpenPosition(position, row);
    } else if (position.Side == row.side) {
        AddToPosition(position, row);
    } else {
        TakeFromPosition(position, row);
    }
}

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

}  // namespace

void CDayUsage::AddRow(std::string_view product, const PositionRow& row) {
    const std::scoped_lock guard(lock_);
    ContractPosition*& slot = byProduct_[std::string(product)];
    if (slot == nullptr) {
        Positions.push_back(std::make_unique<ContractPosition>());
        slot = Positions.back().get();
        slot->Product = product;
    }
    ApplyRow(*slot, row);
}

void CDayUsage::OffsetMargins() {
    const std::scoped_lock guard(lock_);
    for (std::size_t i = 0; i < Positions.size(); ++i) {
        ContractPosition& head = *Positions[i];
        // The test goes one way only: the earlier position must head a chain of which the later one is an item.
        const CContractChain* const chain = ChainTable.FindChain(head.Product);
        if (chain == nullptr) continue;
        for (std::size_t k = i + 1; k < Positions.size() && head.Margin > 0; ++k) {
            ContractPosition& other = *Positions[k];
            if (head.Side != other.Side && chain->Contains(other.Product)) Net(head, other);
        }
    }
    if (HasFigures != 1 || !(Equity > kLeastEquity) || Positions.empty()) return;
    Margin = 0;
    for (const auto& position : Positions) {
        if (position->Margin > 0) Margin += position->Margin;
    }
    Risk = Margin / Equity;
}

}  // namespace tradebill
