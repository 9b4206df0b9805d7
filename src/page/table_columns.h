// The columns of a table section as rows of a table: a column is its heading and its content together. A section says
// for each column what it shows in each kind of row that the table has, and adds rows by their kind.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "page/html_builder.h"
#include "page/row_block.h"
#include "page/section_title.h"
#include "page/table_section.h"

namespace tradebill {

/// What a column shows in one kind of row. A `Row` is what such a row is made of: a record with what is worked out of
/// it, or sums written out.
template <class Row>
class CCellContent {
public:
    using Text = std::string_view (*)(const Row& row);
    using ClassName = std::string_view (*)(const Row& row, const CellClasses& classes);

    /// An empty cell.
    constexpr CCellContent() = default;
    /// The same words in every row.
    constexpr CCellContent(std::string_view words) : words_(words) {}
    /// A text of the row, in the plain class unless `className` tells another.
    constexpr CCellContent(Text text, ClassName className = nullptr) : text_(text), className_(className) {}

    /// The cell of `row`, opened by one of `openings`; its text points into the row, or into what the row points at.
    [[nodiscard]] OpenedCell CellOf(const Row& row, const CellClasses& openings) const {
        return {text_ != nullptr ? text_(row) : words_,
                className_ != nullptr ? className_(row, openings) : openings.normal};
    }

private:
    std::string_view words_;
    Text text_ = nullptr;
    ClassName className_ = nullptr;
};

// Texts and classes that columns are made of. Each is told the member of the row, or of the row's `record`, that it
// shows.

/// A field of the row's record, as it stands.
template <auto Field, class Row>
[[nodiscard]] std::string_view FieldOf(const Row& row) {
    return FieldText(row.record.*Field);
}

/// A field of the row's record, trimmed as exchanges and contracts are.
template <auto Field, class Row>
[[nodiscard]] std::string_view TrimmedFieldOf(const Row& row) {
    return TrimForPage(FieldOf<Field>(row));
}

/// A text or a written number of the row.
template <auto Text, class Row>
[[nodiscard]] std::string_view TextOf(const Row& row) {
    return row.*Text;
}

/// A price of the record in the column of its side: rows that are `bought` have it here ...
template <auto Price, class Row>
[[nodiscard]] std::string_view BuyPrice(const Row& row) {
    return row.bought ? FieldOf<Price>(row) : std::string_view();
}
/// ... and the others here.
template <auto Price, class Row>
[[nodiscard]] std::string_view SellPrice(const Row& row) {
    return row.bought ? std::string_view() : FieldOf<Price>(row);
}

/// The class by the sign of an amount of the row.
template <auto Amount, class Row>
[[nodiscard]] std::string_view BySign(const Row& row, const CellClasses& classes) {
    return SignClass(row.*Amount, classes);
}

/// `Content` has a CCellContent for each kind of row.
template <class Content>
struct PageColumn {
    Heading heading;
    Content content;
};

/// Writes a table that is told by its columns.
template <class Content>
class CColumnTable : public CTableWriter {
public:
    using Columns = std::span<const PageColumn<Content>>;

    /// REQUIRES: `section` and `columns` outlive the table.
    CColumnTable(CHtmlBuilder& page, const CReport& report, const TableSection& section, Columns columns)
        : CTableWriter(page, report, section, HeadingsOf(columns)),
          columns_(columns),
          cells_(columns.size()),
          openings_(section.classes),
          sumOpenings_(section.sums) {}

    /// A row of one kind, in the section's classes of plain rows.
    template <class Row>
    void Add(CCellContent<Row> Content::*kind, const Row& row, std::string_view rowClass) {
        AddCells(kind, row, openings_.View(), rowClass);
    }

    /// Likewise in the classes of total rows.
    template <class Row>
    void AddSums(CCellContent<Row> Content::*kind, const Row& sums, std::string_view rowClass) {
        AddCells(kind, sums, sumOpenings_.View(), rowClass);
    }

private:
    static std::vector<Heading> HeadingsOf(Columns columns) {
        std::vector<Heading> headings;
        for (const auto& column : columns) headings.push_back(column.heading);
        return headings;
    }

    template <class Row>
    void AddCells(CCellContent<Row> Content::*kind, const Row& row, const CellClasses& openings,
                  std::string_view rowClass) {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            cells_[i] = (columns_[i].content.*kind).CellOf(row, openings);
        }
        AddRow(cells_, rowClass);
    }

    Columns columns_;
    std::vector<OpenedCell> cells_;  // of the row being added
    CCellOpenings openings_;
    CCellOpenings sumOpenings_;
};

}  // namespace tradebill
