// Which column of a section fills which field, for a listener: made from the tables that the readers read by.
#pragma once

#include <algorithm>
#include <span>
#include <string_view>
#include <vector>

#include "readers/columns.h"
#include "readers/scan_listener.h"
#include "report/record_fields.h"

namespace tradebill {

/// The field that a slot lies on.
///
/// REQUIRES: it isn't a spare one.
template <class Record>
[[nodiscard]] const TextField<Record>& FieldAt(const FieldSlot<Record>& slot) {
    static constexpr Record kRecord{};  // only its addresses are looked at
    const char* const place = reinterpret_cast<const char*>(&kRecord) + slot.offset;
    return *std::ranges::find(FieldsOf<Record>(), place,
                              [](const TextField<Record>& field) { return field.Text(kRecord).data(); });
}

/// Adds the columns of a table to those of a section.
template <class Record>
void AddColumns(std::span<const Column<Record>> table, std::vector<ColumnSeen>& seen) {
    for (const Column<Record>& entry : table) {
        const TextField<Record>& field = FieldAt(entry.field);
        seen.push_back({.column = entry.column,
                        .field = field.name,
                        .isAmount = field.isAmount,
                        .mayLack = entry.treatment == Treatment::KeepIfPresent});
    }
}

/// Tells the listener, which may be null, of the columns of the section at hand: those of `table`, and `others` that
/// the reader takes without a table.
template <class Record>
void TellColumns(std::span<const Column<Record>> table, CScanListener* listener,
                 std::span<const ColumnSeen> others = {}) {
    if (listener == nullptr) return;
    std::vector<ColumnSeen> seen(others.begin(), others.end());
    AddColumns(table, seen);
    listener->OnColumns(seen);
}

}  // namespace tradebill
