// The work of the command `anonymise`: each account's statements read, changed and written.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "anonymise/account_anonymiser.h"
#include "anonymise/identity_map.h"
#include "cli/anonymise_command.h"
#include "cli/anonymised_folder.h"
#include "cli/anonymised_settings.h"
#include "driver/report_request.h"
#include "report/account_key.h"
#include "requests/account_files.h"
#include "requests/format_choice.h"

namespace tradebill {

class CAwaitedWork;

class CAnonymiseRun {
public:
    /// REQUIRES: all of them outlive this.
    CAnonymiseRun(const AnonymiseCommand& command, const CopySettings& settings, CAnonymisedFolder& folder);

    /// Copies all statements of `files`. Tells those that are left out, and returns whether there is none. Throws
    /// std::runtime_error if a copy can't be written, and CStoppedWork between two accounts.
    [[nodiscard]] bool CopyAll(const AccountFiles& files, CAwaitedWork& work);

    [[nodiscard]] std::size_t Statements() const { return statements_; }
    [[nodiscard]] std::size_t Accounts() const { return copied_; }
    /// The first that was copied, as it is in the copy.
    ///
    /// REQUIRES: a statement was.
    [[nodiscard]] const AccountKey& FirstAccount() const { return first_; }

private:
    /// A statement's file and its bytes.
    struct FoundStatement {
        StatementPlace place;
        std::string text;
    };
    using FoundStatements = std::vector<FoundStatement>;

    void LeaveOut(const std::string& path, const std::string& reason);
    [[nodiscard]] FoundStatements ReadAll(const std::vector<StatementPlace>& places);
    [[nodiscard]] PickedFormat FormatOfAll(const FoundStatements& statements) const;
    [[nodiscard]] GenerateBillRequest RequestOf(const AccountKey& account) const;
    void CopyAccount(const AccountKey& account, const AccountKey& copy, const std::vector<StatementPlace>& places);
    void WriteCopies(const AccountKey& copy, const AnonymisedAccount& made, const FoundStatements& statements);

    const AnonymiseCommand& command_;
    const CopySettings& settings_;
    CAnonymisedFolder& folder_;
    CIdentityMap accounts_;
    AccountKey first_;
    std::size_t statements_ = 0;
    std::size_t copied_ = 0;
    bool isWhole_ = true;
};

}  // namespace tradebill
