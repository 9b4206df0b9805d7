#include "driver/unit_pass.h"

#include <string>

#include "base/day.h"
#include "base/report_error.h"
#include "driver/bill_folders.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "readers/scan_listener.h"
#include "readers/statement_loader.h"
#include "report/records.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "report/trade_units.h"

namespace tradebill {
namespace {

/// `scratch` gets the days' money records, by which later statements of a known day are passed over.
void ReadTrades(CReport& scratch, const RunOptions& options, TradeTally& tally) {
    CStatementLoader loader(scratch, StatementAccess::ReadAlone, options.statementLimit);
    loader.WantOnlyRows(SectionKind::Trades);
    WalkDays(scratch.ReportDays, [&](const CalendarDay& day) {
        for (const std::string& path : StatementPaths(scratch, day, options.present)) {
            const StatementFile file = loader.Load(DayText(day), path);
            if (file.state == StatementState::Missing) continue;
            if (file.state != StatementState::Read) tally.unread.push_back({path, file.state, file.reason});
            break;
        }
        for (const MatchRecord& trade : scratch.MatchStore.Rows) tally.units.Feed(trade);
        scratch.MatchStore.Clear();
        return true;
    });
    if (loader.TemplateProblem()) tally.unread.push_back(*loader.TemplateProblem());
}

}  // namespace

TradeTally TallyTrades(const GenerateBillRequest& request, const std::string& rootFolder, const RunOptions& options) {
    TradeTally tally;
    CReport scratch;
    scratch.Request = CopyRequest(request);
    if (scratch.IsForeign()) return tally;
    scratch.RootFolder = rootFolder;
    scratch.TemplatePath = TemplatePath(scratch);
    scratch.CarriedTemplate = options.carriedTemplate;
    try {
        scratch.ReportDays = ReportDaysOf(scratch.Request);
        ReadTrades(scratch, options, tally);
    } catch (const CReportError&) {
        return tally;
    }
    return tally;
}

}  // namespace tradebill
