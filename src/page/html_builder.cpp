#include "page/html_builder.h"

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "page/page_file.h"
#include "page/page_form.h"
#include "page/page_sink.h"
#include "page/page_text.h"
#include "page/row_block.h"

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

std::string AsItStands(std::string_view text) {
    return std::string(text);
}

/// Cells with their texts written down in some way.
class CWrittenCells {
public:
    CWrittenCells(std::span<const Cell> cells, std::string (*write)(std::string_view text)) {
        texts_.reserve(cells.size());  // so that no text moves
        for (const Cell& cell : cells) cells_.push_back({texts_.emplace_back(write(cell.text)), cell.className});
    }
    CWrittenCells(const CWrittenCells&) = delete;
    CWrittenCells& operator=(const CWrittenCells&) = delete;

    [[nodiscard]] std::span<const Cell> View() const { return cells_; }

private:
    std::vector<std::string> texts_;
    std::vector<Cell> cells_;
};

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

void CHtmlBuilder::AddByForm(const std::function<std::string(const CPageForm& form)>& text) {
    file_.Append(text(CPageForm()));
    if (copy_ != nullptr) copy_->AddText(text(copy_->Form()));
}

void CHtmlBuilder::AddRows(const CRowBlock& rows) {
    file_.Append(rows.View(), rows.Kind());
    if (copy_ == nullptr) return;
    if (rows.HasMarkup()) {
        copy_->AddText(rows.Escaped());
    } else {
        copy_->AddText(rows.View());
    }
}

void CHtmlBuilder::BeginRows(const PageRows& table) {
    if (copy_ != nullptr) copy_->BeginRows(table);
}

void CHtmlBuilder::BeginDay(std::string_view day) {
    if (copy_ != nullptr) copy_->BeginDay(day);
}

void CHtmlBuilder::EndRows() {
    if (copy_ != nullptr) copy_->EndRows();
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
        return;
    }
    const std::string start =
        className.empty() ? Joined("<h", level, ">") : Joined("<h", level, " class=", className, ">");
    AddBoth([&](auto write) { return Joined(start, write(text), "</h", level, ">"); });
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
    AddBoth([&](auto write) {
        std::string text;
        AppendSizedRow(text, CWrittenCells(cells, write).View(), widths, rowClass);
        return text;
    });
}

void CHtmlBuilder::AddRow(std::span<const Cell> cells, std::string_view rowClass) {
    AddBoth([&](auto write) {
        std::string text;
        AppendRow(text, CWrittenCells(cells, write).View(), rowClass);
        return text;
    });
}

void CHtmlBuilder::AddNote(std::string_view text) {
    AddBoth([text](auto write) { return Joined("<p class=\"reporteptext\">", write(ExpandTabs(text)), "</p>\r\n"); });
}

void CHtmlBuilder::AddBoth(const std::function<std::string(std::string (*write)(std::string_view text))>& made) {
    file_.Append(made(&AsItStands));
    if (copy_ != nullptr) copy_->AddText(made(&EscapedText));
}

}  // namespace tradebill
