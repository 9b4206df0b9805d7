// The rows of a table by column, as hosts of other languages take them: arrays that stay where they are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "export/row_values.h"
#include "export/table.h"

namespace tradebill {

class CColumnArrays final : public CRowSink {
public:
    explicit CColumnArrays(std::span<const ExportColumn> columns);

    void OnRow(std::span<const ExportCell> cells) override;

    /// To be called when all rows are there, before anything is asked.
    void Finish();

    [[nodiscard]] std::int64_t RowCount() const { return rows_; }
    /// Null for a column of another kind, one that there isn't, and where there are no rows.
    [[nodiscard]] const double* Numbers(std::int32_t column) const;
    [[nodiscard]] const std::int64_t* WholeNumbers(std::int32_t column) const;
    [[nodiscard]] const char* const* Texts(std::int32_t column) const;

private:
    struct Column {
        ColumnKind kind;
        std::vector<double> numbers = {};
        std::vector<std::int64_t> wholeNumbers = {};
        std::vector<std::size_t> places = {};  // of texts; kNothing for none
        std::vector<const char*> texts = {};   // made of them at the end
    };
    static constexpr std::size_t kNothing = static_cast<std::size_t>(-1);

    void Put(const CellValue& value, Column& column);
    [[nodiscard]] const Column* ColumnAt(std::int32_t column) const;

    std::vector<Column> columns_;
    std::string bytes_;  // of all texts, each with a zero behind it
    std::int64_t rows_ = 0;
    CRowValues values_;
};

}  // namespace tradebill
