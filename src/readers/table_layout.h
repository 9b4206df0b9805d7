// Sections whose rows make records: a table of columns each, and the rows that hold both sides of a position.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

#include "base/number.h"
#include "readers/columns.h"
#include "readers/hand_over.h"
#include "readers/section_scan.h"

namespace tradebill {

/// A section of rows that each make one record.
template <class Record>
struct TableLayout {
    SectionLayout section;
    std::span<const Column<Record>> columns = {};
};

/// Reads the rows of a found table; `onRecord(const Record&)` sees each record before it is handed over.
template <class Record, class OnRecord>
void ReadTableRows(CSectionScan& scan, const TableLayout<Record>& table, const SectionRows& rows,
                   std::string_view billDate, OnRecord onRecord) {
    scan.ReadRows(table.section, rows, [&](Row row) {
        auto record = MakeRecord(billDate, row, table.columns);
        onRecord(std::as_const(*record));
        HandOver(std::move(record), scan.Listener());
    });
}
template <class Record>
void ReadTableRows(CSectionScan& scan, const TableLayout<Record>& table, const SectionRows& rows,
                   std::string_view billDate) {
    ReadTableRows(scan, table, rows, billDate, [](const Record&) {});
}

/// Finds and reads a table.
template <class Record>
void ReadTable(CSectionScan& scan, const TableLayout<Record>& table, std::string_view billDate) {
    if (const auto rows = scan.Find(table.section)) ReadTableRows(scan, table, *rows, billDate);
}

/// One side of a position row: it makes a record if its lots are above 0.
struct PositionSide {
    std::size_t lotsColumn;
    std::string_view side;
    std::span<const Column<OpiSum>> columns;
};

/// Whether sums are all that a layout says of its positions, so that the statistics must be fed with them.
enum class SumFeed { No, Yes };

/// Makes the record of one side and hands it over, if the row has lots on it; `onRecord(const OpiSum&)` sees it before.
/// The lots column must be there.
template <class OnRecord>
bool ReadSide(Row row, const PositionSide& side, std::string_view billDate, SumFeed feed, CScanListener* listener,
              OnRecord onRecord) {
    if (ParseInteger(row[side.lotsColumn]) <= 0) return false;
    auto record = MakeRecord(billDate, row, side.columns);
    CopyField(record->BID, side.side);
    onRecord(std::as_const(*record));
    if (feed == SumFeed::Yes) {
        FeedAndHandOver(std::move(record), listener);
    } else {
        HandOver(std::move(record), listener);
    }
    return true;
}

/// Reads a row that holds both sides, in the order of `sides`.
template <class OnRecord>
RowVerdict ReadBothSides(Row row, std::span<const PositionSide> sides, std::string_view billDate, SumFeed feed,
                         CScanListener* listener, OnRecord onRecord) {
    bool any = false;
    for (const PositionSide& side : sides) any |= ReadSide(row, side, billDate, feed, listener, onRecord);
    return {any ? RowFate::Read : RowFate::NoLots};
}

}  // namespace tradebill
