// What the text of a statement tells of itself, whatever its layout: its encoding, whose it is and of which day.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

/// What is wrong with a text's encoding.
struct EncodingFault {
    std::string what;             ///< in English
    bool isUnreadable = false;    ///< no reader can find its words in it
    std::optional<int> row = {};  ///< of the first such byte
};

/// Nothing for GBK text. `bytes` are all of the file.
[[nodiscard]] std::optional<EncodingFault> FindEncodingFault(std::string_view bytes);

/// The account that the head of `text` states; nothing if it states none that can be compared.
[[nodiscard]] std::optional<std::string> PrintedAccount(std::string_view text);

/// The day that the head of `text` states, yyyymmdd; nothing if it states none. The day on which a statement was made
/// isn't its day.
[[nodiscard]] std::optional<std::string> PrintedDay(std::string_view text);

/// The digits of a date as statements spell it (2024-01-05, 2024.1.5, 20240105) as yyyymmdd, or what there is of them.
[[nodiscard]] std::string PackedDate(std::string_view text);

/// The same for the same bytes, and as good as never for others.
[[nodiscard]] std::uint64_t HashOf(std::string_view bytes);

}  // namespace tradebill
