#include "statement/report_document.h"

#include <array>
#include <cstdio>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "statement/account_statistics.h"
#include "statement/request_copy.h"

namespace tradebill {

CReportDocument ReportDocument;

namespace {

using std::int32_t;

/// The fields of one side of a ContractOffset.
struct SideFields {
    int32_t ContractOffset::*lots;
    double ContractOffset::*pl;
    int32_t ContractOffset::*count;
    int32_t ContractOffset::*winCount;
    int32_t ContractOffset::*winLots;
    double ContractOffset::*winPL;
    int32_t ContractOffset::*loseCount;
    int32_t ContractOffset::*loseLots;
    double ContractOffset::*losePL;
    double ContractOffset::*maxWin;
    double ContractOffset::*maxLoss;
};

constexpr SideFields kLong{
    .lots = &ContractOffset::LONG_VOL,
    .pl = &ContractOffset::LONG_PL,
    .count = &ContractOffset::LONG_COUNT,
    .winCount = &ContractOffset::LONG_WIN_COUNT,
    .winLots = &ContractOffset::LONG_WIN_VOL,
    .winPL = &ContractOffset::LONG_WIN_PL,
    .loseCount = &ContractOffset::LONG_LOSE_COUNT,
    .loseLots = &ContractOffset::LONG_LOSE_VOL,
    .losePL = &ContractOffset::LONG_LOSE_PL,
    .maxWin = &ContractOffset::LONG_MAX_WIN,
    .maxLoss = &ContractOffset::LONG_MAX_LOSS,
};

constexpr SideFields kShort{
    .lots = &ContractOffset::SHORT_VOL,
    .pl = &ContractOffset::SHORT_PL,
    .count = &ContractOffset::SHORT_COUNT,
    .winCount = &ContractOffset::SHORT_WIN_COUNT,
    .winLots = &ContractOffset::SHORT_WIN_VOL,
    .winPL = &ContractOffset::SHORT_WIN_PL,
    .loseCount = &ContractOffset::SHORT_LOSE_COUNT,
    .loseLots = &ContractOffset::SHORT_LOSE_VOL,
    .losePL = &ContractOffset::SHORT_LOSE_PL,
    .maxWin = &ContractOffset::SHORT_MAX_WIN,
    .maxLoss = &ContractOffset::SHORT_MAX_LOSS,
};

/// One closed position in numbers.
struct ClosedTrade {
    int32_t lots;
    double amount;    ///< P/L
    bool opensTally;  ///< the first row of its contract
};

void Increase(int32_t& count, int32_t by) {
    count = WrapAdd(count, by);
}

void TallyWin(ContractOffset& offset, const SideFields& side, const ClosedTrade& trade) {
    Increase(offset.*side.winLots, trade.lots);
    offset.*side.winPL += trade.amount;
    Increase(offset.*side.winCount, 1);
    if (trade.opensTally || trade.amount > offset.*side.maxWin) offset.*side.maxWin = trade.amount;
    if (trade.amount > 0) {
        Increase(AccountStatistics.WinCount, 1);
    } else {
        Increase(AccountStatistics.FlatCount, 1);
    }
}

void TallyLoss(ContractOffset& offset, const SideFields& side, const ClosedTrade& trade) {
    Increase(offset.*side.loseLots, trade.lots);
    offset.*side.losePL += trade.amount;
    Increase(offset.*side.loseCount, 1);
    if (trade.opensTally || trade.amount < offset.*side.maxLoss) offset.*side.maxLoss = trade.amount;
    Increase(AccountStatistics.LoseCount, 1);
}

/// Lots, wins and losses of one row.
void Tally(ContractOffset& offset, const SideFields& side, const ClosedTrade& trade) {
    Increase(offset.*side.lots, trade.lots);
    Increase(offset.*side.count, 1);
    // A contract's first short row without gain or loss is neither win, loss nor flat; all other such rows are flat.
    if (&side == &kShort && trade.opensTally && trade.amount == 0) return;
    if (trade.amount >= 0) TallyWin(offset, side, trade);
    if (trade.amount < 0) TallyLoss(offset, side, trade);
}

const SideFields* SideOf(const PingDetail& row) {
    const std::string_view bid = FieldText(row.BID);
    if (Contains(bid, "买"_gbk)) return &kLong;
    if (Contains(bid, "卖"_gbk)) return &kShort;
    return nullptr;
}

int32_t UnitOf(const PingDetail& row) {
    std::string_view contract = TrimByte(FieldText(row.CONTRACT), ' ');
    std::string_view delivery;
    if (Request.StatementFormat == 0) {
        contract = TrimByte(contract, kFullWidthBlankByte);
        delivery = TrimByte(FieldText(row.DELIVERY), ' ');
    }
    return AskContractUnit(contract, delivery);
}

class CPairingKey {
public:
    explicit CPairingKey(const PingDetail& row, bool withDelivery) {
        const int length = withDelivery ? std::snprintf(text_.data(), text_.size(), "%s-%s", row.CONTRACT, row.DELIVERY)
                                        : std::snprintf(text_.data(), text_.size(), "%s", row.CONTRACT);
        size_ = static_cast<std::size_t>(length);  // contract and delivery month are 88 bytes at most
    }
    [[nodiscard]] std::string_view View() const { return {text_.data(), size_}; }

private:
    std::array<char, 128> text_;
    std::size_t size_;
};

}  // namespace

CReportDocument::Found CReportDocument::FindOrCreate(std::string_view key, const PingDetail& row) {
    if (const auto found = byKey_.find(key); found != byKey_.end()) return {*found->second, false};
    auto offset = std::make_unique<ContractOffset>();
    CopyField(offset->CONTRACT, FieldText(row.CONTRACT));
    CopyField(offset->DELIVERY, FieldText(row.DELIVERY));
    ContractOffset& created = *offset;
    Offsets.push_back(std::move(offset));
    byKey_.emplace(key, &created);
    return {created, true};
}

void CReportDocument::FoldClosedRow(const PingDetail& row) {
    const std::scoped_lock guard(lock_);
    const CPairingKey key(row, NamesDeliveryApart(Request.StatementFormat));
    const int32_t unit = UnitOf(row);
    const SideFields* const side = SideOf(row);
    const auto [offset, isNew] = FindOrCreate(key.View(), row);
    if (side == nullptr) return;  // a new contract is listed all the same, with zeros

    const int32_t lots = ParseInteger(FieldText(row.MATCH_VOL));
    const double openPrice = ParseAmount(FieldText(row.OPEN_PRICE));
    const double closePrice = ParseAmount(FieldText(row.MATCH_PRICE));
    const bool isLong = side == &kLong;
    const double points = lots * (isLong ? closePrice - openPrice : openPrice - closePrice);
    const double amount = points * unit;

    Tally(offset, *side, {lots, amount, isNew});
    if (isLong) {
        offset.LONG_PL = isNew ? amount : points;  // the last row's points, no sum; the short side adds up
    } else {
        offset.SHORT_PL += amount;
    }
    AccountStatistics.AddPL(amount);
}

void CReportDocument::FoldForeignClosedRow(const PingDetail& row) {
    const std::scoped_lock guard(lock_);
    const CPairingKey key(row, false);
    const auto [offset, isNew] = FindOrCreate(key.View(), row);
    if (isNew) CopyField(offset.CURRENCY, FieldText(row.CURRENCY));
    const double amount = ParseAmount(FieldText(row.OFFSETPL));
    Tally(offset, kLong, {ParseInteger(FieldText(row.MATCH_VOL)), amount, isNew});
    AccountStatistics.AddPL(amount);
}

void CReportDocument::ClearOffsets() {
    const std::scoped_lock guard(lock_);
    Offsets.clear();
    byKey_.clear();
}

}  // namespace tradebill
