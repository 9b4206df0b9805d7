#include "images/picture_names.h"

#include "report/report_document.h"

namespace tradebill {

std::string FullPicturePath(std::string_view picture) {
    return ReportDocument.BillFolder + "/" + ReportDocument.ImageFolderName + "/" + std::string(picture);
}

}  // namespace tradebill
