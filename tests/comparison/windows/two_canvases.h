// The raster and GDI side by side: both paint the same, and every pixel outside of texts is compared.
#pragma once

#include <cstdint>
#include <optional>

#include "comparison/text_area_canvas.h"
#include "paint/bitmap.h"
#include "paint/canvas.h"
#include "paint/raster/raster_canvas.h"

namespace tradebill {

/// What came of a comparison.
struct CanvasComparison {
    int compared = 0;            ///< pixels outside of texts
    int differing = 0;           ///< of these
    std::optional<Point> first;  ///< of these, from the top
};

/// Two bitmaps of one size, one painted by each. Texts are measured by GDI for both, so that what follows their
/// measures stands at the same places.
class CTwoCanvases {
public:
    CTwoCanvases(std::int32_t width, std::int32_t height)
        : raster_(width, height, kWhite), gdi_(width, height, kWhite), texts_(width, height, kWhite) {}

    /// `paint` takes a canvas, and is called once for each.
    template <class Paint>
    void PaintBoth(Paint paint) {
        const auto areas = MakeRasterCanvas(texts_);
        PaintOn(*MakeRasterCanvas(raster_), *areas, paint);
        PaintOn(*MakeCanvas(gdi_), *areas, paint);
    }

    [[nodiscard]] CanvasComparison Compare() const {
        CanvasComparison result;
        for (std::int32_t y = 0; y < raster_.Height(); ++y) {
            for (std::int32_t x = 0; x < raster_.Width(); ++x) {
                if (texts_.Row(y)[x] != PixelOf(kWhite)) continue;
                ++result.compared;
                if (((raster_.Row(y)[x] ^ gdi_.Row(y)[x]) & 0xFFFFFF) == 0) continue;
                ++result.differing;
                if (!result.first) result.first = Point{x, y};
            }
        }
        return result;
    }

private:
    template <class Paint>
    static void PaintOn(CCanvas& canvas, CCanvas& areas, Paint& paint) {
        CTextAreaCanvas watched(canvas, areas);
        paint(watched);
    }

    CBitmap raster_;
    CBitmap gdi_;
    CBitmap texts_;
};

}  // namespace tradebill
