#include "readers/gap_side.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "base/gbk.h"
#include "base/text.h"

namespace tradebill {
namespace {

/// Where `word` first stands in `text`, which holds it, looking at no byte of `text` twice: behind a mismatch it goes
/// on with the longest beginning of `word` that has just been seen.
std::size_t FindLong(std::string_view text, std::string_view word) {
    std::vector<std::size_t> border(word.size());  // of each beginning of `word`: how much of its end begins it too
    for (std::size_t i = 1, length = 0; i < word.size(); ++i) {
        while (length > 0 && word[i] != word[length]) length = border[length - 1];
        if (word[i] == word[length]) ++length;
        border[i] = length;
    }
    std::size_t length = 0;
    std::size_t i = 0;
    for (; length < word.size(); ++i) {
        while (length > 0 && text[i] != word[length]) length = border[length - 1];
        if (text[i] == word[length]) ++length;
    }
    return i - length;
}

/// A column is a few bytes long; that of a broken row may take half of the row, and a plain search would then take the
/// product of both lengths.
std::size_t FindColumn(std::string_view row, std::string_view column) {
    constexpr std::size_t kUsualColumn = 64;
    return column.size() <= kUsualColumn ? row.find(column) : FindLong(row, column);
}

}  // namespace

GapSide ClassifySideByGap(std::string_view row, std::span<const std::string_view> columns) {
    constexpr std::size_t kLeastColumns = 6;
    constexpr std::size_t kSellGap = 7;  // the sell lots stand one column width further right
    if (columns.size() < kLeastColumns) return GapSide::Undecided;
    // Both are looked for as texts: the same figures further left in the row count too.
    const std::string_view rest = row.substr(FindColumn(row, columns[3]) + columns[3].size());
    const std::string_view near = rest.substr(0, kSellGap - 1 + columns[4].size());
    return Contains(near, columns[4]) ? GapSide::Buy : GapSide::Sell;
}

GapSide ClassifySideByGap(std::string_view row, std::string_view delimiter) {
    if (Contains(row, "计"_gbk) || Contains(row, "共"_gbk)) return GapSide::Undecided;
    std::vector<std::string_view> columns;
    SplitText(row, delimiter, columns);
    return ClassifySideByGap(row, columns);
}

}  // namespace tradebill
