// Reports of files as users have them: they are imported into a root of the report's own.
#pragma once

#include <vector>

#include "cli/report_command.h"
#include "findings/finding.h"

namespace tradebill {

/// A report of what files brought.
struct ImportedReport {
    ReportCommand command;  ///< without files: of the root, and of the one account and the days that they brought
    std::vector<Finding> findings;  ///< of the import: what a workbook leaves open
    bool isWhole = false;           ///< no file was refused; those that were are told
};

/// Imports the files of `command` into the folder "root" below its --out. Statements of the account that an earlier
/// report left there and these files don't bring are removed, so that the report is of these files alone. Throws
/// CUsageError if the command says too little or too much, or the files are of several accounts, which it lists; and
/// CNothingReadable if no file could be imported, or the folder can't be written to.
[[nodiscard]] ImportedReport ImportForReport(const ReportCommand& command);

}  // namespace tradebill
