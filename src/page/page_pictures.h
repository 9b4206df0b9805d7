// The pictures that the page points at, and the two ways to name them.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

inline constexpr std::string_view kShrinkPicture = "BillShrink.png";
inline constexpr std::string_view kExpandPicture = "BillExpand.png";
inline constexpr std::string_view kOffsetFigure = "OffsetFigure.jpg";

/// Relative to the page, as its src attributes spell it: with a backslash.
[[nodiscard]] std::string PagePicturePath(std::string_view picture);

/// Relative to the page, as its scripts spell it: with slashes.
[[nodiscard]] std::string ScriptPicturePath(std::string_view picture);

/// Where the file lies.
[[nodiscard]] std::string FullPicturePath(std::string_view picture);

}  // namespace tradebill
