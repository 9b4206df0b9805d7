#include "findings/row_shapes.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "base/gbk.h"
#include "base/text.h"
#include "readers/section_scan.h"

namespace tradebill {
bool IsHeadingRow(std::string_view row) {
    return std::ranges::none_of(row, IsDigit);
}

bool IsTotalRow(std::string_view row) {
    constexpr std::string_view kWords[] = {"合计"_gbk, "小计"_gbk, "总计"_gbk, "共计"_gbk, "Subtotal", "Total"};
    row = TrimLeft(TrimByte(TrimLeft(row), '|'));
    return row.starts_with("共"_gbk) ||
           std::ranges::any_of(kWords, [&](std::string_view word) { return row.starts_with(word); });
}

std::size_t CountColumns(std::string_view row, std::string_view delimiter, bool stripsBars) {
    std::vector<std::string_view> columns;
    return SplitText(stripsBars ? TrimByte(Trim(row), '|') : Trim(row), delimiter, columns);
}

std::size_t HeadingColumns(std::string_view rows, std::string_view delimiter, bool stripsBars) {
    std::string_view heading;
    while (!rows.empty()) {
        const std::string_view row = Trim(TakeLine(rows));
        if (!row.empty() && !IsRule(row) && IsHeadingRow(row)) heading = row;
    }
    return heading.empty() ? 0 : CountColumns(heading, delimiter, stripsBars);
}

}  // namespace tradebill
