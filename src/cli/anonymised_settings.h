// What a copy takes along beside its statements: the files that a run of it needs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "anonymise/account_anonymiser.h"
#include "readers/statement_limit.h"
#include "report/account_key.h"
#include "requests/input_ini.h"

namespace tradebill {

class CAnonymisedFolder;
struct AnonymiseCommand;

/// How statements are copied.
struct CopySettings {
    AnonymiseSettings anonymise;
    std::string root;
    StatementLimit limit;

    /// Empty without a template.
    [[nodiscard]] std::string TemplatePath(const std::optional<std::string>& name) const;
};

/// The request of a report, as its file says it.
struct RequestFile {
    InputIni ini;

    /// Empty for a key that it lacks.
    [[nodiscard]] std::string ValueOf(const char* key) const;
};

/// Throws as LoadInputIni.
[[nodiscard]] RequestFile ReadRequestFile(const std::string& path);

/// The same request of the copy: `account`, and dates that are moved.
[[nodiscard]] std::string ChangedRequest(const RequestFile& file, const AccountKey& account, int shiftWeeks);

/// A file of the copy.
struct SideFile {
    std::string name;  ///< below its folder
    std::string bytes;
};
using SideFiles = std::vector<SideFile>;

/// Chain files, the template, and the files that the user names, without their comments. Throws CUsageError for one
/// that was named and isn't there, and CUnreadableInput.
[[nodiscard]] SideFiles ReadSideFiles(const AnonymiseCommand& command, const CopySettings& settings);

/// Throws as CAnonymisedFolder::Write.
void WriteSideFiles(const SideFiles& files, CAnonymisedFolder& folder);

}  // namespace tradebill
