// What stands in a sheet: values beside their labels, and tables below their headings, wherever they are.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "intake/workbook.h"

namespace tradebill {

/// `text` without blanks of any width, line ends and a colon at its end, as headings and labels are compared. Empty of
/// a text that is longer than any of them.
[[nodiscard]] std::string BareWord(std::string_view text);

/// What a cell holds, blanks around it aside; empty for "--", which stands for no value.
[[nodiscard]] std::string_view ValueOf(const WorkbookCell& cell);

/// The values in a sheet that stand behind their labels.
class CSheetLabels {
public:
    /// REQUIRES: `sheet` outlives this.
    explicit CSheetLabels(const WorkbookSheet& sheet);

    /// The value behind the first cell with this label: the next one in its row that isn't empty. Null if there is
    /// none.
    [[nodiscard]] const WorkbookCell* Find(std::string_view label) const;

private:
    std::map<std::string, const WorkbookCell*, std::less<>> values_;
};

/// Whether a cell of the sheet contains `word`.
[[nodiscard]] bool HoldsWord(const WorkbookSheet& sheet, std::string_view word);

/// One row of a table: its cells by their headings.
class CTableRow {
public:
    CTableRow(const std::map<std::string, std::uint32_t>& columns, std::span<const WorkbookCell> cells)
        : columns_(&columns), cells_(cells) {}

    /// Null if the table has no such column, or the row nothing in it.
    [[nodiscard]] const WorkbookCell* Cell(std::string_view heading) const;

    /// Empty where there is no value.
    [[nodiscard]] std::string_view Text(std::string_view heading) const;

    [[nodiscard]] bool HasColumn(std::string_view heading) const;
    [[nodiscard]] std::uint32_t Number() const { return cells_.front().place.row + 1; }  ///< as users count

private:
    const std::map<std::string, std::uint32_t>* columns_;
    std::span<const WorkbookCell> cells_;
};

/// A table that a row of headings begins and a row "合计" ends, or else the first that isn't filled.
class CSheetTable {
public:
    /// The first table of `sheet` that has all of `headings`, and not the one of another table; nothing if there is
    /// none. REQUIRES: the sheet outlives the table.
    [[nodiscard]] static std::optional<CSheetTable> Find(const WorkbookSheet& sheet,
                                                         std::initializer_list<std::string_view> headings,
                                                         std::string_view unlike = {});

    [[nodiscard]] std::vector<CTableRow> Rows() const;

    /// Nothing if the table has none.
    [[nodiscard]] std::optional<CTableRow> Totals() const;

private:
    using Cells = std::span<const WorkbookCell>;

    std::map<std::string, std::uint32_t> columns_;
    std::vector<Cells> rows_;
    std::optional<Cells> totals_;
};

}  // namespace tradebill
