// Any statements of some days as a whole run, as a host starts it: files in, page and pictures out, and the charts
// painted once more in another size.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <string>
#include <string_view>

#include "base/text.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "fuzz_statement.h"
#include "fuzz_target.h"
#include "images/account_charts.h"
#include "images/chart_kinds.h"
#include "images/picture_names.h"
#include "images/report_images.h"
#include "paint/bitmap.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"
#include "report/report.h"
#include "report/request_copy.h"

namespace tradebill {
namespace {

constexpr int kMostDays = 3;
constexpr std::int32_t kResolutions[] = {0, 96, 120, 72, 144, 1, 192, -96, 1'000'000, INT32_MAX};
constexpr std::int32_t kScreens[] = {1920, 1, 640, 10000};

const std::string& Root() {
    static const std::string root = [] {
        std::filesystem::create_directories(FuzzFolder() + "/root/Users/u/Data/Bill");
        return FuzzFolder() + "/root";
    }();
    return root;
}

/// Days that the input has nothing for have no file.
void WriteStatements(bool isForeign, CFuzzInput& input) {
    for (int i = 0; i < kMostDays; ++i) {
        const std::string name = std::string("root/Users/u/Data/Bill/") + (isForeign ? "DWP" : "D") + "1.2024010" +
                                 std::to_string(2 + i) + "o.txt";
        if (input.IsEmpty()) {
            std::filesystem::remove(FuzzFolder() + "/" + name);
        } else {
            WriteFuzzFile(name, input.Text());
        }
    }
}

GenerateBillRequest RequestOf(const StatementChoice& choice, CFuzzInput& input) {
    GenerateBillRequest request = ClearedRequest();
    request.StatementFormat = choice.format;
    request.StatementKind = choice.kind;
    request.Dpi = RowOf(kResolutions, input);
    request.MarginOffsetFlag = static_cast<std::int32_t>(input.Choice(2));
    CopyField(request.StartDate, "2024-01-02");
    CopyField(request.EndDate, "2024-01-04");
    CopyField(request.Account, "1");
    CopyField(request.UserFolder, "u");
    return request;
}

/// Every picture is there, and has the size that the report tells, or is told to be missing; nothing else is there.
void RequirePictures(const CReport& report, const RunResult& result) {
    for (const SavedPicture& picture : report.ReportDocument.SavedPictures) {
        const PictureSize size = ReadPictureSize(ShownPicturePath(report.ReportDocument, picture.name));
        Require(size == PictureSize{picture.width, picture.height}, "a saved picture is there, in its size");
    }
    for (const PictureFailure& failure : result.problems.pictures) {
        Require(failure.stage == PictureStage::Painting, "only what is too large to be painted is missing");
    }
    Require(result.picturesSaved == static_cast<int>(report.ReportDocument.SavedPictures.size()),
            "pictures that are counted are saved");
    const std::filesystem::directory_iterator files(report.ReportDocument.BillFolder + "/" +
                                                    report.ReportDocument.ImageFolderName);
    Require(std::distance(begin(files), end(files)) == result.picturesSaved, "there are no older pictures");
}

void StretchCharts(const CReport& report, CFuzzInput& input) {
    const std::int32_t width = 1 + input.Byte();
    const std::int32_t height = 1 + input.Byte();
    for (const AccountChart* const chart : AccountCharts()) {
        CBitmap bitmap(width, height, kWhite);
        const auto canvas = MakeCanvas(bitmap);
        StretchAccountChart(*canvas, report, *chart, {0, 0, width, height});
    }
}

}  // namespace

void FuzzRunWithPictures(std::string_view bytes) {
    CFuzzInput input(bytes);
    const StatementChoice choice = TakeStatementChoice(input);
    CFuzzReport made(choice, input.Choice(2) == 1);
    CReport& report = made.Get();
    report.RootFolder = Root();
    report.ScreenWidth = RowOf(kScreens, input);
    const GenerateBillRequest request = RequestOf(choice, input);
    WriteStatements(report.IsForeign(), input);
    const RunResult result = RunReport(report, request, nullptr);
    if (result.end == RunEnd::Failed) {
        Require(result.problems.error.has_value(), "a run that failed says why");
        return;
    }
    Require(result.end == RunEnd::Finished && result.pageWritten, "a run comes to its end with a page");
    RequirePictures(report, result);
    StretchCharts(report, input);
}

}  // namespace tradebill
