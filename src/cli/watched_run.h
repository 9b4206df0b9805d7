// A run of the module as the program makes it: with warnings, a progress line, and words for what went wrong.
#pragma once

#include <optional>
#include <string>

#include "driver/report_request.h"
#include "driver/report_run.h"
#include "requests/prepared_run.h"
#include "requests/report_options.h"

namespace tradebill {

class CAwaitedWork;

/// The exit code of a command whose pictures are painted: says what fonts keep from them.
[[nodiscard]] int FinishPainting();

/// Tells what the request's options were warned of, runs it in `report`, and tells all that went wrong on the way;
/// warns if there was nothing to read: as RunPrepared. Nothing if an error ended the run, which is told. What was
/// passed over by ReadStatements is left for findings to tell, but for chain file and template. `work` may be null:
/// nobody is told notes and progress, or whose warnings they are. Throws CStoppedWork.
[[nodiscard]] std::optional<RunResult> RunWatched(CReport& report, const PreparedRequest& prepared, CAwaitedWork* work,
                                                  RunFunction* run, const RunOptions& options = {});

/// Says that nothing was written because no statement could be read, and `advice`. Returns the program's exit code:
/// that of wrong use if none was there.
int FailWithoutStatement(const RunResult& result, const std::string& advice);

}  // namespace tradebill
