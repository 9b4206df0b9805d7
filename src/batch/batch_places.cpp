#include "batch/batch_places.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "batch/shard.h"
#include "platform/paths.h"
#include "report/account_key.h"

namespace tradebill {
namespace {

/// "2/8" of "2-of-8".
std::string ParsableShard(std::string_view name) {
    constexpr std::string_view kOf = "-of-";
    const std::size_t at = name.find(kOf);
    if (at == std::string_view::npos) return {};
    return std::string(name.substr(0, at)).append("/").append(name.substr(at + kOf.size()));
}

/// The name of a file with "-2-of-8" before its ending.
std::string WithShard(std::string_view name, std::string_view ending, const Shard& shard) {
    const std::string shardName = ShardName(shard);
    return std::string(name).append(shardName.empty() ? "" : "-" + shardName).append(ending);
}

}  // namespace

std::string ShardName(const Shard& shard) {
    return shard.count == 1 ? std::string() : std::to_string(shard.index + 1) + "-of-" + std::to_string(shard.count);
}

std::string CBatchPlaces::Own(std::string_view name, std::string_view ending) const {
    return PathOf(WithShard(name, ending, shard_));
}

std::string CBatchPlaces::Database(const std::string& ofBatch) const {
    const std::size_t name = ofBatch.size() - FileNameOf(ofBatch).size();
    const std::size_t point = ofBatch.rfind('.');
    const bool hasEnding = point != std::string::npos && point > name;
    const std::size_t end = hasEnding ? point : ofBatch.size();
    return WithShard(std::string_view(ofBatch).substr(0, end), std::string_view(ofBatch).substr(end), shard_);
}

std::string AccountFolder(const AccountKey& account) {
    return "accounts/" + std::string(KindName(account.isForeign)) + "/" + account.user + "/" + account.account;
}

std::optional<std::vector<Shard>> ShardsIn(const std::string& out, std::string_view name, std::string_view ending) {
    const auto names = NamesIn(out);
    if (!names) return std::nullopt;
    std::vector<Shard> shards;
    for (std::string_view file : *names) {
        if (!file.starts_with(name) || !file.ends_with(ending) || file.size() < name.size() + ending.size()) continue;
        file.remove_prefix(name.size());
        file.remove_suffix(ending.size());
        if (file.empty()) {
            shards.push_back({});
        } else if (file.starts_with('-')) {
            const auto shard = ParseShard(ParsableShard(file.substr(1)));
            if (shard && ShardName(*shard) == file.substr(1)) shards.push_back(*shard);
        }
    }
    std::ranges::sort(shards, {}, [](const Shard& shard) { return std::pair(shard.count, shard.index); });
    return shards;
}

}  // namespace tradebill
