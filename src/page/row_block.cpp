#include "page/row_block.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "page/page_file.h"
#include "page/page_text.h"

namespace tradebill {
namespace {

constexpr std::string_view kRow = "<tr>\r\n";
constexpr std::string_view kClassedRow = "<tr class='";
constexpr std::string_view kClassedRowEnd = "'>\r\n";

char* Put(char* to, std::string_view piece) {
    std::memcpy(to, piece.data(), piece.size());
    return to + piece.size();
}

std::size_t SizeOfRowTag(std::string_view rowClass) {
    return rowClass.empty() ? kRow.size() : kClassedRow.size() + rowClass.size() + kClassedRowEnd.size();
}

char* PutRowTag(char* to, std::string_view rowClass) {
    if (rowClass.empty()) return Put(to, kRow);
    return Put(Put(Put(to, kClassedRow), rowClass), kClassedRowEnd);
}

/// What a closing would change begins with one of these.
bool IsPlain(std::string_view text) {
    bool found = false;
    for (const char byte : text) found |= byte == '<' || byte == '\n';
    return !found;
}

}  // namespace

void CRowBlock::AddRow(std::span<const OpenedCell> cells, std::string_view rowClass) {
    std::size_t size = SizeOfRowTag(rowClass) + cells.size() * kCellEnd.size() + kRowEnd.size();
    bool isPlain = true;
    for (const OpenedCell& cell : cells) {
        size += cell.opening.size() + cell.text.size();
        isPlain &= IsPlain(cell.text);
    }
    if (!isPlain) kind_ = TextKind::Any;
    char* to = PutRowTag(Room(size), rowClass);
    for (const OpenedCell& cell : cells) to = Put(Put(Put(to, cell.opening), cell.text), kCellEnd);
    Put(to, kRowEnd);
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

void CRowBlock::Clear() {
    size_ = 0;
    kind_ = TextKind::PlainLines;
}

/// Where the next `size` bytes go.
char* CRowBlock::Room(std::size_t size) {
    constexpr std::size_t kUsualBlock = std::size_t{64} * 1024;
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
