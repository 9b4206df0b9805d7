// Money sections of other currencies in a domestic statement, whose readers take the first alone.
#pragma once

#include <string_view>
#include <vector>

namespace tradebill {

/// The currency that the title row of a money section names, GBK; empty if it names none.
[[nodiscard]] std::string_view CurrencyOfTitle(std::string_view titleRow);

/// The title rows below `first` that hold `titleWord` and name another currency than `first` does, in their order and
/// each currency once. REQUIRES: `first` points into `text`. Views point into `text`.
[[nodiscard]] std::vector<std::string_view> TitlesOfOtherCurrencies(std::string_view text, std::string_view first,
                                                                    std::string_view titleWord);

}  // namespace tradebill
