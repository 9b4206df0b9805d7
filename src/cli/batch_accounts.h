// The accounts of a batch: those that a manifest lists, or all that are there.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "batch/account_work.h"
#include "batch/shard.h"
#include "requests/report_options.h"

namespace tradebill {

struct AccountSource {
    std::optional<std::string> manifest;  ///< a file, or "-"
    bool discovers = false;
};

struct BatchAccounts {
    std::vector<AccountWork> accounts = {};     ///< no two the same; in the order of the manifest, or of their keys
    std::int64_t outOfRange = 0;                ///< found, and without a statement of the days that are asked
    std::vector<std::string> unreadable = {};   ///< folders that can't be looked into, and why: a line each
    std::vector<std::string> unseenUsers = {};  ///< whose folders they are; UTF-8
};

/// The accounts of `source` that belong to `shard`, with the settings in which each differs from `given`, whose day of
/// today is told. What is wrong with one account is its refusal. Throws CUsageError for what is no manifest, one that
/// has an account twice or a row that names none, and where nothing is found; CUnreadableInput.
[[nodiscard]] BatchAccounts FindBatchAccounts(const AccountSource& source, const ReportOptions& given,
                                              const Shard& shard);

}  // namespace tradebill
