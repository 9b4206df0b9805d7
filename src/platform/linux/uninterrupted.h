// Calls of the system that a signal may break off before they have done anything.
#pragma once

#include <cerrno>

namespace tradebill {

/// Makes a call, which returns a negative number if it fails, anew as long as signals break it off.
template <class Call>
auto Uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

}  // namespace tradebill
