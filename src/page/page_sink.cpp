#include "page/page_sink.h"

#include <string>
#include <string_view>

#include "page/page_pictures.h"

namespace tradebill {

std::string CPictureLinks::InPage(const CReport& report, std::string_view picture) const {
    return PagePicturePath(report, picture);
}

std::string CPictureLinks::InScript(const CReport& report, std::string_view picture) const {
    return ScriptPicturePath(report, picture);
}

}  // namespace tradebill
