// The command `batch-worker`: a process of a batch, asked about one account after the other. Nobody calls it by hand.
#pragma once

#include <string>

#include "cli/batch_making.h"
#include "cli/command_table.h"

namespace tradebill {

inline constexpr const char* kWorkerCommand = "batch-worker";

struct BatchWorkerCommand {
    BatchMaking making;
    std::string workFolder;
};

[[nodiscard]] CommandRun DeclareBatchWorker(CLI::App& app);

/// Answers the questions on standard input, on standard output, until there are no more. Returns the program's exit
/// code; throws CUsageError.
[[nodiscard]] int RunBatchWorker(BatchWorkerCommand& command);

}  // namespace tradebill
