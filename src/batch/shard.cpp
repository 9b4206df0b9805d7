#include "batch/shard.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "report/account_key.h"

namespace tradebill {
namespace {

constexpr std::uint32_t kMostShards = 1'000'000;

/// FNV-1a, byte by byte.
void Add(std::uint64_t& hash, std::string_view bytes) {
    constexpr std::uint64_t kPrime = 1099511628211U;
    for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * kPrime;
}

/// The finish of MurmurHash3, after which the last bits hang on all others.
std::uint64_t Mixed(std::uint64_t hash) {
    hash = (hash ^ (hash >> 33U)) * 0xff51afd7ed558ccdU;
    hash = (hash ^ (hash >> 33U)) * 0xc4ceb9fe1a85ec53U;
    return hash ^ (hash >> 33U);
}

/// A whole number without sign, and nothing else.
std::optional<std::uint32_t> NumberOf(std::string_view text) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// The number that a variable of the engine has; nothing if it isn't there.
std::optional<std::uint32_t> Said(const Environment& environment, const char* name) {
    const char* const text = environment(name);
    if (text == nullptr) return std::nullopt;
    const auto number = NumberOf(text);
    if (!number) throw CNoShard(std::string(name) + " is \"" + text + "\", which is no number");
    return number;
}

Shard Checked(std::uint32_t index, std::uint32_t count, const char* name) {
    if (count == 0 || count > kMostShards)
        throw CNoShard("expected from 1 to 1000000 shards, found " + std::to_string(count));
    if (index >= count) {
        throw CNoShard(std::string(name) + " is " + std::to_string(index) + ": expected a number from 0 on, below " +
                       std::to_string(count) + ", the number of shards");
    }
    return {.index = index, .count = count};
}

std::uint32_t CountOfArray(const Environment& environment) {
    const auto count = Said(environment, "SLURM_ARRAY_TASK_COUNT");
    const auto first = Said(environment, "SLURM_ARRAY_TASK_MIN");
    const auto last = Said(environment, "SLURM_ARRAY_TASK_MAX");
    if (count && first == 0U && last && *last + 1 == *count) return *count;
    throw CNoShard("the array isn't one from 0 without gaps: how many shards there are must be said");
}

}  // namespace

std::uint64_t StableHash(const AccountKey& account) {
    constexpr std::string_view kEnd("\0", 1);
    std::uint64_t hash = 14695981039346656037U;
    Add(hash, account.user);
    Add(hash, kEnd);
    Add(hash, account.account);
    Add(hash, kEnd);
    Add(hash, KindName(account.isForeign));
    return Mixed(hash);
}

std::optional<Shard> ParseShard(std::string_view text) {
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const auto place = NumberOf(text.substr(0, slash));
    const auto count = NumberOf(text.substr(slash + 1));
    if (!place || !count || *place == 0 || *place > *count || *count > kMostShards) return std::nullopt;
    return Shard{.index = *place - 1, .count = *count};
}

std::optional<Shard> ShardOfEngine(const Environment& environment, std::optional<std::uint32_t> count) {
    constexpr const char* kTask = "SLURM_ARRAY_TASK_ID";
    constexpr const char* kPod = "JOB_COMPLETION_INDEX";
    if (const auto task = Said(environment, kTask)) {
        return Checked(*task, count ? *count : CountOfArray(environment), kTask);
    }
    const auto pod = Said(environment, kPod);
    if (!pod) return std::nullopt;
    if (!count) throw CNoShard("JOB_COMPLETION_INDEX is there: how many shards there are must be said");
    return Checked(*pod, *count, kPod);
}

}  // namespace tradebill
