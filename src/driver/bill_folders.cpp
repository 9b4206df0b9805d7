#include "driver/bill_folders.h"

#include <cstddef>

#include "platform/paths.h"
#include "platform/root_folder.h"
#include "report/report_document.h"
#include "report/request_copy.h"

namespace tradebill {
namespace {

constexpr std::size_t kLongestPath = 259;
constexpr const char* kImageFolder = "Image_files";

std::string DataFolder() {
    return RootFolder() + "/Users/" + Request.UserFolder + "/Data";
}

}  // namespace

void PrepareBillFolders() {
    for (const char* const level : {"", "/Bill", "/Bill/Image"}) {
        ReportDocument.BillFolder = DataFolder() + level;
        if (!MakeFolder(ReportDocument.BillFolder)) return;
    }
    ReportDocument.ImageFolderName = kImageFolder;
    MakeFolder(ReportDocument.BillFolder + "/" + kImageFolder);
}

std::string StatementPath(const CalendarDay& day, bool isToday) {
    const std::string path = DataFolder() + "/Bill/" + (IsForeign() ? "DWP" : "D") + Request.Account + "." +
                             DayText(day) + (isToday ? ".txt" : "o.txt");
    return path.substr(0, kLongestPath);
}

std::string PagePath() {
    return (ReportDocument.BillFolder + "/TradeBill.html").substr(0, kLongestPath);
}

}  // namespace tradebill
