// The command `import`: brings statements as users have them to where the module looks for them.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/command_table.h"
#include "cli/import_files.h"
#include "cli/wait_option.h"
#include "driver/place_guard.h"
#include "intake/bill_import.h"
#include "intake/file_plan.h"
#include "requests/report_options.h"

namespace tradebill {

class CAwaitedWork;

struct ImportCommand {
    std::vector<std::string> paths;  ///< files, and folders whose files are tried
    std::optional<std::string> root;
    std::optional<std::string> user;
    std::shared_ptr<const ReportOptions> configured;  ///< may be null; root and user of it count where there are none
    std::optional<std::string> account;
    std::optional<std::string> jsonFile;
    int wait = kUsualWait;
    bool isDryRun = false;
    bool force = false;
    bool quiet = false;
};

/// The number of texts that state none. Throws CUsageError if it can't be one.
[[nodiscard]] std::optional<std::string> ImportAccountOf(const std::optional<std::string>& given);

/// Keeps other imports from writing into a folder, from when it is told to until it is released.
class CImportGuard {
public:
    /// It waits for others for at most so many seconds.
    explicit CImportGuard(int wait) : wait_(wait) {}

    /// Why the folder can't be held, a sentence in UTF-8; empty: it is.
    [[nodiscard]] std::string Hold(const std::string& folder);
    /// Clears up in the folder, also behind an import that was killed. What is left, a sentence in UTF-8; empty:
    /// nothing.
    [[nodiscard]] std::string Release(const std::string& folder);

private:
    int wait_;
    std::optional<CPlaceGuard> guard_;
};

/// What reads texts by the program's templates, and those of the root with their names.
[[nodiscard]] LayoutFinder LayoutsByTemplate(const std::string& root);

/// What became of each file; a folder that can't be looked into counts as a file that was refused. Throws CStoppedWork
/// between two files.
[[nodiscard]] std::vector<ImportedFile> ImportAll(const FoundFiles& found, CBillImport& import, CAwaitedWork& work);

[[nodiscard]] CommandRun DeclareImport(CLI::App& app);

/// Imports every file, and prints what became of each and what `check` finds in the days imported. Returns 0 if all of
/// them are at their places, whatever was found, 3 if one was refused, 1 if a target or the JSON can't be written, or
/// if there is no file. Throws CUsageError before anything is done.
[[nodiscard]] int RunImportCommand(const ImportCommand& command);

}  // namespace tradebill
