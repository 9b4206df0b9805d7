#include "platform/system_error.h"

#include <cerrno>
#include <cstdint>
#include <string>
#include <system_error>

namespace tradebill {

std::uint32_t LastSystemError() {
    return static_cast<std::uint32_t>(errno);
}

void SetSystemError(std::uint32_t error) {
    errno = static_cast<int>(error);
}

std::string SystemErrorText(std::uint32_t error) {
    return error == 0 ? std::string() : std::generic_category().message(static_cast<int>(error));
}

bool MeansMissing(std::uint32_t error) {
    return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG;
}

bool MeansThere(std::uint32_t error) {
    return error == EEXIST;
}

bool MayPass(std::uint32_t error) {
    return error == EMFILE || error == ENFILE || error == ENOMEM || error == EIO || error == EINTR || error == EAGAIN;
}

}  // namespace tradebill
