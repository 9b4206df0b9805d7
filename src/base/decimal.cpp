#include "base/decimal.h"

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
    const char* at = text.data();
    const char* const end = at + text.size();
    const bool isNegative = at != end && *at == '-';
    if (isNegative || (at != end && *at == '+')) ++at;

    std::int64_t steps = 0;
    int digits = 0;
    for (; at != end && (IsDigit(*at) || (*at == ',' && digits > 0)); ++at) {
        if (*at == ',') continue;
        if (++digits > kMostWholeDigits) return std::nullopt;
        steps = steps * 10 + (*at - '0');
    }
    int places = 0;
    if (at != end && *at == '.') {
        for (++at; at != end && IsDigit(*at); ++at, ++digits) {
            if (places == kMostPlaces) continue;
            steps = steps * 10 + (*at - '0');
            ++places;
        }
    }
    if (at != end || digits == 0) return std::nullopt;
    constexpr std::int64_t kPowers[] = {10000, 1000, 100, 10, 1};
    steps *= kPowers[places];
    return Decimal{isNegative ? -steps : steps, places};
}

std::string DecimalText(std::int64_t steps) {
    const bool isNegative = steps < 0;
    const auto size = isNegative ? 0 - static_cast<std::uint64_t>(steps) : static_cast<std::uint64_t>(steps);
    std::string places = std::to_string(size % kDecimalSteps + kDecimalSteps).substr(1);
    while (places.size() > 2 && places.back() == '0') places.pop_back();
    return (isNegative ? "-" : "") + std::to_string(size / kDecimalSteps) + "." + places;
}

}  // namespace tradebill
