// The bytes of a text, in whatever encoding and with whatever line ends, as statements are kept: GBK and CRLF.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

struct DecodedText {
    std::string text = {};           ///< GBK; each line end is CRLF, and none is added at the end
    std::string_view encoding = {};  ///< "GBK", "GB18030", "UTF-8", "UTF-8 with a mark", "UTF-16LE" ...; empty: none
    std::string replaced = {};       ///< what was replaced by "?" and where, a sentence in UTF-8; empty: nothing
    std::string refusal = {};        ///< why there is no text, a sentence in UTF-8; empty: there is
};

/// Decodes all bytes of a file. A character that GBK lacks becomes "?" in a line without figures and refuses the text
/// in a line with them; bytes that are no characters refuse it too.
[[nodiscard]] DecodedText DecodeText(std::string_view bytes);

/// Whether `line` of GBK text says more than names: an amount, which is a number with one decimal point, or a row with
/// three cells that are numbers. The line with an account's number isn't one, for the rarest of names stand in it.
[[nodiscard]] bool HasFigures(std::string_view line);

}  // namespace tradebill
