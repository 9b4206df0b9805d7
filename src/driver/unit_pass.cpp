#include "driver/unit_pass.h"

#include <string>

#include "base/day.h"
#include "base/report_error.h"
#include "driver/bill_folders.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "platform/local_time.h"
#include "readers/scan_listener.h"
#include "readers/statement_limit.h"
#include "readers/statement_loader.h"
#include "report/records.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "report/trade_units.h"

namespace tradebill {
namespace {

/// `scratch` gets the days' money records, by which later statements of a known day are passed over.
void ReadTrades(CReport& scratch, const StatementLimit& limit, TradeTally& tally) {
    CStatementLoader loader(scratch, StatementAccess::ReadAlone, limit);
    loader.WantOnlyRows(SectionKind::Trades);
    const CalendarDay today = LocalDayOf(PresentTime());
    WalkDays(scratch.ReportDays, [&](const CalendarDay& day) {
        const std::string path = StatementPath(scratch, day, day == today);
        const StatementFile file = loader.Load(DayText(day), path);
        const bool isRead = file.state == StatementState::Read || file.state == StatementState::Missing;
        if (!isRead) tally.unread.push_back({path, file.state, file.reason});
        for (const MatchRecord& trade : scratch.MatchStore.Rows) tally.units.Feed(trade);
        scratch.MatchStore.Clear();
        return true;
    });
    if (loader.TemplateProblem()) tally.unread.push_back(*loader.TemplateProblem());
}

}  // namespace

TradeTally TallyTrades(const GenerateBillRequest& request, const std::string& rootFolder, const StatementLimit& limit) {
    TradeTally tally;
    CReport scratch;
    scratch.Request = CopyRequest(request);
    if (scratch.IsForeign()) return tally;
    scratch.RootFolder = rootFolder;
    scratch.TemplatePath = TemplatePath(scratch);
    try {
        scratch.ReportDays = ReportDaysOf(scratch.Request);
        ReadTrades(scratch, limit, tally);
    } catch (const CReportError&) {
        return tally;
    }
    return tally;
}

}  // namespace tradebill
