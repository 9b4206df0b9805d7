// A run of the module for a request that was made of options.
#pragma once

#include "driver/report_request.h"
#include "driver/report_run.h"
#include "requests/report_options.h"

namespace tradebill {

class CReport;

/// RunReport, ReadAccount or ReadStatements.
using RunFunction = RunResult(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher,
                              const RunOptions& options);

/// Runs `prepared` in `report`. Statements are opened for reading alone, whatever `options` says. The report's products
/// are those of `prepared`, which must outlive it; the account's trades are tallied for them first, if they have a say,
/// and what only that look couldn't read is among the problems. `watcher` may be null.
[[nodiscard]] RunResult RunPrepared(CReport& report, const PreparedRequest& prepared, CRunWatcher* watcher,
                                    RunFunction* run, RunOptions options);

}  // namespace tradebill
