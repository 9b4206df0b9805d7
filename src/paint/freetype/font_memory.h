// The memory of FreeType, which is told of a lack of it later than it would be by the system.
#pragma once

#include <ft2build.h>
#include FT_SYSTEM_H

namespace tradebill {

/// The functions for FT_New_Library. FreeType isn't safe from a lack of memory in the midst of all its work: what the
/// system hasn't got comes from a reserve, and is noted. Only when that is used up FreeType goes without.
///
/// REQUIRES, of all that is done with it: the caller holds FontLock().
[[nodiscard]] FT_Memory FontMemory();

// REQUIRES, of these two: the caller holds FontLock().

/// Notes that something of a font could not be had: memory, or bytes of its file.
void NoteFontShortage();

/// Whether one was noted since the last time.
[[nodiscard]] bool TakeFontShortage();

}  // namespace tradebill
