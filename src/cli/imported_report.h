// Reports of files as users have them: they are imported into a root of the report's own.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "findings/finding.h"
#include "requests/report_options.h"

namespace tradebill {

class CAwaitedWork;

/// What is imported, and for what.
struct ImportOrder {
    std::vector<std::string> files;          ///< and folders of them
    ReportOptions options;                   ///< of the report
    std::optional<std::string> outFolder;    ///< --out
    std::vector<std::string> accounts = {};  ///< whose files count; none: whichever there are
    bool takesSeveral = false;               ///< accounts of one kind
    int wait = 0;                            ///< seconds
};

/// An account that files brought.
struct ImportedAccount {
    ReportOptions options;               ///< of a report of the root, the account and the days that they brought
    std::vector<Finding> findings = {};  ///< of the import: what a workbook leaves open
};

struct ImportedReport {
    std::vector<ImportedAccount> accounts;  ///< at least one
    bool isWhole = false;                   ///< no file was refused; those that were are told
};

/// Imports the files into the folder "root" below --out. Statements of the accounts that an earlier report left there
/// and these files don't bring are removed, so that the report is of these files alone. Throws CUsageError if the order
/// says too little or too much, or the files are of more accounts than it takes, which it lists; and CNothingReadable
/// if no file could be imported, or the folder can't be written to, and CStoppedWork between two files.
[[nodiscard]] ImportedReport ImportForReport(const ImportOrder& order, CAwaitedWork& work);

}  // namespace tradebill
