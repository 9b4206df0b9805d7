// The engine of all sections that show a store as a table: title, header, dash rows, bands, sign colours, the look at
// the host's stop before each record, grouping by day with subtotals, and the closing. A section is a descriptor and
// its columns (table_columns.h).
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/text.h"
#include "page/html_builder.h"
#include "page/page_text.h"
#include "page/row_block.h"
#include "page/section_title.h"

namespace tradebill {

struct Heading {
    std::string_view text;
    std::string_view width;  ///< such as "14%"
};

/// In what cells differ by sign or side: their style classes, or the texts that open a cell of each class.
struct CellClasses {
    std::string_view normal;
    std::string_view bid;
    std::string_view ask;
};

struct TableSection {
    SectionTitle title;
    std::string_view tableId;
    CellClasses classes;  ///< of plain rows
    CellClasses sums;     ///< of total rows
};

/// The red class for an amount above zero, the green one below, else the plain one; amounts within single-precision
/// epsilon of zero are plain.
[[nodiscard]] std::string_view SignClass(double amount, const CellClasses& classes);

/// The row class of a counter: the pale band if it is odd, the darker one if even.
[[nodiscard]] std::string_view BandClass(int counter);

/// Exchange or contract, and contract with delivery month, as the page shows them.
class CContractText {
public:
    CContractText(std::string_view contract, std::string_view delivery) : text_(contract) { text_ += delivery; }
    [[nodiscard]] std::string_view View() const { return TrimForPage(text_); }
    operator std::string_view() const& { return View(); }
    operator std::string_view() const&& = delete;  // the view would outlive its text

private:
    std::string text_;
};

/// Texts that open cells of some classes.
class CCellOpenings {
public:
    explicit CCellOpenings(const CellClasses& classes)
        : normal_(CellOpening(classes.normal)), bid_(CellOpening(classes.bid)), ask_(CellOpening(classes.ask)) {}

    /// Valid as long as this lives.
    [[nodiscard]] CellClasses View() const { return {normal_, bid_, ask_}; }

private:
    std::string normal_;
    std::string bid_;
    std::string ask_;
};

/// Writes one table section. While it lives the page is gathered; rows go to it in blocks, at the latest before a stop
/// is acknowledged and before the section is closed.
class CTableWriter {
public:
    /// Writes title, opening tag, header and first dash row.
    CTableWriter(CHtmlBuilder& page, const CReport& report, const TableSection& section,
                 std::span<const Heading> headings);
    ~CTableWriter();  ///< what was written stays written, also when an error ends the section
    CTableWriter(const CTableWriter&) = delete;
    CTableWriter& operator=(const CTableWriter&) = delete;

    /// Looks at the host's stop event; true if the section must end at once.
    [[nodiscard]] bool StopRequested();

    /// What follows is of `day`: the page's copy may treat days apart.
    void BeginDay(std::string_view day);
    void AddRow(std::span<const OpenedCell> cells, std::string_view rowClass);
    /// The dashes under the header, in the section's plain class.
    void AddDashRow(std::string_view rowClass);

    /// Brings all rows to disk.
    void Flush();

    /// Ends the table and leaves a spacer behind it; the page still is to be closed.
    void CloseTable();
    /// CloseTable, then makes the page whole.
    void Close();

private:
    void HandOver();
    void EndRows();

    CHtmlBuilder& page_;
    CPageGathering gathering_;
    const CReport& report_;
    std::string dashes_;  // the cells of a dash row
    CRowBlock rows_;
    bool isInRows_ = false;  // of the page's copy
};

/// Writes `rows` in groups of one BILL_DATE, each group in one band, with a subtotal behind it. `Table` is a
/// CTableWriter, and `Layout` has
///   bool Counts(const Record&)                                         whether the record is shown at all
///   void ResetSums()
///   void WriteRecord(Table&, const Record&, std::string_view band)
///   void WriteSubtotal(Table&, std::string_view band)
/// The last subtotal belongs to the store's last record: if that one doesn't count, the last group has none. Returns
/// false if the host's stop was seen.
template <class Table, class Rows, class Layout>
bool WriteDayGroups(Table& table, const Rows& rows, Layout& layout) {
    int counter = 0;
    std::string_view day;
    for (const auto& row : rows) {
        if (table.StopRequested()) return false;
        if (!layout.Counts(row)) continue;
        if (counter == 0 || FieldText(row.BILL_DATE) != day) {
            if (counter > 0) layout.WriteSubtotal(table, BandClass(counter));
            layout.ResetSums();
            day = FieldText(row.BILL_DATE);
            table.BeginDay(day);
            ++counter;
        }
        layout.WriteRecord(table, row, BandClass(counter));
        if (&row == &rows.back()) layout.WriteSubtotal(table, BandClass(counter));
    }
    return true;
}

}  // namespace tradebill
