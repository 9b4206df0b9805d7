#include "driver/bill_folders.h"

#include <cstddef>
#include <string>

#include "base/day.h"
#include "base/text.h"
#include "platform/paths.h"
#include "report/report.h"
#include "report/report_document.h"

namespace tradebill {
namespace {

constexpr std::size_t kLongestChainPath = 255;
constexpr const char* kImageFolder = "Image_files";

std::string DataFolder(const CReport& report) {
    return report.RootFolder + "/Users/" + report.Request.UserFolder + "/Data";
}

}  // namespace

void PrepareBillFolders(CReport& report) {
    CReportDocument& document = report.ReportDocument;
    for (const char* const level : {"", "/Bill", "/Bill/Image"}) {
        document.BillFolder = DataFolder(report) + level;
        if (!MakeFolder(document.BillFolder)) return;
    }
    document.ImageFolderName = kImageFolder;
    MakeFolder(document.BillFolder + "/" + kImageFolder);
}

std::string StatementPath(const CReport& report, const CalendarDay& day, bool isToday) {
    const std::string path = DataFolder(report) + "/Bill/" + (report.IsForeign() ? "DWP" : "D") +
                             report.Request.Account + "." + DayText(day) + (isToday ? ".txt" : "o.txt");
    return path.substr(0, kLongestPath);
}

std::string ChainPath(const CReport& report) {
    const std::string path = report.RootFolder + (report.IsForeign() ? "/sys/wpchain.ini" : "/sys/chain.ini");
    return path.substr(0, kLongestChainPath);
}

std::string TemplatePath(const CReport& report) {
    return report.RootFolder + "/BillTemplate/" + std::string(FieldText(report.Request.TemplateName)) + ".ini";
}

std::string PagePath(const CReport& report) {
    return (report.ReportDocument.BillFolder + "/TradeBill.html").substr(0, kLongestPath);
}

}  // namespace tradebill
