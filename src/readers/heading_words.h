// The Chinese words of labels and headings, however these are spaced, punctuated and translated: "手 续 费 Commission".
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

/// A character of the Chinese script, not one of the rows of punctuation, digits and letters of full width.
[[nodiscard]] bool IsHanzi(std::string_view character);

/// The Chinese characters of `text`, GBK, without whatever stands between them.
[[nodiscard]] std::string HanziOf(std::string_view text);

}  // namespace tradebill
