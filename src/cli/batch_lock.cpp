#include "cli/batch_lock.h"

#include <optional>
#include <string>
#include <vector>

#include "batch/batch_places.h"
#include "batch/shard.h"
#include "platform/lock_file.h"
#include "platform/paths.h"
#include "platform/process.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

std::string TakenText(const CBatchPlaces& places, const std::string& lock) {
    const std::string holder = HolderIn(lock);
    return "another batch is at work in " + Utf8Path(NativePath(places.Out())) +
           (holder.empty() ? "" : " (" + holder + ")");
}

/// The lock of a task of a batch that is cut otherwise, if one is at work.
std::optional<std::string> OtherLock(const CBatchPlaces& places, const Shard& shard) {
    const auto shards = ShardsIn(places.Out(), "batch", ".lock");
    for (const Shard& other : shards.value_or(std::vector<Shard>())) {
        if (other.count == shard.count) continue;
        std::string path = CBatchPlaces(places.Out(), other).Lock();
        if (CLockFile(path, CLockFile::Which::FoundOnly).IsTaken()) return path;
    }
    return std::nullopt;
}

}  // namespace

CBatchLock::CBatchLock(const CBatchPlaces& places, const Shard& shard)
    : lock_(places.Lock(), CLockFile::Which::MadeIfMissing) {
    if (lock_.IsTaken()) {
        isTaken_ = true;
        reason_ = TakenText(places, places.Lock());
        return;
    }
    if (!lock_.IsHeld()) {
        const std::string why = SystemErrorText(LastSystemError());
        reason_ = "can't write " + Utf8Path(NativePath(places.Lock())) + (why.empty() ? "" : ": " + why);
        return;
    }
    lock_.Name(OwnProcessName());
    if (const auto other = OtherLock(places, shard)) {
        isTaken_ = true;
        reason_ = TakenText(places, *other);
    }
}

}  // namespace tradebill
