#include "readers/scan_listener.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace tradebill {

std::string_view SectionName(SectionKind kind) {
    constexpr std::array<std::string_view, 8> kNames = {"money",   "trades", "closed",    "open",
                                                        "summary", "cash",   "exercises", "deliveries"};
    return kNames[static_cast<std::size_t>(kind)];
}

}  // namespace tradebill
