#include "page/page_pictures.h"

#include <algorithm>

#include "page/page_text.h"
#include "report/report_document.h"
#include "report/request_copy.h"

namespace tradebill {

std::string PagePicturePath(std::string_view picture) {
    return Joined(ReportDocument.ImageFolderName, "\\", picture);
}

std::string ScriptPicturePath(std::string_view picture) {
    std::string path = PagePicturePath(picture);
    std::ranges::replace(path, '\\', '/');
    return path;
}

PictureSize SizeOf(std::string_view picture) {
    return ReadPictureSize(FullPicturePath(picture));
}

PictureSize ScaledSizeOf(std::string_view picture) {
    const PictureSize size = SizeOf(picture);
    return {ScaleByRequest(size.width), ScaleByRequest(size.height)};
}

TextExtent MeasureTitle(std::string_view title) {
    return MeasureText({.face = "Arial", .cellHeight = ScaleByRequest(16), .weight = 600}, title);
}

}  // namespace tradebill
