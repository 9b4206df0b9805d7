#include "requests/format_choice.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/day.h"
#include "base/number.h"
#include "driver/bill_folders.h"
#include "driver/present_day.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "driver/run_problems.h"
#include "platform/file.h"
#include "readers/layout_marks.h"
#include "readers/layout_table.h"
#include "readers/statement_limit.h"
#include "report/account_key.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "report/statement_format.h"
#include "requests/layout_readings.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

std::string KnownFormats() {
    return FormatNumbers() + " or auto";
}

FileContent ReadStatementFile(const std::string& path, const StatementLimit& limit, CFileBuffer& buffer) {
    auto tooLarge = WhyTooLarge(path, limit);
    if (tooLarge) return {.state = FileState::Unreadable, .reason = *std::move(tooLarge)};
    return ReadWholeFile(path, buffer);
}

}  // namespace

std::int32_t KindNumber(const std::optional<std::string>& kind) {
    const std::string text = kind.value_or(std::string(KindName(false)));
    if (text == KindName(false)) return 1;
    if (text == KindName(true)) return kForeignKind;
    throw CUsageError("--kind: expected domestic or foreign, found \"" + text + "\"");
}

std::int32_t FormatNumber(const std::string& format, bool hasTemplate) {
    const auto number = WholeNumber(format);
    if (!number || (!IsKnownFormat(*number) && !hasTemplate)) {
        throw CUsageError("--format: expected " + KnownFormats() +
                          ", or another number together with --template, found \"" + format + "\"");
    }
    return *number;
}

std::int32_t FormatByMarks(std::string_view text, const std::string& file) {
    const auto likely = LikelyLayouts(text);
    if (likely.size() == 1) return likely.front()->format;
    if (likely.empty()) {
        const bool isForeign = !MarkedLayouts(text).empty();
        throw CUsageError("--format auto: no layout's mark stands in " + file + ": expected " +
                          (isForeign ? "--kind foreign, which it looks like"
                                     : "a number instead of auto, and --template for a layout that a template "
                                       "describes"));
    }
    std::string formats;
    for (const Layout* const layout : likely) {
        formats +=
            (formats.empty() ? "" : ", ") + std::to_string(layout->format) + " (" + std::string(layout->name) + ")";
    }
    throw CUsageError("--format auto: " + file + " may be of several layouts: expected one of " + formats);
}

/// A template of the root with the same name wins over the program's.
PickedFormat FormatOfText(std::string_view text, const TextOrigin& origin) {
    if (!origin.hasTemplate) {
        if (const auto reading = ReadByFittingTemplate(origin.rootFolder, text, origin.day))
            return {reading->format, reading->name, origin.file, reading->templateName};
    }
    const std::int32_t format = FormatByMarks(text, origin.file);
    return {format, std::string(FindLayout(format, text)->name), origin.file};
}

PickedFormat PickFormat(const GenerateBillRequest& request, const std::string& rootFolder, const StatementLimit& limit,
                        const PresentDay& present) {
    CReport report;
    report.Request = CopyRequest(request);
    report.RootFolder = rootFolder;
    std::optional<PickedFormat> picked;
    RunProblems problems;
    CFileBuffer buffer;
    WalkDays(ReportDaysOf(report.Request), [&](const CalendarDay& day) {
        for (const std::string& path : StatementPaths(report, day, present)) {
            const FileContent file = ReadStatementFile(path, limit, buffer);
            if (file.state == FileState::Missing) continue;
            if (file.state == FileState::Read) {
                const std::string_view text = file.bytes.substr(0, file.bytes.find('\0'));
                picked = FormatOfText(text, {.day = DayText(day),
                                             .file = path,
                                             .rootFolder = rootFolder,
                                             .hasTemplate = request.TemplateName[0] != '\0'});
                return false;
            }
            problems.statements.push_back({DayText(day), path, file.state, file.reason});
            break;
        }
        return true;
    });
    if (picked) return *picked;
    if (!problems.IsEmpty()) throw CNothingReadable("--format auto: " + ProblemTexts(problems).front());
    throw CNoStatement("--format auto: no statement was found in the whole range: expected a number instead of auto");
}

}  // namespace tradebill
