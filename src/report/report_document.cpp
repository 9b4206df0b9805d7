#include "report/report_document.h"

#include <array>
#include <cstdio>
#include <mutex>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "report/account_statistics.h"
#include "report/offset_sides.h"
#include "report/request_copy.h"

namespace tradebill {

CReportDocument ReportDocument;

namespace {

using std::int32_t;

/// One closed position in numbers.
struct ClosedTrade {
    int32_t lots;
    double amount;    ///< P/L
    bool opensTally;  ///< the first row of its contract
};

void Increase(int32_t& count, int32_t by) {
    count = WrapAdd(count, by);
}

void TallyWin(ContractOffset& offset, const OffsetSide& side, const ClosedTrade& trade) {
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

void TallyLoss(ContractOffset& offset, const OffsetSide& side, const ClosedTrade& trade) {
    Increase(offset.*side.loseLots, trade.lots);
    offset.*side.losePL += trade.amount;
    Increase(offset.*side.loseCount, 1);
    if (trade.opensTally || trade.amount < offset.*side.maxLoss) offset.*side.maxLoss = trade.amount;
    Increase(AccountStatistics.LoseCount, 1);
}

/// Lots, wins and losses of one row.
void Tally(ContractOffset& offset, const OffsetSide& side, const ClosedTrade& trade) {
    Increase(offset.*side.lots, trade.lots);
    Increase(offset.*side.count, 1);
    // A contract's first short row without gain or loss is neither win, loss nor flat; all other such rows are flat.
    if (&side == &kShortSide && trade.opensTally && trade.amount == 0) return;
    if (trade.amount >= 0) TallyWin(offset, side, trade);
    if (trade.amount < 0) TallyLoss(offset, side, trade);
}

const OffsetSide* SideOf(const PingDetail& row) {
    const std::string_view bid = FieldText(row.BID);
    if (Contains(bid, "买"_gbk)) return &kLongSide;
    if (Contains(bid, "卖"_gbk)) return &kShortSide;
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
    const OffsetSide* const side = SideOf(row);
    const auto [offset, isNew] = FindOrCreate(key.View(), row);
    if (side == nullptr) return;  // a new contract is listed all the same, with zeros

    const int32_t lots = IntegerIn(row.MATCH_VOL);
    const double openPrice = AmountIn(row.OPEN_PRICE);
    const double closePrice = AmountIn(row.MATCH_PRICE);
    const bool isLong = side == &kLongSide;
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
    const double amount = AmountIn(row.OFFSETPL);
    Tally(offset, kLongSide, {IntegerIn(row.MATCH_VOL), amount, isNew});
    AccountStatistics.AddPL(amount);
}

void CReportDocument::ClearOffsets() {
    const std::scoped_lock guard(lock_);
    Offsets.clear();
    byKey_.clear();
}

}  // namespace tradebill
