// A table turned round: its columns as JSON, one behind the other, each a list with a place for every row.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "export/row_values.h"
#include "export/table.h"

namespace tradebill {

/// Gathers the rows of one table. Numbers and counts are kept as they are printed; of texts and days, which come again
/// and again, each different one once, and a number for each row.
class CTableColumns final : public CRowSink {
public:
    /// `columns` must outlive it.
    explicit CTableColumns(std::span<const ExportColumn> columns);

    void OnRow(std::span<const ExportCell> cells) override;

    [[nodiscard]] std::size_t Rows() const { return rows_; }

    /// Hands out the object {"rows":N,"columns":[...]} piece by piece. Numbers read back to the same double; nothing
    /// is null among them, and the code -1 among texts. Days are yyyymmdd.
    void WriteJson(const std::function<void(std::string_view)>& write) const;

private:
    struct Column {
        std::string cells;  ///< numbers or codes, with a comma before each but the first
        std::string texts;  ///< the different ones as JSON, in order of first occurrence
        std::map<std::string, std::int64_t, std::less<>> codes = {};
    };

    static void Put(Column& column, ColumnKind kind, const CellValue& value);
    static std::int64_t CodeOf(Column& column, ColumnKind kind, std::string_view text);

    std::span<const ExportColumn> columns_;
    std::vector<Column> gathered_;
    std::size_t rows_ = 0;
    CRowValues values_;
};

}  // namespace tradebill
