// HTML of the page's rows and tables, as text. Cell texts go in as they stand: what has to be escaped is so before.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tradebill {

struct Cell {
    std::string_view text;
    std::string_view className;
};

/// What opens a cell of a row without column widths, up to the cell's text, and what ends cell and row.
[[nodiscard]] std::string CellOpening(std::string_view className);
inline constexpr std::string_view kCellEnd = "</span></td>";
inline constexpr std::string_view kRowEnd = "</tr>\r\n";

/// One row without column widths, where cells don't wrap. No class attribute if `rowClass` is empty.
void AppendRow(std::string& page, std::span<const Cell> cells, std::string_view rowClass);

/// One row with column widths such as "14%", one for each cell. The first row of a table sets the widths of all.
void AppendSizedRow(std::string& page, std::span<const Cell> cells, std::span<const std::string_view> widths,
                    std::string_view rowClass);

/// The opening tag of a table; without a width attribute if `width` (pixels) is not above 0.
void AppendTableTag(std::string& page, std::string_view id, int width);

inline constexpr std::string_view kTableEnd = "</table>\r\n";

/// Tabs to blanks up to the next multiple of 7 bytes, then every blank to a full-width space: a browser keeps these.
[[nodiscard]] std::string ExpandTabs(std::string_view text);

/// Whether an HTML reader may take the byte for markup. None of them is part of a character of two bytes.
[[nodiscard]] constexpr bool IsMarkup(char byte) {
    return byte == '<' || byte == '>' || byte == '&' || byte == '"' || byte == '\'';
}

/// `text` in a form that HTML shows as these very characters, between tags and in a quoted attribute. GBK or UTF-8.
[[nodiscard]] std::string EscapedText(std::string_view text);

/// Whole numbers between fixed words: Joined("top:", 10, "px").
void AppendPiece(std::string& text, std::string_view piece);
void AppendPiece(std::string& text, int number);

template <class... Pieces>
void Append(std::string& text, const Pieces&... pieces) {
    (AppendPiece(text, pieces), ...);
}

template <class... Pieces>
[[nodiscard]] std::string Joined(const Pieces&... pieces) {
    std::string text;
    Append(text, pieces...);
    return text;
}

}  // namespace tradebill
