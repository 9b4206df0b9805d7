#include "report/closed_rows.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "report/account_statistics.h"
#include "report/offset_sides.h"
#include "report/records.h"
#include "report/report.h"
#include "report/statement_format.h"

namespace tradebill {
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

void TallyWin(ContractOffset& offset, const OffsetSide& side, const ClosedTrade& trade, CAccountStatistics& account) {
    Increase(offset.*side.winLots, trade.lots);
    offset.*side.winPL += trade.amount;
    Increase(offset.*side.winCount, 1);
    if (trade.opensTally || trade.amount > offset.*side.maxWin) offset.*side.maxWin = trade.amount;
    if (trade.amount > 0) {
        Increase(account.WinCount, 1);
    } else {
        Increase(account.FlatCount, 1);
    }
}

void TallyLoss(ContractOffset& offset, const OffsetSide& side, const ClosedTrade& trade, CAccountStatistics& account) {
    Increase(offset.*side.loseLots, trade.lots);
    offset.*side.losePL += trade.amount;
    Increase(offset.*side.loseCount, 1);
    if (trade.opensTally || trade.amount < offset.*side.maxLoss) offset.*side.maxLoss = trade.amount;
    Increase(account.LoseCount, 1);
}

/// Lots, wins and losses of one row.
void Tally(ContractOffset& offset, const OffsetSide& side, const ClosedTrade& trade, CAccountStatistics& account) {
    Increase(offset.*side.lots, trade.lots);
    Increase(offset.*side.count, 1);
    // A contract's first short row without gain or loss is neither win, loss nor flat; all other such rows are flat.
    if (&side == &kShortSide && trade.opensTally && trade.amount == 0) return;
    if (trade.amount >= 0) TallyWin(offset, side, trade, account);
    if (trade.amount < 0) TallyLoss(offset, side, trade, account);
}

const OffsetSide* ClosedSideOf(const PingDetail& row) {
    const std::string_view bid = FieldText(row.BID);
    if (Contains(bid, "买"_gbk)) return &kLongSide;
    if (Contains(bid, "卖"_gbk)) return &kShortSide;
    return nullptr;
}

/// The page asks for the same unit by other texts (page/offset_section.cpp): there index futures go by a code.
int32_t AskUnitOf(const PingDetail& row, const StatementFormat& format, const CReport& report) {
    std::string_view contract = TrimByte(FieldText(row.CONTRACT), ' ');
    std::string_view delivery;
    if (format.printsNames) {
        contract = TrimByte(contract, kFullWidthBlankByte);
        delivery = TrimByte(FieldText(row.DELIVERY), ' ');
    }
    return report.AskContractUnit(contract, delivery);
}

class CTallyKey {
public:
    explicit CTallyKey(const PingDetail& row, bool withDelivery) {
        Append(FieldText(row.CONTRACT));
        if (!withDelivery) return;
        Append("-");
        Append(FieldText(row.DELIVERY));
    }
    [[nodiscard]] std::string_view View() const { return {text_.data(), size_}; }

private:
    void Append(std::string_view text) {
        CopyText(text_.data() + size_, text);
        size_ += text.size();
    }

    std::array<char, sizeof(PingDetail::CONTRACT) + 1 + sizeof(PingDetail::DELIVERY) + 1> text_;
    std::size_t size_ = 0;
};

constexpr ClosedSides kLongClosed{.position = "long", .trade = "sell"};
constexpr ClosedSides kShortClosed{.position = "short", .trade = "buy"};

}  // namespace

ClosedSides ClosedSidesOf(const PingDetail& row, bool isForeign) {
    const OffsetSide* const named = ClosedSideOf(row);
    if (named == nullptr) return {};
    return (named == &kLongSide) != isForeign ? kLongClosed : kShortClosed;
}

std::optional<ClosedFigures> ClosedFiguresOf(const PingDetail& row, const CReport& report) {
    const int32_t unit = AskUnitOf(row, report.Format(), report);
    const OffsetSide* const side = ClosedSideOf(row);
    if (side == nullptr) return std::nullopt;
    const bool isLong = side == &kLongSide;
    const int32_t lots = IntegerIn(row.MATCH_VOL);
    const double openPrice = AmountIn(row.OPEN_PRICE);
    const double closePrice = AmountIn(row.MATCH_PRICE);
    const double points = lots * (isLong ? closePrice - openPrice : openPrice - closePrice);
    return ClosedFigures{
        .isLong = isLong, .lots = lots, .closePrice = closePrice, .unit = unit, .points = points, .pl = points * unit};
}

void FoldClosedRow(const PingDetail& row, CReport& report) {
    const CTallyKey key(row, report.Format().namesDeliveryApart);
    const auto closed = ClosedFiguresOf(row, report);
    const auto [offset, isNew] = report.ReportDocument.FindOrCreate(key.View(), row);
    if (!closed) return;  // a new contract is listed all the same, with zeros

    const OffsetSide& side = closed->isLong ? kLongSide : kShortSide;
    Tally(offset, side, {closed->lots, closed->pl, isNew}, report.AccountStatistics);
    if (closed->isLong) {
        offset.LONG_PL = isNew ? closed->pl : closed->points;  // the last row's points, no sum; the short side adds up
    } else {
        offset.SHORT_PL += closed->pl;
    }
    report.AccountStatistics.AddPL(closed->pl);
}

void FoldForeignClosedRow(const PingDetail& row, CReport& report) {
    const CTallyKey key(row, false);
    const auto [offset, isNew] = report.ReportDocument.FindOrCreate(key.View(), row);
    if (isNew) CopyField(offset.CURRENCY, FieldText(row.CURRENCY));
    const double amount = AmountIn(row.OFFSETPL);
    Tally(offset, kLongSide, {IntegerIn(row.MATCH_VOL), amount, isNew}, report.AccountStatistics);
    report.AccountStatistics.AddPL(amount);
}

}  // namespace tradebill
