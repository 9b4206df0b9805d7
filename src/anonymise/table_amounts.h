// The amounts of a statement's tables: rows first, each by its own identities, then the totals of the changed rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/cell_meaning.h"
#include "anonymise/statement_sheet.h"
#include "anonymise/unit_book.h"
#include "readers/scan_listener.h"

namespace tradebill {

/// A sum as it is printed, and what it becomes.
struct ChangedSum {
    std::int64_t before = 0;
    std::int64_t after = 0;
};

/// What the rows of a column add up to.
struct ColumnSum {
    std::size_t table = 0;
    Meaning meaning = Meaning::Money;
    const WatchedRow* watched = nullptr;  ///< of the first row, or null
    std::string currency = {};            ///< of the rows that were added up; empty: all
    ChangedSum sum = {};
    ChangedSum gains = {};   ///< of those above 0
    ChangedSum losses = {};  ///< of those below
};

class CTableAmounts {
public:
    /// REQUIRES: all of them outlive this.
    CTableAmounts(StatementSheet& sheet, const CAmountFactor& factor, const CUnitBook& units);

    /// Changes rows and totals of all tables.
    void Change();

    /// Of all columns of amounts.
    ///
    /// REQUIRES: Change was called.
    [[nodiscard]] std::vector<ColumnSum> Sums() const;

private:
    struct TableRow {
        const SheetRow* row;
        RowFacts facts;
        bool isTaken = false;  ///< by a trade that closed it
    };

    /// Which rows are changed one after the other.
    enum class Turn { Positions, Others, Trades, None };

    [[nodiscard]] static Turn TurnOf(const SheetRow& row);
    void AvoidSameSums(Turn turn);
    void ChangePrices();
    void ChangeTurnover(TableRow& row);
    void ChangeAmounts(TableRow& row);
    void ChangeTrade(TableRow& row);
    [[nodiscard]] std::vector<TableRow*> DetailsOf(const TableRow& row, bool bySide);
    [[nodiscard]] bool TakeFromDetails(const TableRow& row, SheetCell& cell);
    void ChangeAverages(const TableRow& row);
    [[nodiscard]] static std::optional<std::int64_t> AverageOf(const std::vector<TableRow*>& details,
                                                               const std::string& side, const SheetCell& price);
    [[nodiscard]] bool TakeFromPrices(const TableRow& row, SheetCell& cell) const;
    [[nodiscard]] bool TakeFromClosed(const TableRow& trade, SheetCell& cell);
    void ChangeTotals();
    template <class OnCell>
    void ForEachAmount(const TableRow& row, OnCell onCell) const;

    StatementSheet& sheet_;
    const CAmountFactor& factor_;
    const CUnitBook& units_;
    std::vector<TableRow> rows_;  ///< without totals
};

}  // namespace tradebill
