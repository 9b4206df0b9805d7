#include "driver/report_days.h"

#include <ctime>
#include <string_view>

#include "base/day.h"
#include "base/text.h"
#include "driver/report_request.h"
#include "platform/local_time.h"
#include "report/request_copy.h"

namespace tradebill {

ReportRange ReportDaysOf(const GenerateBillRequest& request) {
    const std::string_view start = FieldText(request.StartDate);
    const std::string_view end = FieldText(request.EndDate);
    if (start.empty() || end.empty()) {
        const std::time_t now = PresentTime();
        return {now, now};
    }
    const std::time_t first = MidnightOf(ParseDashedDay(start));
    const std::time_t last = MidnightOf(ParseDashedDay(end));
    return {first, last};
}

int CountDays(const ReportRange& days) {
    const std::time_t span = days.last - days.first;
    return span < 0 ? 0 : static_cast<int>(span / kSecondsPerDay) + 1;
}

}  // namespace tradebill
