// Font faces by family name: fontconfig finds the files, FreeType opens them, and they stay open for the life of the
// process.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <mutex>
#include <string>
#include <vector>

namespace tradebill {

/// A face for some of a text's characters.
struct FaceChoice {
    FT_Face face;      ///< belongs to the cache
    bool isThickened;  ///< bold was asked for, and the family has no bold file
};

/// The faces to try for `family`, best first: its own file, then those that cover what it lacks. `family` is UTF-8;
/// empty if no font is installed.
[[nodiscard]] const std::vector<FaceChoice>& FacesFor(const std::string& family, bool bold);

/// Opens the face number `index` of a file. Null if it is none.
[[nodiscard]] FT_Face OpenFontFile(const char* path, int index);

/// Held while a face is used: FreeType's faces aren't for two threads.
[[nodiscard]] std::recursive_mutex& FontLock();

}  // namespace tradebill
