// The room of what is written for other programs. JSON is written from a report at once (json_writer.h). CSV and SQLite
// take tables: a table is a row of table_list.h, with its columns and a way to walk through its rows; the writers
// (csv_set.h, sqlite_export.h) take any of them and know nothing of accounts.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

#include "findings/finding.h"

namespace tradebill {

class CReport;
struct Analysis;

enum class ColumnKind {
    Text,
    Number,  ///< a double
    Count,   ///< a whole number
    Day,
};

struct ExportColumn {
    std::string_view name;  ///< as the JSON has it; ASCII
    ColumnKind kind = ColumnKind::Text;
    bool isKey = false;  ///< rows are looked for by it
};

struct GbkCell {
    std::string_view text;
};
struct Utf8Cell {
    std::string_view text;
};
/// "yyyymmdd" or "yyyy-mm-dd"; any other text is no day.
struct DayCell {
    std::string_view text;
};

/// What stands in a row under a column. Texts are those of the report, and live as long as it. An empty text, what is
/// no day, infinities and NaN are written as nothing, as std::monostate is.
using ExportCell = std::variant<std::monostate, GbkCell, Utf8Cell, DayCell, double, std::int64_t>;

/// Takes the rows of a table, one after the other.
class CRowSink {
public:
    CRowSink() = default;
    CRowSink(const CRowSink&) = delete;
    CRowSink& operator=(const CRowSink&) = delete;
    virtual ~CRowSink() = default;

    /// `cells` are as many as the table has columns, and are gone when this returns.
    virtual void OnRow(std::span<const ExportCell> cells) = 0;
};

/// What tables are made of.
struct ExportSource {
    const CReport& report;
    const Analysis& analysis;  ///< of the report
    std::span<const Finding> findings = {};
};

struct ExportTable {
    std::string_view name;  ///< ASCII, a word
    std::span<const ExportColumn> columns;
    bool isUnique;  ///< no two rows have the same key, whatever a statement says
    void (*walk)(const ExportSource& source, CRowSink& sink);
};

}  // namespace tradebill
