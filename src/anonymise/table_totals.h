// Rows of totals, worked out of the changed rows above them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>

#include "anonymise/amount_text.h"
#include "anonymise/cell_meaning.h"
#include "anonymise/statement_sheet.h"

namespace tradebill {

class CTableTotals {
public:
    /// REQUIRES: both outlive this.
    CTableTotals(StatementSheet& sheet, const CAmountFactor& factor) : sheet_(sheet), factor_(factor) {}

    /// REQUIRES: all rows of the sheet come, in their order; those that are no totals have been changed.
    void Take(SheetRow& row);

private:
    struct Column {
        Meaning meaning = Meaning::Unknown;
        std::int64_t before = 0;
        std::int64_t after = 0;
        std::int64_t partBefore = 0;  ///< since the last row of totals
        std::int64_t partAfter = 0;
    };

    void AddRow(const SheetRow& row);
    void ChangeTotal(SheetCell& cell, const Column& column);
    void ChangeLooseTotal(SheetCell& cell);
    /// Whether it is the sum of a column; that of lots stays.
    [[nodiscard]] bool TakeFromAnyColumn(SheetCell& cell) const;
    [[nodiscard]] bool IsCountOfRows(const SheetCell& cell) const;

    StatementSheet& sheet_;
    const CAmountFactor& factor_;
    std::map<std::size_t, Column> columns_;  ///< by place
    std::size_t table_ = 0;
};

}  // namespace tradebill
