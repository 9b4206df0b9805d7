// Fonts and how large texts come out in them, by the rules of the device contexts that the charts were designed on. Any
// number of threads may ask at once. Where the system is short of memory or of files that may be open, the question
// throws std::bad_alloc; the next one begins anew.
#pragma once

#include <cstdint>
#include <string_view>

namespace tradebill {

struct Font {
    std::string_view face;        ///< family name, ASCII or GBK. REQUIRES: it outlives the font
    std::int32_t cellHeight = 0;  ///< pixels, ascent and descent together; the nearest whole size that fits is taken
    std::int32_t weight = 400;    ///< 400 normal; 600 and more bold
    std::int32_t escapement = 0;  ///< tenths of a degree, counter-clockwise
    bool operator==(const Font&) const = default;
};

struct TextExtent {
    std::int32_t width = 0;   ///< pixels
    std::int32_t height = 0;  ///< pixels, the font's own cell height
};

/// In pixels. The cell is often a little smaller than asked for.
struct TextMetrics {
    std::int32_t height = 0;  ///< ascent and descent
    std::int32_t ascent = 0;
    std::int32_t descent = 0;
    std::int32_t internalLeading = 0;
    std::int32_t averageWidth = 0;  ///< as the font file says, which isn't the width of a digit
    std::int32_t maxWidth = 0;
};

/// Width and height of a GBK text on one line, whatever its direction: the sum of whole advances, no kerning. A
/// character that the face lacks is measured in a face that has it; without any font each counts as a box. A control
/// character that the face lacks is a blank, as wide as its space.
[[nodiscard]] TextExtent MeasureText(const Font& font, std::string_view text);

[[nodiscard]] TextMetrics MetricsOf(const Font& font);

/// Whether installed fonts have all characters of a GBK text; those that they lack are painted as boxes.
[[nodiscard]] bool HasFontsFor(std::string_view text);

}  // namespace tradebill
