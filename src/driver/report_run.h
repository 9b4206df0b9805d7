// One run of the module: the order of all stages, from the request to the page. GenerateBill is this with nobody
// watching.
//
// report_request.h is the face that hosts see, exports.cpp the functions behind it, host_module.h what the module keeps
// between calls; bill_folders.h tells where the files lie, report_days.h which days are read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "driver/report_request.h"
#include "readers/statement_loader.h"
#include "report/product_unit.h"

namespace tradebill {

class CPageSink;
class CReport;
class CStatementListener;

enum class RunEnd {
    Finished,
    Stopped,  ///< the host's stop was seen in the day loop; nothing was written
};

struct RunResult {
    RunEnd end = RunEnd::Finished;
    int days = 0;            ///< days walked
    int statementsRead = 0;  ///< days with a statement file; the others had none
    bool pageWritten = false;
    std::string pagePath;
    std::vector<ProductUnit> units;  ///< that the products' source says were asked for
};

/// Whoever wants to see a run go on. Called on the run's thread.
class CRunWatcher {
public:
    virtual ~CRunWatcher() = default;
    virtual void OnDay(int day, int days, std::string_view dayText) = 0;  ///< `day` counts from 1
    virtual void OnStage(std::string_view stage) = 0;  ///< in English: "statistics", "pictures", "page"
};

/// What a run is asked beside its request. A host's run asks nothing.
struct RunOptions {
    CPageSink* copy = nullptr;               ///< gets the page too; not owned, may be null
    CStatementListener* listener = nullptr;  ///< hears what readers see; not owned, may be null
    StatementAccess access = StatementAccess::ReadAndWrite;
};

/// Makes the report that `request` asks for in `report`, which is emptied first. Throws CReportError, with what had
/// been read by then in the report. `watcher` may be null.
///
/// REQUIRES: root folder, products and screen width of `report` are set.
RunResult RunReport(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher,
                    const RunOptions& options = {});

/// The same up to the statistics: nothing is written, and nobody is told. Charts can be repainted from it as after a
/// report.
RunResult ReadAccount(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher,
                      const RunOptions& options = {});

}  // namespace tradebill
