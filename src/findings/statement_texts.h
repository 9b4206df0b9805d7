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

/// A label that a text holds, and what stands behind its colon.
struct StatedLabel {
    std::string_view label;   ///< its words of Chinese, with what stands before them without a blank
    std::string_view behind;  ///< up to the end of the text
};

/// The label of the first account in `text` that can be compared: one with a digit, and without asterisks. Of several
/// labels the one that names accounts most surely.
[[nodiscard]] std::optional<StatedLabel> FindAccountLabel(std::string_view text);

/// The label of the first day in `text`. The day on which a statement was made isn't its day.
[[nodiscard]] std::optional<StatedLabel> FindDayLabel(std::string_view text);

/// The label of the day on which a statement was made, which is its day where it states no other.
[[nodiscard]] std::optional<StatedLabel> FindMakingDayLabel(std::string_view text);

/// What stands in `text` behind `label` and its colon, where the label begins a cell; nothing if it isn't there.
[[nodiscard]] std::optional<std::string_view> BehindLabelOf(std::string_view text, std::string_view label);

/// The account at the start of a text behind a label: letters, digits, "-", "_" and "*".
[[nodiscard]] std::string_view AccountAt(std::string_view behind);

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
