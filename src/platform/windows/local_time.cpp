#include "platform/local_time.h"

namespace tradebill {

void KeepTimeZone() {}

std::optional<std::tm> LocalPartsOf(std::time_t time) {
    std::tm parts{};
    if (::_localtime64_s(&parts, &time) != 0) return std::nullopt;
    return parts;
}

}  // namespace tradebill
