// What this process holds of the system, to find out whether a module gives back what it takes.
#pragma once

#include <cstddef>

struct ResourceCount {
    int gdiObjects;      ///< pens, brushes, fonts, bitmaps, contexts
    int handles;         ///< files, events, threads
    int threadSlots;     ///< places for values of threads, of which a process has about a thousand
    std::size_t memory;  ///< bytes that belong to this process alone
};

/// Where the system doesn't count (Wine answers 0 to questions for objects, handles and memory), it is counted by other
/// means.
[[nodiscard]] ResourceCount CountResources();

/// Prints whether there is more `after` a piece of work than before it, beyond what a heap may grow for its own
/// reasons.
[[nodiscard]] bool IsSteady(const char* work, const ResourceCount& before, const ResourceCount& after);
