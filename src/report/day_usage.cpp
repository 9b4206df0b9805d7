#include "report/day_usage.h"

#include <cstdint>
#include <memory>
#include <string_view>

#include "base/number.h"

namespace tradebill {
namespace {

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

}  // namespace

void CDayUsage::AddRow(std::string_view product, const PositionRow& row) {
    ApplyRow(FindOrCreate(product), row);
}

ContractPosition& CDayUsage::FindOrCreate(std::string_view product) {
    if (latest_ != nullptr && latest_->Product == product) return *latest_;
    if (const auto found = byProduct_.find(product); found != byProduct_.end()) {
        latest_ = found->second;
        return *latest_;
    }
    latest_ = Positions.emplace_back(std::make_unique<ContractPosition>()).get();
    latest_->Product = product;
    byProduct_.emplace(product, latest_);
    return *latest_;
}

}  // namespace tradebill
