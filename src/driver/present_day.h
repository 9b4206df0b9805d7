// What the present day is to a run: its statement bears another name than those of finished days, and a report that
// ends with it gets the host's live figures.
#pragma once

#include "base/day.h"
#include "platform/local_time.h"

namespace tradebill {

/// Runs of hosts go by the defaults.
struct PresentDay {
    CalendarDay day = LocalDayOf(PresentTime());
    bool mayBeFinished = false;  ///< its statement may bear the name of a finished day, and is looked for there first
    bool hasLiveFigures = true;  ///< those of the request are figures, and not empty for want of any
};

}  // namespace tradebill
