#include "base/day_number.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/day.h"
#include "base/text.h"

namespace tradebill {
namespace {

constexpr std::size_t kParts = 3;
using DayParts = std::array<std::string_view, kParts>;  ///< year, month, day

std::optional<DayParts> PartsOf(std::string_view text) {
    const std::size_t first = text.find_first_of("-/.");
    if (first == std::string_view::npos) {
        if (text.size() != 8) return std::nullopt;
        return DayParts{text.substr(0, 4), text.substr(4, 2), text.substr(6, 2)};
    }
    const std::size_t second = text.find(text[first], first + 1);
    if (second == std::string_view::npos) return std::nullopt;
    return DayParts{text.substr(0, first), text.substr(first + 1, second - first - 1), text.substr(second + 1)};
}

/// Of `most` digits and no others.
std::optional<unsigned> NumberIn(std::string_view digits, std::size_t most) {
    if (digits.empty() || digits.size() > most) return std::nullopt;
    unsigned number = 0;
    for (const char digit : digits) {
        if (!IsDigit(digit)) return std::nullopt;
        number = number * 10 + static_cast<unsigned>(digit - '0');
    }
    return number;
}

std::chrono::sys_days DateOf(std::int64_t number) {
    return std::chrono::sys_days(std::chrono::days(number));
}

}  // namespace

std::optional<std::int64_t> DayNumberOf(std::string_view text) {
    const auto parts = PartsOf(Trim(text));
    if (!parts || (*parts)[0].size() != 4) return std::nullopt;
    const auto year = NumberIn((*parts)[0], 4);
    const auto month = NumberIn((*parts)[1], 2);
    const auto day = NumberIn((*parts)[2], 2);
    if (!year || !month || !day) return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year(static_cast<int>(*year)), std::chrono::month(*month),
                                           std::chrono::day(*day)};
    if (!date.ok()) return std::nullopt;
    return std::chrono::sys_days(date).time_since_epoch().count();
}

std::string NumberedDay(std::int64_t number) {
    const std::chrono::year_month_day date(DateOf(number));
    return DayText({.year = static_cast<int>(date.year()),
                    .month = static_cast<int>(static_cast<unsigned>(date.month())),
                    .day = static_cast<int>(static_cast<unsigned>(date.day()))});
}

std::int64_t WeekdayOf(std::int64_t number) {
    return std::chrono::weekday(DateOf(number)).iso_encoding();
}

}  // namespace tradebill
