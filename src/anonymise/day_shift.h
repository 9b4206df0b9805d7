// Dates of a statement, moved by whole weeks.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

/// A date, "20240131", "2024-1-31", "2024/01/31", "2024.01.31" or with the Chinese words, at the start of a text.
/// Returns its bytes; 0 if there is none.
[[nodiscard]] std::size_t DateLengthAt(std::string_view text);

/// `date`, as DateLengthAt finds one, `weeks` later, in as many bytes. What doesn't fit or is no day of the calendar
/// afterwards becomes zeros.
[[nodiscard]] std::string ShiftedDate(std::string_view date, int weeks);

/// "yyyymmdd" `weeks` later; nothing if `day` is none.
[[nodiscard]] std::optional<std::string> ShiftedDay(std::string_view day, int weeks);

}  // namespace tradebill
