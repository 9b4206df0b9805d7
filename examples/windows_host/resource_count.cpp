#include "resource_count.h"

#include <windows.h>
// After it comes what needs it.
#include <psapi.h>

#include <cstdint>
#include <cstdio>
#include <vector>

namespace {

/// As many as the table of objects still takes are made and released: the others are in use.
int CountGdiObjectsByRoom() {
    constexpr int kTableSize = 0x10000;
    std::vector<HGDIOBJ> made;
    made.reserve(kTableSize);
    while (made.size() < kTableSize) {
        const HGDIOBJ object = ::CreateRectRgn(0, 0, 1, 1);
        if (object == nullptr) break;
        made.push_back(object);
    }
    for (const HGDIOBJ object : made) ::DeleteObject(object);
    return kTableSize - static_cast<int>(made.size());
}

int CountGdiObjects() {
    const DWORD count = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    return count != 0 ? static_cast<int>(count) : CountGdiObjectsByRoom();
}

/// Handles are small multiples of 4, and the lowest free one is given out next.
int CountHandlesByProbing() {
    constexpr std::uintptr_t kLastProbed = 4 * 2000;
    int count = 0;
    for (std::uintptr_t value = 4; value <= kLastProbed; value += 4) {
        DWORD flags = 0;
        if (::GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) != FALSE) ++count;
    }
    return count;
}

int CountHandles() {
    DWORD count = 0;
    ::GetProcessHandleCount(::GetCurrentProcess(), &count);
    return count != 0 ? static_cast<int>(count) : CountHandlesByProbing();
}

int CountThreadSlots() {
    constexpr int kMostSlots = 1088;
    std::vector<DWORD> taken;
    for (DWORD slot = 0; (slot = ::TlsAlloc()) != TLS_OUT_OF_INDEXES;) taken.push_back(slot);
    for (const DWORD slot : taken) ::TlsFree(slot);
    return kMostSlots - static_cast<int>(taken.size());
}

/// All memory that is neither of files nor shared.
std::size_t SumPrivateRegions() {
    std::size_t sum = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* at = nullptr; ::VirtualQuery(at, &region, sizeof region) == sizeof region;
         at = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) sum += region.RegionSize;
    }
    return sum;
}

std::size_t PrivateMemory() {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    counters.cb = sizeof counters;
    auto* const plain = reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters);
    ::GetProcessMemoryInfo(::GetCurrentProcess(), plain, sizeof counters);
    return counters.PrivateUsage != 0 ? counters.PrivateUsage : SumPrivateRegions();
}

}  // namespace

ResourceCount CountResources() {
    return {CountGdiObjects(), CountHandles(), CountThreadSlots(), PrivateMemory()};
}

bool IsSteady(const char* work, const ResourceCount& before, const ResourceCount& after) {
    constexpr long long kTolerance = 128 * 1024;
    const int objects = after.gdiObjects - before.gdiObjects;
    const int handles = after.handles - before.handles;
    const int slots = after.threadSlots - before.threadSlots;
    const auto bytes = static_cast<long long>(after.memory) - static_cast<long long>(before.memory);
    const bool isSteady = objects <= 0 && handles <= 0 && slots <= 0 && bytes <= kTolerance;
    std::printf("%s: %s", work, isSteady ? "steady\n" : "not steady, ");
    if (!isSteady) {
        std::printf("%+d GDI objects, %+d handles, %+d thread slots, %+lld bytes\n", objects, handles, slots, bytes);
    }
    return isSteady;
}
