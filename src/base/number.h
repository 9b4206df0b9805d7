// Numbers in statement fields and on the page: atof and atoi semantics without a locale, 32-bit arithmetic that wraps
// or stops at the ends of the range, the smallest amount that counts, and the "%.2f" of computed amounts.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/text.h"

namespace tradebill {

/// Leading white space, a sign and a plain decimal number, as far as they go; what follows is passed over. 0 if there
/// is no number. Hexadecimal forms, "inf" and "nan" are no numbers.
[[nodiscard]] double ParseAmount(std::string_view text);

/// Whether `text` is an amount and nothing else, so that ParseAmount passes over none of it: an optional sign, digits
/// with at most one point among or around them. White space may stand before it. "1,234.50" is none: it would be read
/// as 1.
[[nodiscard]] bool IsAmount(std::string_view text);

/// The whole number at the start of `text`, likewise; held at the end of the 32-bit range.
[[nodiscard]] std::int32_t ParseInteger(std::string_view text);

/// `text` if it is a whole number and nothing else.
[[nodiscard]] std::optional<std::int32_t> WholeNumber(std::string_view text);

/// The number in a record's field.
template <std::size_t N>
[[nodiscard]] double AmountIn(const char (&field)[N]) {
    return ParseAmount(FieldText(field));
}
template <std::size_t N>
[[nodiscard]] std::int32_t IntegerIn(const char (&field)[N]) {
    return ParseInteger(FieldText(field));
}

/// Sum and product that wrap at 32 bits, as lots and units do in the terminal.
[[nodiscard]] constexpr std::int32_t WrapAdd(std::int32_t left, std::int32_t right) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(left) + static_cast<std::uint32_t>(right));
}
[[nodiscard]] constexpr std::int32_t WrapSubtract(std::int32_t left, std::int32_t right) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(left) - static_cast<std::uint32_t>(right));
}
[[nodiscard]] constexpr std::int32_t WrapMultiply(std::int32_t left, std::int32_t right) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(left) * static_cast<std::uint32_t>(right));
}

/// `value` itself, or the nearer end of the 32-bit range.
[[nodiscard]] constexpr std::int32_t ClampToInt32(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX));
}
/// Cut towards zero. What lies beyond the range becomes its nearer end, what is no number 0.
[[nodiscard]] constexpr std::int32_t TruncateToInt32(double value) {
    if (!(value == value)) return 0;
    return static_cast<std::int32_t>(std::clamp<double>(value, INT32_MIN, INT32_MAX));
}

/// Single-precision epsilon: the smallest amount that counts. What lies under it, either way, is shown as nothing.
inline constexpr double kSmallestAmount = 1.1920928955078125e-07;

/// A number written out, in place.
class CNumberText {
public:
    explicit CNumberText(double amount);       ///< "%.2f"; infinities and NaN as "inf", "-inf", "nan", "-nan"
    explicit CNumberText(std::int32_t count);  ///< "%d"

    [[nodiscard]] static CNumberText SixDecimals(double amount);  ///< "%f"
    /// "%.Nf"; N is held to 0 to 9.
    [[nodiscard]] static CNumberText Fixed(double amount, int decimals);

    [[nodiscard]] std::string_view View() const { return {chars_.data(), size_}; }
    operator std::string_view() const& { return View(); }
    operator std::string_view() const&& = delete;  // the view would outlive its text

private:
    CNumberText(double amount, int decimals);

    static constexpr std::size_t kLongest = 320;  ///< sign, 309 digits, point and nine more
    std::array<char, kLongest> chars_;            // only size_ of them are ever set
    std::size_t size_ = 0;
};

}  // namespace tradebill
