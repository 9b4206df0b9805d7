#include "images/picture_names.h"

#include <string>
#include <string_view>

#include "report/report_document.h"

namespace tradebill {

std::string FullPicturePath(const CReportDocument& document, std::string_view picture) {
    if (document.WorkFolder.empty()) return ShownPicturePath(document, picture);
    return document.WorkFolder + "/" + std::string(picture);
}

std::string ShownPicturePath(const CReportDocument& document, std::string_view picture) {
    return document.BillFolder + "/" + document.ImageFolderName + "/" + std::string(picture);
}

}  // namespace tradebill
