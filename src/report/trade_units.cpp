#include "report/trade_units.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/gbk.h"
#include "base/text.h"
#include "report/product_text.h"
#include "report/product_unit.h"
#include "report/records.h"

namespace tradebill {
namespace {

using std::int64_t;

constexpr int64_t kMost = INT64_MAX / 4;  // sums of two, and what is rounded up, still fit

/// A number as it is printed: 78.50 is 7850 with two decimals.
struct Printed {
    int64_t digits = 0;
    int decimals = 0;
};

/// A plain number above 0 in a field that it doesn't fill: one that does may have been cut.
template <std::size_t N>
std::optional<Printed> PrintedIn(const char (&field)[N]) {
    static_assert(N <= 17, "its digits fit into 64 bits");
    const std::string_view text = FieldText(field);
    if (text.size() >= N - 1) return std::nullopt;
    Printed number;
    bool behindPoint = false;
    for (const char byte : text) {
        if (byte == '.' && !behindPoint) {
            behindPoint = true;
            continue;
        }
        if (!IsDigit(byte)) return std::nullopt;
        number.digits = number.digits * 10 + (byte - '0');
        number.decimals += behindPoint ? 1 : 0;
    }
    return number.digits > 0 ? std::optional(number) : std::nullopt;
}

/// `number` if it is whole.
std::optional<int64_t> Whole(Printed number) {
    for (; number.decimals > 0; --number.decimals) {
        if (number.digits % 10 != 0) return std::nullopt;
        number.digits /= 10;
    }
    return number.digits;
}

/// REQUIRES: both are above 0. Nothing for what may lie beyond kMost.
std::optional<int64_t> Product(int64_t left, int64_t right) {
    const auto bits = [](int64_t factor) { return std::bit_width(static_cast<std::uint64_t>(factor)); };
    return bits(left) + bits(right) <= bits(kMost) ? std::optional(left * right) : std::nullopt;
}

/// A printed number in halves of a smaller digit, where what lies one `step` around it may have been meant.
struct Rounded {
    int64_t halves;
    int64_t step;
};

std::optional<Rounded> RoundedTo(const Printed& number, int decimals) {
    int64_t step = 1;
    for (int i = number.decimals; i < decimals; ++i) step *= 10;  // fields hold fewer digits than 10^18 has
    const auto digits = Product(number.digits, step);
    if (!digits || *digits > kMost / 2) return std::nullopt;
    return Rounded{.halves = 2 * *digits, .step = step};
}

}  // namespace

/// The three figures of a trade, prices and turnover in halves of the same digit.
struct CTradeUnits::Figures {
    Rounded price;
    Rounded turnover;
    int64_t lots;
    int64_t dearest;  ///< what all lots cost for a unit of 1 if the price was rounded down by as much as can be
};

std::optional<CTradeUnits::Figures> CTradeUnits::FiguresOf(const MatchRecord& trade) {
    const auto price = PrintedIn(trade.MATCH_PRICE);
    const auto turnover = PrintedIn(trade.TURNOVER);
    const auto volume = PrintedIn(trade.MATCH_VOL);
    if (!price || !turnover || !volume) return std::nullopt;
    const int decimals = std::max(price->decimals, turnover->decimals);
    const auto perLot = RoundedTo(*price, decimals);
    const auto paid = RoundedTo(*turnover, decimals);
    const auto lots = Whole(*volume);
    if (!perLot || !paid || !lots) return std::nullopt;
    const auto dearest = Product(perLot->halves + perLot->step, *lots);
    if (!dearest) return std::nullopt;
    return Figures{.price = *perLot, .turnover = *paid, .lots = *lots, .dearest = *dearest};
}

CTradeUnits::Range CTradeUnits::RangeOf(const Figures& figures) {
    const auto& [price, turnover, lots, dearest] = figures;
    const int64_t cheapest = (price.halves - price.step) * lots;
    return {.least = (turnover.halves - turnover.step + dearest - 1) / dearest,
            .most = (turnover.halves + turnover.step) / cheapest};
}

std::optional<int64_t> CTradeUnits::NamedBy(const Figures& figures) {
    const int64_t asPrinted = figures.price.halves * figures.lots;
    if (figures.turnover.halves % asPrinted != 0) return std::nullopt;
    return figures.turnover.halves / asPrinted;
}

void CTradeUnits::Join(std::string_view product, const Figures& figures, const MatchRecord& trade) {
    const auto found = tallies_.find(product);
    Tally& tally = found != tallies_.end() ? found->second : tallies_[std::string(product)];
    if (tally.contradiction) return;
    const std::optional<int64_t> named = NamedBy(figures);
    const bool isSettled = tally.range.least == tally.range.most;
    if (isSettled && named == tally.range.least) return;  // nearly all trades
    const bool namesAnother = named && tally.named && *named != *tally.named;
    tally.allNameIt = tally.allNameIt && named;
    if (!tally.named) tally.named = named;
    const Range range = RangeOf(figures);
    tally.range = {.least = std::max(tally.range.least, range.least), .most = std::min(tally.range.most, range.most)};
    const bool isBeyond = tally.named && (*tally.named < tally.range.least || *tally.named > tally.range.most);
    if (!namesAnother && !isBeyond && tally.range.least <= tally.range.most) return;
    tally.contradiction = {.day = std::string(FieldText(trade.BILL_DATE)),
                           .contract = std::string(FieldText(trade.CONTRACT))};
}

void CTradeUnits::Feed(const MatchRecord& trade) {
    const auto figures = FiguresOf(trade);
    if (!figures) return;
    const std::string_view contract = FieldText(trade.CONTRACT);
    Join(ProductOfContract(contract), *figures, trade);
    // The page asks for those by their code (page/offset_section.cpp), whatever else the name says.
    if (Contains(contract, "股指"_gbk)) Join("IF", *figures, trade);
}

std::optional<std::int32_t> CTradeUnits::UnitOf(std::string_view product) const {
    const auto found = tallies_.find(product);
    if (found == tallies_.end() || found->second.contradiction) return std::nullopt;
    const Tally& tally = found->second;
    if (tally.range.least == tally.range.most) return static_cast<std::int32_t>(tally.range.least);
    return tally.allNameIt ? std::optional(static_cast<std::int32_t>(*tally.named)) : std::nullopt;
}

std::optional<UnitContradiction> CTradeUnits::ContradictionOf(std::string_view product) const {
    const auto found = tallies_.find(product);
    return found == tallies_.end() ? std::nullopt : found->second.contradiction;
}

std::vector<DoubtfulUnit> DoubtfulUnits(std::span<const ProductUnit> used, const CTradeUnits& trades) {
    std::vector<DoubtfulUnit> doubtful;
    for (const ProductUnit& product : used) {
        if (product.source == UnitSource::Waived) continue;
        const auto byTrades = trades.UnitOf(product.product);
        const bool isDoubtful = byTrades ? *byTrades != product.unit : product.source == UnitSource::Unknown;
        if (isDoubtful) doubtful.push_back({.used = product, .byTrades = byTrades});
    }
    return doubtful;
}

}  // namespace tradebill
