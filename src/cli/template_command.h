// The command `template check`: what a statement template says that no reader will understand as it was meant, and what
// a statement doesn't bear out.
#pragma once

#include <optional>
#include <string>

#include "cli/command_table.h"

namespace tradebill {

struct TemplateCheckCommand {
    std::string templateFile;
    std::optional<std::string> statementFile = {};  ///< to check it against
    std::optional<std::string> format = {};         ///< of the statement; nothing: as the template looks
    std::optional<std::string> day = {};
    std::optional<std::string> maxStatement = {};
};

[[nodiscard]] CommandRun DeclareTemplateCheck(CLI::App& app);

/// Prints the findings. Returns the program's exit code: 1 if there are errors. Throws CUsageError for a format or a
/// day that is none, as InputFileText for its files, and std::runtime_error for a statement that is too large.
[[nodiscard]] int RunTemplateCheck(const TemplateCheckCommand& command);

}  // namespace tradebill
