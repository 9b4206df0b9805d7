// Paints the pictures of a report without loss, so that those of two systems can be compared.
// Usage: report_pixels ROOT REQUEST_INI FOLDER
// Writes each picture to FOLDER/NAME.png, and where its texts stand, black on white, to FOLDER/NAME.text.png.
#include <iostream>
#include <string>

#include "comparison/text_area_canvas.h"
#include "driver/report_run.h"
#include "images/report_images.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"
#include "platform/embedded_picture.h"
#include "platform/paths.h"
#include "report/report.h"
#include "requests/report_options.h"

namespace tradebill {
namespace {

/// `report` is as wide as a display usually is, on every system.
void ReadAccountOf(const std::string& root, const std::string& requestFile, CReport& report) {
    ReportOptions options;
    options.root = root;
    options.requestFile = requestFile;
    const PreparedRequest prepared = PrepareRequest(options);
    report.RootFolder = prepared.rootFolder;
    report.Products = prepared.products.get();
    ReadAccount(report, prepared.request, nullptr);
    report.Products = nullptr;  // the pictures ask nothing
}

bool SavePixels(const std::string& path, const ShownPicture& picture) {
    CBitmap bitmap(picture.size.width, picture.size.height, 0);
    CBitmap texts(picture.size.width, picture.size.height, kWhite);
    {
        const auto canvas = MakeCanvas(bitmap);
        const auto areas = MakeCanvas(texts);
        CTextAreaCanvas watched(*canvas, *areas);
        picture.paint(watched);
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
        CReport report;
        ReadAccountOf(arguments[1], arguments[2], report);
        bool isSaved = MakeFolders(folder);
        const int baseWidth = LoadPngResource(kBannerId).value().Width();
        ShowReportPictures(report, baseWidth, [&](const ShownPicture& picture) {
            const std::string name(picture.name.substr(0, picture.name.find('.')));
            isSaved = SavePixels(folder + "/" + name, picture) && isSaved;
        });
        return isSaved ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "report_pixels: " << error.what() << "\n";
        return 1;
    }
}
