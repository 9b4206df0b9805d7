#include "findings/lots_book.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "report/position_lots.h"
#include "report/product_text.h"
#include "report/records.h"

namespace tradebill {
namespace {

bool IsBuy(std::string_view bid) {
    return Contains(bid, "买"_gbk) || Contains(bid, "多"_gbk);
}

std::size_t SideOf(std::string_view bid) {
    return static_cast<std::size_t>(IsBuy(bid) ? LotSide::Long : LotSide::Short);
}

std::size_t Opposite(std::size_t side) {
    return 1 - side;
}

}  // namespace

CLotsBook::Contract& CLotsBook::Find(std::string_view contract, std::string_view delivery) {
    key_.assign(contract);
    if (namesDeliveryApart_ && !delivery.empty()) key_.append("-").append(delivery);
    const auto found = byKey_.find(std::string_view(key_));
    if (found != byKey_.end()) return contracts_[found->second];
    byKey_.emplace(key_, contracts_.size());
    contracts_.push_back({.name = key_, .isOption = IsOptionContract(contract)});
    return contracts_.back();
}

void CLotsBook::BeginDay() {
    for (Contract& contract : contracts_) {
        contract.change = contract.now = {};
        contract.isUnclear = contract.isTraded = false;
    }
}

bool CLotsBook::AddTrade(const MatchRecord& row) {
    Contract& contract = Find(FieldText(row.CONTRACT), FieldText(row.DELIVERY));
    const std::string_view offset = FieldText(row.OFFSET);
    const int lots = IntegerIn(row.MATCH_VOL);
    const std::size_t side = SideOf(FieldText(row.BID));
    contract.isTraded = true;
    if (Contains(offset, "开"_gbk)) {
        contract.change[side] = WrapAdd(contract.change[side], lots);
    } else if (Contains(offset, "平"_gbk)) {
        contract.change[Opposite(side)] = WrapSubtract(contract.change[Opposite(side)], lots);
    } else {
        contract.isUnclear = true;
    }
    return contract.isOption;
}

void CLotsBook::AddForeignTrade(const MatchRecord& row) {
    Contract& contract = Find(FieldText(row.CONTRACT), {});
    contract.isTraded = true;
    if (FieldText(row.BID).empty()) {
        contract.isUnclear = true;
    } else {
        std::int32_t& change = contract.change[SideOf(FieldText(row.BID))];
        change = WrapAdd(change, IntegerIn(row.MATCH_VOL));
    }
}

void CLotsBook::AddForeignClosed(const PingDetail& row) {
    Contract& contract = Find(FieldText(row.CONTRACT), {});
    const std::size_t side = SideOf(FieldText(row.BID));
    const int lots = IntegerIn(row.MATCH_VOL);
    if (FieldText(row.BID).empty()) contract.isUnclear = true;
    contract.change[side] = WrapSubtract(contract.change[side], lots);
    contract.change[Opposite(side)] = WrapSubtract(contract.change[Opposite(side)], lots);
}

void CLotsBook::AddLots(std::string_view contract, std::string_view delivery, std::string_view bid, int lots) {
    std::int32_t& now = Find(contract, delivery).now[SideOf(bid)];
    now = WrapAdd(now, lots);
}

void CLotsBook::AddOpen(const OpiDetail& row) {
    AddLots(FieldText(row.CONTRACT), FieldText(row.DELIVERY), FieldText(row.BID), LotsOf(row));
}

void CLotsBook::AddOpen(const OpiSum& row) {
    AddLots(FieldText(row.CONTRACT), FieldText(row.DELIVERY), FieldText(row.BID), LotsOf(row));
}

bool CLotsBook::ExpectsLots() const {
    return std::ranges::any_of(contracts_, [this](const Contract& contract) {
        const auto expected = [&](std::size_t side) {
            return WrapAdd(hasBefore_ ? contract.before[side] : 0, contract.change[side]);
        };
        return expected(0) > 0 || expected(1) > 0;
    });
}

std::vector<LotsFault> CLotsBook::EndDay() {
    std::vector<LotsFault> faults;
    for (Contract& contract : contracts_) {
        for (std::size_t side = 0; hasBefore_ && side < contract.now.size(); ++side) {
            const int expected = WrapAdd(contract.before[side], contract.change[side]);
            const int found = contract.now[side];
            if (expected == found || contract.isUnclear) continue;
            const bool isVanished = contract.isOption && !contract.isTraded && found == 0;
            faults.push_back({contract.name, static_cast<LotSide>(side), expected, found, isVanished});
        }
        contract.before = contract.now;
    }
    hasBefore_ = true;
    return faults;
}

void CLotsBook::Break() {
    hasBefore_ = false;
}

}  // namespace tradebill
