#include "platform/terminal.h"

#include <unistd.h>

namespace tradebill {

bool IsErrorOutputTerminal() {
    return ::isatty(STDERR_FILENO) == 1;
}

// Terminals take UTF-8 anyway.
CUtf8Terminal::CUtf8Terminal() : former_(0) {}
CUtf8Terminal::~CUtf8Terminal() = default;

}  // namespace tradebill
