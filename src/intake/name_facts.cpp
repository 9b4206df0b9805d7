#include "intake/name_facts.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/day.h"
#include "base/text.h"
#include "report/statement_name.h"

namespace tradebill {
namespace {

constexpr std::size_t kDayLength = 8;      // yyyymmdd
constexpr std::size_t kDashedLength = 10;  // yyyy-mm-dd

/// The digits of a dashed day; empty if `text` doesn't begin with one.
std::string DashedDayAt(std::string_view text) {
    constexpr std::size_t kFirstDash = 4;
    constexpr std::size_t kSecondDash = 7;
    if (text.size() < kDashedLength || text[kFirstDash] != text[kSecondDash]) return {};
    if (std::string_view("-_.").find(text[kFirstDash]) == std::string_view::npos) return {};
    std::string day(text.substr(0, kDashedLength));
    day.erase(kSecondDash, 1).erase(kFirstDash, 1);
    return day;
}

/// The day that `text` begins with, and how many bytes it takes; 0 if there is none.
std::size_t DayLengthAt(std::string_view text, std::string& day) {
    const auto isAlone = [&](std::size_t length) { return length >= text.size() || !IsDigit(text[length]); };
    day = text.substr(0, kDayLength);
    if (IsCalendarDay(day) && isAlone(kDayLength)) return kDayLength;
    day = DashedDayAt(text);
    return IsCalendarDay(day) && isAlone(kDashedLength) ? kDashedLength : 0;
}

/// The only day in `name`.
std::optional<std::string> DayIn(std::string_view name) {
    std::optional<std::string> found;
    std::string day;
    for (std::size_t at = 0; at < name.size();) {
        const bool beginsNumber = IsDigit(name[at]) && (at == 0 || !IsDigit(name[at - 1]));
        const std::size_t length = beginsNumber ? DayLengthAt(name.substr(at), day) : 0;
        if (length > 0 && found && *found != day) return std::nullopt;
        if (length > 0) found = day;
        at += std::max<std::size_t>(length, 1);
    }
    return found;
}

/// What stands before "_2024-01-02".
std::optional<std::string> AccountBeforeDay(std::string_view name) {
    for (std::size_t at = name.find('_'); at != std::string_view::npos; at = name.find('_', at + 1)) {
        if (at > 0 && IsCalendarDay(DashedDayAt(name.substr(at + 1)))) return std::string(name.substr(0, at));
    }
    return std::nullopt;
}

}  // namespace

bool IsCalendarDay(std::string_view text) {
    if (text.size() != kDayLength || !std::ranges::all_of(text, IsDigit)) return false;
    constexpr int kFirstYear = 1970;  // as of a report's days
    constexpr int kLastYear = 3000;
    const CalendarDay day = ParsePackedDay(text);
    const std::chrono::year_month_day date{std::chrono::year(day.year),
                                           std::chrono::month(static_cast<unsigned>(day.month)),
                                           std::chrono::day(static_cast<unsigned>(day.day))};
    return day.year >= kFirstYear && day.year <= kLastYear && date.ok();
}

NameFacts FactsOfName(std::string_view name) {
    if (auto parts = PartsOfStatementName(name); parts && IsCalendarDay(parts->day)) {
        return {.account = parts->account, .day = parts->day};
    }
    return {.account = AccountBeforeDay(name), .day = DayIn(name)};
}

}  // namespace tradebill
