// One account of a batch: its report and what else is asked, made in a folder of its own that gets its name when all is
// in it.
#pragma once

#include <string>

#include "batch/account_result.h"
#include "batch/account_work.h"
#include "cli/batch_making.h"
#include "export/run_json.h"
#include "export/table.h"
#include "report/account_key.h"
#include "requests/report_options.h"

namespace tradebill {

/// What is written of an account.
struct AccountParts {
    ExportSource source;
    const RunFacts& facts;
    const AccountKey& key;
};

class CBatchAccounts {
public:
    /// `work`: a folder on the volume of the output folder, in which this process alone makes what it names by itself.
    /// Throws CUsageError.
    CBatchAccounts(const BatchMaking& making, std::string work);

    /// Makes the account, or tells whether it is still as it was made. What can't be done is in the answer; only a lack
    /// of memory is thrown.
    [[nodiscard]] AccountAnswer Answer(const AccountQuestion& question);

private:
    void Make(const AccountQuestion& question, AccountResult& result);
    void WriteParts(const std::string& folder, const AccountParts& account) const;
    void Place(const AccountQuestion& question, const std::string& folder, AccountResult& result);
    [[nodiscard]] bool IsAsMade(const AccountQuestion& question) const;
    [[nodiscard]] std::string OptionsDigest(const ReportOptions& options) const;
    [[nodiscard]] std::string PlaceOf(AccountKey key) const;
    [[nodiscard]] std::string NewFolder();

    const BatchMaking& making_;
    const MadeParts parts_;
    const std::string work_;
    int made_ = 0;  // folders
};

}  // namespace tradebill
