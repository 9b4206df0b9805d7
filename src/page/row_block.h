// Rows of a table, put together in one block of memory: a row is sized once, and each of its pieces copied once.
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "page/page_file.h"

namespace tradebill {

/// A cell, with the text that opens it (CellOpening).
struct OpenedCell {
    std::string_view text;
    std::string_view opening;
};

class CRowBlock {
public:
    /// `notesMarkup`: whether rows are looked through for what Escaped() needs.
    explicit CRowBlock(bool notesMarkup = false) : notesMarkup_(notesMarkup) {}

    /// Adds one row without column widths. No class attribute if `rowClass` is empty.
    void AddRow(std::span<const OpenedCell> cells, std::string_view rowClass);
    /// The same of cells that are written out and known to be plain.
    void AddRow(std::string_view plainCells, std::string_view rowClass);
    /// Adds whole lines of fixed words.
    void AddLines(std::string_view plainLines);

    [[nodiscard]] std::string_view View() const { return {bytes_.get(), size_}; }
    /// Whether a cell has a text in which a closing of the page may find something to change.
    [[nodiscard]] TextKind Kind() const { return kind_; }

    /// Whether the text of a cell holds what HTML would take for markup.
    ///
    /// REQUIRES: the block notes markup.
    [[nodiscard]] bool HasMarkup() const { return !markup_.empty(); }
    /// The rows with the texts of their cells escaped: HTML shows each as it stands.
    ///
    /// REQUIRES: the block notes markup.
    [[nodiscard]] std::string Escaped() const;

    void Clear();

private:
    struct TextPlace {
        std::size_t begin;
        std::size_t size;
    };

    [[nodiscard]] char* Room(std::size_t size);
    void NoteMarkup(std::span<const OpenedCell> cells, std::size_t at);

    std::unique_ptr<char[]> bytes_;
    std::size_t room_ = 0;
    std::size_t size_ = 0;
    TextKind kind_ = TextKind::PlainLines;
    bool notesMarkup_;
    std::vector<TextPlace> markup_;  // the cells' texts that hold some
};

}  // namespace tradebill
