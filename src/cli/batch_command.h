// The command `batch`: reports of many accounts, by processes at work beside each other, and what came of each.
#pragma once

#include <optional>
#include <string>

#include "batch/accounts_page.h"
#include "cli/batch_accounts.h"
#include "cli/batch_making.h"
#include "cli/command_table.h"

namespace tradebill {

struct BatchCommand {
    AccountSource source;
    BatchMaking making;
    int jobs = 0;                        ///< processes; 0: one for each processor
    double timeout = 0;                  ///< seconds for an account; 0: as long as it takes
    std::optional<std::string> memory;   ///< "1G", of a worker
    double stopSeconds = 20;             ///< for the accounts in work, when the batch has to stop
    std::optional<std::string> shard;    ///< "2/8"; "auto", or "auto/8": as the engine says that runs this task
    double riskLimit = kUsualRiskLimit;  ///< of margin use, above which the index marks an account
    bool resumes = false;
    bool quiet = false;
};

/// Adds --risk-limit, of the accounts' index. `limit` outlives `app`.
void AddRiskLimitOption(CLI::App& app, double& limit);

[[nodiscard]] CommandRun DeclareBatch(CLI::App& app);

/// Returns the program's exit code; throws CUsageError before anything is made.
[[nodiscard]] int RunBatchCommand(BatchCommand command);

}  // namespace tradebill
