#include "explore/table_columns.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "export/row_values.h"
#include "export/table.h"

namespace tradebill {
namespace {

/// "number" as the page's script has it.
std::string_view KindText(ColumnKind kind) {
    switch (kind) {
        case ColumnKind::Number:
            return "number";
        case ColumnKind::Count:
            return "count";
        case ColumnKind::Day:
            return "day";
        case ColumnKind::Text:
            break;
    }
    return "text";
}

bool HasTexts(ColumnKind kind) {
    return kind == ColumnKind::Text || kind == ColumnKind::Day;
}

std::string QuotedText(const std::string& text) {
    using Json = nlohmann::json;
    return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// The shortest digits that read back to the same number, which JSON reads as they are.
template <class Value>
void PutNumber(std::string& cells, Value number) {
    std::array<char, 32> digits;
    cells.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
}

}  // namespace

CTableColumns::CTableColumns(std::span<const ExportColumn> columns) : columns_(columns), gathered_(columns.size()) {}

void CTableColumns::OnRow(std::span<const ExportCell> cells) {
    const std::span<const CellValue> values = values_.Of(cells);
    for (std::size_t i = 0; i < gathered_.size(); ++i) {
        if (rows_ != 0) gathered_[i].cells += ',';
        Put(gathered_[i], columns_[i].kind, values[i]);
    }
    ++rows_;
}

void CTableColumns::Put(Column& column, ColumnKind kind, const CellValue& value) {
    if (HasTexts(kind)) {
        const auto* const text = std::get_if<std::string_view>(&value);
        return PutNumber(column.cells, text == nullptr ? -1 : CodeOf(column, kind, *text));
    }
    if (const auto* const number = std::get_if<double>(&value)) return PutNumber(column.cells, *number);
    if (const auto* const count = std::get_if<std::int64_t>(&value)) return PutNumber(column.cells, *count);
    column.cells += "null";
}

std::int64_t CTableColumns::CodeOf(Column& column, ColumnKind kind, std::string_view text) {
    const auto known = column.codes.find(text);
    if (known != column.codes.end()) return known->second;
    const auto code = static_cast<std::int64_t>(column.codes.size());
    column.codes.emplace(text, code);
    std::string shown;
    for (const char byte : text) {
        if (kind != ColumnKind::Day || byte != '-') shown += byte;
    }
    if (code != 0) column.texts += ',';
    column.texts += QuotedText(shown);
    return code;
}

void CTableColumns::WriteJson(const std::function<void(std::string_view)>& write) const {
    write("{\"rows\":" + std::to_string(rows_) + ",\"columns\":[");
    for (std::size_t i = 0; i < gathered_.size(); ++i) {
        const ColumnKind kind = columns_[i].kind;
        write(std::string(i == 0 ? "" : ",") + "{\"name\":" + QuotedText(std::string(columns_[i].name)) +
              ",\"kind\":\"" + std::string(KindText(kind)) + "\",");
        if (HasTexts(kind)) {
            write("\"texts\":[");
            write(gathered_[i].texts);
            write("],\"codes\":[");
        } else {
            write("\"values\":[");
        }
        write(gathered_[i].cells);
        write("]}");
    }
    write("]}");
}

}  // namespace tradebill
