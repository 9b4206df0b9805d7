// Font faces by family name: fontconfig finds the files, FreeType opens them, and they stay open for the life of the
// process. What is kept of fonts is kept for all threads and guarded by one lock.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <mutex>
#include <string>
#include <vector>

namespace tradebill {

/// A face for some of a text's characters.
struct FaceChoice {
    FT_Face face;      ///< belongs to the cache; used by nobody who doesn't hold FontLock()
    bool isThickened;  ///< bold was asked for, and the family has no bold file
};

/// The faces to try for `family`, best first: its own file, then those that cover what it lacks. `family` is UTF-8;
/// empty if no font is installed. The list never changes and stays for the life of the process.
[[nodiscard]] const std::vector<FaceChoice>& FacesFor(const std::string& family, bool bold);

/// Opens the face number `index` of a file. Null if it is none. The caller's own, to be closed while FontLock() is
/// held.
[[nodiscard]] FT_Face OpenFontFile(const char* path, int index);

/// Guards FreeType, whose faces aren't for two threads, and all that is kept of fonts. Who holds it may take it again.
[[nodiscard]] std::recursive_mutex& FontLock();

}  // namespace tradebill
