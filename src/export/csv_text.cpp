#include "export/csv_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <utility>
#include <variant>

#include "export/row_values.h"
#include "export/table.h"

namespace tradebill {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kPiece = std::size_t{128} * 1024;

bool OpensAsFormula(std::string_view text) {
    constexpr std::string_view kFullWidth[] = {"＝", "＋", "－", "＠"};
    if (std::string_view("=+-@'\t\r\n").find(text.front()) != std::string_view::npos) return true;
    return std::ranges::any_of(kFullWidth, [&](std::string_view sign) { return text.starts_with(sign); });
}

/// Semicolons and tabs part cells for spreadsheets of some countries.
bool NeedsQuotes(std::string_view text) {
    return text.find_first_of("\",;\t\r\n") != std::string_view::npos;
}

}  // namespace

CCsvText::CCsvText(std::span<const ExportColumn> columns, std::function<bool(std::string_view)> write)
    : write_(std::move(write)) {
    piece_.reserve(kPiece + kPiece / 8);
    piece_ += kByteOrderMark;
    for (const ExportColumn& column : columns) {
        PutText(column.name);
        piece_ += ',';
    }
    EndLine();
}

void CCsvText::OnRow(std::span<const ExportCell> cells) {
    for (const CellValue& value : values_.Of(cells)) {
        Put(value);
        piece_ += ',';
    }
    EndLine();
}

bool CCsvText::Finish() {
    HandOn();
    return isWritten_;
}

void CCsvText::Put(const CellValue& value) {
    if (const auto* const text = std::get_if<std::string_view>(&value)) return PutText(*text);
    if (const auto* const number = std::get_if<double>(&value)) return PutNumber(*number);
    const auto* const count = std::get_if<std::int64_t>(&value);
    if (count == nullptr) return;
    std::array<char, 24> digits;
    piece_.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), *count).ptr);
}

void CCsvText::PutText(std::string_view text) {
    const std::string_view mark = OpensAsFormula(text) ? "'" : "";
    if (!NeedsQuotes(text)) {
        piece_.append(mark).append(text);
        return;
    }
    piece_.append("\"").append(mark);
    for (const char byte : text) {
        if (byte == '"') piece_ += '"';
        piece_ += byte;
    }
    piece_ += '"';
}

void CCsvText::PutNumber(double number) {
    std::array<char, 1088> digits;  // the longest: sign, point, and a fraction whose first digit is the 308th
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed).ptr;
    piece_.append(digits.data(), end);
}

/// Over the comma behind the last cell.
void CCsvText::EndLine() {
    piece_.pop_back();
    piece_.append("\r\n");
    if (piece_.size() >= kPiece) HandOn();
}

void CCsvText::HandOn() {
    isWritten_ = isWritten_ && write_(piece_);
    piece_.clear();
}

}  // namespace tradebill
