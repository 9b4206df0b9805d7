#include "requests/run_inputs.h"

#include <string>
#include <string_view>

#include "base/day.h"
#include "driver/bill_folders.h"
#include "driver/report_days.h"
#include "export/file_digest.h"
#include "export/run_json.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "platform/sha256.h"
#include "readers/statement_limit.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "requests/report_options.h"

namespace tradebill {
namespace {

/// A line of the list whose digest is asked.
void AddLine(CSha256& list, std::string_view what, const std::string& name, std::string_view content) {
    list.Add(std::string(what).append("\t").append(name).append("\t").append(content).append("\n"));
}

/// Adds the file; false if there is none. One beyond `limit` isn't read, and told by its size.
bool AddFile(CSha256& list, std::string_view what, const std::string& path, CFileBuffer& buffer,
             const StatementLimit& limit = {}) {
    if (const auto tooLarge = WhyTooLarge(path, limit)) {
        AddLine(list, what, FileNameOf(path), "unread " + *tooLarge);
        return true;
    }
    const FileContent file = ReadWholeFile(path, buffer);
    switch (file.state) {
        case FileState::Missing:
            return false;
        case FileState::Read:
            AddLine(list, what, FileNameOf(path), DigestOfBytes(path, file.bytes).sha256);
            return true;
        case FileState::NotAFile:
        case FileState::Unreadable:
            AddLine(list, what, FileNameOf(path), "unread " + file.reason);
            return true;
    }
    return true;
}

}  // namespace

std::string InputsDigest(const PreparedRequest& prepared) {
    CSha256 list;
    CFileBuffer buffer;
    CReport report;
    report.Request = CopyRequest(prepared.request);
    report.RootFolder = prepared.rootFolder;
    for (const InputRead& input : prepared.inputs) AddLine(list, input.kind, input.file.file, input.file.sha256);
    AddFile(list, "chains", ChainPath(report), buffer);
    if (!report.IsForeign() && report.Request.TemplateName[0] != '\0') {
        if (!AddFile(list, "template", TemplatePath(report), buffer)) {
            AddLine(list, "carriedTemplate", "", DigestOfBytes("", prepared.carriedTemplate).sha256);
        }
    }
    WalkDays(ReportDaysOf(report.Request), [&](const CalendarDay& day) {
        const std::string text = DayText(day);
        for (const std::string& path : StatementPaths(report, day, prepared.present)) {
            if (AddFile(list, text, path, buffer, prepared.statementLimit)) break;
        }
        return true;
    });
    return list.Digest();
}

}  // namespace tradebill
