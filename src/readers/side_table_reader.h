// The tables that a statement prints beside the page's own: deposits and withdrawals, exercises of options, deliveries.
// No layout describes them. They are found by their titles wherever they stand, and their columns by their headings:
// one table of words serves all layouts, as in printed_money_reader.h.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "readers/scan_listener.h"

namespace tradebill {

/// A table that was found. Views point into the statement's text.
struct SideTableSeen {
    SectionKind kind;
    std::string_view titleRow;
    std::string_view headingRow;
    std::size_t columns = 0;
};

/// A row of data.
struct SideRow {
    std::string_view row;  ///< what is printed, without the blanks around it
    Row cells;             ///< all of them, without blanks; they may be empty
    Row fields;  ///< by their places among the fields of the record (report/side_records.h); BILL_DATE is empty
    std::string_view currency;  ///< empty where the table has no column of it
};

/// Told in the order of the text. What it is handed is valid during the call, but for texts of the statement.
class CSideTableListener {
public:
    CSideTableListener() = default;
    CSideTableListener(const CSideTableListener&) = delete;
    CSideTableListener& operator=(const CSideTableListener&) = delete;
    virtual ~CSideTableListener() = default;

    /// Its rows follow. No column of `table.headingRow` may be known: then none does.
    virtual void OnTable(const SideTableSeen& table) = 0;
    /// The heading, one or two rows of it, has been read. `known` tells of each field whether the table has it.
    virtual void OnHeading(std::span<const bool> known) = 0;
    virtual void OnRow(const SideRow& row) = 0;
    /// A row of more or fewer cells than the heading, or a line between two rows: no data is taken from it.
    virtual void OnOddRow(std::string_view row, std::size_t cells) = 0;
    /// The row that counts and adds up the rows of the table, and ends it.
    virtual void OnTotal(std::string_view row) = 0;
    /// Behind the last row, or the total, of each table.
    virtual void OnTableEnd() = 0;
};

/// Reads all such tables of a statement, each to its total, to the next title or to rows of something else. Takes time
/// by the length of the text, whatever stands in it.
void ReadSideTables(std::string_view text, CSideTableListener& listener);

}  // namespace tradebill
