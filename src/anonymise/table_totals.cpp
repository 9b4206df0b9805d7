#include "anonymise/table_totals.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "anonymise/amount_text.h"
#include "anonymise/cell_meaning.h"
#include "anonymise/loose_cells.h"
#include "anonymise/statement_sheet.h"
#include "base/decimal.h"
#include "base/gbk.h"
#include "base/text.h"

namespace tradebill {

void CTableTotals::Take(SheetRow& row) {
    if (row.table != table_) {
        columns_.clear();
        table_ = row.table;
    }
    if (!row.isInTable) return;
    if (!row.isTotal) {
        AddRow(row);
        return;
    }
    for (std::size_t i = row.firstCell; i < row.firstCell + row.cells; ++i) {
        SheetCell& cell = sheet_.cells[i];
        if (!cell.number || cell.changed) continue;
        const auto column = columns_.find(cell.place);
        if (column != columns_.end()) {
            ChangeTotal(cell, column->second);
        } else {
            ChangeLooseTotal(cell);
        }
    }
    for (auto& [place, column] : columns_) column.partBefore = column.partAfter = 0;
}

void CTableTotals::AddRow(const SheetRow& row) {
    for (std::size_t i = row.firstCell; i < row.firstCell + row.cells; ++i) {
        const SheetCell& cell = sheet_.cells[i];
        if (!cell.number) continue;
        Column& column = columns_[cell.place];
        if (column.meaning == Meaning::Unknown) column.meaning = cell.meaning;
        column.before = WrappingSum(column.before, cell.number->steps);
        column.after = WrappingSum(column.after, cell.Now());
        column.partBefore = WrappingSum(column.partBefore, cell.number->steps);
        column.partAfter = WrappingSum(column.partAfter, cell.Now());
    }
}

void CTableTotals::ChangeTotal(SheetCell& cell, const Column& column) {
    if (!IsMoney(column.meaning)) {
        ChangeLooseTotal(cell);
        return;
    }
    const std::int64_t total = cell.number->steps;
    const int places = cell.number->places;
    if (total == column.before) {
        cell.changed = RoundedTo(column.after, places);
    } else if (total == column.partBefore) {
        cell.changed = RoundedTo(column.partAfter, places);
    } else if (!TakeFromAnyColumn(cell)) {
        // What doesn't agree goes on disagreeing by as much.
        const std::int64_t rest = factor_.OfRest(WrappingDifference(total, column.before), places);
        cell.changed = RoundedTo(WrappingSum(column.after, rest), places);
    }
}

/// Where the print is ragged a total stands below no column of its own.
void CTableTotals::ChangeLooseTotal(SheetCell& cell) {
    if (TakeFromAnyColumn(cell) || IsCountOfRows(cell)) return;
    cell.changed = factor_.OfAmount(cell.number->steps, cell.number->places);
}

bool CTableTotals::TakeFromAnyColumn(SheetCell& cell) const {
    const std::int64_t total = cell.number->steps;
    if (total == 0) return true;
    for (const auto& [place, column] : columns_) {
        if (column.before != total && column.partBefore != total) continue;
        if (column.meaning == Meaning::Lots) return true;
        if (!IsMoney(column.meaning)) continue;
        cell.changed = RoundedTo(column.before == total ? column.after : column.partAfter, cell.number->places);
        return true;
    }
    return false;
}

bool CTableTotals::IsCountOfRows(const SheetCell& cell) const {
    if (cell.number->printedPlaces > 0) return false;
    const std::string_view before = TrimRight(sheet_.text.substr(0, cell.at));
    return before.ends_with("共"_gbk) || IsCounted(sheet_.text.substr(cell.at + cell.size));
}

}  // namespace tradebill
