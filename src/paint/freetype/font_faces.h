// Font faces by family name: fontconfig finds the files, FreeType opens them, and they stay open. What is kept of fonts
// is kept for all threads and guarded by one lock. Nothing is kept that came of a shortage: see font_use.h.
#pragma once

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <string>

namespace tradebill {

/// A face for some of a text's characters, of any size: not one of a few sizes of pixels.
struct FaceChoice {
    FT_Face face;      ///< belongs to the cache until ForgetFaces(); used by nobody who doesn't hold FontLock()
    bool isThickened;  ///< bold was asked for, and the family has no bold file
};

struct DestroyFontSet {
    void operator()(FcFontSet* set) const;
};
using UniqueFontSet = std::unique_ptr<FcFontSet, DestroyFontSet>;

/// A family at one weight: its own file, then those that cover what it lacks. Most texts need the first face alone, so
/// the others are looked for, and their files opened, once they are asked for.
///
/// All operations throw std::bad_alloc for a shortage.
/// REQUIRES, of all operations: the caller holds FontLock().
class CFontFamily {
public:
    /// `name` is UTF-8.
    CFontFamily(std::string name, bool bold);

    /// The face to try as number `index`, best first; null behind the last, and always if no font is installed. The
    /// same whenever it is asked for; it stays for the life of the family.
    [[nodiscard]] const FaceChoice* FaceAt(std::size_t index);

private:
    /// False if there is no more.
    bool AddFallback();

    std::string name_;
    bool isBold_;
    std::deque<FaceChoice> faces_;  ///< which stay where they are
    UniqueFontSet sorted_;          ///< the system's fonts as they suit the family, once isSorted_
    bool isSorted_ = false;
    int tried_ = 0;  ///< fonts of sorted_
};

/// The family stays until ForgetFaces(). Throws std::bad_alloc for a shortage.
/// REQUIRES: the caller holds FontLock().
[[nodiscard]] CFontFamily& FamilyFor(const std::string& name, bool bold);

/// Closes all faces and forgets the families: the next text looks for its fonts anew.
/// REQUIRES: the caller holds FontLock(), and uses none of them from now on.
void ForgetFaces();

/// Throws CShortage if FreeType lacked memory or bytes of a file since the last time: what it made of it may be less
/// than it should be. To be called behind all that FreeType does. REQUIRES: the caller holds FontLock().
void ThrowIfFontShortage();

/// Opens the face number `index` of a file. Null if it is none. Throws std::bad_alloc for a shortage. The caller's own,
/// to be closed while FontLock() is held.
[[nodiscard]] FT_Face OpenFontFile(const char* path, int index);

/// Guards FreeType, whose faces aren't for two threads, and all that is kept of fonts. Who holds it may take it again.
[[nodiscard]] std::recursive_mutex& FontLock();

}  // namespace tradebill
