#include "platform/process.h"

#include <sys/poll.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <string>

namespace tradebill {

std::string OwnProcessName() {
    std::string name = "process " + std::to_string(OwnProcessNumber());
    std::array<char, 65> machine{};
    if (::gethostname(machine.data(), machine.size() - 1) != 0 || machine[0] == '\0') return name;
    return name + " on " + machine.data();
}

std::uint32_t OwnProcessNumber() {
    return static_cast<std::uint32_t>(::getpid());
}

std::int64_t SteadyMicroseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

void Pause(int milliseconds) {
    ::poll(nullptr, 0, milliseconds);
}

}  // namespace tradebill
