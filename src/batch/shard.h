// The part of a batch that one of several tasks does: which accounts are whose is told by the accounts alone, so that
// all tasks agree without speaking to each other, and a new account moves no other.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "report/account_key.h"

namespace tradebill {

/// The same for an account at all times and on all systems. Close to evenly spread over any number of shards.
[[nodiscard]] std::uint64_t StableHash(const AccountKey& account);

struct Shard {
    std::uint32_t index = 0;  ///< below count
    std::uint32_t count = 1;

    [[nodiscard]] bool Has(const AccountKey& account) const { return StableHash(account) % count == index; }
};

/// "2/8" is the second of eight. Nothing for any other text, and for more than a million.
[[nodiscard]] std::optional<Shard> ParseShard(std::string_view text);

/// What an engine says of its tasks, but not plainly enough to go by. Its words say why.
class CNoShard : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Looks up a variable of the environment; null if there is none.
using Environment = std::function<const char*(const char* name)>;

/// The shard that an engine gives the task that this is. `count` is how many there are, if the user says it.
///
/// A task of a Slurm array is the shard of its number, counted from 0; without `count` the array must begin at 0 and
/// have no gaps, since of one that is run again in parts the number of parts would be taken for that of all. A pod of
/// an indexed Job of Kubernetes knows which it is, and `count` must be told. Nothing without an engine. Throws
/// CNoShard.
[[nodiscard]] std::optional<Shard> ShardOfEngine(const Environment& environment, std::optional<std::uint32_t> count);

}  // namespace tradebill
