// How large a text comes out in a font, for what the page places beside it.
#pragma once

#include <string_view>

namespace tradebill {

struct TextExtent {
    int width = 0;   ///< pixels
    int height = 0;  ///< pixels, the font's cell height
};

struct FontRequest {
    std::string_view face;  ///< family name, ASCII or GBK
    int cellHeight;         ///< pixels, ascent and descent together
    int weight;             ///< 400 normal, 600 and more bold
};

/// Width and height of a GBK text on one line. A character that the face lacks is measured in a face that has it;
/// without any font each character counts as a box.
[[nodiscard]] TextExtent MeasureText(const FontRequest& font, std::string_view text);

}  // namespace tradebill
