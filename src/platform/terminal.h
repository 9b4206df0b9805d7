// Whether somebody watches.
#pragma once

namespace tradebill {

/// Whether standard error goes to a terminal.
[[nodiscard]] bool IsErrorOutputTerminal();

}  // namespace tradebill
