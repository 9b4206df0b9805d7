#include "page/page_text.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "base/number.h"

namespace tradebill {
namespace {

void AppendRowTag(std::string& page, std::string_view rowClass) {
    if (rowClass.empty()) {
        page += "<tr>\r\n";
    } else {
        Append(page, "<tr class='", rowClass, "'>\r\n");
    }
}

std::string_view Reference(char byte) {
    switch (byte) {
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        default:
            return "&amp;";
    }
}

}  // namespace

void AppendPiece(std::string& text, std::string_view piece) {
    text += piece;
}

void AppendPiece(std::string& text, int number) {
    text += CNumberText(number).View();
}

std::string CellOpening(std::string_view className) {
    return Joined("<td style=\"padding:5px 0px; overflow:hidden; white-space:nowrap;\"><span class='", className, "'>");
}

void AppendRow(std::string& page, std::span<const Cell> cells, std::string_view rowClass) {
    AppendRowTag(page, rowClass);
    for (const Cell& cell : cells) Append(page, CellOpening(cell.className), cell.text, kCellEnd);
    page += kRowEnd;
}

void AppendSizedRow(std::string& page, std::span<const Cell> cells, std::span<const std::string_view> widths,
                    std::string_view rowClass) {
    AppendRowTag(page, rowClass);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        Append(page, "<td style=\"padding:5px 0px; \" width=\"", widths[i], "\"><span class='", cells[i].className,
               "'>", cells[i].text, kCellEnd);
    }
    page += kRowEnd;
}

void AppendTableTag(std::string& page, std::string_view id, int width) {
    page += "<table ";
    if (width > 0) Append(page, "width = \"", width, "\" ");
    Append(page, "style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" id= \"", id, "\">\r\n");
}

std::string EscapedText(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char byte : text) {
        if (IsMarkup(byte)) {
            escaped += Reference(byte);
        } else {
            escaped += byte;
        }
    }
    return escaped;
}

std::string ExpandTabs(std::string_view text) {
    constexpr std::size_t kTabStop = 7;
    std::string expanded;
    for (const char byte : text) {
        if (byte == '\t') {
            expanded.append(kTabStop - expanded.size() % kTabStop, ' ');
        } else {
            expanded += byte;
        }
    }
    std::string result;
    for (const char byte : expanded) {
        if (byte == ' ') {
            result += "　"_gbk;
        } else {
            result += byte;
        }
    }
    return result;
}

}  // namespace tradebill
