#include "base/day.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>

#include "base/number.h"
#include "base/report_error.h"
#include "base/text.h"

namespace tradebill {
namespace {

constexpr std::time_t kLastTime = 32535215999;  // 3000-12-31 23:59:59 UTC, where the terminal's calendar ends

/// Reads numbers one after the other as scanf does, each with white space before it, a sign and at most `width` bytes.
class CNumberScan {
public:
    explicit CNumberScan(std::string_view text) : rest_(text) {}

    std::optional<int> Next(std::size_t width) {
        rest_ = TrimLeft(rest_);
        const std::string_view window = rest_.substr(0, width);
        const std::size_t sign = !window.empty() && (window.front() == '-' || window.front() == '+') ? 1 : 0;
        std::size_t end = sign;
        while (end < window.size() && IsDigit(window[end])) ++end;
        if (end == sign) return std::nullopt;
        rest_.remove_prefix(end);
        return ParseInteger(window.substr(0, end));
    }

    bool Take(char literal) {
        if (rest_.empty() || rest_.front() != literal) return false;
        rest_.remove_prefix(1);
        return true;
    }

private:
    std::string_view rest_;
};

constexpr std::size_t kAnyWidth = std::string_view::npos;

std::string Formatted(const char* format, const CalendarDay& day) {
    std::array<char, 48> buffer{};
    std::snprintf(buffer.data(), buffer.size(), format, day.year, day.month, day.day);
    return buffer.data();
}

}  // namespace

CalendarDay ParseDashedDay(std::string_view text) {
    CalendarDay day;
    CNumberScan scan(text);
    for (int* const part : {&day.year, &day.month, &day.day}) {
        const auto number = scan.Next(kAnyWidth);
        if (!number) break;
        *part = *number;
        if (!scan.Take('-')) break;
    }
    return day;
}

CalendarDay ParsePackedDay(std::string_view text) {
    CalendarDay day;
    CNumberScan scan(text);
    const auto year = scan.Next(4);
    if (!year) return day;
    day.year = *year;
    const auto month = scan.Next(2);
    if (!month) return day;
    day.month = *month;
    day.day = scan.Next(2).value_or(0);
    return day;
}

std::time_t MidnightOf(const CalendarDay& day) {
    if (day.year < 1900 || day.month < 1 || day.month > 12 || day.day < 1 || day.day > 31) {
        throw CReportError(kErrorUnspecified);
    }
    std::tm parts{};
    parts.tm_year = day.year - 1900;
    parts.tm_mon = day.month - 1;
    parts.tm_mday = day.day;
    parts.tm_isdst = -1;
    const std::time_t time = std::mktime(&parts);
    if (time < 0 || time > kLastTime) throw CReportError(kErrorInvalidArgument);
    return time;
}

std::optional<std::time_t> TryMidnightOf(const CalendarDay& day) {
    try {
        return MidnightOf(day);
    } catch (const CReportError&) {
        return std::nullopt;
    }
}

bool HasMidnight(const CalendarDay& day) {
    return TryMidnightOf(day).has_value();
}

std::string DayText(const CalendarDay& day) {
    return Formatted("%4d%02d%02d", day);
}

std::string DashedDayText(const CalendarDay& day) {
    return Formatted("%04d-%02d-%02d", day);
}

}  // namespace tradebill
