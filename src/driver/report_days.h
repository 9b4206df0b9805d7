// The days that a run covers.
#pragma once

#include <ctime>

#include "base/day.h"
#include "driver/report_request.h"
#include "platform/local_time.h"
#include "report/request_copy.h"

namespace tradebill {

/// First and last day of a request; the present time for both if it lacks a date. The start date is checked in full
/// before the end date is looked at. Throws CReportError for a date that is none.
[[nodiscard]] ReportRange ReportDaysOf(const GenerateBillRequest& request);

/// How many steps WalkDays takes.
[[nodiscard]] int CountDays(const ReportRange& days);

/// Walks from the first day to the last in steps of a day's seconds: `onDay(const CalendarDay&)` returns whether to go
/// on. Returns false if it didn't.
template <class OnDay>
bool WalkDays(const ReportRange& days, OnDay onDay) {
    for (std::time_t cursor = days.first; cursor <= days.last; cursor += kSecondsPerDay) {
        if (!onDay(LocalDayOf(cursor))) return false;
    }
    return true;
}

}  // namespace tradebill
