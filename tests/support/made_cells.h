// Made-up workbooks as cells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "intake/workbook.h"

namespace tradebill {

enum class MadeKind { Text, Number, Formula, OpenFormula };

struct MadeCell {
    std::size_t row;
    std::size_t column;
    MadeKind kind;
    std::string value;  ///< of a formula that beside it, a number
};

struct MadeSheet {
    std::string name;
    std::vector<MadeCell> cells = {};

    void Put(std::size_t row, std::size_t column, const std::string& value, MadeKind kind = MadeKind::Text) {
        std::erase_if(cells, [&](const MadeCell& cell) { return cell.row == row && cell.column == column; });
        if (!value.empty()) cells.push_back({row, column, kind, value});
    }
    /// Texts side by side from column A on; empty ones are no cells.
    void PutRow(std::size_t row, const std::vector<std::string>& values) {
        for (std::size_t column = 0; column < values.size(); ++column) Put(row, column, values[column]);
    }
};

using MadeWorkbook = std::vector<MadeSheet>;

/// As reading a file of either form gives it.
inline Workbook Filled(const MadeWorkbook& made) {
    Workbook workbook;
    workbook.dayOfZero = -25569;  // 18991230
    CWorkbookFiller filler(workbook);
    for (const MadeSheet& sheet : made) {
        filler.BeginSheet(sheet.name);
        for (const MadeCell& cell : sheet.cells) {
            const CellPlace place{static_cast<std::uint32_t>(cell.row), static_cast<std::uint32_t>(cell.column)};
            if (cell.kind == MadeKind::Text) {
                filler.AddText(place, filler.Keep(cell.value));
            } else {
                filler.AddNumber(place, std::strtod(cell.value.c_str(), nullptr));
            }
        }
    }
    filler.End();
    return workbook;
}

}  // namespace tradebill
