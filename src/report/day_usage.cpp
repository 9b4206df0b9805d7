#include "report/day_usage.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "base/number.h"

namespace tradebill {
namespace {

constexpr std::size_t kMostSearched = 16;  // products of a day, before a map is worth its memory

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

ContractPosition* CDayUsage::Find(std::string_view product) {
    if (latest_ != nullptr && latest_->Product == product) return latest_;
    if (byProduct_.empty()) {
        const auto found = std::ranges::find(
            Positions, product, [](const auto& position) -> std::string_view { return position->Product; });
        return found != Positions.end() ? found->get() : nullptr;
    }
    const auto found = byProduct_.find(product);
    return found != byProduct_.end() ? found->second : nullptr;
}

ContractPosition& CDayUsage::FindOrCreate(std::string_view product) {
    latest_ = Find(product);
    if (latest_ != nullptr) return *latest_;
    latest_ = Positions.emplace_back(std::make_unique<ContractPosition>()).get();
    latest_->Product = product;
    if (Positions.size() > kMostSearched) {
        for (std::size_t i = byProduct_.size(); i < Positions.size(); ++i) {
            byProduct_.emplace(Positions[i]->Product, Positions[i].get());
        }
    }
    return *latest_;
}

}  // namespace tradebill
