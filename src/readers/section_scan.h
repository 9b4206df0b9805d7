// The scan engine: a statement's text as rows, and its sections found by title and terminating word. This is the one
// place that decides "section found", "row too short" and "row read"; readers give it their layouts as data.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tradebill {

/// How one section of a layout is found and cut. Offsets count non-blank rows.
struct SectionLayout {
    std::string_view title;       ///< the title row contains it
    std::string_view terminator;  ///< the terminating row contains it
    int terminatorOffset = 0;     ///< the terminating row is looked for from this many rows after the title row
    int firstRow = 0;             ///< data begins this many rows after the title row
    int endOffset = 0;            ///< data ends this many rows before the terminating row
    std::size_t minColumns = 0;   ///< shorter rows are passed over
    std::string_view delimiter = " ";
    int cursorOffset = 0;  ///< the next section is looked for from this many rows before the terminating row
};

/// Where the search for a section begins.
enum class SearchFrom {
    Top,     ///< at the first row: sections may come in any order
    Cursor,  ///< behind the section before it: a section that stands above is not seen
};

/// Columns of a row; never empty ones. They point into the statement's text.
using Row = std::span<const std::string_view>;

/// Scans one statement, section by section. The text must outlive the scan.
class CSectionScan {
public:
    CSectionScan(std::string_view text, SearchFrom searchFrom);

    /// Calls `onRow(Row)` for each row of the section that has enough columns. Returns whether the section was found.
    template <class OnRow>
    bool Read(const SectionLayout& layout, OnRow onRow) {
        const auto range = Find(layout);
        if (!range) return false;
        for (std::size_t row = range->begin; row < range->end; ++row) {
            if (SplitRow(row, layout)) onRow(Row(columns_));
        }
        return true;
    }

private:
    struct RowRange {
        std::size_t begin;
        std::size_t end;
    };

    std::optional<RowRange> Find(const SectionLayout& layout);
    [[nodiscard]] std::optional<std::size_t> FindRow(std::size_t from, std::string_view word) const;
    bool SplitRow(std::size_t row, const SectionLayout& layout);

    std::vector<std::string_view> rows_;
    std::vector<std::string_view> columns_;  // of the row at hand
    SearchFrom searchFrom_;
    std::size_t cursor_ = 0;
    std::size_t lastGoodEnd_ = 0;
};

}  // namespace tradebill
