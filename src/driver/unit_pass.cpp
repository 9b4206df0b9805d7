#include "driver/unit_pass.h"

#include <string>

#include "base/day.h"
#include "base/report_error.h"
#include "driver/bill_folders.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "platform/local_time.h"
#include "readers/scan_listener.h"
#include "readers/statement_loader.h"
#include "report/records.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "report/trade_units.h"

namespace tradebill {
namespace {

/// `scratch` gets the days' money records, by which later statements of a known day are passed over.
void ReadTrades(CReport& scratch, CTradeUnits& units) {
    CStatementLoader loader(scratch, StatementAccess::ReadAlone);
    loader.WantOnlyRows(SectionKind::Trades);
    const CalendarDay today = LocalDayOf(PresentTime());
    WalkDays(scratch.ReportDays, [&](const CalendarDay& day) {
        loader.Load(DayText(day), StatementPath(scratch, day, day == today));
        for (const MatchRecord& trade : scratch.MatchStore.Rows) units.Feed(trade);
        scratch.MatchStore.Clear();
        return true;
    });
}

}  // namespace

CTradeUnits TallyTrades(const GenerateBillRequest& request, const std::string& rootFolder) {
    CTradeUnits units;
    CReport scratch;
    scratch.Request = CopyRequest(request);
    if (scratch.IsForeign()) return units;
    scratch.RootFolder = rootFolder;
    scratch.TemplatePath = TemplatePath(scratch);
    try {
        scratch.ReportDays = ReportDaysOf(scratch.Request);
        ReadTrades(scratch, units);
    } catch (const CReportError&) {
        return units;
    }
    return units;
}

}  // namespace tradebill
