#include "intake/sheet_table.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "intake/workbook.h"

namespace tradebill {
namespace {

constexpr std::string_view kTotals = "合计";
constexpr std::string_view kNone = "--";

/// Bytes of the blank that `text` begins with; 0 if it begins with none.
std::size_t BlankLength(std::string_view text) {
    for (const std::string_view wide : {"\u3000", "\u00A0", "\uFEFF"}) {
        if (text.starts_with(wide)) return wide.size();
    }
    return IsWhiteSpace(text.front()) ? 1 : 0;
}

std::string_view TrimWide(std::string_view text) {
    while (!text.empty() && BlankLength(text) > 0) text.remove_prefix(BlankLength(text));
    for (;;) {
        text = TrimRight(text);
        const bool endsWide = text.ends_with("\u3000") || text.ends_with("\uFEFF");
        if (!endsWide && !text.ends_with("\u00A0")) return text;
        text.remove_suffix(endsWide ? 3 : 2);
    }
}

/// The cells of the rows of a sheet, those without cells left out.
std::vector<std::span<const WorkbookCell>> RowsOf(const WorkbookSheet& sheet) {
    std::vector<std::span<const WorkbookCell>> rows;
    const std::span<const WorkbookCell> cells = sheet.cells;
    for (std::size_t first = 0; first < cells.size();) {
        std::size_t end = first + 1;
        while (end < cells.size() && cells[end].place.row == cells[first].place.row) ++end;
        rows.push_back(cells.subspan(first, end - first));
        first = end;
    }
    return rows;
}

std::map<std::string, std::uint32_t> ColumnsOf(std::span<const WorkbookCell> row) {
    std::map<std::string, std::uint32_t> columns;
    for (const WorkbookCell& cell : row) columns.try_emplace(BareWord(cell.text), cell.place.column);
    return columns;
}

bool IsTotals(std::span<const WorkbookCell> row) {
    const auto first = std::ranges::find_if(row, [](const auto& cell) { return !TrimWide(cell.text).empty(); });
    return first != row.end() && BareWord(first->text).starts_with(kTotals);
}

}  // namespace

std::string BareWord(std::string_view text) {
    constexpr std::size_t kLongest = 200;
    std::string word;
    if (text.size() > kLongest) return word;
    while (!text.empty()) {
        const std::size_t blank = BlankLength(text);
        if (blank == 0) word += text.front();
        text.remove_prefix(std::max<std::size_t>(blank, 1));
    }
    for (const std::string_view colon : {":", "："}) {
        if (word.ends_with(colon)) word.resize(word.size() - colon.size());
    }
    return word;
}

std::string_view ValueOf(const WorkbookCell& cell) {
    const std::string_view text = TrimWide(cell.text);
    return text == kNone || text == "-" || text == "—" ? std::string_view() : text;
}

CSheetLabels::CSheetLabels(const WorkbookSheet& sheet) {
    const WorkbookCell* behind = nullptr;  // the next cell of the row that holds something
    for (auto cell = sheet.cells.rbegin(); cell != sheet.cells.rend(); ++cell) {
        if (behind != nullptr && behind->place.row != cell->place.row) behind = nullptr;
        std::string word = BareWord(cell->text);
        if (behind != nullptr && !word.empty()) values_.insert_or_assign(std::move(word), behind);
        if (!TrimWide(cell->text).empty()) behind = &*cell;
    }
}

const WorkbookCell* CSheetLabels::Find(std::string_view label) const {
    const auto found = values_.find(label);
    return found != values_.end() ? found->second : nullptr;
}

bool HoldsWord(const WorkbookSheet& sheet, std::string_view word) {
    return std::ranges::any_of(sheet.cells, [&](const WorkbookCell& cell) { return Contains(cell.text, word); });
}

const WorkbookCell* CTableRow::Cell(std::string_view heading) const {
    const auto column = columns_->find(std::string(heading));
    if (column == columns_->end()) return nullptr;
    const auto isThere = [&](const WorkbookCell& cell) { return cell.place.column == column->second; };
    const auto cell = std::ranges::find_if(cells_, isThere);
    return cell != cells_.end() && !ValueOf(*cell).empty() ? &*cell : nullptr;
}

std::string_view CTableRow::Text(std::string_view heading) const {
    const WorkbookCell* const cell = Cell(heading);
    return cell != nullptr ? ValueOf(*cell) : std::string_view();
}

bool CTableRow::HasColumn(std::string_view heading) const {
    return columns_->contains(std::string(heading));
}

std::optional<CSheetTable> CSheetTable::Find(const WorkbookSheet& sheet,
                                             std::initializer_list<std::string_view> headings,
                                             std::string_view unlike) {
    const std::vector<Cells> rows = RowsOf(sheet);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].size() < headings.size()) continue;
        CSheetTable table;
        table.columns_ = ColumnsOf(rows[i]);
        const auto has = [&](std::string_view heading) { return table.columns_.contains(std::string(heading)); };
        if (!std::ranges::all_of(headings, has) || (!unlike.empty() && has(unlike))) continue;
        const std::string first(*headings.begin());
        for (std::size_t next = i + 1; next < rows.size(); ++next) {
            if (IsTotals(rows[next])) {
                table.totals_ = rows[next];
                break;
            }
            if (CTableRow(table.columns_, rows[next]).Text(first).empty()) break;
            table.rows_.push_back(rows[next]);
        }
        return table;
    }
    return std::nullopt;
}

std::vector<CTableRow> CSheetTable::Rows() const {
    std::vector<CTableRow> rows;
    rows.reserve(rows_.size());
    for (const Cells row : rows_) rows.emplace_back(columns_, row);
    return rows;
}

std::optional<CTableRow> CSheetTable::Totals() const {
    return totals_ ? std::optional(CTableRow(columns_, *totals_)) : std::nullopt;
}

}  // namespace tradebill
