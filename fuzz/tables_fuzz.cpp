// Rows of any cells as CSV: who reads it by RFC 4180 has each of them again.
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/utf8.h"
#include "export/csv_text.h"
#include "export/table.h"
#include "fuzz_target.h"
#include "platform/text_encoding.h"

namespace tradebill {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";
constexpr ExportColumn kColumns[] = {{"one"}, {"two", ColumnKind::Number}, {"three", ColumnKind::Day}};
constexpr std::size_t kMostRows = 64;

using CsvRow = std::vector<std::string>;
using CellRow = std::array<ExportCell, std::size(kColumns)>;

ExportCell TakeCell(CFuzzInput& input) {
    switch (input.Choice(6)) {
        case 0:
            return GbkCell{input.Text()};
        case 1:
            return Utf8Cell{input.Text()};
        case 2:
            return DayCell{input.Text()};
        case 3:
            return input.Amount();
        case 4:
            return std::int64_t{input.Integer()} * input.Integer();
        default:
            return std::monostate();
    }
}

std::string CsvOf(const std::vector<CellRow>& rows) {
    std::string csv;
    CCsvText text(kColumns, [&](std::string_view piece) {
        csv += piece;
        return true;
    });
    for (const CellRow& row : rows) text.OnRow(row);
    Require(text.Finish(), "what is written is told so");
    return csv;
}

/// Takes a field off the front, in quotes or without.
std::string TakeField(std::string_view& csv) {
    if (!csv.starts_with('"')) {
        const std::size_t size = csv.find_first_of(",\r\n\"");
        Require(size != std::string_view::npos && csv[size] != '"' && csv[size] != '\n',
                "a plain field ends as one does");
        std::string field(csv.substr(0, size));
        csv.remove_prefix(size);
        return field;
    }
    std::string field;
    for (;;) {
        const std::size_t quote = csv.find('"', 1);
        Require(quote != std::string_view::npos, "a quote is closed");
        field += csv.substr(1, quote - 1);
        csv.remove_prefix(quote + 1);
        if (!csv.starts_with('"')) return field;
        field += '"';
    }
}

std::vector<CsvRow> ReadCsv(std::string_view csv) {
    Require(csv.starts_with(kByteOrderMark), "a file has the mark");
    csv.remove_prefix(kByteOrderMark.size());
    std::vector<CsvRow> rows(1);
    while (!csv.empty()) {
        rows.back().push_back(TakeField(csv));
        if (csv.starts_with(',')) {
            csv.remove_prefix(1);
            Require(!csv.empty(), "a comma has a field behind it");
            continue;
        }
        Require(csv.starts_with(kLineEnd), "a field ends at a comma or at the end of its line");
        csv.remove_prefix(kLineEnd.size());
        rows.emplace_back();
    }
    Require(rows.back().empty(), "the last line is ended");
    rows.pop_back();
    return rows;
}

/// What a reader takes off who knows of the apostrophe before what a spreadsheet would obey.
std::string_view WithoutMark(std::string_view field) {
    return field.starts_with('\'') ? field.substr(1) : field;
}

void RequireText(std::string_view field, std::string_view text) {
    Require(WithoutMark(field) == text, "a text is given back as it was, decoded");
    Require(field.empty() || std::string_view("=+-@\t\r\n").find(field.front()) == std::string_view::npos,
            "no text opens as a formula");
}

void RequireCell(std::string_view field, const GbkCell& gbk) {
    RequireText(field, GbkToUtf8(gbk.text));
}

void RequireCell(std::string_view field, const Utf8Cell& utf8) {
    Require(IsUtf8(field), "texts are UTF-8");
    if (IsUtf8(utf8.text)) RequireText(field, utf8.text);
    Require(field.empty() == utf8.text.empty(), "a text that is mended is still there");
}

void RequireCell(std::string_view field, const DayCell& day) {
    if (field.empty()) return;
    std::string digits;
    for (const char byte : field) {
        if (byte != '-') digits += byte;
    }
    Require(field.size() == 10 && field[4] == '-' && field[7] == '-' && digits.size() == 8, "a day is yyyy-mm-dd");
    Require(digits == day.text || field == day.text, "a day is the one of the cell");
}

void RequireCell(std::string_view field, double number) {
    Require(field.empty() != std::isfinite(number), "a finite number is there, and no other");
    if (field.empty()) return;
    Require(field.find_first_not_of("-.0123456789") == std::string_view::npos && field != "-0", "a number is plain");
    Require(std::strtod(std::string(field).c_str(), nullptr) == number, "a number reads back to the same double");
}

void RequireCell(std::string_view field, std::int64_t count) {
    Require(field == std::to_string(count), "a count is its digits");
}

void RequireCell(std::string_view field, std::monostate) {
    Require(field.empty(), "nothing is an empty field");
}

}  // namespace

void FuzzTables(std::string_view bytes) {
    CFuzzInput input(bytes);
    std::vector<CellRow> rows;
    while (!input.IsEmpty() && rows.size() < kMostRows) {
        CellRow& row = rows.emplace_back();
        for (ExportCell& cell : row) cell = TakeCell(input);
    }
    const std::vector<CsvRow> read = ReadCsv(CsvOf(rows));
    Require(read.size() == rows.size() + 1, "a row is a line, behind that of the names");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const CsvRow& fields = read[i + 1];
        Require(fields.size() == std::size(kColumns), "a row has a field for each column");
        for (std::size_t column = 0; column < fields.size(); ++column) {
            std::visit([&](const auto& cell) { RequireCell(fields[column], cell); }, rows[i][column]);
        }
    }
}

}  // namespace tradebill
