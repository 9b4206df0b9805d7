#include "base/decimal.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"

namespace tradebill {
namespace {

constexpr int kMostPlaces = 4;
constexpr int kMostWholeDigits = 13;

/// Adds the digits from `at` on to `number`, which wraps where they are too many. Returns where they end.
const char* TakeDigits(const char* at, const char* end, std::uint64_t& number) {
    for (; at != end && IsDigit(*at); ++at) number = number * 10 + static_cast<std::uint64_t>(*at - '0');
    return at;
}

}  // namespace

std::optional<Decimal> ParseDecimal(std::string_view text) {
    text = Trim(text);
    const char* at = text.data();
    const char* const end = at + text.size();
    const bool isNegative = at != end && *at == '-';
    if (isNegative || (at != end && *at == '+')) ++at;

    std::uint64_t steps = 0;
    const char* const whole = at;
    std::ptrdiff_t marks = 0;
    for (;; ++at, ++marks) {  // once, unless thousands are marked
        at = TakeDigits(at, end, steps);
        if (at == end || *at != ',' || at == whole) break;
    }
    const std::ptrdiff_t digits = at - whole - marks;
    std::ptrdiff_t places = 0;
    bool hasPlaces = false;
    if (at != end && *at == '.') {
        const char* const point = ++at;
        at = TakeDigits(at, std::min(end, point + kMostPlaces), steps);
        places = at - point;
        hasPlaces = places > 0;
        while (at != end && IsDigit(*at)) ++at;
    }
    if (at != end || digits > kMostWholeDigits || (digits == 0 && !hasPlaces)) return std::nullopt;
    constexpr std::int64_t kPowers[] = {10000, 1000, 100, 10, 1};
    const std::int64_t scaled = static_cast<std::int64_t>(steps) * kPowers[places];
    return Decimal{isNegative ? -scaled : scaled, static_cast<int>(places), marks > 0};
}

std::string DecimalText(std::int64_t steps) {
    const bool isNegative = steps < 0;
    const auto size = isNegative ? 0 - static_cast<std::uint64_t>(steps) : static_cast<std::uint64_t>(steps);
    std::string places = std::to_string(size % kDecimalSteps + kDecimalSteps).substr(1);
    while (places.size() > 2 && places.back() == '0') places.pop_back();
    return (isNegative ? "-" : "") + std::to_string(size / kDecimalSteps) + "." + places;
}

}  // namespace tradebill
