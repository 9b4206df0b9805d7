#include "cli/template_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/ini_file.h"
#include "cli/command_table.h"
#include "cli/report_arguments.h"
#include "cli/shown_text.h"
#include "cli/statement_day.h"
#include "findings/template_against.h"
#include "findings/template_check.h"
#include "requests/format_choice.h"
#include "requests/input_file.h"
#include "requests/statement_size.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// What the statement doesn't bear out, behind what is wrong without it.
void AddSample(const TemplateCheckCommand& command, const CIniFile& file, std::vector<TemplateFinding>& findings) {
    const std::string& path = *command.statementFile;
    const std::string day = DayOfStatement(command.day, path).day;
    std::optional<std::int32_t> format;
    if (command.format) format = FormatNumber(*command.format, true);
    RequireStatementWithin(path, StatementLimitOf(command.maxStatement));
    std::string text = InputFileText(path, "a statement file");
    text.resize(std::min(text.size(), text.find('\0')));
    for (TemplateFinding& finding : CheckTemplateAgainst(file, {.text = text, .day = day, .format = format})) {
        findings.push_back(std::move(finding));
    }
    std::ranges::stable_sort(findings, {}, &TemplateFinding::line);
}

}  // namespace

CommandRun DeclareTemplateCheck(CLI::App& app) {
    const auto command = std::make_shared<TemplateCheckCommand>();
    app.add_option("FILE", command->templateFile, "The template")->required()->type_name("");
    CLI::Option* const against =
        app.add_option("--against", command->statementFile, "A statement that it should fit: columns, sections, labels")
            ->type_name("STATEMENT");
    app.add_option("--format", command->format,
                   "Format of the statement (default: 201 if open positions hold both sides in a row, else 1)")
        ->type_name("N")
        ->needs(against);
    app.add_option("--day", command->day, "The statement's day (default: from the file's name)")
        ->type_name("DAY")
        ->needs(against);
    DeclareStatementLimit(app, command->maxStatement);
    return [command] { return RunTemplateCheck(*command); };
}

int RunTemplateCheck(const TemplateCheckCommand& command) {
    const std::string& path = command.templateFile;
    const CIniFile file = CIniFile::Parse(InputFileText(path, "a template file"));
    std::vector<TemplateFinding> findings = CheckTemplate(file);
    if (command.statementFile) AddSample(command, file, findings);
    const std::string shownPath = ShownText(path);
    int errors = 0;
    int warnings = 0;
    for (const TemplateFinding& finding : findings) {
        ++(finding.isError ? errors : warnings);
        std::cout << shownPath;
        if (finding.line > 0) std::cout << ", line " << finding.line;
        std::cout << ": " << (finding.isError ? "error: " : "warning: ") << ShownText(finding.text) << "\n";
    }
    std::cout << shownPath << ": " << errors << (errors == 1 ? " error, " : " errors, ") << warnings
              << (warnings == 1 ? " warning" : " warnings") << "\n";
    return errors == 0 ? kExitDone : kExitFailed;
}

}  // namespace tradebill
