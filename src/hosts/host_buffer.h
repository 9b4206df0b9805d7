// Bytes that a host frees.
#pragma once

#include <string_view>

namespace tradebill {

/// A copy of `bytes` with a zero behind it, for TradeBillFree. Throws std::bad_alloc.
[[nodiscard]] void* BufferOf(std::string_view bytes);

}  // namespace tradebill
