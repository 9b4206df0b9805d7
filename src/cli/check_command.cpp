#include "cli/check_command.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <iostream>
#include <memory>
#include <vector>

#include "cli/awaited_work.h"
#include "cli/command_table.h"
#include "cli/findings_text.h"
#include "cli/output_file.h"
#include "cli/report_arguments.h"
#include "cli/voice.h"
#include "cli/watched_run.h"
#include "driver/report_run.h"
#include "export/findings_json.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "report/report.h"
#include "requests/report_options.h"
#include "requests/run_findings.h"
#include "requests/usage_error.h"

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
    app.add_option("--json", command->jsonFile, "Write the findings as JSON; - for standard output")->type_name("FILE");
    app.add_flag("--quiet", command->quiet, "No progress line, and no word if nothing is wrong");
    app.add_flag("--codes", command->listsCodes, "List what can be found, and what to do about it");
    return [command] { return RunCheckCommand(*command); };
}

int RunCheckCommand(const CheckCommand& command) {
    if (command.listsCodes) {
        ListCodes();
        return kExitDone;
    }
    CAwaitedWork work(command.quiet);
    const auto json = FindOutput("--json", command.jsonFile);
    const PreparedRequest prepared = PrepareRequest(command.options);
    CReport report;
    CRunFindings faults(report, prepared);
    faults.ReadSideRows();
    const auto result = RunWatched(report, prepared, &work, ReadStatements, {.listener = faults.Listener()});
    if (!result) return kExitFailed;
    const std::vector<Finding> findings = faults.Collect(*result);
    if (result->statementsRead == 0 && result->problems.statements.empty()) {
        return FailWithoutStatement(*result, "there is nothing to check");
    }
    const auto writeJson = [&](std::ostream& out) {
        WriteFindingsJson(findings, out);
        return true;
    };
    if (json) work.BeginFile(json->Name());
    if (json && !json->Save(writeJson)) return Fail("can't write " + json->Name());
    work.Rest();
    if (!command.quiet || HasWarnings(findings)) PrintFindings(findings, kMostPerCode, SummaryStream({json}));
    if (!result->problems.inputs.empty() || !faults.IsComplete()) return kExitFailed;
    return HasWarnings(findings) ? kExitFindings : kExitDone;
}

}  // namespace tradebill
