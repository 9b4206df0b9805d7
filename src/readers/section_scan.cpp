#include "readers/section_scan.h"

#include <algorithm>

#include "base/text.h"

namespace tradebill {
namespace {

/// `row` less `offset`, not before the first row: a title row may be its own terminating row.
std::size_t RowBefore(std::size_t row, int offset) {
    return row - std::min(row, static_cast<std::size_t>(offset));
}

}  // namespace

CSectionScan::CSectionScan(std::string_view text, SearchFrom searchFrom) : searchFrom_(searchFrom) {
    constexpr std::size_t kUsualRowLength = 64;
    rows_.reserve(text.size() / kUsualRowLength);
    SplitText(text, "\n", rows_);
}

std::optional<std::size_t> CSectionScan::FindRow(std::size_t from, std::string_view word) const {
    for (std::size_t row = from; row < rows_.size(); ++row) {
        if (Contains(rows_[row], word)) return row;
    }
    return std::nullopt;
}

std::optional<CSectionScan::RowRange> CSectionScan::Find(const SectionLayout& layout) {
    const auto title = FindRow(searchFrom_ == SearchFrom::Cursor ? cursor_ : 0, layout.title);
    if (!title) {
        cursor_ = lastGoodEnd_;
        return std::nullopt;
    }
    const auto terminator = FindRow(*title + static_cast<std::size_t>(layout.terminatorOffset), layout.terminator);
    if (!terminator) {
        cursor_ = *title;
        return std::nullopt;
    }
    cursor_ = lastGoodEnd_ = RowBefore(*terminator, layout.cursorOffset);
    return RowRange{*title + static_cast<std::size_t>(layout.firstRow), RowBefore(*terminator, layout.endOffset)};
}

bool CSectionScan::SplitRow(std::size_t row, const SectionLayout& layout) {
    return SplitText(rows_[row], layout.delimiter, columns_) >= layout.minColumns;
}

}  // namespace tradebill
