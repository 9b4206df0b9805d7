#include "platform/local_time.h"

#include <climits>
#include <ctime>
#include "base/day.h"

namespace tradebill {

std::time_t PresentTime() {
    return std::time(nullptr);
}

CalendarDay LocalDayOf(std::time_t time) {
    constexpr int kYearZero = 1900;  // of tm_year
    const auto parts = LocalPartsOf(time);
    if (!parts || parts->tm_year > INT_MAX - kYearZero) return {};
    return {parts->tm_year + kYearZero, parts->tm_mon + 1, parts->tm_mday};
}

}  // namespace tradebill
