#include "platform/local_time.h"

namespace tradebill {

std::time_t PresentTime() {
    return std::time(nullptr);
}

CalendarDay LocalDayOf(std::time_t time) {
    std::tm parts{};
    if (::localtime_r(&time, &parts) == nullptr) return {};
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday};
}

}  // namespace tradebill
