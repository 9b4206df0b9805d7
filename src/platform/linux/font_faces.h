// Font faces by family name: fontconfig finds the files, FreeType opens them, and they stay open for the life of the
// process.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// The faces to try for `family`, best first: its own file, then those that cover what it lacks. `family` is UTF-8;
/// empty if no font is installed. The faces belong to the cache.
[[nodiscard]] const std::vector<FT_Face>& FacesFor(const std::string& family, bool bold);

/// The em size in pixels at which ascent and descent of `face` together fill `cellHeight`.
[[nodiscard]] double EmSizeFor(FT_Face face, int cellHeight);

}  // namespace tradebill
