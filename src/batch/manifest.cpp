#include "batch/manifest.h"

#include <algorithm>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/ini_file.h"
#include "base/text.h"
#include "base/utf8.h"
#include "batch/csv_rows.h"

namespace tradebill {
namespace {

using Json = nlohmann::json;
using Columns = std::span<const std::string_view>;

constexpr std::string_view kMark = "\xEF\xBB\xBF";

[[noreturn]] void Refuse(std::size_t line, const std::string& why) {
    throw CNoManifest("line " + std::to_string(line) + ": " + why);
}

std::string Listed(Columns columns) {
    std::string list;
    for (const std::string_view column : columns) list.append(list.empty() ? "" : ", ").append(column);
    return list;
}

/// As the caller spells it.
std::string_view ColumnOf(std::string_view name, Columns columns, std::size_t line) {
    const auto found =
        std::ranges::find_if(columns, [&](std::string_view column) { return EqualsIgnoringCase(column, name); });
    if (found != columns.end()) return *found;
    Refuse(line, "expected a column out of " + Listed(columns) + ", found \"" + std::string(name) + "\"");
}

void CheckUtf8(std::string_view text, std::size_t line) {
    if (!IsUtf8(text)) Refuse(line, "expected UTF-8");
}

/// The columns of a head line.
std::vector<std::string_view> HeadOf(const CCsvRows& rows, Columns columns) {
    std::vector<std::string_view> head;
    for (const std::string& field : rows.Fields()) {
        CheckUtf8(field, rows.Line());
        const std::string_view column = ColumnOf(Trim(field), columns, rows.Line());
        if (std::ranges::find(head, column) != head.end()) {
            Refuse(rows.Line(), "the column " + std::string(column) + " comes twice");
        }
        head.push_back(column);
    }
    return head;
}

void CheckRow(const CCsvRows& rows) {
    if (!rows.IsWellFormed()) Refuse(rows.Line(), "a quote stands where none may, or isn't closed");
    for (const std::string& field : rows.Fields()) CheckUtf8(field, rows.Line());
}

void ReadCsv(std::string_view text, Columns columns, const OnManifestRow& onRow) {
    CCsvRows rows(text);
    if (!rows.Next()) return;
    CheckRow(rows);
    const std::vector<std::string_view> head = HeadOf(rows, columns);
    std::vector<ManifestCell> cells;
    while (rows.Next()) {
        CheckRow(rows);
        cells.clear();
        const auto fields = rows.Fields();
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const std::string_view cell = Trim(fields[i]);
            if (cell.empty()) continue;
            if (i >= head.size()) {
                Refuse(rows.Line(), "expected at most " + std::to_string(head.size()) + " fields, found " +
                                        std::to_string(fields.size()));
            }
            cells.push_back({head[i], cell});
        }
        if (!cells.empty()) onRow(rows.Line(), cells);
    }
}

/// What a value says; nothing for null.
std::string TextOf(const Json& value, std::string_view column, std::size_t line) {
    if (value.is_string()) return std::string(Trim(value.get_ref<const std::string&>()));
    if (value.is_number_integer()) return value.dump();
    if (value.is_boolean()) return value.get<bool>() ? "1" : "0";
    if (value.is_null()) return {};
    Refuse(line, "expected a text, a whole number, true, false or null for " + std::string(column));
}

void ReadObject(std::string_view text, std::size_t line, Columns columns, const OnManifestRow& onRow) {
    std::vector<std::string> names;
    const auto keepName = [&names](int depth, Json::parse_event_t event, Json& parsed) {
        if (event == Json::parse_event_t::key && depth == 1) names.push_back(parsed.get<std::string>());
        return true;
    };
    const Json object = Json::parse(text, keepName, false);
    if (!object.is_object()) Refuse(line, "expected one JSON object");
    std::ranges::sort(names);
    if (const auto twice = std::ranges::adjacent_find(names); twice != names.end()) {
        Refuse(line, "the column " + *twice + " comes twice");
    }
    std::vector<std::string> texts;
    std::vector<ManifestCell> cells;
    texts.reserve(object.size());
    for (const auto& [name, value] : object.items()) {
        const std::string_view column = ColumnOf(name, columns, line);
        if (std::ranges::find(cells, column, &ManifestCell::column) != cells.end()) {
            Refuse(line, "the column " + std::string(column) + " comes twice");
        }
        texts.push_back(TextOf(value, column, line));
        if (!texts.back().empty()) cells.push_back({column, texts.back()});
    }
    if (!cells.empty()) onRow(line, cells);
}

void ReadJsonLines(std::string_view text, Columns columns, const OnManifestRow& onRow) {
    for (std::size_t line = 1; !text.empty(); ++line) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view object = Trim(text.substr(0, end));
        if (!object.empty()) ReadObject(object, line, columns, onRow);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

}  // namespace

void ReadManifest(std::string_view text, std::span<const std::string_view> columns, const OnManifestRow& onRow) {
    if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return;
    if (text[first] == '{') return ReadJsonLines(text, columns, onRow);
    ReadCsv(text, columns, onRow);
}

}  // namespace tradebill
