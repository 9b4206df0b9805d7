#include "driver/bill_folders.h"

#include <cstddef>
#include <string>
#include <vector>

#include "base/day.h"
#include "base/text.h"
#include "driver/run_problems.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "report/report.h"
#include "report/report_document.h"

namespace tradebill {
namespace {

constexpr std::size_t kLongestChainPath = 255;
constexpr const char* kImageFolder = "Image_files";

std::string DataFolder(const CReport& report) {
    return report.RootFolder + "/Users/" + report.Request.UserFolder + "/Data";
}

/// The page's folder and those above it that a run makes, the outermost first.
std::vector<std::string> PageFolders(const CReport& report, const std::string& outFolder) {
    if (!outFolder.empty()) return {outFolder};
    const std::string data = DataFolder(report);
    return {data, data + "/Bill", data + "/Bill/Image"};
}

UnwrittenFile WhyNotMade(const std::string& folder) {
    return {folder, SystemErrorText(LastSystemError())};
}

}  // namespace

std::vector<UnwrittenFile> PrepareBillFolders(CReport& report, const std::string& outFolder) {
    CReportDocument& document = report.ReportDocument;
    for (const std::string& level : PageFolders(report, outFolder)) {
        document.BillFolder = level;
        if (!MakeFolder(level)) return {WhyNotMade(level)};
    }
    document.ImageFolderName = kImageFolder;
    const std::string pictures = document.BillFolder + "/" + kImageFolder;
    if (MakeFolder(pictures)) return {};
    return {WhyNotMade(pictures)};
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
