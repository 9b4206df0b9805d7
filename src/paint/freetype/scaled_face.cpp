#include "paint/freetype/scaled_face.h"

#include <cstddef>
#include <cstdint>
#include "paint/font.h"

#include FT_OUTLINE_H
#include FT_SIZES_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <tuple>

#include "paint/escapement.h"

namespace tradebill {
namespace {

constexpr std::int32_t kLargestCell = 2000;  // pixels; larger texts are painted at this size
constexpr char32_t kFirstWide = 0x2E80;      // Chinese characters and their punctuation begin here
constexpr FT_Pos kOnePixel = 64;

/// What a font file says of its cell, in its own units.
struct CellUnits {
    double ascent;
    double descent;
    double average;
    double em;
};

CellUnits UnitsOf(FT_Face face) {
    CellUnits units{static_cast<double>(face->ascender), static_cast<double>(-face->descender),
                    static_cast<double>(face->max_advance_width) / 2, static_cast<double>(face->units_per_EM)};
    if (const auto* const os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2)); os2 != nullptr) {
        units.ascent = os2->usWinAscent;
        units.descent = os2->usWinDescent;
        units.average = os2->xAvgCharWidth;
    }
    if (units.ascent + units.descent <= 0) units = {units.em, 0, units.average, units.em};
    return units;
}

std::int32_t Rounded(double value) {
    return static_cast<std::int32_t>(std::floor(value + 0.5));
}

TextMetrics MetricsAt(FT_Face face, const CellUnits& units, double pixelsPerEm) {
    const double scale = pixelsPerEm / units.em;
    TextMetrics metrics;
    metrics.ascent = Rounded(units.ascent * scale);
    metrics.descent = Rounded(units.descent * scale);
    metrics.height = metrics.ascent + metrics.descent;
    metrics.internalLeading = Rounded((units.ascent + units.descent - units.em) * scale);
    metrics.averageWidth = Rounded(units.average * scale);
    metrics.maxWidth = Rounded(static_cast<double>(face->bbox.xMax - face->bbox.xMin) * scale);
    return metrics;
}

FT_Pos UnscaledAdvance(FT_Face face, char32_t character) {
    const FT_UInt glyph = FT_Get_Char_Index(face, character);
    if (glyph == 0 || FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE) != 0) return 0;
    return face->glyph->metrics.horiAdvance;
}

/// Whether two Latin letters take exactly the place of a Chinese character.
bool HasHalfWidthLatin(FT_Face face) {
    const FT_Pos wide = UnscaledAdvance(face, U'国');
    return wide > 0 && 2 * UnscaledAdvance(face, U'0') == wide && 2 * UnscaledAdvance(face, U'W') == wide;
}

/// A bold file whose strokes are as thin as a plain one's. The Tahoma of free fonts is one: only its advances are bold.
bool IsFaintlyBold(FT_Face face, double em) {
    constexpr double kLeastStem = 0.1;  // of the em; plain faces have 0.09, bold ones 0.11 and more
    const FT_UInt stem = FT_Get_Char_Index(face, U'l');
    if ((face->style_flags & FT_STYLE_FLAG_BOLD) == 0 || stem == 0) return false;
    if (FT_Load_Glyph(face, stem, FT_LOAD_NO_SCALE) != 0) return false;
    return static_cast<double>(face->glyph->metrics.width) < kLeastStem * em;
}

/// What makes its strokes bold: 1/20 of the em, and no less than shows.
FT_Pos StrengthAt(std::int32_t pixelsPerEm) {
    return std::max(kOnePixel * 3 / 4, kOnePixel * static_cast<FT_Pos>(pixelsPerEm) / 20);
}

using ScaledFaceCache = std::map<std::tuple<FT_Face, bool, std::int32_t>, std::unique_ptr<CScaledFace>>;

ScaledFaceCache& ScaledFaces() {
    static ScaledFaceCache cache;
    return cache;
}

/// Counter-clockwise by tenths of a degree.
void Turn(FT_Outline& outline, std::int32_t escapement) {
    const double angle = EscapementRadians(escapement);
    const auto cosine = static_cast<FT_Fixed>(std::cos(angle) * 0x10000);
    const auto sine = static_cast<FT_Fixed>(std::sin(angle) * 0x10000);
    const FT_Matrix matrix{cosine, -sine, sine, cosine};
    FT_Outline_Transform(&outline, &matrix);
}

}  // namespace

bool HasGlyph(const FaceChoice& choice, char32_t character) {
    return FT_Get_Char_Index(choice.face, character) != 0;
}

std::int32_t EmForCell(const FaceChoice& choice, std::int32_t cellHeight) {
    const CellUnits units = UnitsOf(choice.face);
    const std::int32_t height = std::clamp(cellHeight, 1, kLargestCell);
    const double cell = units.ascent + units.descent;
    std::int32_t pixels = Rounded(units.em * height / cell);
    if (Rounded(cell * pixels / units.em) > height) --pixels;
    return std::max(pixels, 1);
}

CScaledFace::CScaledFace(const FaceChoice& choice, std::int32_t pixelsPerEm)
    : choice_(choice), pixelsPerEm_(std::max(pixelsPerEm, 1)) {
    const CellUnits units = UnitsOf(choice.face);
    metrics_ = MetricsAt(choice.face, units, pixelsPerEm_);
    hasHalfWidthLatin_ = HasHalfWidthLatin(choice.face);
    isFaint_ = !choice.isThickened && IsFaintlyBold(choice.face, units.em);
    if (choice.isThickened) {
        ++metrics_.averageWidth;
        ++metrics_.maxWidth;
    }
    FT_New_Size(choice.face, &size_);  // fails for want of memory alone, which is noted
    ThrowIfFontShortage();
    FT_Activate_Size(size_);
    FT_Set_Pixel_Sizes(choice.face, 0, static_cast<FT_UInt>(pixelsPerEm_));
    ThrowIfFontShortage();
}

const GlyphPicture& CScaledFace::PictureOf(char32_t character, std::int32_t escapement) {
    if (escapement == 0) return GlyphOf(character).picture;
    const auto [entry, isNew] = turned_.try_emplace({character, escapement});
    if (isNew) entry->second = LoadTurned(character, escapement);
    return entry->second;
}

const CScaledFace::Glyph& CScaledFace::GlyphOf(char32_t character) {
    const auto [entry, isNew] = upright_.try_emplace(character);
    if (isNew) entry->second = LoadUpright(character);
    return entry->second;
}

CScaledFace::Glyph CScaledFace::LoadUpright(char32_t character) {
    Glyph glyph;
    if (LoadGlyph(character, FT_LOAD_DEFAULT | FT_LOAD_NO_BITMAP)) {
        glyph.advance = Rounded(static_cast<double>(choice_.face->glyph->advance.x) / kOnePixel);
        glyph.picture = RenderLoaded(0);
    }
    if (hasHalfWidthLatin_ && character >= kFirstWide) {
        glyph.advance = 2 * (metrics_.averageWidth - (choice_.isThickened ? 1 : 0));
    }
    if (choice_.isThickened) ++glyph.advance;
    return glyph;
}

GlyphPicture CScaledFace::LoadTurned(char32_t character, std::int32_t escapement) {
    if (!LoadGlyph(character, FT_LOAD_NO_BITMAP | FT_LOAD_NO_HINTING)) return {};
    return RenderLoaded(escapement);
}

bool CScaledFace::LoadGlyph(char32_t character, std::int32_t flags) {
    FT_Activate_Size(size_);
    const bool isLoaded = FT_Load_Glyph(choice_.face, FT_Get_Char_Index(choice_.face, character), flags) == 0;
    ThrowIfFontShortage();
    return isLoaded;
}

GlyphPicture CScaledFace::RenderLoaded(std::int32_t escapement) {
    FT_GlyphSlot const slot = choice_.face->glyph;
    if (choice_.isThickened) FT_Outline_EmboldenXY(&slot->outline, kOnePixel, 0);
    if (isFaint_) FT_Outline_EmboldenXY(&slot->outline, StrengthAt(pixelsPerEm_), 0);
    if (escapement != 0) Turn(slot->outline, escapement);
    const bool isRendered = FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) == 0;
    ThrowIfFontShortage();
    if (!isRendered) return {};
    const FT_Bitmap& bitmap = slot->bitmap;
    if (bitmap.pixel_mode != FT_PIXEL_MODE_GRAY) return {};
    GlyphPicture picture;
    picture.left = slot->bitmap_left;
    picture.top = slot->bitmap_top;
    picture.width = static_cast<std::int32_t>(bitmap.width);
    picture.height = static_cast<std::int32_t>(bitmap.rows);
    for (unsigned row = 0; row < bitmap.rows; ++row) {
        const unsigned char* const bytes = bitmap.buffer + static_cast<std::ptrdiff_t>(row) * bitmap.pitch;
        picture.coverage.insert(picture.coverage.end(), bytes, bytes + bitmap.width);
    }
    return picture;
}

CScaledFace& ScaledFaceFor(const FaceChoice& choice, std::int32_t pixelsPerEm) {
    auto& entry = ScaledFaces()[{choice.face, choice.isThickened, pixelsPerEm}];
    if (entry == nullptr) entry = std::make_unique<CScaledFace>(choice, pixelsPerEm);
    return *entry;
}

void ForgetScaledFaces() {
    ScaledFaces().clear();
}

}  // namespace tradebill
