// What `check` finds in the days that an import brought.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "findings/finding.h"
#include "intake/bill_import.h"

namespace tradebill {

class CAwaitedWork;

struct ImportFindings {
    std::vector<Finding> findings = {};  ///< of all accounts, the worst first
    bool isComplete = true;              ///< false: something could not be read, which is told
};

/// Reads the statements of each account below `root` from the first to the last day that `files` brought or found
/// there, by the layout of the first of them.
[[nodiscard]] ImportFindings FindingsOfImport(std::span<const ImportedFile> files, const std::string& root,
                                              const std::string& user, CAwaitedWork& work);

}  // namespace tradebill
