// Texts of several lines on any canvas, by the rules of the terminal's text boxes: what ends a line, where a line may
// be wrapped, and the '&' that underlines a character.
#pragma once

#include <string_view>

#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/geometry.h"

// CR LF, CR and LF each end a line; one at the end of the text opens no further line. A single '&' isn't shown, and the
// last one of a line underlines the character behind it; "&&" shows one. A tab is a character like any other. Lines
// stand below each other without a gap, each as high as the selected font's cell. Texts are GBK.
namespace tradebill {

/// Width of the widest line, and the height of all; no line is wrapped. 0 by 0 for an empty text.
[[nodiscard]] TextExtent MeasureTextBlock(const CCanvas& canvas, std::string_view text);

/// The left top corner of the first line at `corner`; no line is wrapped.
void WriteTextBlock(CCanvas& canvas, Point corner, std::string_view text);

/// From the left top corner of `box` on, wrapped at its right edge and hidden outside of it. Lines are wrapped at
/// blanks, which vanish there, and before and behind each double-byte character. A word that is wider than the box
/// isn't cut in two.
void WriteWrappedText(CCanvas& canvas, const Box& box, std::string_view text);

}  // namespace tradebill
