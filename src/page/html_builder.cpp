#include "page/html_builder.h"

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "page/page_file.h"
#include "page/page_sink.h"
#include "page/page_text.h"

namespace tradebill {
namespace {

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

}  // namespace

CHtmlBuilder::CHtmlBuilder(std::string_view path, CPageSink* copy) : file_(path), copy_(copy) {}

CHtmlBuilder::CHtmlBuilder(const WholePath& path, CPageSink* copy, std::function<void()> show)
    : file_(path), copy_(copy), show_(std::move(show)) {}

void CHtmlBuilder::Show() {
    Settle();
    if (show_) show_();
}

void CHtmlBuilder::AddText(std::string_view text) {
    file_.Append(text);
    if (copy_ != nullptr) copy_->AddText(text);
}

void CHtmlBuilder::AddPictured(const std::function<std::string(const CPictureLinks& links)>& text) {
    file_.Append(text(CPictureLinks()));
    if (copy_ != nullptr) copy_->AddText(text(copy_->Links()));
}

void CHtmlBuilder::AddRows(std::string_view rows, TextKind kind) {
    file_.Append(rows, kind);
    if (copy_ != nullptr) copy_->AddText(rows);
}

void CHtmlBuilder::AddStyle(const Style& style) {
    const std::string block = StyleBlock(style);
    file_.InsertInHead(block);
    if (copy_ != nullptr) copy_->AddStyle(block);
}

void CHtmlBuilder::ClosePage() {
    file_.Close();
    if (copy_ != nullptr) copy_->ClosePage();
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
