// UTF-16, as texts are saved by editors that call it "Unicode".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

enum class ByteOrder { LittleEndian, BigEndian };

/// Which byte order `bytes`, without a mark, speak for: blanks, digits and line ends have a zero in one half of each
/// unit. Nothing if they don't look like UTF-16 at all.
[[nodiscard]] std::optional<ByteOrder> GuessUtf16(std::string_view bytes);

/// As UTF-8; nothing if a unit is cut, or half of a pair stands alone.
[[nodiscard]] std::optional<std::string> Utf16ToUtf8(std::string_view bytes, ByteOrder order);

}  // namespace tradebill
