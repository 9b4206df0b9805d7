#include "base/decimal.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"

namespace tradebill {
namespace {

constexpr int kMostPlaces = 4;
constexpr int kMostWholeDigits = 14;

}  // namespace

std::optional<Decimal> ParseDecimal(std::string_view text) {
    text = Trim(text);
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) text.remove_prefix(1);
    if (text.empty() || !(IsDigit(text.front()) || text.front() == '.')) return std::nullopt;

    Decimal decimal;
    std::size_t at = 0;
    int digits = 0;
    for (; at < text.size() && (IsDigit(text[at]) || (text[at] == ',' && digits > 0)); ++at) {
        if (text[at] == ',') continue;
        if (++digits > kMostWholeDigits) return std::nullopt;
        decimal.steps = decimal.steps * 10 + (text[at] - '0');
    }
    if (at < text.size() && text[at] == '.') {
        for (++at; at < text.size() && IsDigit(text[at]); ++at, ++digits) {
            if (decimal.places == kMostPlaces) continue;
            decimal.steps = decimal.steps * 10 + (text[at] - '0');
            ++decimal.places;
        }
    }
    if (at < text.size() || digits == 0) return std::nullopt;
    for (int place = decimal.places; place < kMostPlaces; ++place) decimal.steps *= 10;
    if (isNegative) decimal.steps = -decimal.steps;
    return decimal;
}

std::string DecimalText(std::int64_t steps) {
    const bool isNegative = steps < 0;
    const auto size = isNegative ? 0 - static_cast<std::uint64_t>(steps) : static_cast<std::uint64_t>(steps);
    std::string places = std::to_string(size % kDecimalSteps + kDecimalSteps).substr(1);
    while (places.size() > 2 && places.back() == '0') places.pop_back();
    return (isNegative ? "-" : "") + std::to_string(size / kDecimalSteps) + "." + places;
}

}  // namespace tradebill
