#include "platform/process.h"

#include <sys/poll.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <ctime>
#include <string>

namespace tradebill {

std::string OwnProcessName() {
    const std::string name = "process " + std::to_string(::getpid());
    std::array<char, 65> machine{};
    if (::gethostname(machine.data(), machine.size() - 1) != 0 || machine[0] == '\0') return name;
    return name + " on " + machine.data();
}

std::int64_t SteadyMicroseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1'000'000 + now.tv_nsec / 1000;
}

void Pause(int milliseconds) {
    ::poll(nullptr, 0, milliseconds);
}

}  // namespace tradebill
