#include "platform/process.h"

#include <sys/poll.h>
#include <unistd.h>

#include <array>
#include <string>

namespace tradebill {

std::string OwnProcessName() {
    const std::string name = "process " + std::to_string(::getpid());
    std::array<char, 65> machine{};
    if (::gethostname(machine.data(), machine.size() - 1) != 0 || machine[0] == '\0') return name;
    return name + " on " + machine.data();
}

void Pause(int milliseconds) {
    ::poll(nullptr, 0, milliseconds);
}

}  // namespace tradebill
