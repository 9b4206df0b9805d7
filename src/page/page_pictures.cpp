#include "page/page_pictures.h"

#include <algorithm>

#include "page/page_text.h"
#include "statement/report_document.h"

namespace tradebill {

std::string PagePicturePath(std::string_view picture) {
    return Joined(ReportDocument.ImageFolderName, "\\", picture);
}

std::string ScriptPicturePath(std::string_view picture) {
    std::string path = PagePicturePath(picture);
    std::ranges::replace(path, '\\', '/');
    return path;
}

std::string FullPicturePath(std::string_view picture) {
    return Joined(ReportDocument.BillFolder, "/", ReportDocument.ImageFolderName, "/", picture);
}

}  // namespace tradebill
