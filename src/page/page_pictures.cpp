#include "page/page_pictures.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "images/picture_names.h"
#include "page/page_text.h"
#include "paint/font.h"
#include "paint/picture_file.h"
#include "report/report.h"
#include "report/report_document.h"

namespace tradebill {

std::string PagePicturePath(const CReport& report, std::string_view picture) {
    return Joined(report.ReportDocument.ImageFolderName, "\\", picture);
}

std::string ScriptPicturePath(const CReport& report, std::string_view picture) {
    std::string path = PagePicturePath(report, picture);
    std::ranges::replace(path, '\\', '/');
    return path;
}

PictureSize SizeOf(const CReport& report, std::string_view picture) {
    const std::vector<SavedPicture>& saved = report.ReportDocument.SavedPictures;
    const auto known = std::ranges::find(saved, picture, &SavedPicture::name);
    if (known != saved.end()) return {known->width, known->height};
    return ReadPictureSize(FullPicturePath(report.ReportDocument, picture));
}

PictureSize ScaledSizeOf(const CReport& report, std::string_view picture) {
    const PictureSize size = SizeOf(report, picture);
    return {report.Scaled(size.width), report.Scaled(size.height)};
}

TextExtent MeasureTitle(const CReport& report, std::string_view title) {
    return MeasureText({.face = "Arial", .cellHeight = report.Scaled(16), .weight = 600}, title);
}

}  // namespace tradebill
