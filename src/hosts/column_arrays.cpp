#include "hosts/column_arrays.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <variant>

#include "export/row_values.h"
#include "export/table.h"

namespace tradebill {
namespace {

/// Null where there is nothing to point to.
template <class Values>
auto DataOf(const Values& values) {
    return values.empty() ? nullptr : values.data();
}

}  // namespace

CColumnArrays::CColumnArrays(std::span<const ExportColumn> columns) {
    columns_.reserve(columns.size());
    for (const ExportColumn& column : columns) columns_.push_back({.kind = column.kind});
}

void CColumnArrays::OnRow(std::span<const ExportCell> cells) {
    const std::span<const CellValue> values = values_.Of(cells);
    for (std::size_t i = 0; i < columns_.size(); ++i) Put(values[i], columns_[i]);
    ++rows_;
}

/// A whole number may stand among decimals, and the other way round never.
void CColumnArrays::Put(const CellValue& value, Column& column) {
    switch (column.kind) {
        case ColumnKind::Number: {
            const auto* const whole = std::get_if<std::int64_t>(&value);
            const auto* const number = std::get_if<double>(&value);
            column.numbers.push_back(number != nullptr  ? *number
                                     : whole != nullptr ? static_cast<double>(*whole)
                                                        : std::numeric_limits<double>::quiet_NaN());
            break;
        }
        case ColumnKind::Count: {
            const auto* const whole = std::get_if<std::int64_t>(&value);
            column.wholeNumbers.push_back(whole != nullptr ? *whole : std::numeric_limits<std::int64_t>::min());
            break;
        }
        case ColumnKind::Text:
        case ColumnKind::Day: {
            const auto* const text = std::get_if<std::string_view>(&value);
            column.places.push_back(text != nullptr ? bytes_.size() : kNothing);
            if (text != nullptr) bytes_.append(*text).push_back('\0');
            break;
        }
    }
}

void CColumnArrays::Finish() {
    for (Column& column : columns_) {
        column.texts.resize(column.places.size());
        std::ranges::transform(column.places, column.texts.begin(), [this](std::size_t place) {
            return place == kNothing ? nullptr : bytes_.data() + place;
        });
        column.places = {};
    }
}

const CColumnArrays::Column* CColumnArrays::ColumnAt(std::int32_t column) const {
    const bool isThere = column >= 0 && static_cast<std::size_t>(column) < columns_.size();
    return isThere ? &columns_[static_cast<std::size_t>(column)] : nullptr;
}

const double* CColumnArrays::Numbers(std::int32_t column) const {
    const Column* const found = ColumnAt(column);
    return found == nullptr ? nullptr : DataOf(found->numbers);
}

const std::int64_t* CColumnArrays::WholeNumbers(std::int32_t column) const {
    const Column* const found = ColumnAt(column);
    return found == nullptr ? nullptr : DataOf(found->wholeNumbers);
}

const char* const* CColumnArrays::Texts(std::int32_t column) const {
    const Column* const found = ColumnAt(column);
    return found == nullptr ? nullptr : DataOf(found->texts);
}

}  // namespace tradebill
