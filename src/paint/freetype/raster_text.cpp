#include "paint/freetype/raster_text.h"

#include <cmath>
#include <mutex>
#include <numbers>

#include "paint/blend.h"
#include "paint/freetype/text_layout.h"

namespace tradebill {
namespace {

/// Places along a text and down from it, on a bitmap whose y grows downwards.
class CTurn {
public:
    CTurn(Point origin, std::int32_t escapement)
        : origin_(origin),
          cosine_(std::cos(escapement * std::numbers::pi / 1800)),
          sine_(std::sin(escapement * std::numbers::pi / 1800)) {}

    [[nodiscard]] FarPoint At(double along, double down) const {
        return {origin_.x + std::llround(along * cosine_ + down * sine_),
                origin_.y + std::llround(down * cosine_ - along * sine_)};
    }

private:
    Point origin_;
    double cosine_;
    double sine_;
};

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

}  // namespace

Figure TextCells(const Font& font, Point point, std::string_view text) {
    const TextExtent extent = MeasureText(font, text);
    const CTurn turn(point, font.escapement);
    return {turn.At(0, 0), turn.At(extent.width, 0), turn.At(extent.width, extent.height), turn.At(0, extent.height)};
}

void PaintText(CBitmap& bitmap, const Box& seen, const Font& font, Point point, std::string_view text,
               std::uint32_t pixel) {
    const std::scoped_lock guard(FontLock());
    const TextMetrics metrics = MetricsOf(font);
    const CTurn turn(point, font.escapement);
    for (const PlacedGlyph& glyph : LayOutText(font, text)) {
        if (glyph.face == nullptr) {  // a box says that something stands here
            const FarPoint corner = turn.At(glyph.offset + 1, metrics.ascent / 4.0);
            const FarPoint end = turn.At(glyph.offset + glyph.advance - 1, metrics.ascent);
            CRaster raster(bitmap);
            raster.ClipTo(seen);
            const Figure box{corner, {end.x, corner.y}, end, {corner.x, end.y}};
            raster.FillFigures({&box, 1}, FillRule::Alternate, pixel);
            continue;
        }
        const GlyphPicture& picture = glyph.face->PictureOf(glyph.character, font.escapement);
        const FarPoint base = turn.At(glyph.offset, metrics.ascent);
        BlendGlyph(bitmap, seen, picture, {base.x + picture.left, base.y - picture.top}, pixel);
    }
}

}  // namespace tradebill
