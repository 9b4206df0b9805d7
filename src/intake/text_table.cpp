#include "intake/text_table.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "base/utf8.h"

namespace tradebill {
namespace {

/// A Chinese character is two bytes of GBK, and fills two columns.
std::size_t WidthOf(std::string_view text) {
    constexpr unsigned char kFirstOfMany = 0x80;
    std::size_t width = 0;
    while (!text.empty()) {
        const Utf8Character character = FirstUtf8Character(text);
        width += static_cast<unsigned char>(text.front()) < kFirstOfMany ? 1 : 2;
        text.remove_prefix(std::max<std::size_t>(character.size, 1));
    }
    return width;
}

template <class CellOf>
std::string Row(std::span<const TextColumn> columns, CellOf cellOf) {
    std::string row = "|";
    for (std::size_t i = 0; i < columns.size(); ++i) row += AlignedRight(cellOf(i), columns[i].width) + "|";
    return row + "\n";
}

}  // namespace

std::string AlignedRight(std::string_view text, std::size_t width) {
    const std::size_t size = WidthOf(text);
    return std::string(size < width ? width - size : 0, ' ') + std::string(text);
}

std::string CellText(std::string_view text) {
    std::string cell(Trim(text));
    std::ranges::replace_if(
        cell, [](char byte) { return byte == '|' || byte == '\n' || byte == '\r' || byte == '\t' || byte == '\0'; },
        ' ');
    return cell;
}

std::string TextTable(std::string_view title, std::span<const TextColumn> columns,
                      std::span<const std::vector<std::string>> rows) {
    constexpr std::size_t kTitleIndent = 60;
    std::size_t width = 1;
    for (const TextColumn& column : columns) width += column.width + 1;
    const std::string rule = std::string(width, '-') + "\n";
    std::string text = std::string(kTitleIndent, ' ') + std::string(title) + "\n" + rule;
    text += Row(columns, [&](std::size_t i) { return columns[i].heading; });
    text += Row(columns, [&](std::size_t i) { return columns[i].english; });
    text += rule;
    for (const std::vector<std::string>& row : rows.first(rows.size() - 1)) {
        text += Row(columns, [&](std::size_t i) { return std::string_view(row[i]); });
    }
    text += rule + Row(columns, [&](std::size_t i) { return std::string_view(rows.back()[i]); });
    return text + rule + "\n";
}

}  // namespace tradebill
