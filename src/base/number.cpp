#include "base/number.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>

#include "base/text.h"

namespace tradebill {
namespace {

struct SignedText {
    bool negative;
    std::string_view digits;
};

/// Takes white space and one sign off the front.
SignedText TakeSign(std::string_view text) {
    text = TrimLeft(text);
    if (text.empty()) return {false, text};
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') text.remove_prefix(1);
    return {negative, text};
}

/// from_chars would also take "inf" and "nan", and a second minus sign.
bool OpensNumber(std::string_view text) {
    if (text.empty()) return false;
    if (IsDigit(text.front())) return true;
    return text.front() == '.' && text.size() > 1 && IsDigit(text[1]);
}

/// Whether a number too large or too small for a double is the large kind. `text` is what from_chars took.
bool IsHuge(std::string_view text) {
    const std::size_t exponentAt = std::min(text.find_first_of("eE"), text.size());
    const std::string_view mantissa = text.substr(0, exponentAt);
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto firstDigit = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    const std::string_view exponent = exponentAt < text.size() ? text.substr(exponentAt + 1) : std::string_view{};
    return ParseInteger(exponent) + point - firstDigit > 0;
}

/// A plain decimal of so few digits that they and the power of ten are exact as doubles: their quotient is then rounded
/// once, as from_chars rounds. Nothing for any other text.
std::optional<double> ParseShortDecimal(std::string_view text) {
    constexpr std::size_t kMostDigits = 15;
    constexpr double kPowers[kMostDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    std::int64_t value = 0;
    std::size_t digits = 0;
    std::size_t decimals = 0;
    bool isBehindPoint = false;
    for (const char byte : text) {
        if (IsDigit(byte)) {
            if (++digits > kMostDigits) return std::nullopt;
            value = value * 10 + (byte - '0');
            decimals += isBehindPoint ? 1 : 0;
        } else if (byte == '.' && !isBehindPoint) {
            isBehindPoint = true;
        } else if (byte == 'e' || byte == 'E') {
            return std::nullopt;
        } else {
            break;
        }
    }
    return static_cast<double>(value) / kPowers[decimals];
}

}  // namespace

double ParseAmount(std::string_view text) {
    const auto [negative, digits] = TakeSign(text);
    if (!OpensNumber(digits)) return 0.0;
    if (const auto amount = ParseShortDecimal(digits)) return negative ? -*amount : *amount;
    double value = 0.0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc::result_out_of_range) {
        const auto length = static_cast<std::size_t>(end - digits.data());
        value = IsHuge(digits.substr(0, length)) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return negative ? -value : value;
}

bool IsAmount(std::string_view text) {
    const std::string_view digits = TakeSign(text).digits;
    const auto isOfAmount = [](char byte) { return IsDigit(byte) || byte == '.'; };
    return OpensNumber(digits) && std::ranges::all_of(digits, isOfAmount) && std::ranges::count(digits, '.') <= 1;
}

std::int32_t ParseInteger(std::string_view text) {
    const auto [negative, digits] = TakeSign(text);
    constexpr std::int64_t kLimit = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    std::int64_t value = 0;
    for (const char digit : digits) {
        if (!IsDigit(digit)) break;
        value = std::min(value * 10 + (digit - '0'), kLimit);
    }
    return static_cast<std::int32_t>(negative ? -value : std::min(value, kLimit - 1));
}

std::optional<std::int32_t> WholeNumber(std::string_view text) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

CNumberText::CNumberText(double amount, int decimals) {
    const auto result =
        std::to_chars(chars_.data(), chars_.data() + chars_.size(), amount, std::chars_format::fixed, decimals);
    size_ = static_cast<std::size_t>(result.ptr - chars_.data());
}

CNumberText::CNumberText(double amount) : CNumberText(amount, 2) {}

CNumberText CNumberText::SixDecimals(double amount) {
    return {amount, 6};
}

CNumberText CNumberText::Fixed(double amount, int decimals) {
    return {amount, std::clamp(decimals, 0, 9)};
}

CNumberText::CNumberText(std::int32_t count) {
    const auto result = std::to_chars(chars_.data(), chars_.data() + chars_.size(), count);
    size_ = static_cast<std::size_t>(result.ptr - chars_.data());
}

}  // namespace tradebill
