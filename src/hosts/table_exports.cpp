// The functions of the interface on tables.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "export/table.h"
#include "export/table_list.h"
#include "hosts/column_arrays.h"
#include "hosts/host_report.h"
#include "hosts/tradebill.h"

/// The handle of the interface.
struct TradeBillTable {
    explicit TradeBillTable(std::span<const tradebill::ExportColumn> of) : columns(of) {}

    tradebill::CColumnArrays columns;
};

namespace tradebill {
namespace {

/// Null beyond the last.
template <class Row>
const Row* RowAt(std::span<const Row> rows, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < rows.size() ? &rows[static_cast<std::size_t>(index)]
                                                                       : nullptr;
}

const ExportColumn* ColumnAt(std::int32_t table, std::int32_t column) {
    const ExportTable* const found = RowAt(Tables(), table);
    return found == nullptr ? nullptr : RowAt(found->columns, column);
}

std::int32_t NumberOf(ColumnKind kind) {
    switch (kind) {
        case ColumnKind::Text:
            return TRADEBILL_TEXT;
        case ColumnKind::Number:
            return TRADEBILL_NUMBER;
        case ColumnKind::Count:
            return TRADEBILL_COUNT;
        case ColumnKind::Day:
            return TRADEBILL_DAY;
    }
    return TRADEBILL_NO_COLUMN;
}

std::int32_t OpenTable(const CHostReport& report, std::string_view name, TradeBillTable** table) {
    const auto tables = Tables();
    const auto found = std::ranges::find(tables, name, &ExportTable::name);
    if (found == tables.end()) return TRADEBILL_NO_SUCH_NAME;
    auto opened = std::make_unique<TradeBillTable>(found->columns);
    found->walk(report.Source(), opened->columns);
    opened->columns.Finish();
    *table = opened.release();
    return TRADEBILL_DONE;
}

}  // namespace
}  // namespace tradebill

int32_t TradeBillTableCount(void) {
    return static_cast<int32_t>(tradebill::Tables().size());
}

const char* TradeBillTableName(int32_t table) {
    const auto* const found = tradebill::RowAt(tradebill::Tables(), table);
    return found == nullptr ? nullptr : found->name.data();
}

int32_t TradeBillColumnCount(int32_t table) {
    const auto* const found = tradebill::RowAt(tradebill::Tables(), table);
    return found == nullptr ? 0 : static_cast<int32_t>(found->columns.size());
}

const char* TradeBillColumnName(int32_t table, int32_t column) {
    const auto* const found = tradebill::ColumnAt(table, column);
    return found == nullptr ? nullptr : found->name.data();
}

int32_t TradeBillColumnKindOf(int32_t table, int32_t column) {
    const auto* const found = tradebill::ColumnAt(table, column);
    return found == nullptr ? static_cast<int32_t>(TRADEBILL_NO_COLUMN) : tradebill::NumberOf(found->kind);
}

int32_t TradeBillOpenTable(TradeBillReport* report, const char* name, TradeBillTable** table) {
    if (table != nullptr) *table = nullptr;
    if (report == nullptr) return TRADEBILL_WRONG_ARGUMENT;
    return report->report.Ask([&] {
        const bool isAsked = name != nullptr && table != nullptr;
        return isAsked ? tradebill::OpenTable(report->report, name, table) : std::int32_t{TRADEBILL_WRONG_ARGUMENT};
    });
}

void TradeBillCloseTable(TradeBillTable* table) {
    delete table;
}

int64_t TradeBillRowCount(const TradeBillTable* table) {
    return table == nullptr ? 0 : table->columns.RowCount();
}

const double* TradeBillNumbers(const TradeBillTable* table, int32_t column) {
    return table == nullptr ? nullptr : table->columns.Numbers(column);
}

const int64_t* TradeBillWholeNumbers(const TradeBillTable* table, int32_t column) {
    return table == nullptr ? nullptr : table->columns.WholeNumbers(column);
}

const char* const* TradeBillTextsUtf8(const TradeBillTable* table, int32_t column) {
    return table == nullptr ? nullptr : table->columns.Texts(column);
}
