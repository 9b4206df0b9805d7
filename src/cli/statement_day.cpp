#include "cli/statement_day.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

#include "base/day.h"
#include "base/text.h"
#include "platform/local_time.h"
#include "platform/paths.h"
#include "requests/day_option.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::size_t kDayLength = 8;

bool IsDay(const std::string& text) {
    return text.size() == kDayLength && std::ranges::all_of(text, IsDigit) && HasMidnight(ParsePackedDay(text));
}

/// Eight digits behind a dot, as statement files bear their day.
std::optional<std::string> DayInFileName(const std::string& path) {
    const std::string name = FileNameOf(path);
    for (std::size_t dot = name.find('.'); dot != std::string::npos; dot = name.find('.', dot + 1)) {
        std::string digits = name.substr(dot + 1, kDayLength);
        if (IsDay(digits)) return digits;
    }
    return std::nullopt;
}

}  // namespace

StatementDay DayOfStatement(const std::optional<std::string>& option, const std::string& file) {
    if (option) {
        const auto day = WrittenDay(*option);
        if (!day) throw CUsageError("--day: expected a date such as 2024-01-31, found \"" + *option + "\"");
        return {DayText(*day), "--day"};
    }
    if (const auto day = DayInFileName(file)) return {*day, "the file's name"};
    return {DayText(LocalDayOf(PresentTime())), "today"};
}

}  // namespace tradebill
