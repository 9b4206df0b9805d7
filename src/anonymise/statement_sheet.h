// One statement as cells that may be changed: where they stand, what they mean, and which rows and columns they make.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/cell_meaning.h"
#include "anonymise/sheet_watch.h"

namespace tradebill {

struct SheetCell {
    std::size_t at;  ///< in the statement's text
    std::size_t size;
    Meaning meaning = Meaning::Unknown;
    std::string_view field = {};               ///< that a reader fills from it, or empty
    std::size_t place = 0;                     ///< tells its column: cells of a table below each other have the same
    std::optional<PrintedNumber> number = {};  ///< of a cell that is a number as a whole
    std::optional<std::int64_t> changed = {};  ///< what the number becomes, in steps

    /// What it becomes, or stays.
    [[nodiscard]] std::int64_t Now() const { return changed.value_or(number ? number->steps : 0); }
};

struct SheetRow {
    std::size_t firstCell;
    std::size_t cells;
    std::size_t table;       ///< rows below one heading are a table
    bool isTotal = false;    ///< of the rows above it
    bool isInTable = true;   ///< not labels with values, and no free text
    bool isOfMoney = false;  ///< it holds figures of the money section
    const WatchedRow* watched = nullptr;

    [[nodiscard]] bool IsOf(SectionKind kind) const { return watched != nullptr && watched->kind == kind; }
};

struct StatementSheet {
    std::string_view text;
    std::vector<SheetCell> cells;  ///< in the order of the text; none overlaps another
    std::vector<SheetRow> rows;

    [[nodiscard]] std::string_view TextOf(const SheetCell& cell) const { return text.substr(cell.at, cell.size); }
    /// The cell that begins at a place of the text, or null.
    [[nodiscard]] SheetCell* CellAt(std::size_t at);
};

/// Cuts a statement into cells: by what its reader told, and by headings, labels and the look of what no reader reads.
///
/// REQUIRES: `watch` has heard of this text, is finished, and outlives the sheet.
[[nodiscard]] StatementSheet MakeSheet(std::string_view text, const CSheetWatch& watch);

}  // namespace tradebill
