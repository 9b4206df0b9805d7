// Font files as FreeType reads them.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

namespace tradebill {

/// A font file that is read in small pieces. FreeType by itself maps the file, and each glyph that it looks at then
/// brings sixteen pages of it into memory: seven megabytes for the hundred glyphs of a report. Null if the file can't
/// be opened, or its size not be told; throws CShortage if it could be at another time. What can't be read is noted by
/// NoteFontShortage(). The stream closes and frees itself when FreeType has done with it.
[[nodiscard]] FT_Stream OpenFontStream(const char* path);

}  // namespace tradebill
