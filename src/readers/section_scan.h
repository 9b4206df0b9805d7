// The scan engine: a statement's sections, found by title and terminating word. This is the one
// place that decides "section found", "row too short" and "row read", and so the one that tells a listener about it;
// readers give it their layouts as data.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

#include "base/report_error.h"
#include "readers/scan_listener.h"
#include "readers/statement_rows.h"

namespace tradebill {

struct StatementText;

/// How one section of a layout is found and cut. Offsets count non-blank rows.
struct SectionLayout {
    SectionKind kind = SectionKind::Money;
    std::string_view title;                 ///< the title row contains it
    std::string_view terminator = {};       ///< the terminating row contains it
    std::string_view otherTerminator = {};  ///< if not empty, a row that contains this one ends the section as well
    int terminatorOffset = 0;    ///< the terminating row is looked for from this many rows after the title row
    int firstRow = 0;            ///< data begins this many rows after the title row
    int endOffset = 0;           ///< data ends this many rows before the terminating row
    std::size_t minColumns = 0;  ///< shorter rows are passed over
    std::string_view delimiter = " ";
    int cursorOffset = 0;     ///< the next section is looked for from this many rows before the terminating row
    bool stripsBars = false;  ///< rows lose leading and trailing "|" before they are split
    std::span<const std::string_view> subtotals = {};  ///< rows that contain one of these words are passed over
};

/// Where the search for a section begins.
enum class SearchFrom {
    Top,     ///< at the first row: sections may come in any order
    Cursor,  ///< behind the section before it: a section that stands above is not seen
};

/// A section that was found. Templates may say any offset, so begin and end can lie outside the rows.
struct SectionRows {
    std::size_t title;
    std::size_t terminator;
    std::int64_t begin;
    std::int64_t end;
};

/// Whether a row is made of dashes, bars and the like alone, as those above totals are. An empty one isn't.
[[nodiscard]] bool IsRule(std::string_view row);

/// What becomes of a row of fewer columns than `needed`.
[[nodiscard]] RowVerdict ShortRow(std::string_view row, std::size_t needed);

/// Scans one statement, section by section.
///
/// REQUIRES: the text outlives the scan.
class CSectionScan {
public:
    CSectionScan(std::string_view text, SearchFrom searchFrom, CScanListener* listener = nullptr);

    /// The text of `statement`, told to its listener, with the rows that it wants.
    CSectionScan(const StatementText& statement, SearchFrom searchFrom);

    [[nodiscard]] CScanListener* Listener() const { return listener_; }

    /// Finds a section and moves the cursor on.
    std::optional<SectionRows> Find(const SectionLayout& layout);

    /// Finds a section at or behind row `from` and leaves the cursor where it is.
    std::optional<SectionRows> FindBehind(std::size_t from, const SectionLayout& layout) const;

    /// The first title row of a section whose end isn't looked for, wherever the cursor stands.
    std::optional<std::size_t> FindTitle(const SectionLayout& layout) const;

    /// Calls `onRow(Row)` for each row of a found section that has enough columns. `onRow` may return a RowVerdict; its
    /// row is valid during the call. Throws CReportError for a row before the first or past the last, once it is its
    /// turn. An error of `onRow`, and a lack of memory, leave as CReportErrors that tell section and line. Rows of a
    /// kind that isn't wanted are passed over unseen.
    ///
    /// REQUIRES: `rows` was found in this scan by `layout`.
    template <class OnRow>
    void ReadRows(const SectionLayout& layout, const SectionRows& rows, OnRow onRow) {
        if (onlyRows_ && layout.kind != *onlyRows_) return;
        std::int64_t row = rows.begin;
        try {
            for (; row < rows.end; ++row) {
                if (SplitRow(row, layout)) HandOn(onRow);
            }
        } catch (...) {
            RethrowFrom(row, layout.kind);
        }
    }

    /// Finds and reads a section. Returns whether it was found.
    template <class OnRow>
    bool Read(const SectionLayout& layout, OnRow onRow) {
        const auto rows = Find(layout);
        if (rows) ReadRows(layout, *rows, onRow);
        return rows.has_value();
    }

    /// One row for itself, valid until the next is read, or nothing if it is too short. Throws CReportError for a row
    /// before the first or past the last.
    std::optional<Row> ReadRow(std::int64_t row, const SectionLayout& layout);

    /// The row `offset` below a title, for itself; nothing if it is too short or past the last. Throws for one before
    /// the first.
    std::optional<Row> ReadRowBelow(std::size_t title, std::int32_t offset, const SectionLayout& layout);

    /// A row's text, without what surrounds it. Throws likewise, and tells.
    [[nodiscard]] std::string_view RowText(std::int64_t row) const;

    /// The row that ends a section found in this scan.
    [[nodiscard]] std::string_view TerminatorText(const SectionRows& rows) const { return rows_[rows.terminator]; }

    /// The row that is being read. REQUIRES: called from an `onRow`.
    [[nodiscard]] std::string_view CurrentRow() const { return currentRow_; }

private:
    struct Frame {
        std::optional<std::size_t> title;
        std::optional<std::size_t> terminator;
    };

    /// The first of the rows `from` up to `end` that contains `word`.
    [[nodiscard]] std::optional<std::size_t> FindRow(std::size_t from, std::size_t end, std::string_view word) const;
    template <class OnRow>
    void HandOn(OnRow& onRow) {
        if constexpr (std::is_void_v<std::invoke_result_t<OnRow&, Row>>) {
            onRow(Row(columns_));
            Tell({});
        } else {
            Tell(onRow(Row(columns_)));
        }
    }
    /// Throws the exception that is being handled again, with its place.
    [[noreturn]] void RethrowFrom(std::int64_t row, SectionKind kind) const;
    /// The line of `row`, or of the row that is nearest to it; 0 if there is none.
    [[nodiscard]] int LineOf(std::int64_t row) const;

    [[nodiscard]] Frame FindFrame(std::size_t from, const SectionLayout& layout) const;
    [[nodiscard]] static std::optional<SectionRows> RowsOf(const Frame& frame, const SectionLayout& layout);
    bool SplitRow(std::int64_t row, const SectionLayout& layout);
    void Tell(const RowVerdict& verdict) const {
        if (listener_ != nullptr) listener_->OnRow(currentRow_, columns_, verdict);
    }
    void TellSection(const SectionLayout& layout, const Frame& frame, bool needsTerminator) const;

    std::string_view text_;
    CStatementRows rows_;
    std::vector<std::string_view> columns_;  // of the row at hand
    std::string_view currentRow_;
    SearchFrom searchFrom_;
    CScanListener* listener_;
    std::optional<SectionKind> onlyRows_;
    std::size_t cursor_ = 0;
    std::size_t lastGoodEnd_ = 0;
};

}  // namespace tradebill
