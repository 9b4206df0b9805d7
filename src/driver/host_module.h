// What the module keeps between the calls of its host: the one report that GenerateBill fills and the repaint functions
// read, and what was set beside it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "driver/host_products.h"
#include "driver/last_call.h"
#include "report/report.h"

namespace tradebill {

struct HostModule {
    CReport report;
    CHostProducts products{report.Request};
    CLastCall lastCall;
    std::optional<std::string> rootFolder;  ///< nothing: the folder of the executable
    bool hasLostRoot = false;               ///< one was set, and there was no memory to keep it
    std::int32_t screenWidth = 0;           ///< pixels; below 1: that of the display

    /// The report, ready for a run: with root folder, products and screen width as they are set now. Throws
    /// std::bad_alloc, too if the root folder was lost.
    [[nodiscard]] CReport& ReportForRun();

    /// The report of the last run, ready for a chart: with the screen width as it is now.
    [[nodiscard]] const CReport& ReportForChart();
};

/// The module's own, static like the module.
///
/// REQUIRES: one call of the host at a time, but for those that ask for the last one's outcome.
[[nodiscard]] HostModule& TheModule();

}  // namespace tradebill
