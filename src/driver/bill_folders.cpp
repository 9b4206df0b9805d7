#include "driver/bill_folders.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/day.h"
#include "base/text.h"
#include "driver/present_day.h"
#include "driver/report_request.h"
#include "driver/run_problems.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "report/account_key.h"
#include "report/report.h"
#include "report/report_document.h"
#include "report/statement_name.h"

namespace tradebill {
namespace {

constexpr std::size_t kLongestChainPath = 255;
constexpr const char* kImageFolder = "Image_files";

constexpr const char* kPageFolder = "/Bill/Image";  // below the data folder

std::string DataFolder(const std::string& rootFolder, const GenerateBillRequest& request) {
    return rootFolder + "/Users/" + std::string(FieldText(request.UserFolder)) + "/Data";
}

std::string DataFolder(const CReport& report) {
    return DataFolder(report.RootFolder, report.Request);
}

std::string PageIn(const std::string& folder) {
    return (folder + "/TradeBill.html").substr(0, kLongestPath);
}

/// A folder that a run makes.
struct FolderLevel {
    std::string path;
    bool mayBeLink;
};

/// The page's folder and those above it that a run makes, the outermost first.
std::vector<FolderLevel> PageFolders(const CReport& report, const std::string& outFolder) {
    if (!outFolder.empty()) return {{outFolder, true}};
    const std::string data = DataFolder(report);
    return {{data, true}, {data + "/Bill", true}, {data + kPageFolder, false}};
}

/// Nothing if the folder is there, and may be used.
std::optional<UnwrittenFile> WhyNotUsed(const FolderLevel& level) {
    if (!MakeFolder(level.path)) return UnwrittenFile{level.path, SystemErrorText(LastSystemError())};
    ForgetSystemError();
    if (level.mayBeLink || !IsLink(level.path)) return std::nullopt;
    const std::uint32_t error = LastSystemError();
    return UnwrittenFile{level.path, error == 0 ? "it is a link" : SystemErrorText(error)};
}

}  // namespace

BillFolders PrepareBillFolders(CReport& report, const std::string& outFolder) {
    CReportDocument& document = report.ReportDocument;
    for (const FolderLevel& level : PageFolders(report, outFolder)) {
        document.BillFolder = level.path;
        if (const auto failure = WhyNotUsed(level)) return {.failures = {*failure}, .reason = failure->reason};
    }
    document.ImageFolderName = kImageFolder;
    const std::string pictures = document.BillFolder + "/" + kImageFolder;
    const auto failure = WhyNotUsed({pictures, false});
    if (!failure) return {.forPage = true, .forPictures = true};
    // What can't be used may still hold pictures of an older report, which the page would show.
    return {.forPage = !MayBeFolder(pictures), .failures = {*failure}, .reason = failure->reason};
}

std::string StatementPath(const CReport& report, const CalendarDay& day, bool isToday) {
    const AccountKey account{
        .user = {}, .account = std::string(FieldText(report.Request.Account)), .isForeign = report.IsForeign()};
    const std::string path = DataFolder(report) + "/Bill/" +
                             StatementName(account, DayText(day), isToday ? kPresentEnding : kFinishedEnding);
    return path.substr(0, kLongestPath);
}

std::vector<std::string> StatementPaths(const CReport& report, const CalendarDay& day, const PresentDay& present) {
    if (day != present.day) return {StatementPath(report, day, false)};
    if (!present.mayBeFinished) return {StatementPath(report, day, true)};
    return {StatementPath(report, day, false), StatementPath(report, day, true)};
}

std::string ChainPath(const CReport& report) {
    const std::string path = report.RootFolder + (report.IsForeign() ? "/sys/wpchain.ini" : "/sys/chain.ini");
    return path.substr(0, kLongestChainPath);
}

std::string TemplatePath(const CReport& report) {
    return report.RootFolder + "/BillTemplate/" + std::string(FieldText(report.Request.TemplateName)) + ".ini";
}

std::string PagePath(const CReport& report) {
    return PageIn(report.ReportDocument.BillFolder);
}

std::string FuturePagePath(const std::string& rootFolder, const GenerateBillRequest& request,
                           const std::string& outFolder) {
    return PageIn(outFolder.empty() ? DataFolder(rootFolder, request) + kPageFolder : outFolder);
}

}  // namespace tradebill
