#include "platform/memory_use.h"

#include <windows.h>

#include <psapi.h>

#include <cstdint>

namespace tradebill {

std::int64_t PeakMemory() {
    PROCESS_MEMORY_COUNTERS counters{};
    if (::K32GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters) == FALSE) return 0;
    return static_cast<std::int64_t>(counters.PeakWorkingSetSize);
}

void ForgetPeakMemory() {}

}  // namespace tradebill
