#include "cli/font_warning.h"

#include <iostream>

#include "paint/font.h"

namespace tradebill {

void WarnWithoutFonts() {
    if (HasFonts()) return;
    std::cerr << "tradebill: no font is installed; texts in pictures are boxes (README.md names the packages)\n";
}

}  // namespace tradebill
