#include "platform/terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace tradebill {

bool IsErrorOutputTerminal() {
    return ::isatty(STDERR_FILENO) == 1;
}

bool WantsColours() {
    const char* const declined = std::getenv("NO_COLOR");
    if (declined != nullptr && *declined != '\0') return false;
    const char* const terminal = std::getenv("TERM");
    return IsErrorOutputTerminal() && terminal != nullptr && std::string_view(terminal) != "dumb";
}

// Terminals take UTF-8 anyway.
CUtf8Terminal::CUtf8Terminal() : former_(0) {}
CUtf8Terminal::~CUtf8Terminal() = default;

}  // namespace tradebill
