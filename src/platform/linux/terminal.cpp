#include "platform/terminal.h"

#include <unistd.h>

namespace tradebill {

bool IsErrorOutputTerminal() {
    return ::isatty(STDERR_FILENO) == 1;
}

}  // namespace tradebill
