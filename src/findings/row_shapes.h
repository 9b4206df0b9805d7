// What a row of a section is when no reader has made a record of it: a rule, a heading, a total, or a row that is lost.
#pragma once

#include <cstddef>
#include <string_view>

namespace tradebill {

/// No digit in it.
[[nodiscard]] bool IsHeadingRow(std::string_view row);

/// A row of totals, subtotals or counts.
[[nodiscard]] bool IsTotalRow(std::string_view row);

/// Columns of `row` as a reader of the section cuts it.
[[nodiscard]] std::size_t CountColumns(std::string_view row, std::string_view delimiter, bool stripsBars);

/// Columns of the heading among `rows`, which stand above the first row of data: the last one that is neither rule nor
/// data. 0 if there is none.
[[nodiscard]] std::size_t HeadingColumns(std::string_view rows, std::string_view delimiter, bool stripsBars);

}  // namespace tradebill
