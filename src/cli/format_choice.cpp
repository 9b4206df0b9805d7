#include "cli/format_choice.h"

#include <ctime>
#include <utility>

#include "base/day.h"
#include "base/text.h"
#include "cli/input_ini.h"
#include "cli/usage_error.h"
#include "driver/bill_folders.h"
#include "platform/file.h"
#include "platform/local_time.h"
#include "readers/layout_marks.h"
#include "readers/statement_loader.h"
#include "report/request_copy.h"

namespace tradebill {
namespace {

constexpr const char* kFormats = "0, 1, 2, 3, 6, 201 or auto";

/// Puts another request in the place of the copy for as long as it lives.
class CBorrowedRequest {
public:
    explicit CBorrowedRequest(const GenerateBillRequest& request) : kept_(Request) { CopyRequest(request); }
    ~CBorrowedRequest() { Request = kept_; }
    CBorrowedRequest(const CBorrowedRequest&) = delete;
    CBorrowedRequest& operator=(const CBorrowedRequest&) = delete;

private:
    GenerateBillRequest kept_;
};

/// First and last day as a run takes them: without both dates, today.
std::pair<std::time_t, std::time_t> RangeOf(const GenerateBillRequest& request) {
    const std::string_view start = FieldText(request.StartDate);
    const std::string_view end = FieldText(request.EndDate);
    if (start.empty() || end.empty()) return {PresentTime(), PresentTime()};
    return {MidnightOf(ParseDashedDay(start)), MidnightOf(ParseDashedDay(end))};
}

}  // namespace

std::int32_t KindNumber(const std::optional<std::string>& kind) {
    const std::string text = kind.value_or("domestic");
    if (text == "domestic") return 1;
    if (text == "foreign") return kForeignKind;
    throw CUsageError("--kind: expected domestic or foreign, found \"" + text + "\"");
}

std::int32_t FormatNumber(const std::optional<std::string>& format, bool hasTemplate) {
    if (!format || format->empty()) {
        throw CUsageError(std::string("--format is missing: expected ") + kFormats +
                          ", the broker's layout (tradebill layouts lists them)");
    }
    const auto number = WholeNumber(*format);
    if (!number || (!IsKnownFormat(*number) && !hasTemplate)) {
        throw CUsageError(std::string("--format: expected ") + kFormats +
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
                          (isForeign ? "--kind foreign, which it looks like" : "a number instead of auto"));
    }
    std::string formats;
    for (const Layout* const layout : likely) {
        formats +=
            (formats.empty() ? "" : ", ") + std::to_string(layout->format) + " (" + std::string(layout->name) + ")";
    }
    throw CUsageError("--format auto: " + file + " may be of several layouts: expected one of " + formats);
}

PickedFormat PickFormat(const GenerateBillRequest& request) {
    const CBorrowedRequest borrowed(request);
    const CalendarDay today = LocalDayOf(PresentTime());
    const auto [first, last] = RangeOf(request);
    for (std::time_t cursor = first; cursor <= last; cursor += kSecondsPerDay) {
        const CalendarDay day = LocalDayOf(cursor);
        const std::string path = StatementPath(day, day == today);
        const auto text = ReadStatementFile(path);
        if (!text) continue;
        const std::int32_t format = FormatByMarks(*text, path);
        return {format, std::string(FindLayout(format, *text)->name), path};
    }
    throw CUsageError("--format auto: no statement was found in the whole range: expected a number instead of auto");
}

}  // namespace tradebill
