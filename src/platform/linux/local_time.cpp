#include "platform/local_time.h"

#include <stdlib.h>  // setenv

#include <ctime>
#include <optional>

namespace tradebill {

void KeepTimeZone() {
    constexpr int kIfUnset = 0;
    ::setenv("TZ", ":/etc/localtime", kIfUnset);  // which is where it looks anyway, and sees to changes
}

std::optional<std::tm> LocalPartsOf(std::time_t time) {
    std::tm parts{};
    if (::localtime_r(&time, &parts) == nullptr) return std::nullopt;
    return parts;
}

}  // namespace tradebill
