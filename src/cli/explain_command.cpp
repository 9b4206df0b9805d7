#include "cli/explain_command.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/report_error.h"
#include "cli/command_table.h"
#include "cli/report_arguments.h"
#include "cli/statement_day.h"
#include "findings/layout_hint.h"
#include "platform/file.h"
#include "readers/layout_marks.h"
#include "readers/layout_table.h"
#include "readers/statement_limit.h"
#include "readers/statement_loader.h"
#include "report/report.h"
#include "report/statement_format.h"
#include "requests/carried_templates.h"
#include "requests/format_choice.h"
#include "requests/input_file.h"
#include "requests/scan_report.h"
#include "requests/standard_input.h"
#include "requests/statement_size.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// With the statement named as messages do.
ExplainCommand WithName(ExplainCommand command) {
    if (command.statementFile == kStandardStream) command.statementFile = kStandardInputName;
    return command;
}

std::string TemplateOf(const ExplainCommand& command) {
    if (!command.templateFile) return {};
    const std::string& path = *command.templateFile;
    CFileBuffer buffer;
    const FileContent content = ReadWholeFile(path, buffer);
    if (content.state == FileState::Unreadable) throw CUnreadableInput(path, content.reason);
    if (content.state == FileState::Read) return path;
    throw CUsageError("--template: expected a template file, found none at \"" + path + "\"");
}

/// Whether the statement was read as `layout`, or as another layout of its format.
bool IsAtHand(const Layout& layout, const CReport& report) {
    if (layout.isForeign || report.IsForeign()) return layout.isForeign == report.IsForeign();
    return layout.format == report.Request.StatementFormat;
}

/// A statement that bears its own layout's mark is damaged, if anything: it isn't told to be of another one.
LayoutHint HintFrom(std::string_view text, const CReport& report, const CScanReport& seen, int exitCode) {
    LayoutHint hint;
    if (seen.IsReadByTemplate() && exitCode == kExitDone) return hint;
    for (const Layout* const layout : MarkedLayouts(text)) {
        if (!IsAtHand(*layout, report)) continue;
        hint.bearsOwnMark = true;
        if (layout->marks.needsTemplate && !seen.IsReadAs(layout->name)) hint.needsTemplate = layout->name;
    }
    if (hint.bearsOwnMark) return hint;
    for (const Layout* const layout : FittingLayouts(text)) {
        if (IsAtHand(*layout, report)) continue;
        hint.looksLike.push_back(OptionFor(*layout, !report.TemplatePath.empty()));
    }
    return hint;
}

std::int32_t FormatFor(const ExplainCommand& command, std::string_view text, Explanation& explanation) {
    if (command.format.value_or(std::string(kAutoFormat)) == kAutoFormat) {
        if (const auto format = command.templateFile ? FormatOfTemplate(TemplateOf(command), {}) : std::nullopt) {
            explanation.format = "format " + std::to_string(*format) + ", by the template";
            return *format;
        }
        const std::int32_t format = FormatByMarks(text, command.statementFile);
        explanation.format = "format " + std::to_string(format) + ", by the marks in the text";
        return format;
    }
    const std::int32_t format = FormatNumber(*command.format, command.templateFile.has_value());
    explanation.format = "format " + std::to_string(format);
    return format;
}

void PrepareReading(const ExplainCommand& command, std::string_view text, Explanation& explanation, CReport& report) {
    report.Request.StatementKind = KindNumber(command.kind);
    if (report.IsForeign()) {
        explanation.format = "kind foreign";
        return;
    }
    report.Request.StatementFormat = FormatFor(command, text, explanation);
    report.TemplatePath = TemplateOf(command);
}

int ExitCodeOf(const CScanReport& report, const Explanation& explanation) {
    if (!explanation.stop.empty()) return kExitFailed;
    if (report.FoundSections() == 0) return kExitNothingRecognised;
    return report.MoneyRecords() > 0 ? kExitDone : kExitFailed;
}

}  // namespace

std::string StatementTextAt(const std::string& path, const StatementLimit& limit) {
    const bool isStream = path == kStandardStream;
    if (!isStream) RequireStatementWithin(path, limit);
    const std::string text = isStream ? StandardInputText() : InputFileText(path, "a statement file");
    if (isStream) RequireWithin(text.size(), kStandardInputName, limit);
    return text.substr(0, text.find('\0'));
}

CommandRun DeclareExplain(CLI::App& app) {
    const auto explain = std::make_shared<ExplainCommand>();
    app.add_option("FILE", explain->statementFile, "The statement; - for standard input")->required()->type_name("");
    app.add_option("--format", explain->format,
                   "Layout: " + FormatNumbers() + " or auto (default), by the marks in the text")
        ->type_name("N");
    app.add_option("--kind", explain->kind, "Statement family: domestic (default) or foreign")->type_name("KIND");
    app.add_option("--template", explain->templateFile, "Statement template")->type_name("FILE.ini");
    app.add_option("--day", explain->day, "The statement's day (default: from the file's name, or today)")
        ->type_name("DAY");
    DeclareStatementLimit(app, explain->maxStatement);
    app.add_flag("--json", explain->asJson, "Print as JSON");
    return [explain] { return RunExplainCommand(*explain); };
}

int RunExplainCommand(const ExplainCommand& given) {
    const ExplainCommand command = WithName(given);
    auto [day, daySource] = DayOfStatement(command.day, command.statementFile);
    Explanation explanation{.file = command.statementFile, .day = std::move(day), .daySource = std::move(daySource)};
    const std::string text = StatementTextAt(given.statementFile, StatementLimitOf(given.maxStatement));
    CReport report;
    PrepareReading(command, text, explanation, report);

    CScanReport seen(text);
    CStatementLoader loader(report);
    try {
        loader.Read(explanation.day, text, &seen);
    } catch (const CReportError& error) {
        explanation.stop = error.what();
    }
    if (const auto& lost = loader.TemplateProblem()) throw CUnreadableInput(lost->path, lost->reason);
    seen.Finish();
    explanation.exitCode = ExitCodeOf(seen, explanation);
    explanation.hint = HintFrom(text, report, seen, explanation.exitCode);
    if (command.asJson) {
        PrintExplanationAsJson(explanation, seen);
    } else {
        PrintExplanation(explanation, seen);
    }
    return explanation.exitCode;
}

}  // namespace tradebill
