// Tables of columns: which column of a row fills which field of a record, and how.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "base/gbk.h"
#include "base/report_error.h"
#include "base/text.h"
#include "readers/section_scan.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {

enum class Treatment {
    Copy,          ///< the column as it stands, cut to the field's width
    Side,          ///< "买" if the column contains it, otherwise "卖"
    InvertedSide,  ///< "卖" if the column contains "买", otherwise "买": the side of the position that a trade closed
    Opening,       ///< "开仓" if the column contains it, otherwise a copy
    KeepIfPresent,  ///< a copy, in rows that have the column
    MustExist,      ///< a copy; a row without the column raises the invalid-argument error
};

/// Where a text field of a record lies.
template <class Record>
struct FieldSlot {
    std::uint16_t offset;  ///< bytes from the record's start
    std::uint16_t most;    ///< bytes that the field takes, less its zero

    /// Sets the field, as CopyField does.
    void Set(Record& record, std::string_view text) const {
        CopyText(reinterpret_cast<char*>(&record) + offset, text.substr(0, most));
    }
};

namespace columns {

template <class Member>
struct MemberOf;
template <class Class, std::size_t N>
struct MemberOf<char (Class::*)[N]> {
    using Record = Class;
    static constexpr std::size_t kMost = N - 1;
};

/// A pointer to a member doesn't tell its offset, but a byte that is set through it does.
template <auto Member>
consteval std::size_t OffsetOf() {
    using Record = typename MemberOf<decltype(Member)>::Record;
    Record record{};
    (record.*Member)[0] = 1;
    const auto bytes = std::bit_cast<std::array<unsigned char, sizeof(Record)>>(record);
    std::size_t offset = 0;
    while (bytes[offset] == 0) ++offset;
    return offset;
}

}  // namespace columns

/// The slot of a field that this layout cuts to `Most` bytes.
template <auto Member, std::size_t Most>
inline constexpr FieldSlot<typename columns::MemberOf<decltype(Member)>::Record> CutSlot{
    static_cast<std::uint16_t>(columns::OffsetOf<Member>()),
    static_cast<std::uint16_t>(std::min(Most, columns::MemberOf<decltype(Member)>::kMost))};

/// The slot of a whole field: Slot<&MatchRecord::CONTRACT>.
template <auto Member>
inline constexpr auto Slot = CutSlot<Member, columns::MemberOf<decltype(Member)>::kMost>;

template <class Record>
struct Column {
    FieldSlot<Record> field;
    std::size_t column;  ///< counted from 0
    Treatment treatment = Treatment::Copy;
};

/// The last column that every row must have.
template <class Record>
[[nodiscard]] constexpr std::size_t LastColumn(std::span<const Column<Record>> table) {
    std::size_t last = 0;
    for (const auto& entry : table) {
        const bool mayLack = entry.treatment == Treatment::KeepIfPresent || entry.treatment == Treatment::MustExist;
        if (!mayLack && entry.column > last) last = entry.column;
    }
    return last;
}
template <class Record, std::size_t N>
[[nodiscard]] constexpr std::size_t LastColumn(const Column<Record> (&table)[N]) {
    return LastColumn(std::span<const Column<Record>>(table));
}

/// What `column` becomes in a field. Valid as long as `column`.
[[nodiscard]] constexpr std::string_view Treated(std::string_view column, Treatment treatment) {
    if (treatment == Treatment::Copy) return column;  // nearly all of them
    switch (treatment) {
        case Treatment::Side:
            return Contains(column, "买"_gbk) ? "买"_gbk : "卖"_gbk;
        case Treatment::InvertedSide:
            return Contains(column, "买"_gbk) ? "卖"_gbk : "买"_gbk;
        case Treatment::Opening:
            return Contains(column, "开仓"_gbk) ? "开仓"_gbk : column;
        case Treatment::Copy:
        case Treatment::KeepIfPresent:
        case Treatment::MustExist:
            break;
    }
    return column;
}

/// Throws CReportError if `row` lacks `column`.
inline void RequireColumn(Row row, std::size_t column) {
    if (column >= row.size()) throw CReportError(kErrorInvalidArgument);
}

/// A cleared record.
template <class Record>
[[nodiscard]] std::unique_ptr<Record> MakeCleared() {
    return std::make_unique<Record>();
}
template <>
[[nodiscard]] inline std::unique_ptr<MoneyRecord> MakeCleared() {
    return std::make_unique<MoneyRecord>(ClearedMoneyRecord());
}

/// Fills the fields that `table` names from `row`. Columns that the row lacks leave their fields alone; a later column
/// of the same field wins.
template <class Record>
void FillRecord(Record& record, Row row, std::span<const Column<Record>> table) {
    for (const auto& entry : table) {
        if (entry.treatment == Treatment::MustExist) RequireColumn(row, entry.column);
        if (entry.column < row.size()) entry.field.Set(record, Treated(row[entry.column], entry.treatment));
    }
}

/// The same, and the record's day.
template <class Record>
void FillRecord(Record& record, std::string_view billDate, Row row, std::span<const Column<Record>> table) {
    CopyField(record.BILL_DATE, billDate);
    FillRecord(record, row, table);
}

/// A record of `row`. Columns that the row lacks leave their fields empty.
template <class Record>
[[nodiscard]] std::unique_ptr<Record> MakeRecord(std::string_view billDate, Row row,
                                                 std::span<const Column<Record>> table) {
    auto record = MakeCleared<Record>();
    FillRecord(*record, billDate, row, table);
    return record;
}

}  // namespace tradebill
