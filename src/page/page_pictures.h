// The pictures that the page points at: the ways to name them, and their sizes.
//
// REQUIRES of all: the report's folders are prepared, and its pictures saved.
#pragma once

#include <string>
#include <string_view>

#include "paint/font.h"
#include "paint/picture_file.h"

namespace tradebill {

class CReport;

/// Relative to the page, as its src attributes spell it: with a backslash.
[[nodiscard]] std::string PagePicturePath(const CReport& report, std::string_view picture);

/// Relative to the page, as its scripts spell it: with slashes.
[[nodiscard]] std::string ScriptPicturePath(const CReport& report, std::string_view picture);

/// The size that was saved in this run, or that of the file that lies there; 0 by 0 if it can't be read.
[[nodiscard]] PictureSize SizeOf(const CReport& report, std::string_view picture);

/// The same by the screen's resolution: title bars and buttons lie on disk unscaled, and the page stretches them.
[[nodiscard]] PictureSize ScaledSizeOf(const CReport& report, std::string_view picture);

/// Size of a section's title in the font that the class titletext names, so that the button stands right of it.
[[nodiscard]] TextExtent MeasureTitle(const CReport& report, std::string_view title);

}  // namespace tradebill
