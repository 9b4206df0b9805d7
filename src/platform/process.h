// The process that this runs in, as others are told of it, and the time that passes in it.
#pragma once

#include <cstdint>
#include <string>

namespace tradebill {

/// "process 4711 on alpha"; UTF-8.
[[nodiscard]] std::string OwnProcessName();

/// Its number, which no other process of the machine has at the same time.
[[nodiscard]] std::uint32_t OwnProcessNumber();

/// Microseconds since some moment of the past, whatever anybody sets the system's clock to.
[[nodiscard]] std::int64_t SteadyMicroseconds();

/// Waits. Returns earlier if a signal comes.
void Pause(int milliseconds);

}  // namespace tradebill
