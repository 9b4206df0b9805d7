// A statement cut into cells by hand: what the amounts of its rows become is worked out of these alone.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/cell_meaning.h"
#include "anonymise/sheet_watch.h"
#include "anonymise/statement_sheet.h"
#include "readers/scan_listener.h"
#include "support/gbk_text.h"

namespace tradebill {

struct HandCell {
    std::string_view text;  ///< UTF-8
    Meaning meaning = Meaning::Unknown;
    std::string_view field = {};
};

struct HandRow {
    std::vector<HandCell> cells;
    SheetRow form = {};
};

/// Cells of a row stand two blanks apart; the place of a cell is its number in the row.
class CHandSheet {
public:
    explicit CHandSheet(const std::vector<HandRow>& rows) {
        for (const HandRow& row : rows) {
            SheetRow made = row.form;
            made.firstCell = sheet_.cells.size();
            made.cells = row.cells.size();
            for (std::size_t i = 0; i < row.cells.size(); ++i) Add(row.cells[i], i);
            text_ += "\n";
            sheet_.rows.push_back(made);
        }
        sheet_.text = text_;
    }
    CHandSheet(const CHandSheet&) = delete;
    CHandSheet& operator=(const CHandSheet&) = delete;

    [[nodiscard]] StatementSheet& Sheet() { return sheet_; }
    [[nodiscard]] SheetCell& Cell(std::size_t row, std::size_t cell) {
        return sheet_.cells[sheet_.rows[row].firstCell + cell];
    }
    /// What a cell becomes, as a decimal text.
    [[nodiscard]] std::string Becomes(std::size_t row, std::size_t cell) {
        const SheetCell& one = Cell(row, cell);
        return PrintedText(one.Now(), *one.number);
    }

private:
    void Add(const HandCell& cell, std::size_t place) {
        const std::string text = Gbk(cell.text);
        sheet_.cells.push_back({.at = text_.size(),
                                .size = text.size(),
                                .meaning = cell.meaning,
                                .field = cell.field,
                                .place = place,
                                .number = ParsePrinted(text)});
        text_ += text + "  ";
    }

    std::string text_;
    StatementSheet sheet_;
};

/// A section as its reader tells of it: the rows of its title and its end, where they are found, and the title's word.
constexpr SectionSeen SectionAs(SectionKind kind, std::string_view title = {}, std::string_view end = {},
                                std::string_view titleWord = {}) {
    return {.kind = kind,
            .titleWord = titleWord,
            .terminatorWord = {},
            .otherTerminatorWord = {},
            .titleRow = title,
            .terminatorRow = end};
}

/// A row of a section of tables, as its reader told of it.
constexpr WatchedRow WatchedAs(SectionKind kind, RowFate fate = RowFate::Read) {
    return {.at = 0, .kind = kind, .fate = fate};
}

}  // namespace tradebill
