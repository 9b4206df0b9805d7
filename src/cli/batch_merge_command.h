// The command `batch-merge`: what the tasks of a batch have left, joined.
#pragma once

#include <optional>
#include <string>

#include "batch/accounts_page.h"
#include "cli/command_table.h"

namespace tradebill {

struct BatchMergeCommand {
    std::string outFolder;
    std::optional<std::string> sqliteFile;  ///< as the tasks were told
    std::optional<std::string> today;       ///< that of all tasks, if they are held to one
    double riskLimit = kUsualRiskLimit;     ///< of margin use, above which the index marks an account
    bool quiet = false;
};

[[nodiscard]] CommandRun DeclareBatchMerge(CLI::App& app);

/// Returns the program's exit code, as the batch would in one task; throws CUsageError before anything is done.
[[nodiscard]] int RunBatchMergeCommand(const BatchMergeCommand& command);

}  // namespace tradebill
