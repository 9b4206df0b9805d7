#include "requests/day_option.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/day.h"
#include "base/text.h"
#include "platform/local_time.h"

namespace tradebill {

std::string DashedText(std::string_view written) {
    constexpr std::size_t kDigits = 8;
    const bool isPacked = written.size() == kDigits && std::ranges::all_of(written, IsDigit);
    return isPacked ? DashedDayText(ParsePackedDay(written)) : std::string(written);
}

std::optional<CalendarDay> WrittenDay(std::string_view written) {
    const auto midnight = TryMidnightOf(ParseDashedDay(DashedText(written)));
    return midnight ? std::optional(LocalDayOf(*midnight)) : std::nullopt;
}

}  // namespace tradebill
