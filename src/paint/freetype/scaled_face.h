// A face at one size: its measures in whole pixels, and its glyphs.
#pragma once

#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

#include "paint/font.h"
#include "paint/freetype/font_faces.h"

namespace tradebill {

/// A glyph's picture: coverage from 0 to 255, rows from the top.
struct GlyphPicture {
    std::int32_t left = 0;  ///< from the pen position to the picture
    std::int32_t top = 0;   ///< from the base line up to the picture's first row
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint8_t> coverage;
};

/// REQUIRES, of all operations: the caller holds FontLock().
class CScaledFace {
public:
    /// REQUIRES: the face has a scalable outline.
    CScaledFace(const FaceChoice& choice, std::int32_t pixelsPerEm);

    [[nodiscard]] const TextMetrics& Metrics() const { return metrics_; }

    /// Pixels to the next glyph.
    [[nodiscard]] std::int32_t AdvanceOf(char32_t character) { return GlyphOf(character).advance; }

    /// The glyph turned counter-clockwise by tenths of a degree around its pen position. The picture stays for the life
    /// of the face.
    [[nodiscard]] const GlyphPicture& PictureOf(char32_t character, std::int32_t escapement);

private:
    /// Nearly every text that is measured is painted, too: a glyph is loaded once for both.
    struct Glyph {
        std::int32_t advance = 0;
        GlyphPicture picture;  ///< upright
    };

    [[nodiscard]] const Glyph& GlyphOf(char32_t character);
    [[nodiscard]] Glyph LoadUpright(char32_t character);
    [[nodiscard]] GlyphPicture LoadTurned(char32_t character, std::int32_t escapement);
    [[nodiscard]] bool LoadGlyph(char32_t character, std::int32_t flags);
    [[nodiscard]] GlyphPicture RenderLoaded(std::int32_t escapement);

    FaceChoice choice_;
    FT_Size size_ = nullptr;  ///< belongs to the face; keeps what the font's program makes of the size
    std::int32_t pixelsPerEm_ = 1;
    TextMetrics metrics_;
    bool hasHalfWidthLatin_ = false;
    bool isFaint_ = false;
    std::unordered_map<char32_t, Glyph> upright_;
    std::map<std::pair<char32_t, std::int32_t>, GlyphPicture> turned_;
};

/// REQUIRES: the caller holds FontLock().
[[nodiscard]] bool HasGlyph(const FaceChoice& choice, char32_t character);

/// Pixels per em at which the face's cell is nearest to `cellHeight` and not above it.
/// REQUIRES: the caller holds FontLock().
[[nodiscard]] std::int32_t EmForCell(const FaceChoice& choice, std::int32_t cellHeight);

/// The face at a size, from the cache. What stands in for a face's missing glyphs takes that face's em, so that letters
/// of one text match. It stays until ForgetScaledFaces().
/// REQUIRES: the caller holds FontLock().
[[nodiscard]] CScaledFace& ScaledFaceFor(const FaceChoice& choice, std::int32_t pixelsPerEm);

/// Empties the cache.
/// REQUIRES: the caller holds FontLock(), and uses none of them from now on.
void ForgetScaledFaces();

}  // namespace tradebill
