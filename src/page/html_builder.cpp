#include "page/html_builder.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "base/text.h"
#include "page/page_scan.h"
#include "page/page_text.h"
#include "platform/file.h"
#include "platform/paths.h"

namespace tradebill {
namespace {

constexpr std::string_view kHeadLines = "<head>\r\n<title> 交易及账单报告 </title>\r\n</head>\r\n"_gbk;

constexpr std::array<std::string_view, 10> kTagNames = {"", "h1", "h2", "h3", "h4", "h5", "h6", "div", "span", "p"};

std::string FontLine(std::string_view font) {
    const std::size_t blank = font.find(' ');
    const bool quoted = blank != std::string_view::npos && blank > 0;  // a blank at the very start quotes nothing
    return quoted ? Joined("font-family: '", font, "';\r\n") : Joined("font-family: ", font, ";\r\n");
}

std::string StyleBlock(const Style& style) {
    std::string block = "<style type='text/css'>\r\n";
    block += kTagNames[static_cast<std::size_t>(style.tag)];
    if (!style.className.empty()) Append(block, ".", style.className);
    block += "{\r\n";
    if (!style.font.empty()) block += FontLine(style.font);
    if (style.tag == StyleTag::Div) block += "padding-top: 1px;\r\n";
    if (style.marginBottom != -1) Append(block, "margin-bottom:", style.marginBottom, "px;\r\n");
    if (style.size > 0) Append(block, "font-size: ", style.size, "px;\r\n");
    if (style.bold) block += "font-weight:bold;\r\n";
    block += "line-height:100%;\r\n";
    if (!style.color.empty()) Append(block, "color: ", style.color, ";\r\n");
    if (!style.background.empty()) Append(block, "background-color: ", style.background, ";\r\n");
    block += "}\r\n</style>\r\n\r\n";
    return block;
}

/// Where the line with </head> begins; where the last line begins if there is none.
std::size_t HeadEndLine(std::string_view page) {
    std::size_t start = 0;
    std::string_view rest = page;
    while (!rest.empty()) {
        start = page.size() - rest.size();
        if (Contains(TakeLine(rest), kHeadEnd)) break;
    }
    return start;
}

/// Each line ended once.
std::string WithLineEnds(std::string_view text) {
    std::string result;
    while (!text.empty()) Append(result, TakePageLine(text), "\r\n");
    return result;
}

}  // namespace

CHtmlBuilder::CHtmlBuilder(std::string_view path) {
    const std::string page(path.substr(0, kLongestPath));
    CFile file(page, FileMode::Create);
    if (!file.IsOpen()) {
        failed_ = true;
        return;
    }
    path_ = page;
    if (!file.Write(kHeadLines)) failed_ = true;
    size_ = kHeadLines.size();
}

void CHtmlBuilder::AddText(std::string_view text) {
    if (path_.empty()) return;
    CFile file(path_, FileMode::Append);
    if (!file.IsOpen() || !file.Write(text)) {
        failed_ = true;
        return;
    }
    size_ += text.size();
    added_.Feed(text);
}

void CHtmlBuilder::AddStyle(const Style& style) {
    if (path_.empty()) return;
    CFile file(path_, FileMode::Update);
    const auto page = file.IsOpen() ? file.ReadAll() : std::nullopt;
    if (!page) {
        failed_ = true;
        return;
    }
    const std::size_t at = HeadEndLine(*page);
    const std::string rest = WithLineEnds(std::string_view(*page).substr(at));
    if (!file.WriteAt(at, StyleBlock(style) + rest)) failed_ = true;
    size_ = file.Size();
    closedSize_ = 0;
}

void CHtmlBuilder::AddHeading(int level, std::string_view className, std::string_view text) {
    if (level < 1 || level > 6) {
        AddText("");
    } else if (className.empty()) {
        AddText(Joined("<h", level, ">", text, "</h", level, ">"));
    } else {
        AddText(Joined("<h", level, " class=", className, ">", text, "</h", level, ">"));
    }
}

void CHtmlBuilder::AddAnchor(std::string_view name) {
    AddText(Joined("<a name = ", name, "></a>\r\n"));
}

void CHtmlBuilder::AddRule(std::string_view style) {
    AddText(Joined("<HR style = ", style, " SIZE = 1>"));
}

void CHtmlBuilder::OpenTable(std::string_view id, int width) {
    std::string text;
    AppendTableTag(text, id, width);
    AddText(text);
}

void CHtmlBuilder::CloseTable() {
    AddText(kTableEnd);
}

void CHtmlBuilder::AddSizedRow(std::span<const Cell> cells, std::span<const std::string_view> widths,
                               std::string_view rowClass) {
    std::string text;
    AppendSizedRow(text, cells, widths, rowClass);
    AddText(text);
}

void CHtmlBuilder::AddRow(std::span<const Cell> cells, std::string_view rowClass) {
    std::string text;
    AppendRow(text, cells, rowClass);
    AddText(text);
}

void CHtmlBuilder::AddNote(std::string_view text) {
    AddText(Joined("<p class=\"reporteptext\">", ExpandTabs(text), "</p>\r\n"));
}

}  // namespace tradebill
