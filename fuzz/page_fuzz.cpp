// Any operations of the page with any texts. A gathered page is in the end, and whenever it is settled, what one is
// that is written operation by operation; rows that are told to be plain are.
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz_target.h"
#include "page/html_builder.h"
#include "page/page_file.h"
#include "page/page_scan.h"
#include "page/page_text.h"
#include "page/row_block.h"

namespace tradebill {
namespace {

constexpr int kMostOperations = 24;

/// The two pages.
class CTwinPages {
public:
    CTwinPages() : told_(FuzzFolder() + "/told.html"), gathered_(FuzzFolder() + "/gathered.html") {
        gathering_.emplace(gathered_);
    }

    template <class Operation>
    void Both(Operation operation) {
        operation(told_);
        operation(gathered_);
    }

    void AddRows(const CRowBlock& rows) {
        told_.AddText(rows.View());
        gathered_.AddRows(rows);
    }

    void Settle() {
        gathered_.Settle();
        RequireSame();
    }

    void Finish() {
        Both([](CHtmlBuilder& page) { page.ClosePage(); });
        gathering_.reset();
        RequireSame();
        Require(!told_.HasFailed() && !gathered_.HasFailed(), "nothing failed");
    }

private:
    static void RequireSame() {
        Require(BytesOfFile(FuzzFolder() + "/told.html") == BytesOfFile(FuzzFolder() + "/gathered.html"),
                "a gathered page is the one that is written operation by operation");
    }

    CHtmlBuilder told_;
    CHtmlBuilder gathered_;
    std::optional<CPageGathering> gathering_;
};

/// One row, put together in both ways.
CRowBlock RowsOf(CFuzzInput& input) {
    const std::string_view rowClass = input.Choice(2) == 1 ? "band" : "";
    std::array<Cell, 3> cells;
    for (Cell& cell : cells) cell = {input.Text(), "c"};
    const std::string opening = CellOpening("c");
    CRowBlock rows;
    std::array<OpenedCell, cells.size()> opened;
    for (std::size_t i = 0; i < cells.size(); ++i) opened[i] = {cells[i].text, opening};
    rows.AddRow(opened, rowClass);
    std::string text;
    AppendRow(text, cells, rowClass);
    Require(rows.View() == text, "a row of a block is a row");
    for (const Cell& cell : cells) {
        Require(text.find(opening + std::string(cell.text) + std::string(kCellEnd)) != std::string::npos,
                "a cell's text stands between its tags");
    }
    CPageScan scan;
    scan.Feed(rows.View());
    Require(rows.Kind() == TextKind::Any || scan.IsPlain(), "rows that are told to be plain are");
    return rows;
}

void AddSizedRow(CTwinPages& pages, CFuzzInput& input) {
    const std::array<Cell, 2> cells = {{{input.Text(), "a"}, {input.Text(), "b"}}};
    const std::array<std::string_view, cells.size()> widths = {"14%", "9%"};
    pages.Both([&](CHtmlBuilder& page) { page.AddSizedRow(cells, widths, ""); });
}

void AddStyle(CTwinPages& pages, CFuzzInput& input) {
    const auto tag = static_cast<StyleTag>(input.Choice(10));
    const Style style{.tag = tag,
                      .className = input.Text(),
                      .font = input.Text(),
                      .size = static_cast<int>(input.Byte()) - 1,
                      .bold = true,
                      .color = input.Text()};
    pages.Both([&](CHtmlBuilder& page) { page.AddStyle(style); });
}

void AddText(CTwinPages& pages, std::string_view text) {
    pages.Both([&](CHtmlBuilder& page) { page.AddText(text); });
}

void AddHeading(CTwinPages& pages, CFuzzInput& input) {
    const auto level = static_cast<int>(input.Choice(9));
    const std::string_view text = input.Text();
    pages.Both([&](CHtmlBuilder& page) { page.AddHeading(level, "", text); });
}

void AddNote(CTwinPages& pages, std::string_view text) {
    pages.Both([&](CHtmlBuilder& page) { page.AddNote(text); });
}

void AddTable(CTwinPages& pages, CFuzzInput& input) {
    const int width = input.Byte();
    pages.Both([&](CHtmlBuilder& page) {
        page.OpenTable("t", width);
        page.CloseTable();
    });
}

void Operate(CTwinPages& pages, CFuzzInput& input) {
    switch (input.Choice(9)) {
        case 0:
            return pages.Both([](CHtmlBuilder& page) { page.ClosePage(); });
        case 1:
            return pages.AddRows(RowsOf(input));
        case 2:
            return AddText(pages, input.Text());
        case 3:
            return AddStyle(pages, input);
        case 4:
            return AddSizedRow(pages, input);
        case 5:
            return AddHeading(pages, input);
        case 6:
            return AddNote(pages, input.Text());
        case 7:
            return AddTable(pages, input);
        default:
            return pages.Settle();
    }
}

}  // namespace

void FuzzPage(std::string_view bytes) {
    CFuzzInput input(bytes);
    CTwinPages pages;
    for (int i = 0; i < kMostOperations && !input.IsEmpty(); ++i) Operate(pages, input);
    pages.Finish();
}

}  // namespace tradebill
