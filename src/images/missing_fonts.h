// Whether the pictures of a report can show their texts.
#pragma once

#include <string>

namespace tradebill {

/// Why texts in pictures are boxes, in English: no font is installed, or none with the characters of the captions;
/// empty if they aren't. Where fonts can't be looked at for want of means the pictures themselves say so, not this.
[[nodiscard]] std::string WhyTextsAreBoxes();

}  // namespace tradebill
