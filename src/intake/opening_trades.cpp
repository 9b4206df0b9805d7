#include "intake/opening_trades.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/decimal.h"
#include "base/gbk.h"
#include "base/text.h"

namespace tradebill {
namespace {

using Cells = std::vector<std::string_view>;

/// The cells of a row that bars frame, or else blanks.
Cells CellsOf(std::string_view line) {
    Cells cells;
    const bool hasBars = line.find('|') != std::string_view::npos;
    const std::string_view ends = hasBars ? "|" : " \t";
    for (std::size_t at = 0; at <= line.size();) {
        const std::size_t end = std::min(line.find_first_of(ends, at), line.size());
        const std::string_view cell = Trim(line.substr(at, end - at));
        if (hasBars || !cell.empty()) cells.push_back(cell);
        at = end + 1;
    }
    return cells;
}

struct Places {
    std::size_t contract = 0;
    std::size_t side = 0;
    std::size_t offset = 0;
    std::size_t price = 0;
    std::size_t number = 0;
    std::size_t columns = 0;
};

/// The places of a heading row; nothing if it is none of trades with numbers.
std::optional<Places> PlacesIn(const Cells& headings) {
    Places places;
    const auto find = [&](std::string_view word, std::size_t& place) {
        const auto found =
            std::ranges::find_if(headings, [&](std::string_view heading) { return Contains(heading, word); });
        place = static_cast<std::size_t>(found - headings.begin());
        return found != headings.end();
    };
    places.columns = headings.size();
    const bool hasAll = find("合约"_gbk, places.contract) && find("买"_gbk, places.side) &&
                        find("开"_gbk, places.offset) && find("成交价"_gbk, places.price) &&
                        find("成交序号"_gbk, places.number);
    return hasAll ? std::optional(places) : std::nullopt;
}

/// The trade in a row; nothing if it is none, or one that closes.
std::optional<OpeningTrade> TradeIn(const Cells& cells, const Places& places) {
    if (cells.size() != places.columns) return std::nullopt;
    const auto price = ParseDecimal(cells[places.price]);
    const std::string_view number = cells[places.number];
    if (!price || number.empty() || Contains(cells[places.offset], "平"_gbk)) return std::nullopt;
    return OpeningTrade{.contract = std::string(cells[places.contract]),
                        .number = std::string(number),
                        .isBuy = Contains(cells[places.side], "买"_gbk),
                        .price = price->steps};
}

std::vector<OpeningTrade> TradesIn(std::string_view text) {
    std::vector<OpeningTrade> trades;
    std::optional<Places> places;
    bool isInside = false;
    while (!text.empty()) {
        const std::string_view line = Trim(TakeLine(text));
        if (Contains(line, "成交记录"_gbk)) {
            isInside = true;
            places.reset();
        } else if (!isInside || line.empty()) {
            continue;
        } else if (!places) {
            places = PlacesIn(CellsOf(line));
        } else if (line.starts_with("|共"_gbk) || line.starts_with("共"_gbk) || line.starts_with("合计"_gbk)) {
            isInside = false;
        } else if (auto trade = TradeIn(CellsOf(line), *places)) {
            trades.push_back(*std::move(trade));
        }
    }
    return trades;
}

}  // namespace

void COpeningTrades::SetDay(const std::string& day, std::string_view text) {
    std::vector<OpeningTrade>& trades = trades_[day];
    for (const OpeningTrade& trade : trades) days_[trade].erase(day);
    trades = TradesIn(text);
    for (const OpeningTrade& trade : trades) days_[trade].insert(day);
}

std::optional<std::string> COpeningTrades::DayOf(const OpeningTrade& trade, const std::string& before) const {
    const auto found = days_.find(trade);
    if (found == days_.end()) return std::nullopt;
    const auto later = found->second.lower_bound(before);
    return later != found->second.begin() ? std::optional(*std::prev(later)) : std::nullopt;
}

}  // namespace tradebill
