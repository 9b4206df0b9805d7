// The pictures that the module carries inside, so that a report needs no file but its statements.
#pragma once

#include <string_view>

namespace tradebill {

inline constexpr int kTitleBarId = 5000;  ///< ground of a section's title
inline constexpr int kExpandId = 5001;    ///< the button of a folded section
inline constexpr int kShrinkId = 5002;    ///< the button of an unfolded one
inline constexpr int kBannerId = 5003;    ///< top of the report; its width is the report's base width

/// A picture's PNG bytes, which live as long as the module; empty for any other id.
[[nodiscard]] std::string_view EmbeddedPicture(int id);

}  // namespace tradebill
