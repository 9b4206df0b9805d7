// The file of a batch's results: one line an account that is done, appended as it is done, whole lines only.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "batch/account_result.h"
#include "platform/file.h"
#include "report/account_key.h"

namespace tradebill {

using ResultsByAccount = std::map<AccountKey, AccountResult>;

/// The results that are there, the last of each account. What a run that was killed has cut is left out.
struct ReadResults {
    ResultsByAccount results;
    bool isTidy = true;                     ///< every line is a result, and no account has two
    std::optional<UnreadFile> unread = {};  ///< the file, if it is there and can't be read
};

[[nodiscard]] ReadResults LoadResults(const std::string& path);

/// Used by one thread at a time. What fails leaves its reason behind (system_error.h).
class CResultsFile {
public:
    explicit CResultsFile(std::string path) : path_(std::move(path)) {}

    /// Begins with `kept`, and nothing else of what is there: the file is written anew, in one step, unless it has just
    /// that. False if it can't be written.
    [[nodiscard]] bool Begin(const ResultsByAccount& kept);

    /// Adds a line with a single call of the system, so that a kill cuts it or leaves it out. False if not all of it
    /// could be written: the next line begins anew then.
    ///
    /// REQUIRES: Begin returned true.
    [[nodiscard]] bool Append(const AccountResult& result);

    /// False if what was written may be lost.
    [[nodiscard]] bool Close();

private:
    std::string path_;
    std::unique_ptr<CFile> file_;
    bool isCut_ = false;  ///< the last line was not written to its end
};

}  // namespace tradebill
