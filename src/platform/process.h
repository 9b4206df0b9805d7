// The process that this runs in, as others are told of it.
#pragma once

#include <string>

namespace tradebill {

/// "process 4711 on alpha"; UTF-8.
[[nodiscard]] std::string OwnProcessName();

/// Waits. Returns earlier if a signal comes.
void Pause(int milliseconds);

}  // namespace tradebill
