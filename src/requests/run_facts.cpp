#include "requests/run_facts.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "export/file_digest.h"
#include "export/run_json.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "readers/scan_listener.h"
#include "readers/statement_loader.h"
#include "report/report.h"
#include "requests/report_options.h"

namespace tradebill {
namespace {

constexpr std::string_view kTemplateLayout = "template";

bool IsTold(const std::string& path, const RunProblems& problems) {
    return std::ranges::find(problems.inputs, path, &UnreadFile::path) != problems.inputs.end();
}

std::optional<FileDigest> DigestOrReason(const std::string& path, bool mayLack, std::vector<UnreadFile>& unread) {
    auto digest = DigestOfFile(path);
    if (digest) return digest;
    const auto error = LastSystemError();
    if (!mayLack || !MeansMissing(error)) unread.push_back({.path = path, .reason = SystemErrorText(error)});
    return std::nullopt;
}

}  // namespace

void CStatementLog::OnStatement(std::string_view day, const std::string& path, const StatementFile& file) {
    if (file.state == StatementState::Read) {
        statements_.push_back({.day = std::string(day), .layout = {}, .file = DigestOfBytes(path, file.bytes)});
    }
    next_.OnStatement(day, path, file);
}

void CStatementLog::OnTemplate(const TemplateSeen& seen) {
    if (seen.outcome == TemplateSeen::Outcome::Read) statements_.back().layout = kTemplateLayout;
    next_.OnTemplate(seen);
}

void CStatementLog::OnReader(std::string_view layout) {
    statements_.back().layout = layout;
    next_.OnReader(layout);
}

RunFacts FactsOf(const CReport& report, const PreparedRequest& prepared, const RunResult& result,
                 const CStatementLog& log, std::vector<UnreadFile>& unread) {
    RunFacts facts{
        .days = result.days, .statements = log.Statements(), .inputs = prepared.inputs, .page = std::nullopt};
    const auto add = [&](const char* kind, const std::string& path, bool mayLack) {
        if (IsTold(path, result.problems)) return false;
        const auto digest = DigestOrReason(path, mayLack, unread);
        if (digest) facts.inputs.push_back({kind, *digest});
        return digest.has_value();
    };
    const bool usedTemplate =
        std::ranges::find(facts.statements, kTemplateLayout, &StatementRead::layout) != facts.statements.end();
    add("chains", result.chainPath, report.ChainTable.Chains.empty());
    const bool isCarried = !report.CarriedTemplate.empty();
    const bool hasFile = !report.IsForeign() && add("template", report.TemplatePath, !usedTemplate || isCarried);
    if (usedTemplate && isCarried && !hasFile) {
        facts.inputs.push_back(
            {"carriedTemplate", DigestOfBytes(FileNameOf(report.TemplatePath), report.CarriedTemplate)});
    }
    if (result.pageWritten) facts.page = DigestOrReason(result.pagePath, false, unread);
    return facts;
}

}  // namespace tradebill
