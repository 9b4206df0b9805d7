// The command `explain`: reads one statement with the readers of a report and shows what they saw.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/command_table.h"
#include "readers/statement_limit.h"
#include "requests/scan_report.h"

namespace tradebill {

struct ExplainCommand {
    std::string statementFile;          ///< "-" for standard input
    std::optional<std::string> format;  ///< a number or "auto"; without one, auto
    std::optional<std::string> kind;
    std::optional<std::string> templateFile;
    std::optional<std::string> day;
    std::optional<std::string> maxStatement = {};
    bool asJson = false;
};

/// The bytes of a statement up to the first zero byte, where a report ends it too; "-": of standard input. Throws
/// CUsageError, CUnreadableInput for a file that can't be read, and std::runtime_error for one that is too large.
[[nodiscard]] std::string StatementTextAt(const std::string& path, const StatementLimit& limit);

[[nodiscard]] CommandRun DeclareExplain(CLI::App& app);

inline constexpr int kExitNothingRecognised = 3;

/// What the marks in the text say of its layout.
struct LayoutHint {
    std::vector<std::string> looksLike = {};  ///< options for other layouts, whose marks it bears
    bool bearsOwnMark = false;                ///< it bears that of the layout it was read by
    std::string needsTemplate = {};           ///< the layout whose mark it bears, which only a template picks, or empty
};

/// One statement, read; all that is shown of it.
struct Explanation {
    std::string file;
    std::string day = {};
    std::string daySource = {};  ///< "--day", "the file's name" or "today"
    std::string format = {};     ///< why this format or kind
    std::string stop = {};       ///< the error that ended the reading, or empty
    LayoutHint hint = {};
    int exitCode = 0;
};

/// Reads the statement and prints what was seen. Returns 0 if a money record and a section were found, 3 if nothing was
/// recognised, 1 for what lies between. Throws CUsageError, CUnreadableInput for a file that can't be read, and
/// std::runtime_error for one that is too large.
[[nodiscard]] int RunExplainCommand(const ExplainCommand& given);

void PrintExplanation(const Explanation& explanation, const CScanReport& report);
void PrintExplanationAsJson(const Explanation& explanation, const CScanReport& report);

}  // namespace tradebill
