#include "readers/statement_rows.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "base/text.h"

namespace tradebill {
namespace {

/// REQUIRES: `rest` isn't empty and has no white space at its ends. So it is afterwards.
std::string_view TakeRow(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    if (end == std::string_view::npos) return std::exchange(rest, {});
    const std::string_view row = TrimRight(rest.substr(0, end));
    rest = TrimLeft(rest.substr(end + 1));
    return row;
}

}  // namespace

CStatementRows::CStatementRows(std::string_view text) : text_(Trim(text)) {
    constexpr std::size_t kUsualRowLength = 64;
    kept_.reserve(std::min(text_.size() / kUsualRowLength + 1, kBlockRows));
    for (std::string_view rest = text_; !rest.empty(); ++count_) {
        if (count_ % kBlockRows == 0) {
            blocks_.push_back(rest.data());
            firstKept_ = count_;
            kept_.clear();
        }
        kept_.push_back(TakeRow(rest));
    }
}

void CStatementRows::KeepBlock(std::size_t block) const {
    firstKept_ = block * kBlockRows;
    kept_.clear();
    std::string_view rest = text_.substr(static_cast<std::size_t>(blocks_[block] - text_.data()));
    for (std::size_t row = firstKept_; row < std::min(count_, firstKept_ + kBlockRows); ++row) {
        kept_.push_back(TakeRow(rest));
    }
}

std::size_t CStatementRows::RowAt(const char* place) const {
    const auto block = static_cast<std::size_t>(std::ranges::upper_bound(blocks_, place) - blocks_.begin()) - 1;
    if (firstKept_ != block * kBlockRows) KeepBlock(block);
    const auto behind = std::ranges::upper_bound(kept_, place, {}, [](std::string_view row) { return row.data(); });
    return firstKept_ + static_cast<std::size_t>(behind - kept_.begin()) - 1;
}

}  // namespace tradebill
