// Sections whose rows make records: a table of columns each, and the rows that hold both sides of a position.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "readers/columns.h"
#include "readers/record_sink.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"
#include "readers/seen_columns.h"
#include "report/records.h"

namespace tradebill {

/// A section of rows that each make one record.
template <class Record>
struct TableLayout {
    SectionLayout section;
    std::span<const Column<Record>> columns = {};
};

/// Reads the rows of a found table into `sink`; `onRecord(const Record&)` sees each record before it is handed over.
template <class Record, class OnRecord>
void ReadTableRows(CSectionScan& scan, const TableLayout<Record>& table, const SectionRows& rows,
                   std::string_view billDate, CRecordSink& sink, OnRecord onRecord) {
    TellColumns(table.columns, scan.Listener());
    scan.ReadRows(table.section, rows, [&](Row row) {
        Record& record = sink.NewRow<Record>();
        FillRecord(record, billDate, row, table.columns);
        onRecord(std::as_const(record));
        sink.Add(record);
    });
}
template <class Record>
void ReadTableRows(CSectionScan& scan, const TableLayout<Record>& table, const SectionRows& rows,
                   std::string_view billDate, CRecordSink& sink) {
    ReadTableRows(scan, table, rows, billDate, sink, [](const Record&) {});
}

/// Finds and reads a table.
template <class Record>
void ReadTable(CSectionScan& scan, const TableLayout<Record>& table, std::string_view billDate, CRecordSink& sink) {
    if (const auto rows = scan.Find(table.section)) ReadTableRows(scan, table, *rows, billDate, sink);
}

/// One side of a position row: it makes a record if its lots are above 0.
struct PositionSide {
    std::size_t lotsColumn;
    std::string_view side;
    std::span<const Column<OpiSum>> columns;  ///< that this side has for itself
};

/// Rows that hold both sides of a position.
struct SidesLayout {
    std::span<const Column<OpiSum>> shared = {};  ///< columns that both sides take
    std::span<const PositionSide> sides = {};     ///< in the order of their records
};

/// The last column that every row of `layout` must have.
[[nodiscard]] constexpr std::size_t LastColumn(const SidesLayout& layout) {
    std::size_t last = LastColumn(layout.shared);
    for (const PositionSide& side : layout.sides) last = std::max({last, side.lotsColumn, LastColumn(side.columns)});
    return last;
}

/// Tells the listener, which may be null, of the columns of both sides.
void TellColumns(const SidesLayout& layout, CScanListener* listener);

/// Whether sums are all that a layout says of its positions, so that the daily series must be fed with them.
enum class SumFeed { No, Yes };

/// Makes the record of one side and hands it over, if the row has lots on it; `onRecord(const OpiSum&)` sees it before.
/// Returns whether it has.
///
/// REQUIRES: the row has the lots column.
template <class OnRecord>
bool ReadSide(Row row, std::span<const Column<OpiSum>> shared, const PositionSide& side, std::string_view billDate,
              SumFeed feed, CRecordSink& sink, OnRecord onRecord) {
    if (ParseInteger(row[side.lotsColumn]) <= 0) return false;
    OpiSum& record = sink.NewRow<OpiSum>();
    FillRecord(record, billDate, row, shared);
    FillRecord(record, row, side.columns);
    CopyField(record.BID, side.side);
    onRecord(std::as_const(record));
    if (feed == SumFeed::Yes) {
        sink.AddOnlyPosition(record);
    } else {
        sink.Add(record);
    }
    return true;
}

/// Reads a row that holds both sides.
template <class OnRecord>
RowVerdict ReadBothSides(Row row, const SidesLayout& layout, std::string_view billDate, SumFeed feed, CRecordSink& sink,
                         OnRecord onRecord) {
    bool any = false;
    for (const PositionSide& side : layout.sides) {
        any |= ReadSide(row, layout.shared, side, billDate, feed, sink, onRecord);
    }
    return {any ? RowFate::Read : RowFate::NoLots};
}

}  // namespace tradebill
