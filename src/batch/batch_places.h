// Where a batch keeps what belongs to it, in its output folder.
//
// Each of several tasks has files of its own beside those of the others: results-2-of-8.jsonl. The accounts' folders
// belong to all, since no two tasks have an account in common.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/shard.h"
#include "report/account_key.h"

namespace tradebill {

inline constexpr std::string_view kIndexName = "index.html";
inline constexpr std::string_view kSummaryName = "summary.csv";

class CBatchPlaces {
public:
    /// `out` is a folder without separators at its end.
    CBatchPlaces(std::string out, const Shard& shard) : out_(std::move(out)), shard_(shard) {}

    [[nodiscard]] const std::string& Out() const { return out_; }
    [[nodiscard]] std::string PathOf(std::string_view name) const { return out_ + "/" + std::string(name); }

    [[nodiscard]] std::string Results() const { return Own("results", ".jsonl"); }
    [[nodiscard]] std::string State() const { return Own("batch", ".json"); }
    [[nodiscard]] std::string Lock() const { return Own("batch", ".lock"); }
    /// In which accounts are made before they get their places.
    [[nodiscard]] std::string Work() const { return Own(".work", ""); }
    /// The database of this task, for that of the batch: "all-2-of-8.db" for "all.db".
    [[nodiscard]] std::string Database(const std::string& ofBatch) const;

private:
    [[nodiscard]] std::string Own(std::string_view name, std::string_view ending) const;

    std::string out_;
    Shard shard_;
};

/// The folder of an account below the output folder: "accounts/domestic/demo/90010002". Names as the file system has
/// them.
///
/// REQUIRES: the names may be parts of paths (request_names.h).
[[nodiscard]] std::string AccountFolder(const AccountKey& account);

/// "2-of-8"; empty for the whole of a batch.
[[nodiscard]] std::string ShardName(const Shard& shard);

/// The shards whose files of that kind lie in `out`: of results-2-of-8.jsonl and its like, and results.jsonl as the one
/// of one, in the order of counts and numbers. Nothing, with the system's reason, if the folder can't be read.
[[nodiscard]] std::optional<std::vector<Shard>> ShardsIn(const std::string& out, std::string_view name,
                                                         std::string_view ending);

}  // namespace tradebill
