// The date that a statement states of itself.
#pragma once

#include <string_view>

namespace tradebill {

/// The digits, dots and blanks behind the first `dateWord` of `text`, as they stand; empty if the word is missing or is
/// the very start of the text.
[[nodiscard]] std::string_view ScanDate(std::string_view text, std::string_view dateWord);

}  // namespace tradebill
