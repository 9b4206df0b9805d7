// The date that a statement states of itself.
#pragma once

#include <optional>
#include <string_view>

namespace tradebill {

/// The digits, dots and blanks behind the first `dateWord` of `text`, as they stand; nothing if the word is missing or
/// is the very start of the text.
[[nodiscard]] std::optional<std::string_view> FindDate(std::string_view text, std::string_view dateWord);

/// The same, the empty text for nothing.
[[nodiscard]] std::string_view ScanDate(std::string_view text, std::string_view dateWord);

}  // namespace tradebill
