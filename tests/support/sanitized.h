#pragma once

namespace tradebill {

/// Whether the tests, and the programs that they start, are watched by the address and undefined sanitizers. Those want
/// more addresses than any limit leaves, and look at objects through a pipe, for which they need two free files.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif
#else
inline constexpr bool kSanitized = false;
#endif

}  // namespace tradebill
