#include "anonymise/table_amounts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/cell_meaning.h"
#include "anonymise/statement_sheet.h"
#include "anonymise/table_totals.h"
#include "anonymise/unit_book.h"
#include "base/decimal.h"
#include "readers/scan_listener.h"

namespace tradebill {
namespace {

bool IsAmountCell(const SheetCell& cell) {
    return cell.number && IsMoney(cell.meaning);
}

/// Prices that a P/L lies between, and how many of the money's units a step of price is.
struct PriceGap {
    const SheetCell* from;
    const SheetCell* to;
    std::int64_t worth;
};

/// What the rounding of an average price may leave.
std::int64_t RoundingOf(const PriceGap& gap) {
    constexpr int kAveragePlaces = 3;
    const int places = std::max(gap.from->number->places, gap.to->number->places);
    return places < kAveragePlaces ? 0 : ProductOf(UnitOf(places), gap.worth).value_or(0);
}

ChangedSum SumOf(const std::vector<SheetCell*>& cells) {
    ChangedSum sum;
    for (const SheetCell* const cell : cells) {
        sum.before = WrappingSum(sum.before, cell->number->steps);
        sum.after = WrappingSum(sum.after, cell->Now());
    }
    return sum;
}

std::optional<std::int64_t> Worth(const PriceGap& gap, std::int64_t from, std::int64_t to) {
    return ProductOf(gap.worth, to - from);
}

}  // namespace

CTableAmounts::CTableAmounts(StatementSheet& sheet, const CAmountFactor& factor, const CUnitBook& units)
    : sheet_(sheet), factor_(factor), units_(units) {
    for (const SheetRow& row : sheet_.rows) {
        if (row.isInTable && !row.isTotal) rows_.push_back({&row, FactsOf(sheet_, row)});
    }
}

template <class OnCell>
void CTableAmounts::ForEachAmount(const TableRow& row, OnCell onCell) const {
    for (std::size_t i = row.row->firstCell; i < row.row->firstCell + row.row->cells; ++i) {
        if (IsAmountCell(sheet_.cells[i])) onCell(sheet_.cells[i]);
    }
}

void CTableAmounts::Change() {
    ChangePrices();
    for (TableRow& row : rows_) ChangeTurnover(row);
    for (const TableRow& row : rows_) {
        if (row.row->watched == nullptr || row.row->IsOf(SectionKind::Summary)) ChangeAverages(row);
    }
    // Open positions before their sums, closed ones before the trades that closed them.
    for (const Turn turn : {Turn::Positions, Turn::Others, Turn::Trades}) {
        for (TableRow& row : rows_) {
            if (TurnOf(*row.row) != turn) continue;
            if (turn == Turn::Trades) {
                ChangeTrade(row);
            } else {
                ChangeAmounts(row);
            }
        }
        if (turn != Turn::Trades) AvoidSameSums(turn);
    }
    ChangeTotals();
}

CTableAmounts::Turn CTableAmounts::TurnOf(const SheetRow& row) {
    if (row.IsOf(SectionKind::Open) || row.IsOf(SectionKind::Closed)) return Turn::Positions;
    if (row.isOfMoney || row.IsOf(SectionKind::Money)) return Turn::None;
    return row.IsOf(SectionKind::Trades) ? Turn::Trades : Turn::Others;
}

/// A column whose gains and losses nearly cancel out may add up to what it did: one of its cells leaves its prices
/// then.
void CTableAmounts::AvoidSameSums(Turn turn) {
    std::map<std::pair<std::size_t, std::size_t>, std::vector<SheetCell*>> columns;  // by table and place
    for (const TableRow& row : rows_) {
        if (TurnOf(*row.row) != turn) continue;
        ForEachAmount(row, [&](SheetCell& cell) { columns[{row.row->table, cell.place}].push_back(&cell); });
    }
    for (auto& [key, cells] : columns) {
        const ChangedSum sum = SumOf(cells);
        if (sum.before == 0 || sum.before != sum.after) continue;
        for (SheetCell* const cell : cells) {
            const std::int64_t scaled = factor_.OfAmount(cell->number->steps, cell->number->places);
            if (scaled == cell->Now()) continue;
            cell->changed = scaled;
            break;
        }
    }
}

void CTableAmounts::ChangePrices() {
    for (SheetCell& cell : sheet_.cells) {
        if (cell.number && cell.meaning == Meaning::Price)
            cell.changed = factor_.OfPrice(cell.number->steps, cell.number->places);
    }
}

/// A turnover follows its price, so that the unit between them stays, and amounts that are the turnover follow it.
void CTableAmounts::ChangeTurnover(TableRow& row) {
    SheetCell* const turnover = row.facts.turnover;
    if (turnover == nullptr) return;
    const SheetCell* best = nullptr;
    std::optional<std::int64_t> exact;
    for (const SheetCell* const price : row.facts.prices) {
        const auto cost = ProductOf(price->number->steps, row.facts.lots);
        if (price->number->steps == 0) continue;
        if (best == nullptr) best = price;
        if (!cost || *cost == 0 || turnover->number->steps % *cost != 0) continue;
        const std::int64_t lotCost = price->Now() * row.facts.lots;  // no more than the cost, or two units of each lot
        exact = ProductOf(lotCost, turnover->number->steps / *cost);
        break;
    }
    const int places = turnover->number->places;
    if (exact) {
        turnover->changed = RoundedTo(*exact, places);
    } else if (best != nullptr) {
        const long double share = static_cast<long double>(best->Now()) / static_cast<long double>(best->number->steps);
        // Twice what can be printed at most: a price of one unit may become two.
        const long double scaled = share * static_cast<long double>(turnover->number->steps);
        turnover->changed = RoundedTo(std::llroundl(scaled), places);
    }
    if (!turnover->changed) return;
    ForEachAmount(row, [&](SheetCell& cell) {
        if (cell.changed || cell.number->steps == 0) return;
        if (cell.number->steps == turnover->number->steps) cell.changed = turnover->Now();
        if (cell.number->steps == -turnover->number->steps) cell.changed = -turnover->Now();
    });
}

void CTableAmounts::ChangeAmounts(TableRow& row) {
    ForEachAmount(row, [&](SheetCell& cell) {
        if (cell.changed) return;
        if (!row.row->IsOf(SectionKind::Open) && TakeFromDetails(row, cell)) return;
        if (cell.meaning == Meaning::ProfitLoss && TakeFromPrices(row, cell)) return;
        cell.changed = factor_.OfAmount(cell.number->steps, cell.number->places);
    });
}

void CTableAmounts::ChangeTrade(TableRow& row) {
    ForEachAmount(row, [&](SheetCell& cell) {
        if (cell.changed) return;
        if (cell.meaning == Meaning::ProfitLoss && TakeFromClosed(row, cell)) return;
        cell.changed = factor_.OfAmount(cell.number->steps, cell.number->places);
    });
}

/// The open positions that a row sums up: those of its contract, or of its side alone.
std::vector<CTableAmounts::TableRow*> CTableAmounts::DetailsOf(const TableRow& row, bool bySide) {
    std::vector<TableRow*> details;
    if (row.facts.contract.empty() || row.row->IsOf(SectionKind::Closed)) return details;
    for (TableRow& detail : rows_) {
        if (!detail.row->IsOf(SectionKind::Open) || detail.facts.contract != row.facts.contract) continue;
        if (!bySide || detail.facts.side == row.facts.side) details.push_back(&detail);
    }
    return details;
}

/// A sum of positions is that of the changed ones.
bool CTableAmounts::TakeFromDetails(const TableRow& row, SheetCell& cell) {
    if (cell.number->steps == 0) return false;
    for (const bool bySide : {false, true}) {
        std::map<std::size_t, std::vector<SheetCell*>> columns;
        for (TableRow* const detail : DetailsOf(row, bySide)) {
            ForEachAmount(*detail, [&](SheetCell& part) { columns[part.place].push_back(&part); });
        }
        for (auto& [place, parts] : columns) {
            if (SumOf(parts).before != cell.number->steps) continue;
            // Small gaps may add up to what they did: their own rounding matters less than that.
            if (SumOf(parts).after == cell.number->steps) {
                for (SheetCell* const part : parts)
                    part->changed = factor_.OfAmount(part->number->steps, part->number->places);
            }
            cell.changed = RoundedTo(SumOf(parts).after, cell.number->places);
            return true;
        }
    }
    return false;
}

/// An average price of positions is that of the changed ones.
void CTableAmounts::ChangeAverages(const TableRow& row) {
    constexpr int kAveragePlaces = 3;
    const std::vector<TableRow*> details = DetailsOf(row, false);
    for (SheetCell* const price : row.facts.prices) {
        if (price->number->places < kAveragePlaces || price->number->steps == 0) continue;
        for (const TableRow* const side : details) {
            const auto average = AverageOf(details, side->facts.side, *price);
            if (average) price->changed = average;
            if (average) break;
        }
    }
}

/// What the average price of the positions of one side becomes; nothing if `price` isn't their average.
std::optional<std::int64_t> CTableAmounts::AverageOf(const std::vector<TableRow*>& details, const std::string& side,
                                                     const SheetCell& price) {
    long double before = 0;
    long double after = 0;
    long double lots = 0;
    for (const TableRow* const detail : details) {
        if (detail->facts.side != side || detail->facts.prices.empty()) continue;
        const SheetCell& opened = *detail->facts.prices.front();
        before += static_cast<long double>(opened.number->steps) * static_cast<long double>(detail->facts.lots);
        after += static_cast<long double>(opened.Now()) * static_cast<long double>(detail->facts.lots);
        lots += static_cast<long double>(detail->facts.lots);
    }
    constexpr long double kMost = 1e17L;
    if (lots <= 0 || std::fabs(before / lots) > kMost || std::fabs(after / lots) > kMost) return std::nullopt;
    const std::int64_t printed = RoundedTo(std::llroundl(before / lots), price.number->places);
    if (DistanceOf(printed, price.number->steps) > static_cast<std::uint64_t>(UnitOf(price.number->places)))
        return std::nullopt;
    const std::int64_t average = RoundedTo(std::llroundl(after / lots), price.number->places);
    return average != price.number->steps ? std::optional(average) : std::nullopt;
}

/// A P/L is the gap of two prices of its row, by lots and unit. One that would stay as it is says no.
bool CTableAmounts::TakeFromPrices(const TableRow& row, SheetCell& cell) const {
    const std::int64_t amount = cell.number->steps;
    if (amount == 0 || row.facts.lots == 0) return false;
    const auto unit = units_.Of(row.facts.contract);
    for (const bool isAverage : {false, true}) {
        for (const SheetCell* const from : row.facts.prices) {
            for (const SheetCell* const to : row.facts.prices) {
                const std::int64_t step = to->number->steps - from->number->steps;
                const auto cost = ProductOf(step, row.facts.lots);
                if (!cost || *cost == 0) continue;
                const std::int64_t guess = unit.value_or(amount % *cost == 0 ? amount / *cost : 0);
                const auto worth = ProductOf(guess, row.facts.lots);
                if (!worth || guess <= 0) continue;
                const PriceGap gap{from, to, *worth};
                const auto before = Worth(gap, from->number->steps, to->number->steps);
                const auto after = Worth(gap, from->Now(), to->Now());
                const std::int64_t rounding = isAverage ? RoundingOf(gap) : 0;
                if (!before || !after || DistanceOf(*before, amount) > static_cast<std::uint64_t>(rounding)) continue;
                const std::int64_t rest = factor_.OfRest(WrappingDifference(amount, *before), cell.number->places);
                const std::int64_t changed = RoundedTo(WrappingSum(*after, rest), cell.number->places);
                if (changed == amount) return false;
                cell.changed = changed;
                return true;
            }
        }
    }
    return false;
}

/// The closed positions of a trade stand in the order of the trades.
bool CTableAmounts::TakeFromClosed(const TableRow& trade, SheetCell& cell) {
    if (trade.facts.prices.empty() || cell.number->steps == 0) return false;
    const std::int64_t price = trade.facts.prices.front()->number->steps;
    std::vector<TableRow*> parts;
    std::int64_t lots = 0;
    ChangedSum sum;
    for (TableRow& closed : rows_) {
        if (!closed.row->IsOf(SectionKind::Closed) || closed.isTaken || closed.facts.contract != trade.facts.contract)
            continue;
        const bool isOfPrice =
            std::ranges::any_of(closed.facts.prices, [&](const SheetCell* one) { return one->number->steps == price; });
        if (!isOfPrice || lots >= trade.facts.lots) continue;
        parts.push_back(&closed);
        lots += closed.facts.lots;
        bool isFirst = true;
        ForEachAmount(closed, [&](const SheetCell& part) {
            if (part.meaning != Meaning::ProfitLoss || !std::exchange(isFirst, false)) return;
            sum.before = WrappingSum(sum.before, part.number->steps);
            sum.after = WrappingSum(sum.after, part.Now());
        });
    }
    if (lots != trade.facts.lots || sum.before != cell.number->steps || sum.after == cell.number->steps) return false;
    for (TableRow* const part : parts) part->isTaken = true;
    cell.changed = RoundedTo(sum.after, cell.number->places);
    return true;
}

void CTableAmounts::ChangeTotals() {
    CTableTotals totals(sheet_, factor_);
    for (SheetRow& row : sheet_.rows) totals.Take(row);
}

std::vector<ColumnSum> CTableAmounts::Sums() const {
    using Key = std::tuple<std::size_t, std::size_t, std::string>;  // table, column, currency
    std::map<Key, ColumnSum> sums;
    const auto add = [](ChangedSum& sum, const SheetCell& cell) {
        sum.before = WrappingSum(sum.before, cell.number->steps);
        sum.after = WrappingSum(sum.after, cell.Now());
    };
    const auto take = [&](const TableRow& row, const SheetCell& cell, const std::string& currency) {
        const auto [entry, isNew] = sums.try_emplace(Key{row.row->table, cell.place, currency});
        ColumnSum& sum = entry->second;
        if (isNew) {
            sum.table = row.row->table;
            sum.meaning = cell.meaning;
            sum.watched = row.row->watched;
            sum.currency = currency;
        }
        add(sum.sum, cell);
        if (cell.number->steps > 0) add(sum.gains, cell);
        if (cell.number->steps < 0) add(sum.losses, cell);
    };
    for (const TableRow& row : rows_) {
        if (TurnOf(*row.row) == Turn::None) continue;
        ForEachAmount(row, [&](const SheetCell& cell) {
            take(row, cell, {});
            if (!row.facts.currency.empty()) take(row, cell, row.facts.currency);
        });
    }
    std::vector<ColumnSum> list;
    list.reserve(sums.size());
    for (auto& [key, sum] : sums) list.push_back(std::move(sum));
    return list;
}

}  // namespace tradebill
