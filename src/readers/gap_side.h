// Buy and sell lots printed in two adjacent columns of which only one is filled: the gap before them tells which.
#pragma once

#include <span>
#include <string_view>

namespace tradebill {

enum class GapSide { Undecided = 0, Buy = 1, Sell = 2 };

/// The side of a row: a buy if its fifth column starts within 7 bytes of the end of its fourth, otherwise a sell.
/// Undecided for rows of fewer than 6 columns, and for subtotals and counts.
[[nodiscard]] GapSide ClassifySideByGap(std::string_view row, std::string_view delimiter);

/// The same of a row that is split already.
///
/// REQUIRES: it is neither subtotal nor count, and `columns` point into it.
[[nodiscard]] GapSide ClassifySideByGap(std::string_view row, std::span<const std::string_view> columns);

}  // namespace tradebill
