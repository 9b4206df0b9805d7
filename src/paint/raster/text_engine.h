// Texts on a bitmap: what the raster leaves to those who know glyphs. Behind it FreeType and GDI.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "paint/bitmap.h"
#include "paint/font.h"
#include "paint/geometry.h"

namespace tradebill {

/// One line of text to be written.
struct TextLine {
    std::string_view text;    ///< GBK
    Point leftTop;            ///< of its first cell; the font's escapement turns the text around it
    std::uint32_t pixel = 0;  ///< 0x00RRGGBB of its strokes
};

/// Several engines may be used by several threads at once, one engine by one thread only.
class CTextEngine {
public:
    CTextEngine() = default;
    CTextEngine(const CTextEngine&) = delete;
    CTextEngine& operator=(const CTextEngine&) = delete;
    virtual ~CTextEngine() = default;

    /// As CCanvas::MeasureText.
    [[nodiscard]] virtual TextExtent Measure(const Font& font, std::string_view text) = 0;
    [[nodiscard]] virtual TextMetrics Metrics(const Font& font) = 0;

    /// Paints the strokes alone; nothing outside of `seen` changes.
    /// REQUIRES: `seen` lies on the bitmap, and no GDI canvas is left on it.
    virtual void Write(CBitmap& bitmap, const Box& seen, const Font& font, const TextLine& line) = 0;
};

/// The one that the system has: FreeType's on Linux, GDI's on Windows.
[[nodiscard]] std::unique_ptr<CTextEngine> MakeTextEngine();

}  // namespace tradebill
