// Cells in text that has no columns: dates, amounts and long numbers between words.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "anonymise/statement_sheet.h"

namespace tradebill {

/// Whether a number is a count of lots or rows, by the word behind it.
[[nodiscard]] bool IsCounted(std::string_view behind);

/// Adds the cells of `part`, which begins at `at` of the statement. Parts of words, as a contract's, and times stay.
void AddLooseCells(std::string_view part, std::size_t at, std::vector<SheetCell>& cells);

}  // namespace tradebill
