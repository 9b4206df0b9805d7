#include "anonymise/money_amounts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/cell_meaning.h"
#include "anonymise/sheet_watch.h"
#include "anonymise/statement_sheet.h"
#include "anonymise/table_amounts.h"
#include "base/decimal.h"
#include "readers/printed_money_reader.h"
#include "readers/scan_listener.h"
#include "report/money_identity.h"
#include "report/printed_money.h"
#include "report/statement_format.h"

namespace tradebill {
namespace {

using enum PrintedFigure;

constexpr int kCents = 2;

/// The day's own figures: what the rest is worked out of.
constexpr PrintedFigure kDayFigures[] = {CashFlow,       Deposits,   Withdrawals,     ClosedPL,    PositionPL,
                                         DayPL,          FloatingPL, ExercisePL,      Fees,        ExerciseFees,
                                         DeliveryFees,   Premium,    PremiumReceived, PremiumPaid, PledgeChange,
                                         FxPledgeChange, Margin,     DeliveryMargin,  Frozen};

struct FieldFigure {
    std::string_view field;
    PrintedFigure figure;
};

// clang-format off
constexpr FieldFigure kDomesticFields[] = {
    {"QCQY",   Opening},
    {"QMJC",   Closing},
    {"KHQY",   Equity},
    {"CRJ",    CashFlow},
    {"PCYK",   ClosedPL},
    {"CCDSYK", PositionPL},
    {"SXF",    Fees},
    {"XQSXF",  ExerciseFees},
    {"QLJSZ",  Premium},
    {"BZJZY",  Margin},
    {"KYZJ",   Available},
};
constexpr FieldFigure kForeignFields[] = {
    {"QCQY",         Opening},
    {"CRJ",          CashFlow},
    {"SXF",          Fees},
    {"PCYK",         ClosedPL},
    {"HOST_CURRENT", FloatingPL},
    {"KHQY",         Equity},
    {"BZJZY",        Margin},
    {"KYZJ",         Available},
};
// clang-format on

/// Cells of a field that a figure was filled from, where no label tells it: a difference has two.
void PlaceByFields(StatementSheet& sheet, MoneyFigures& figures) {
    for (const FieldFigure& row : kDomesticFields) {
        std::vector<SheetCell*>& cells = figures.CellsOf(row.figure);
        if (!cells.empty() || !figures.money[row.figure]) continue;
        for (SheetCell& cell : sheet.cells) {
            if (cell.field == row.field && cell.number) cells.push_back(&cell);
        }
    }
}

/// The row that a cell stands in.
SheetRow& RowOf(StatementSheet& sheet, const SheetCell& cell) {
    const auto index = static_cast<std::size_t>(&cell - sheet.cells.data());
    const auto behind = std::ranges::upper_bound(sheet.rows, index, {}, &SheetRow::firstCell);
    return *(behind - 1);
}

/// The cell of a figure, unless a reader takes its row for one of a table.
SheetCell* FigureCellAt(StatementSheet& sheet, std::string_view place) {
    SheetCell* const cell = sheet.CellAt(static_cast<std::size_t>(place.data() - sheet.text.data()));
    if (cell == nullptr || !cell->number) return nullptr;
    SheetRow& row = RowOf(sheet, *cell);
    if (row.watched != nullptr && row.watched->kind != SectionKind::Money) return nullptr;
    row.isOfMoney = true;
    return cell;
}

}  // namespace

std::optional<MoneyFigures> FiguresOf(StatementSheet& sheet, const CSheetWatch& watch, EquityRule equity) {
    if (!watch.Money()) return std::nullopt;
    MoneyFigures figures;
    FigurePlaces places;
    if (!watch.MoneyTitle().empty()) {
        ReadPrintedMoney({sheet.text, watch.MoneyTitle(), watch.MoneyEnd()}, figures.money, &places);
    }
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i].empty()) continue;
        if (SheetCell* const cell = FigureCellAt(sheet, places[i])) figures.cells[i].push_back(cell);
    }
    CompleteFromRecord(*watch.Money(), equity, figures.money);
    PlaceByFields(sheet, figures);
    figures.money.OptionTurnover = OptionTurnoverOf(sheet).before;
    return figures;
}

std::vector<MoneyFigures> CurrencyFiguresOf(StatementSheet& sheet, const CSheetWatch& watch) {
    std::vector<MoneyFigures> list;
    for (const CurrencyBlock& block : watch.Blocks()) {
        for (std::size_t column = 0; column < block.currencies.size(); ++column) {
            MoneyFigures figures;
            figures.money.Currency = block.currencies[column];
            figures.money.IsBase = list.empty();
            for (const CurrencyBlock::Value& value : block.values) {
                const auto* const row = std::ranges::find(kForeignFields, value.field, &FieldFigure::field);
                SheetCell* const cell = value.column == column ? sheet.CellAt(value.at) : nullptr;
                if (row == std::end(kForeignFields) || cell == nullptr || !cell->number) continue;
                figures.money[row->figure] = cell->number->steps;
                figures.CellsOf(row->figure) = {cell};
            }
            list.push_back(std::move(figures));
        }
    }
    return list;
}

ChangedSum OptionTurnoverOf(StatementSheet& sheet) {
    ChangedSum sum;
    for (const SheetRow& row : sheet.rows) {
        if (!row.IsOf(SectionKind::Trades) || !row.watched->isOption || row.watched->fate != RowFate::Read) continue;
        for (std::size_t i = row.firstCell; i < row.firstCell + row.cells; ++i) {
            const SheetCell& cell = sheet.cells[i];
            if (cell.meaning != Meaning::Turnover || !cell.number) continue;
            const std::int64_t sign = row.watched->isBuy ? -1 : 1;
            sum.before = WrappingSum(sum.before, sign * cell.number->steps);
            sum.after = WrappingSum(sum.after, sign * cell.Now());
            break;
        }
    }
    return sum;
}

/// The change of one set of figures.
class CMoneyAmounts::CChange {
public:
    CChange(const CAmountFactor& factor, MoneyFigures& figures, const std::vector<ColumnSum>& sums)
        : before(figures.money), after(figures.money), factor_(factor), figures_(figures), sums_(sums) {}

    const PrintedMoney& before;
    PrintedMoney after;

    /// Those of the day: sums of rows follow the rows.
    void ChangeDayFigures() {
        for (const PrintedFigure figure : kDayFigures) {
            if (before[figure]) after[figure] = Changed(figure);
        }
    }

    /// A figure that is `whole` and a rest, of which `wholeAfter` is left.
    void Follow(PrintedFigure figure, std::int64_t whole, std::int64_t wholeAfter) {
        if (!before[figure]) return;
        const int places = PlacesOf(figure);
        const std::int64_t rest = factor_.OfRest(WrappingDifference(*before[figure], whole), places);
        after[figure] = RoundedTo(WrappingSum(wholeAfter, rest), places);
    }

    void Scale(PrintedFigure figure) {
        if (before[figure]) after[figure] = factor_.OfAmount(*before[figure], PlacesOf(figure));
    }

    /// Writes the figures into their cells.
    void Store() {
        for (std::size_t i = 0; i < kPrintedFigures; ++i) {
            const auto figure = static_cast<PrintedFigure>(i);
            std::vector<SheetCell*>& cells = figures_.cells[i];
            if (cells.size() == 1 && after[figure] && !cells.front()->changed)
                cells.front()->changed = RoundedTo(*after[figure], cells.front()->number->places);
        }
    }

    /// Amounts of the money section that are a figure in other words.
    void StoreEqual(StatementSheet& sheet) {
        for (const SheetRow& row : sheet.rows) {
            const bool isOfTable = row.isInTable && !row.isOfMoney && !row.IsOf(SectionKind::Money);
            for (std::size_t i = row.firstCell; i < row.firstCell + row.cells && !isOfTable; ++i) {
                SheetCell& cell = sheet.cells[i];
                if (cell.number && cell.meaning == Meaning::Ratio) ChangeRatio(cell);
                if (cell.number && IsMoney(cell.meaning) && !cell.changed) StoreIfEqual(cell);
            }
        }
    }

private:
    [[nodiscard]] int PlacesOf(PrintedFigure figure) const {
        const std::vector<SheetCell*>& cells = figures_.cells[static_cast<std::size_t>(figure)];
        return cells.empty() ? kCents : cells.front()->number->places;
    }

    [[nodiscard]] std::int64_t Changed(PrintedFigure figure) {
        const std::int64_t amount = *before[figure];
        if (amount == 0) return 0;
        if (const auto difference = ChangedDifference(figure)) return *difference;
        if (const auto flow = figure == CashFlow ? FindFlow(amount) : std::nullopt) return *flow;
        if (const auto sum = FindSum(figure, amount)) return RoundedTo(*sum, PlacesOf(figure));
        return factor_.OfAmount(amount, PlacesOf(figure));
    }

    /// Deposits less withdrawals, and the like, of two cells that no label tells apart.
    [[nodiscard]] std::optional<std::int64_t> ChangedDifference(PrintedFigure figure) {
        std::vector<SheetCell*>& cells = figures_.CellsOf(figure);
        if (cells.size() != 2) return std::nullopt;
        if (WrappingDifference(cells[0]->number->steps, cells[1]->number->steps) != *before[figure])
            return std::nullopt;
        for (SheetCell* const cell : cells) {
            const std::int64_t amount = cell->number->steps;
            cell->changed = RoundedTo(FindSum(figure, amount).value_or(factor_.OfAmount(amount, cell->number->places)),
                                      cell->number->places);
        }
        return WrappingDifference(cells[0]->Now(), cells[1]->Now());
    }

    /// Which sums come first for a figure: those of the section that it is about.
    [[nodiscard]] static bool IsAbout(PrintedFigure figure, const ColumnSum& sum) {
        if (sum.watched == nullptr) return false;
        switch (figure) {
            case ClosedPL:
                return sum.watched->kind == SectionKind::Closed && sum.meaning == Meaning::ProfitLoss;
            case PositionPL:
            case FloatingPL:
                return sum.watched->kind == SectionKind::Open && sum.meaning == Meaning::ProfitLoss;
            case Margin:
                return sum.watched->kind == SectionKind::Open && sum.meaning == Meaning::Money;
            case Fees:
            case Premium:
            case PremiumReceived:
            case PremiumPaid:
                return sum.watched->kind == SectionKind::Trades;
            default:
                return false;
        }
    }

    [[nodiscard]] std::optional<std::int64_t> FindSum(PrintedFigure figure, std::int64_t amount) const {
        if (amount == 0) return 0;
        for (const bool isAbout : {true, false}) {
            for (const ColumnSum& sum : sums_) {
                if (isAbout == IsAbout(figure, sum) && IsOfCurrency(sum)) {
                    if (const auto same = SameSum(sum, amount)) return same;
                }
            }
        }
        return figure == DayPL ? FindPair(amount) : std::nullopt;
    }

    [[nodiscard]] bool IsOfCurrency(const ColumnSum& sum) const {
        return before.Currency.empty() ? sum.currency.empty() : sum.currency == before.Currency;
    }

    [[nodiscard]] static std::optional<std::int64_t> SameSum(const ColumnSum& sum, std::int64_t amount) {
        for (const ChangedSum& one : {sum.sum, sum.gains, sum.losses}) {
            if (one.before == amount) return one.after;
            if (one.before == WrappingDifference(0, amount)) return WrappingDifference(0, one.after);
        }
        return std::nullopt;
    }

    /// Deposits less withdrawals are those of the table of both, where a statement prints it: one that no reader reads.
    [[nodiscard]] std::optional<std::int64_t> FindFlow(std::int64_t amount) const {
        const auto isCash = [](const ColumnSum& sum) {
            return sum.watched == nullptr && sum.meaning == Meaning::Money && sum.currency.empty();
        };
        for (const ColumnSum& in : sums_) {
            if (!isCash(in)) continue;
            for (const ColumnSum& out : sums_) {
                const bool isPair = &in != &out && isCash(out) && in.table == out.table;
                if (isPair && WrappingDifference(in.sum.before, out.sum.before) == amount)
                    return WrappingDifference(in.sum.after, out.sum.after);
            }
        }
        return std::nullopt;
    }

    /// The day's P/L is that of closed and open positions together.
    [[nodiscard]] std::optional<std::int64_t> FindPair(std::int64_t amount) const {
        for (const ColumnSum& one : sums_) {
            for (const ColumnSum& other : sums_) {
                const bool isPair = &one != &other && one.meaning == Meaning::ProfitLoss &&
                                    other.meaning == Meaning::ProfitLoss && IsOfCurrency(one) && IsOfCurrency(other);
                if (isPair && WrappingSum(one.sum.before, other.sum.before) == amount)
                    return WrappingSum(one.sum.after, other.sum.after);
            }
        }
        return std::nullopt;
    }

    void StoreIfEqual(SheetCell& cell) const {
        const std::int64_t amount = cell.number->steps;
        for (std::size_t i = 0; i < kPrintedFigures && amount != 0; ++i) {
            const auto figure = static_cast<PrintedFigure>(i);
            if (!before[figure]) continue;
            if (*before[figure] == amount) cell.changed = RoundedTo(*after[figure], cell.number->places);
            if (cell.changed) return;
        }
    }

    /// Margin in percent of equity.
    void ChangeRatio(SheetCell& cell) const {
        const auto percent = [&](const PrintedMoney& money) -> std::optional<std::int64_t> {
            const std::int64_t equity = money[Equity].value_or(money.Amount(Closing));
            if (equity == 0) return std::nullopt;
            const long double share =
                100.0L * static_cast<long double>(money.Amount(Margin)) / static_cast<long double>(equity);
            constexpr long double kMost = 1e13L;
            if (std::fabs(share) > kMost) return std::nullopt;
            return RoundedTo(std::llroundl(share * kDecimalSteps), cell.number->places);
        };
        const auto printed = percent(before);
        const auto changed = percent(after);
        if (!printed || !changed) return;
        if (DistanceOf(*printed, cell.number->steps) <= static_cast<std::uint64_t>(UnitOf(cell.number->places)))
            cell.changed = changed;
    }

    const CAmountFactor& factor_;
    MoneyFigures& figures_;
    const std::vector<ColumnSum>& sums_;
};

void CMoneyAmounts::ChangeOpening(CChange& change) const {
    const auto last = closed_.find(change.before.Currency);
    if (last != closed_.end()) {
        change.Follow(Opening, last->second.before, last->second.after);
    } else {
        change.Scale(Opening);
    }
}

void CMoneyAmounts::ChangeDomestic(StatementSheet& sheet, MoneyFigures figures, const std::vector<ColumnSum>& sums) {
    CChange change(factor_, figures, sums);
    ChangeOpening(change);
    change.ChangeDayFigures();
    change.after.OptionTurnover = OptionTurnoverOf(sheet).after;
    const BalanceForm form = identity_.Balance.value_or(UsualBalanceForm(change.before));
    const std::int64_t balance = BalanceBy(form, change.before);
    const std::int64_t balanceAfter = BalanceBy(form, change.after);
    change.Follow(Closing, balance, balanceAfter);
    change.Follow(Equity, change.before[Closing].value_or(balance), change.after[Closing].value_or(balanceAfter));
    const AvailableForm available = identity_.Available.value_or(AvailableForm{});
    change.Follow(Available, AvailableBy(available, change.before), AvailableBy(available, change.after));
    change.Store();
    change.StoreEqual(sheet);
    if (change.before[Closing])
        closed_[change.before.Currency] = {change.before.Amount(Closing), change.after.Amount(Closing)};
}

void CMoneyAmounts::ChangeForeign(std::vector<MoneyFigures> figures, const std::vector<ColumnSum>& sums) {
    const std::vector<ColumnSum> none;  // add up to the base: its rates aren't known
    for (MoneyFigures& column : figures) {
        CChange change(factor_, column, column.money.IsBase ? none : sums);
        ChangeOpening(change);
        change.ChangeDayFigures();
        const auto balance = [](const PrintedMoney& money) {
            std::int64_t sum = money.Amount(Opening);
            for (const PrintedFigure figure : {CashFlow, ClosedPL, FloatingPL})
                sum = WrappingSum(sum, money.Amount(figure));
            return WrappingDifference(sum, money.Amount(Fees));
        };
        change.Follow(Equity, balance(change.before), balance(change.after));
        const auto available = [](const PrintedMoney& money) {
            return WrappingDifference(money.Amount(Equity), money.Amount(Margin));
        };
        change.Follow(Available, available(change.before), available(change.after));
        change.Store();
        if (!change.before[Equity]) continue;
        const auto closing = [](const PrintedMoney& money) {
            return WrappingDifference(money.Amount(Equity), money.Amount(FloatingPL));
        };
        closed_[change.before.Currency] = {closing(change.before), closing(change.after)};
    }
}

void ChangeRest(StatementSheet& sheet, const CAmountFactor& factor) {
    for (SheetCell& cell : sheet.cells) {
        if (!cell.number || cell.changed || !IsMoney(cell.meaning)) continue;
        cell.changed = factor.OfAmount(cell.number->steps, cell.number->places);
    }
}

}  // namespace tradebill
