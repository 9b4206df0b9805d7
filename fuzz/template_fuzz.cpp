// Any bytes as a template, and a statement that is read by it: on a day of its old description and on one of its new.
#include <algorithm>
#include <string_view>
#include <vector>

#include "base/ini_file.h"
#include "findings/template_against.h"
#include "findings/template_check.h"
#include "fuzz_statement.h"
#include "fuzz_target.h"
#include "readers/statement_template.h"
#include "requests/scan_report.h"

namespace tradebill {
namespace {

constexpr std::string_view kDays[] = {"20240102", "20240103", "20290101"};

void RequireLines(const std::vector<TemplateFinding>& findings, std::string_view text) {
    const auto lines = std::ranges::count(text, '\n') + 1;
    Require(std::ranges::all_of(
                findings, [&](const TemplateFinding& finding) { return finding.line >= 0 && finding.line <= lines; }),
            "a finding stands at a line of the template");
    Require(std::ranges::none_of(findings, [](const TemplateFinding& finding) { return finding.text.empty(); }),
            "a finding says what it is");
}

}  // namespace

void FuzzTemplate(std::string_view bytes) {
    CFuzzInput input(bytes);
    const StatementChoice choice = TakeStatementChoice(input);
    const std::string_view day = RowOf(kDays, input);
    const std::string_view ini = input.Text();
    const std::string_view text = input.Text();
    const CIniFile file = CIniFile::Parse(ini);
    RequireLines(CheckTemplate(file), ini);
    RequireLines(CheckTemplateAgainst(file, {.text = text, .day = day, .format = choice.format}), ini);

    const CStatementTemplate byTemplate(file);
    CFuzzReport told(choice, false);
    CScanReport seen(text);
    const bool isRead = ReadStatement(told.Get(), day, text, &byTemplate, &seen);
    seen.Finish();
    CFuzzReport silent(choice, false);
    Require(ReadStatement(silent.Get(), day, text, &byTemplate, nullptr) == isRead,
            "an error is one whether somebody listens or not");
    RequireSameRows(told.Get(), silent.Get());
}

}  // namespace tradebill
