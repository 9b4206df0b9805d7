#include "platform/local_time.h"

#include <ctime>
#include <optional>

namespace tradebill {

std::optional<std::tm> LocalPartsOf(std::time_t time) {
    std::tm parts{};
    if (::localtime_r(&time, &parts) == nullptr) return std::nullopt;
    return parts;
}

}  // namespace tradebill
