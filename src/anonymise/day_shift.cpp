#include "anonymise/day_shift.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "base/text.h"

namespace tradebill {
namespace {

constexpr std::string_view kYear = "年"_gbk;
constexpr std::string_view kMonth = "月"_gbk;
constexpr std::string_view kDay = "日"_gbk;

/// A printed date, cut into its parts.
struct DateParts {
    std::chrono::year_month_day day;
    std::array<std::size_t, 3> digits{};  ///< of year, month and day
    std::array<std::string_view, 3> between{};
    std::size_t size = 0;
};

int NumberIn(std::string_view digits) {
    int number = 0;
    for (const char digit : digits) number = number * 10 + (digit - '0');
    return number;
}

std::size_t DigitsAt(std::string_view text, std::size_t most) {
    std::size_t size = 0;
    while (size < text.size() && size < most && IsDigit(text[size])) ++size;
    return size;
}

std::string_view SeparatorAt(std::string_view text, std::size_t part) {
    constexpr std::string_view kWords[] = {kYear, kMonth, kDay};
    if (text.starts_with(kWords[part])) return kWords[part];
    if (part == 2 || text.empty()) return {};
    return text.front() == '-' || text.front() == '/' || text.front() == '.' ? text.substr(0, 1) : std::string_view();
}

std::optional<DateParts> PartsAt(std::string_view text) {
    constexpr std::size_t kMost[] = {4, 2, 2};
    constexpr int kFirstYear = 1970;
    constexpr int kLastYear = 2999;
    DateParts parts;
    int numbers[3] = {};
    for (std::size_t part = 0; part < 3; ++part) {
        const std::string_view rest = text.substr(parts.size);
        parts.digits[part] = DigitsAt(rest, kMost[part]);
        if (parts.digits[part] == 0) return std::nullopt;
        numbers[part] = NumberIn(rest.substr(0, parts.digits[part]));
        parts.between[part] = SeparatorAt(rest.substr(parts.digits[part]), part);
        parts.size += parts.digits[part] + parts.between[part].size();
    }
    const bool isPacked = parts.between[0].empty() && parts.between[1].empty();
    const bool isWhole = parts.digits[0] == 4 && (!isPacked || (parts.digits[1] == 2 && parts.digits[2] == 2));
    const bool isMixed = parts.between[0].empty() != parts.between[1].empty() ||
                         (parts.between[0].size() == 1 && parts.between[0] != parts.between[1]);
    const bool goesOn = parts.size < text.size() && IsDigit(text[parts.size]);
    if (!isWhole || isMixed || goesOn || numbers[0] < kFirstYear || numbers[0] > kLastYear) return std::nullopt;
    parts.day = std::chrono::year(numbers[0]) / numbers[1] / numbers[2];
    return parts.day.ok() ? std::optional(parts) : std::nullopt;
}

std::string PaddedNumber(unsigned number, std::size_t digits) {
    std::string text = std::to_string(number);
    if (text.size() < digits) text.insert(0, digits - text.size(), '0');
    return text;
}

}  // namespace

std::size_t DateLengthAt(std::string_view text) {
    const auto parts = PartsAt(text);
    return parts ? parts->size : 0;
}

std::string ShiftedDate(std::string_view date, int weeks) {
    const auto parts = PartsAt(date);
    if (!parts || weeks == 0) return std::string(date);
    const std::chrono::year_month_day day = std::chrono::sys_days(parts->day) + std::chrono::weeks(weeks);
    std::string text = PaddedNumber(static_cast<unsigned>(static_cast<int>(day.year())), parts->digits[0]);
    text.append(parts->between[0]).append(PaddedNumber(static_cast<unsigned>(day.month()), parts->digits[1]));
    text.append(parts->between[1]).append(PaddedNumber(static_cast<unsigned>(day.day()), parts->digits[2]));
    text.append(parts->between[2]);
    if (text.size() == date.size()) return text;
    text.assign(date);
    std::ranges::replace_if(text, IsDigit, '0');
    return text;
}

std::optional<std::string> ShiftedDay(std::string_view day, int weeks) {
    constexpr std::size_t kPacked = 8;
    if (day.size() != kPacked || DateLengthAt(day) != kPacked) return std::nullopt;
    return ShiftedDate(day, weeks);
}

}  // namespace tradebill
