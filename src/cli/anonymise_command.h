// The command `anonymise`: copies a root folder's statements for others to look at, without whose they are.
#pragma once

#include <optional>
#include <string>

#include "cli/command_table.h"

namespace tradebill {

struct AnonymiseCommand {
    std::string root;
    std::string out;
    std::optional<std::string> user;  ///< all of them without
    std::optional<std::string> account;
    std::optional<std::string> format;
    std::optional<std::string> kind;
    std::optional<std::string> templateName;
    std::optional<std::string> requestFile;
    std::optional<std::string> unitFile;
    std::optional<std::string> productFile;
    std::optional<std::string> seed;
    std::optional<std::string> shiftWeeks;
    std::optional<std::string> maxStatement;
    bool showsSeed = false;
};

[[nodiscard]] CommandRun DeclareAnonymise(CLI::App& app);

/// Returns 0 if all statements have a copy, 1 if some have none, which are told, or if the writing failed, and then
/// nothing of the copy is left. Throws CUsageError before anything is done.
[[nodiscard]] int RunAnonymiseCommand(const AnonymiseCommand& given);

}  // namespace tradebill
