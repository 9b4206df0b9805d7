// A statement's text as rows.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tradebill {

/// The rows of a text, without the white space around them; rows of nothing else don't count. However short rows are,
/// they take next to no memory: those of one block at a time are kept, and found again when the next one is asked for.
/// Most statements are one block.
class CStatementRows {
public:
    /// REQUIRES: the text outlives the rows.
    explicit CStatementRows(std::string_view text);

    [[nodiscard]] std::size_t Count() const { return count_; }

    /// REQUIRES: `row` < Count().
    [[nodiscard]] std::string_view operator[](std::size_t row) const {
        if (row - firstKept_ >= kept_.size()) KeepBlock(row / kBlockRows);
        return kept_[row - firstKept_];
    }

    /// The last row that begins at or before `place`. REQUIRES: one does.
    [[nodiscard]] std::size_t RowAt(const char* place) const;

private:
    static constexpr std::size_t kBlockRows = 1024;

    void KeepBlock(std::size_t block) const;

    std::string_view text_;            ///< from the first row to the end of the last
    std::vector<const char*> blocks_;  ///< where the first row of each begins
    std::size_t count_ = 0;
    mutable std::vector<std::string_view> kept_;  ///< the rows of one block
    mutable std::size_t firstKept_ = 0;
};

}  // namespace tradebill
