// How much memory this process takes.
#pragma once

#include <cstdint>

namespace tradebill {

/// The most that it had in use at once, in bytes, since its start, or since ForgetPeakMemory where the system forgets;
/// 0 if the system doesn't tell.
[[nodiscard]] std::int64_t PeakMemory();

/// Has PeakMemory begin anew. Windows doesn't forget.
void ForgetPeakMemory();

}  // namespace tradebill
