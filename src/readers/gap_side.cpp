#include "readers/gap_side.h"

#include <vector>

#include "base/gbk.h"
#include "base/text.h"

namespace tradebill {

GapSide ClassifySideByGap(std::string_view row, std::string_view delimiter) {
    constexpr std::size_t kLeastColumns = 6;
    constexpr std::size_t kSellGap = 7;  // the sell lots stand one column width further right
    if (Contains(row, "计"_gbk) || Contains(row, "共"_gbk)) return GapSide::Undecided;
    std::vector<std::string_view> columns;
    if (SplitText(row, delimiter, columns) < kLeastColumns) return GapSide::Undecided;
    // Both are looked for as texts: the same figures further left in the row count too.
    const std::string_view rest = row.substr(row.find(columns[3]) + columns[3].size());
    return rest.find(columns[4]) < kSellGap ? GapSide::Buy : GapSide::Sell;
}

}  // namespace tradebill
