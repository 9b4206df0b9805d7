// Paints the pictures of a report without loss, so that those of two systems can be compared.
// Usage: report_pixels ROOT REQUEST_INI FOLDER
// Writes each picture to FOLDER/NAME.png, and where its texts stand, black on white, to FOLDER/NAME.text.png.
#include <iostream>
#include <string>

#include "cli/report_options.h"
#include "comparison/text_area_canvas.h"
#include "driver/report_run.h"
#include "images/report_images.h"
#include "paint/picture_file.h"
#include "platform/embedded_picture.h"
#include "platform/paths.h"
#include "platform/screen.h"

namespace tradebill {
namespace {

void ReadAccountOf(const std::string& root, const std::string& requestFile) {
    ReportOptions options;
    options.root = root;
    options.requestFile = requestFile;
    SetScreenWidthPixels(1920);
    ReadAccount(PrepareRequest(options).request, nullptr);
}

bool SavePixels(const std::string& path, const PictureSize& size, const PicturePainter& paint) {
    CBitmap bitmap(size.width, size.height, 0);
    CBitmap texts(size.width, size.height, kWhite);
    {
        const auto canvas = MakeCanvas(bitmap);
        const auto areas = MakeCanvas(texts);
        CTextAreaCanvas watched(*canvas, *areas);
        paint(watched);
    }
    return SavePng(bitmap, path + ".png") && SavePng(texts, path + ".text.png");
}

}  // namespace
}  // namespace tradebill

int main(int count, char** arguments) {
    using namespace tradebill;
    if (count != 4) {
        std::cerr << "usage: report_pixels ROOT REQUEST_INI FOLDER\n";
        return 2;
    }
    try {
        const std::string folder = arguments[3];
        ReadAccountOf(arguments[1], arguments[2]);
        bool isSaved = MakeFolders(folder);
        const int baseWidth = LoadPngResource(kBannerId).value().Width();
        ShowReportPictures(baseWidth, [&](std::string_view name, const PictureSize& size, const PicturePainter& paint) {
            isSaved = SavePixels(folder + "/" + std::string(name.substr(0, name.find('.'))), size, paint) && isSaved;
        });
        return isSaved ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "report_pixels: " << error.what() << "\n";
        return 1;
    }
}
