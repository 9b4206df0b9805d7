#include "platform/memory_use.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/text.h"
#include "platform/linux/uninterrupted.h"

namespace tradebill {

std::int64_t PeakMemory() {
    constexpr std::string_view kPeak = "VmHWM:";
    constexpr std::int64_t kKilobyte = 1024;
    const int file = ::open("/proc/self/status", O_RDONLY | O_CLOEXEC);
    if (file < 0) return 0;
    std::array<char, 4096> bytes;  // NOLINT(cppcoreguidelines-pro-type-member-init)
    const ssize_t size = Uninterrupted([&] { return ::read(file, bytes.data(), bytes.size()); });
    ::close(file);
    if (size <= 0) return 0;
    const std::string_view text(bytes.data(), static_cast<std::size_t>(size));
    const std::size_t at = text.find(kPeak);
    if (at == std::string_view::npos) return 0;
    std::int64_t kilobytes = 0;
    for (const char byte : TrimLeft(text.substr(at + kPeak.size()))) {
        if (!IsDigit(byte)) break;
        kilobytes = kilobytes * 10 + (byte - '0');
    }
    return kilobytes * kKilobyte;
}

void ForgetPeakMemory() {
    const int file = ::open("/proc/self/clear_refs", O_WRONLY | O_CLOEXEC);
    if (file < 0) return;
    [[maybe_unused]] const ssize_t written = ::write(file, "5", 1);
    ::close(file);
}

}  // namespace tradebill
