#include "cli/report_command.h"

#include <iostream>

#include "base/number.h"
#include "cli/json_writer.h"
#include "cli/output_file.h"
#include "cli/standalone_page.h"
#include "cli/usage_error.h"
#include "cli/watched_run.h"
#include "platform/desktop.h"
#include "platform/paths.h"
#include "report/report_document.h"
#include "report/request_copy.h"
#include "report/stores.h"

namespace tradebill {
namespace {

std::string CurrencyText() {
    const std::size_t currencies = CurrencyMoneyStore.Names.size();
    return currencies == 0 ? std::string() : ", " + std::to_string(currencies) + " currencies";
}

std::string DaysText(int days) {
    return std::to_string(days) + (days == 1 ? " day" : " days");
}

/// The foreign family keeps no closed rows: they are only tallied.
int ClosedRows() {
    int rows = PingDetailStore.Count();
    if (!IsForeign()) return rows;
    for (const auto& offset : ReportDocument.Offsets) rows += offset->LONG_COUNT + offset->SHORT_COUNT;
    return rows;
}

void ShowSummary(const RunResult& result) {
    std::cout << "Report from " << MoneyStore.StartDateText << " to " << MoneyStore.EndDateText << "\n"
              << "  statements read   " << result.statementsRead << " ("
              << DaysText(result.days - result.statementsRead) << " without a file)\n"
              << "  records           " << MoneyStore.Count() << " money, " << MatchStore.Count() << " trades, "
              << ClosedRows() << " closed, " << OpiDetailStore.Count() << " positions, " << OpiSumStore.Count()
              << " position sums" << CurrencyText() << "\n"
              << "  closing equity    " << CNumberText(MoneyStore.ClosingEquity).View() << "\n"
              << "  page              " << NativePath(result.pagePath) << "\n";
}

}  // namespace

int RunReportCommand(const ReportCommand& command) {
    CheckOutputFile("--json", command.jsonFile);
    CheckOutputFile("--standalone", command.standaloneFile);
    const auto result = RunWatched(PrepareRequest(command.options), command.quiet, RunReport);
    if (!result) return kExitFailed;
    if (command.jsonFile && !SaveWhole(*command.jsonFile, WriteJson)) return Fail("can't write " + *command.jsonFile);
    if (!result->pageWritten) return Fail("can't write the page " + NativePath(result->pagePath));
    if (command.standaloneFile && !WriteStandalonePage(result->pagePath, *command.standaloneFile)) {
        return Fail("can't write " + *command.standaloneFile);
    }
    if (!command.quiet) ShowSummary(*result);
    if (command.opensPage && !OpenOnDesktop(command.standaloneFile.value_or(result->pagePath))) {
        Warn("--open: this desktop has no xdg-open to show the page with");
    }
    return kExitDone;
}

}  // namespace tradebill
