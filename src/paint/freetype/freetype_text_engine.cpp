#include <cstdint>
#include <memory>
#include <string_view>

#include "base/control_character.h"
#include "paint/bitmap.h"
#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/freetype/font_use.h"
#include "paint/freetype/text_layout.h"
#include "paint/geometry.h"
#include "paint/raster/blend.h"
#include "paint/raster/raster.h"
#include "paint/raster/raster_canvas.h"
#include "paint/raster/text_engine.h"
#include "paint/raster/turned_text.h"

namespace tradebill {
namespace {

void BlendGlyph(CBitmap& bitmap, const Box& seen, const GlyphPicture& picture, FarPoint leftTop, std::uint32_t pixel) {
    const SeenPart rows(leftTop.y, picture.height, seen.top, seen.bottom);
    const SeenPart columns(leftTop.x, picture.width, seen.left, seen.right);
    for (std::int64_t row = rows.first; row < rows.end; ++row) {
        std::uint32_t* const target = bitmap.Row(static_cast<std::int32_t>(leftTop.y + row));
        const std::uint8_t* const coverage = picture.coverage.data() + row * picture.width;
        for (std::int64_t column = columns.first; column < columns.end; ++column) {
            std::uint32_t& under = target[leftTop.x + column];
            under = Blended(under, pixel, coverage[column]);
        }
    }
}

/// Says that something stands here, of which no face has a glyph.
void FillGlyphBox(CBitmap& bitmap, const Box& seen, FarPoint corner, FarPoint end, std::uint32_t pixel) {
    CRaster raster(bitmap);
    raster.ClipTo(seen);
    const Figure box{corner, {end.x, corner.y}, end, {corner.x, end.y}};
    raster.FillFigures({&box, 1}, FillRule::Alternate, pixel);
}

/// Without a state of its own: faces and glyphs are everybody's.
class CFreeTypeTextEngine final : public CTextEngine {
public:
    [[nodiscard]] TextExtent Measure(const Font& font, std::string_view text) override {
        return MeasureText(font, text);
    }
    [[nodiscard]] TextMetrics Metrics(const Font& font) override { return MetricsOf(font); }

    void Write(CBitmap& bitmap, const Box& seen, const Font& font, const TextLine& line) override {
        const CFontUse use;
        const std::int32_t ascent = MetricsOf(font).ascent;
        const CTurnedText places(line.leftTop, font.escapement);
        for (const PlacedGlyph& glyph : LayOutText(font, line.text)) {
            if (glyph.face == nullptr) {
                if (IsControl(glyph.character)) continue;
                FillGlyphBox(bitmap, seen, places.At(glyph.offset + 1, ascent / 4.0),
                             places.At(glyph.offset + glyph.advance - 1, ascent), line.pixel);
                continue;
            }
            const GlyphPicture& picture = glyph.face->PictureOf(glyph.character, font.escapement);
            const FarPoint base = places.At(glyph.offset, ascent);
            BlendGlyph(bitmap, seen, picture, {base.x + picture.left, base.y - picture.top}, line.pixel);
        }
    }
};

}  // namespace

std::unique_ptr<CTextEngine> MakeTextEngine() {
    return std::make_unique<CFreeTypeTextEngine>();
}

std::unique_ptr<CCanvas> MakeCanvas(CBitmap& bitmap) {
    return MakeRasterCanvas(bitmap);
}

}  // namespace tradebill
