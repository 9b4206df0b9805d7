#include "findings/side_table_watch.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "base/decimal.h"
#include "findings/section_facts.h"
#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "readers/side_table_reader.h"
#include "report/side_records.h"

namespace tradebill {
namespace {

template <class Record, std::size_t N>
void AddRecord(std::string_view day, Row fields, const SideField<Record> (&names)[N], std::vector<Record>& records) {
    static_assert(N <= std::tuple_size_v<SideSums>);
    Record& record = records.emplace_back();
    for (std::size_t i = 0; i < N; ++i) record.*names[i].value = fields[i];
    record.BILL_DATE = day;
}

/// Whether what stands in a field is read as a number, and its name.
struct FieldNature {
    std::string_view name;
    bool isAmount;
};

template <class Record, std::size_t N>
FieldNature NatureIn(const SideField<Record> (&fields)[N], std::size_t field) {
    return {fields[field].name, fields[field].isAmount};
}

FieldNature NatureOf(SectionKind kind, std::size_t field) {
    if (kind == SectionKind::Cash) return NatureIn(kCashFields, field);
    return kind == SectionKind::Exercises ? NatureIn(kExerciseFields, field) : NatureIn(kDeliveryFields, field);
}

/// What brokers print where there is no amount.
bool IsNoAmount(std::string_view text) {
    return text.find_first_not_of('-') == std::string_view::npos;
}

std::string Columns(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " column" : " columns");
}

}  // namespace

void CSideTableWatch::OnTable(const SideTableSeen& table) {
    SideTableFacts& facts = tables_.emplace_back();
    facts.section.kind = table.kind;
    facts.section.hasTitle = true;
    facts.section.titleRow = lines_.LineOf(table.titleRow);
    headingRow_ = table.headingRow;
    columns_ = table.columns;
    totals_.Begin("|");
}

void CSideTableWatch::OnHeading(std::span<const bool> known) {
    Table().known.assign(known.begin(), known.end());
    if (std::ranges::find(known, true) != known.end()) return;
    Table().section.faults.push_back({.kind = RowFault::Kind::NoRecord,
                                      .row = lines_.LineOf(headingRow_),
                                      .columnsBeyond = -static_cast<int>(columns_),
                                      .expected = "a heading that names columns",
                                      .found = GbkToUtf8(headingRow_)});
}

/// Adds the amounts up, and tells of those that are none.
void CSideTableWatch::CheckAmounts(const SideRow& row) {
    SideSums& sums = Table().sums[std::string(row.currency)];
    for (std::size_t i = 0; i < row.fields.size(); ++i) {
        const FieldNature nature = NatureOf(Table().section.kind, i);
        if (!nature.isAmount || IsNoAmount(row.fields[i])) continue;
        if (const auto amount = ParseDecimal(row.fields[i])) {
            sums[i] = WrappingSum(sums[i], amount->steps);
        } else {
            Table().section.faults.push_back({.kind = RowFault::Kind::NoAmount,
                                              .row = lines_.LineOf(row.row),
                                              .expected = "an amount for " + std::string(nature.name),
                                              .found = GbkToUtf8(row.fields[i])});
        }
    }
}

void CSideTableWatch::OnRow(const SideRow& row) {
    ++Table().section.rowsRead;
    Table().lastRow = lines_.LineOf(row.row);
    static_cast<void>(totals_.AddRow(row.row, row.cells));
    CheckAmounts(row);
    switch (Table().section.kind) {
        case SectionKind::Cash:
            return AddRecord(day_, row.fields, kCashFields, records_.Cash);
        case SectionKind::Exercises:
            return AddRecord(day_, row.fields, kExerciseFields, records_.Exercises);
        default:
            return AddRecord(day_, row.fields, kDeliveryFields, records_.Deliveries);
    }
}

void CSideTableWatch::OnOddRow(std::string_view row, std::size_t cells) {
    Table().lastRow = lines_.LineOf(row);
    Table().section.faults.push_back({.kind = RowFault::Kind::NoRecord,
                                      .row = Table().lastRow,
                                      .columns = static_cast<int>(cells),
                                      .columnsBeyond = static_cast<int>(cells) - static_cast<int>(columns_),
                                      .expected = Columns(columns_),
                                      .found = Columns(cells)});
}

/// Rows that couldn't be read are told by themselves.
void CSideTableWatch::OnTotal(std::string_view row) {
    Table().section.hasEnd = true;
    Table().section.totalRow = lines_.LineOf(row);
    if (!Table().section.faults.empty()) return;
    if (auto fault = totals_.Compare(row)) {
        fault->row = Table().section.totalRow;
        Table().section.totals.push_back(*std::move(fault));
    }
}

void CSideTableWatch::OnTableEnd() {
    headingRow_ = {};
}

}  // namespace tradebill
