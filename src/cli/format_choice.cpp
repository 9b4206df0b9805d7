#include "cli/format_choice.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/day.h"
#include "base/number.h"
#include "cli/usage_error.h"
#include "driver/bill_folders.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "driver/run_problems.h"
#include "platform/file.h"
#include "platform/local_time.h"
#include "readers/layout_marks.h"
#include "readers/layout_table.h"
#include "readers/statement_limit.h"
#include "report/account_key.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "report/statement_format.h"

namespace tradebill {
namespace {

std::string KnownFormats() {
    return FormatNumbers() + " or auto";
}

}  // namespace

std::int32_t KindNumber(const std::optional<std::string>& kind) {
    const std::string text = kind.value_or(std::string(KindName(false)));
    if (text == KindName(false)) return 1;
    if (text == KindName(true)) return kForeignKind;
    throw CUsageError("--kind: expected domestic or foreign, found \"" + text + "\"");
}

std::int32_t FormatNumber(const std::optional<std::string>& format, bool hasTemplate) {
    if (!format || format->empty()) {
        throw CUsageError("--format is missing: expected " + KnownFormats() +
                          ", the broker's layout (tradebill layouts lists them)");
    }
    const auto number = WholeNumber(*format);
    if (!number || (!IsKnownFormat(*number) && !hasTemplate)) {
        throw CUsageError("--format: expected " + KnownFormats() +
                          ", or another number together with --template, found \"" + *format + "\"");
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

PickedFormat PickFormat(const GenerateBillRequest& request, const std::string& rootFolder,
                        const StatementLimit& limit) {
    CReport report;
    report.Request = CopyRequest(request);
    report.RootFolder = rootFolder;
    const CalendarDay today = LocalDayOf(PresentTime());
    std::optional<PickedFormat> picked;
    RunProblems problems;
    CFileBuffer buffer;
    WalkDays(ReportDaysOf(report.Request), [&](const CalendarDay& day) {
        const std::string path = StatementPath(report, day, day == today);
        if (auto tooLarge = WhyTooLarge(path, limit)) {
            problems.statements.push_back({DayText(day), path, FileState::Unreadable, *std::move(tooLarge)});
            return true;
        }
        const FileContent file = ReadWholeFile(path, buffer);
        if (file.state != FileState::Read) {
            if (file.state != FileState::Missing) {
                problems.statements.push_back({DayText(day), path, file.state, file.reason});
            }
            return true;
        }
        const std::string_view text = file.bytes.substr(0, file.bytes.find('\0'));
        const std::int32_t format = FormatByMarks(text, path);
        picked = {format, std::string(FindLayout(format, text)->name), path};
        return false;
    });
    if (picked) return *picked;
    if (!problems.IsEmpty()) throw CNothingReadable("--format auto: " + ProblemTexts(problems).front());
    throw CUsageError("--format auto: no statement was found in the whole range: expected a number instead of auto");
}

}  // namespace tradebill
