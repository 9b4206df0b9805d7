// Listens to the reading of the tables beside the page's own: makes their records, and keeps what findings need to know
// of each table.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/line_counter.h"
#include "findings/section_facts.h"
#include "findings/section_totals.h"
#include "readers/side_table_reader.h"
#include "report/side_records.h"

namespace tradebill {

/// What rows add up to, in 1/10000, by the places of the fields.
using SideSums = std::array<std::int64_t, 14>;

/// What one table of a statement showed.
struct SideTableFacts {
    SectionFacts section;     ///< its kind, title, faults and totals
    int lastRow = 0;          ///< the line of its last row of data, whole or not
    std::vector<bool> known;  ///< by field: whether the table has its column
    /// By currency, GBK; the empty one where the table has no column of it.
    std::map<std::string, SideSums, std::less<>> sums;
};

class CSideTableWatch final : public CSideTableListener {
public:
    /// `day` is the BILL_DATE of the records. REQUIRES: all of them outlive this.
    CSideTableWatch(std::string_view day, CLineCounter& lines, SideRecords& records)
        : day_(day), lines_(lines), records_(records) {}

    /// All tables of the statement.
    [[nodiscard]] std::vector<SideTableFacts> TakeTables() { return std::move(tables_); }

    void OnTable(const SideTableSeen& table) override;
    void OnHeading(std::span<const bool> known) override;
    void OnRow(const SideRow& row) override;
    void OnOddRow(std::string_view row, std::size_t cells) override;
    void OnTotal(std::string_view row) override;
    void OnTableEnd() override;

private:
    [[nodiscard]] SideTableFacts& Table() { return tables_.back(); }
    void CheckAmounts(const SideRow& row);

    std::string_view day_;
    CLineCounter& lines_;
    SideRecords& records_;
    std::vector<SideTableFacts> tables_;
    CSectionTotals totals_;
    std::string_view headingRow_;
    std::size_t columns_ = 0;
};

}  // namespace tradebill
