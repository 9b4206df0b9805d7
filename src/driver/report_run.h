// One run of the module: the order of all stages, from the request to the page. GenerateBill is this with nobody
// watching.
//
// report_request.h is the face that hosts see, exports.cpp the functions behind it, host_module.h what the module keeps
// between calls; bill_folders.h tells where the files lie, report_days.h which days are read.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "driver/present_day.h"
#include "driver/report_request.h"
#include "driver/run_problems.h"
#include "readers/statement_limit.h"
#include "readers/statement_loader.h"
#include "report/product_unit.h"

namespace tradebill {

class CPageSink;
class CReport;
class CStatementListener;

enum class RunEnd {
    Finished,
    Stopped,      ///< the host's stop was seen in the day loop, or the watcher's; no page was written
    NothingRead,  ///< no statement could be read, and without one nothing is written; so it is with names that fail
    PlaceTaken,   ///< another program writes the same page: problems has who, and nothing was written
    Failed,       ///< by an error; what had been read is in the report, and the page as far as it was written
};

struct RunResult {
    RunEnd end = RunEnd::Finished;
    int days = 0;            ///< days walked
    int statementsRead = 0;  ///< those whose statement was read; of the others none was there, or problems has it
    int picturesSaved = 0;
    bool pageWritten = false;
    std::string pagePath;
    std::string chainPath;           ///< where the chain file was looked for; empty if the run didn't come so far
    bool readPresentDay = false;     ///< the statement of the present day was read
    bool hasLiveRecord = false;      ///< live figures, which may be empty, are the last record
    std::vector<ProductUnit> units;  ///< that the products' source says were asked for
    RunProblems problems;
};

/// Whoever wants to see a run go on. Called on the run's thread.
class CRunWatcher {
public:
    virtual ~CRunWatcher() = default;
    virtual void OnDay(int day, int days, std::string_view dayText) = 0;  ///< `day` counts from 1
    virtual void OnStage(std::string_view stage) = 0;  ///< in English: "statistics", "pictures", "page"
    /// Asked behind each of these calls: whether the run is to end there.
    [[nodiscard]] virtual bool WantsStop() const { return false; }
};

/// What a run is asked beside its request. A host's run asks nothing.
struct RunOptions {
    CPageSink* copy = nullptr;               ///< gets the page too; not owned, may be null
    CStatementListener* listener = nullptr;  ///< hears what readers see; not owned, may be null
    StatementAccess access = StatementAccess::ReadAndWrite;
    StatementLimit statementLimit = {};
    std::string outFolder = {};   ///< where page and pictures go, made if missing; empty: beside the statements
    bool needsStatement = false;  ///< nothing at all is written, and no folder made, unless a statement was read
    PresentDay present = {};
    std::string_view carriedTemplate = {};  ///< text in place of a template that isn't there; outlives the report
    /// Seconds to wait for another program that writes the same page; nothing: it isn't looked for.
    std::optional<int> wait = {};
};

/// Makes the report that `request` asks for in `report`, which is emptied first. What goes wrong is in the result, an
/// error or a lack of memory that ends the run too. `watcher` may be null.
///
/// REQUIRES: root folder, products and screen width of `report` are set.
RunResult RunReport(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher,
                    const RunOptions& options = {});

/// The same up to the statistics: nothing is written, and nobody is told. Charts can be repainted from it as after a
/// report.
RunResult ReadAccount(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher,
                      const RunOptions& options = {});

/// The same for whoever only wants what was read and worked out: charts have no sizes then.
RunResult ReadStatements(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher,
                         const RunOptions& options = {});

}  // namespace tradebill
