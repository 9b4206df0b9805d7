#include "page/page_form.h"

#include <string>
#include <string_view>

#include "page/page_pictures.h"
#include "page/page_scripts.h"
#include "page/page_text.h"

namespace tradebill {

std::string CPageForm::PictureAddress(const CReport& report, std::string_view picture) const {
    return PagePicturePath(report, picture);
}

std::string_view CPageForm::LinkAddress(std::string_view script) const {
    return script;
}

std::string CPageForm::FoldAttribute(const CReport& /*report*/, std::string_view function) const {
    return Joined("onclick = \"", function, "()\"");
}

std::string_view CPageForm::UnmarkableAttribute() const {
    return "onselectstart=\"return false;\"";
}

std::string CPageForm::Scripts(const CReport& report) const {
    return FoldScripts(report);
}

}  // namespace tradebill
