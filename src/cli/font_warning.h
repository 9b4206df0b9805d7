// What the program says of a machine without fonts.
#pragma once

namespace tradebill {

/// Warns on stderr if no font is installed: every character would be painted as a box.
void WarnWithoutFonts();

}  // namespace tradebill
