#include "anonymise/amount_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/decimal.h"
#include "base/text.h"

namespace tradebill {
namespace {

constexpr int kMostPlaces = 4;

/// Thousands commas into a text of digits.
std::string WithMarks(const std::string& digits) {
    constexpr std::size_t kGroup = 3;
    std::string marked;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % kGroup == 0) marked += ',';
        marked += digits[i];
    }
    return marked;
}

}  // namespace

std::optional<PrintedNumber> ParsePrinted(std::string_view text) {
    text = Trim(text);
    const auto amount = ParseDecimal(text);
    if (!amount) return std::nullopt;
    const std::size_t point = text.find('.');
    const std::size_t printed = point == std::string_view::npos ? 0 : text.size() - point - 1;
    return PrintedNumber{.steps = amount->steps,
                         .places = std::min(amount->places, kMostPlaces),
                         .printedPlaces = static_cast<int>(printed),
                         .hasMarks = amount->hasMarks,
                         .hasPlus = text.starts_with('+')};
}

std::string PrintedText(std::int64_t steps, const PrintedNumber& like) {
    const bool isBelow = steps < 0;
    const auto amount = static_cast<std::uint64_t>(isBelow ? -steps : steps);
    const std::string whole = std::to_string(amount / kDecimalSteps);
    std::string places = std::to_string(amount % kDecimalSteps + kDecimalSteps).substr(1);
    places.resize(static_cast<std::size_t>(like.printedPlaces), '0');
    std::string text = isBelow ? "-" : like.hasPlus ? "+" : "";
    text += like.hasMarks ? WithMarks(whole) : whole;
    if (like.printedPlaces > 0) text.append(".").append(places);
    return text;
}

std::int64_t RoundedTo(std::int64_t steps, int places) {
    constexpr std::int64_t kMost = 1000000000000000000;
    steps = std::clamp(steps, -kMost, kMost);
    const std::int64_t unit = UnitOf(places);
    const std::int64_t rest = steps % unit;
    const std::int64_t down = steps - rest;
    if (2 * (rest < 0 ? -rest : rest) < unit) return down;
    return rest < 0 ? down - unit : down + unit;
}

std::int64_t CAmountFactor::OfRest(std::int64_t steps, int places) const {
    // The product of both may not fit: what is above the parts goes by itself.
    const std::int64_t scaled = steps / kParts * parts_ + steps % kParts * parts_ / kParts;
    const std::int64_t below = steps % kParts * parts_ % kParts;
    const std::int64_t half = 2 * (below < 0 ? -below : below) >= kParts ? (below < 0 ? -1 : 1) : 0;
    return RoundedTo(scaled + half, places);
}

std::int64_t CAmountFactor::OfAmount(std::int64_t steps, int places) const {
    const std::int64_t scaled = OfRest(steps, places);
    if (scaled != steps || steps == 0) return scaled;
    const std::int64_t unit = UnitOf(places);
    return steps < 0 ? steps + unit : steps - unit;
}

std::int64_t CAmountFactor::OfPrice(std::int64_t steps, int places) const {
    const std::int64_t scaled = OfAmount(steps, places);
    if (scaled != 0 || steps == 0) return scaled;
    const std::int64_t unit = UnitOf(places) * (steps < 0 ? -1 : 1);
    return steps == unit ? 2 * unit : unit;
}

bool PutNumber(std::string& text, const TextPlace& place, std::string_view number) {
    const auto begin = text.begin() + static_cast<std::ptrdiff_t>(place.at);
    if (number.size() <= place.size) {
        const std::size_t end = place.at + place.size;
        const bool isAttached = place.at > 0 && text[place.at - 1] != ' ' && text[place.at - 1] != '|';
        const bool isLeft =
            isAttached || (place.at > 0 && text[place.at - 1] == '|' && end < text.size() && text[end] == ' ');
        std::string padded(place.size - number.size(), ' ');
        padded.insert(isLeft ? 0 : padded.size(), number);
        std::ranges::copy(padded, begin);
        return true;
    }
    const std::size_t more = number.size() - place.size;
    std::size_t blanks = 0;
    while (blanks < place.at && text[place.at - blanks - 1] == ' ') ++blanks;
    const bool needsGap =
        blanks < place.at && text[place.at - blanks - 1] != '|' && text[place.at - blanks - 1] != '\n';
    if (blanks < more + (needsGap ? 1 : 0)) return false;
    std::ranges::copy(number, begin - static_cast<std::ptrdiff_t>(more));
    return true;
}

}  // namespace tradebill
