#include "platform/local_time.h"

namespace tradebill {
namespace {

constexpr int kYearZero = 1900;  // of tm_year

}  // namespace

std::time_t PresentTime() {
    return std::time(nullptr);
}

CalendarDay LocalDayOf(std::time_t time) {
    std::tm parts{};
    if (::_localtime64_s(&parts, &time) != 0) return {};
    return {parts.tm_year + kYearZero, parts.tm_mon + 1, parts.tm_mday};
}

}  // namespace tradebill
