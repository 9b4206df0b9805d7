#include "cli/check_command.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <iostream>
#include <memory>
#include <vector>

#include "cli/command_table.h"
#include "cli/findings_json.h"
#include "cli/findings_text.h"
#include "cli/output_file.h"
#include "cli/report_options.h"
#include "cli/usage_error.h"
#include "cli/watched_run.h"
#include "driver/report_run.h"
#include "findings/account_findings.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "findings/statement_watch.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr std::size_t kMostPerCode = 20;

void ListCodes() {
    for (const FindingKind& kind : FindingKinds()) {
        std::cout << kind.name << " (" << SeverityName(kind.severity) << ")\n  " << kind.when << "\n  " << kind.advice
                  << "\n";
    }
}

}  // namespace

CommandRun DeclareCheck(CLI::App& app) {
    const auto command = std::make_shared<CheckCommand>();
    DeclareReportOptions(app, command->options);
    app.add_option("--json", command->jsonFile, "Write the findings as JSON")->type_name("FILE");
    app.add_flag("--quiet", command->quiet, "No progress line, and no word if nothing is wrong");
    app.add_flag("--codes", command->listsCodes, "List what can be found, and what to do about it");
    return [command] { return RunCheckCommand(*command); };
}

int RunCheckCommand(const CheckCommand& command) {
    if (command.listsCodes) {
        ListCodes();
        return kExitDone;
    }
    CheckOutputFile("--json", command.jsonFile);
    const PreparedRequest prepared = PrepareRequest(command.options);
    CReport report;
    CStatementWatch watch(report);
    if (!RunWatched(report, prepared, command.quiet, ReadAccount, {.listener = &watch})) return kExitFailed;
    const std::vector<Finding> findings = FindingsOf(report, watch);
    const auto writeJson = [&](std::ostream& out) { WriteFindingsJson(findings, out); };
    if (command.jsonFile && !SaveWhole(*command.jsonFile, writeJson)) return Fail("can't write " + *command.jsonFile);
    if (!command.quiet || !findings.empty()) PrintFindings(findings, kMostPerCode, std::cout);
    return HasWarnings(findings) ? kExitFindings : kExitDone;
}

}  // namespace tradebill
