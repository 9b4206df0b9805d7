#include "page/row_block.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "base/word_bytes.h"
#include "page/page_file.h"
#include "page/page_text.h"

namespace tradebill {
namespace {

constexpr std::string_view kRow = "<tr>\r\n";
constexpr std::string_view kClassedRow = "<tr class='";
constexpr std::string_view kClassedRowEnd = "'>\r\n";

char* Put(char* to, std::string_view piece) {
    if (!piece.empty()) std::memcpy(to, piece.data(), piece.size());  // an empty one may be no text at all
    return to + piece.size();
}

std::size_t SizeOfRowTag(std::string_view rowClass) {
    return rowClass.empty() ? kRow.size() : kClassedRow.size() + rowClass.size() + kClassedRowEnd.size();
}

char* PutRowTag(char* to, std::string_view rowClass) {
    if (rowClass.empty()) return Put(to, kRow);
    return Put(Put(Put(to, kClassedRow), rowClass), kClassedRowEnd);
}

}  // namespace

void CRowBlock::AddRow(std::span<const OpenedCell> cells, std::string_view rowClass) {
    std::size_t size = SizeOfRowTag(rowClass) + cells.size() * kCellEnd.size() + kRowEnd.size();
    for (const OpenedCell& cell : cells) size += cell.opening.size() + cell.text.size();
    char* to = PutRowTag(Room(size), rowClass);
    std::uint64_t suspects = 0;  // bytes with which begins what a closing would change
    const auto look = [&suspects](std::uint64_t word) { suspects |= EqualBytes(word, '<') | EqualBytes(word, '\n'); };
    for (const OpenedCell& cell : cells) {
        to = Put(to, cell.opening);
        CopyWords(to, cell.text, look);
        to = Put(to + cell.text.size(), kCellEnd);
    }
    if (suspects != 0) kind_ = TextKind::Any;
    Put(to, kRowEnd);
    if (notesMarkup_) NoteMarkup(cells, size_ + SizeOfRowTag(rowClass));
    size_ += size;
}

void CRowBlock::AddRow(std::string_view plainCells, std::string_view rowClass) {
    const std::size_t size = SizeOfRowTag(rowClass) + plainCells.size() + kRowEnd.size();
    Put(Put(PutRowTag(Room(size), rowClass), plainCells), kRowEnd);
    size_ += size;
}

void CRowBlock::AddLines(std::string_view plainLines) {
    Put(Room(plainLines.size()), plainLines);
    size_ += plainLines.size();
}

std::string CRowBlock::Escaped() const {
    std::string escaped;
    std::size_t at = 0;
    for (const TextPlace& text : markup_) {
        escaped += View().substr(at, text.begin - at);
        escaped += EscapedText(View().substr(text.begin, text.size));
        at = text.begin + text.size;
    }
    escaped += View().substr(at);
    return escaped;
}

void CRowBlock::Clear() {
    size_ = 0;
    kind_ = TextKind::PlainLines;
    markup_.clear();
}

/// `at` is where the cells of the row begin.
void CRowBlock::NoteMarkup(std::span<const OpenedCell> cells, std::size_t at) {
    for (const OpenedCell& cell : cells) {
        at += cell.opening.size();
        if (std::ranges::any_of(cell.text, IsMarkup)) markup_.push_back({at, cell.text.size()});
        at += cell.text.size() + kCellEnd.size();
    }
}

/// Where the next `size` bytes go.
char* CRowBlock::Room(std::size_t size) {
    constexpr std::size_t kUsualBlock = std::size_t{256} * 1024;
    if (size_ + size > room_) {
        const std::size_t room = std::max({kUsualBlock, room_ * 2, size_ + size});
        auto bytes = std::make_unique_for_overwrite<char[]>(room);
        Put(bytes.get(), View());
        bytes_ = std::move(bytes);
        room_ = room;
    }
    return bytes_.get() + size_;
}

}  // namespace tradebill
