// GBK and UTF-8, for the few edges where the outside world speaks UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

/// Decodes GBK; each byte that belongs to no character becomes one U+FFFD.
[[nodiscard]] std::string GbkToUtf8(std::string_view text);

/// Encodes as GBK; nothing if `text` is no UTF-8 or has a character that GBK lacks.
[[nodiscard]] std::optional<std::string> Utf8ToGbk(std::string_view text);

}  // namespace tradebill
