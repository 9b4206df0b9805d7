#include "images/missing_fonts.h"

#include <string>

#include "base/gbk.h"
#include "base/shortage.h"
#include "paint/font.h"

namespace tradebill {

std::string WhyTextsAreBoxes() {
    try {
        if (HasFontsFor("账户权益"_gbk)) return {};
        return std::string(HasFontsFor("0") ? "no installed font has Chinese characters" : "no font is installed") +
               ": texts in pictures are boxes (docs/guide.md names the packages)";
    } catch (const CShortage&) {
        return {};
    }
}

}  // namespace tradebill
