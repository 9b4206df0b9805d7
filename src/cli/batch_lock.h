// Keeps batches apart that write to one folder: the tasks of one batch may, each its own part, and nobody else.
#pragma once

#include <string>

#include "batch/batch_places.h"
#include "batch/shard.h"
#include "platform/lock_file.h"

namespace tradebill {

class CBatchLock {
public:
    /// Takes the place of `shard`, unless another has it, or is at work on a batch that is cut otherwise. The system
    /// lets go of it however its holder ends.
    CBatchLock(const CBatchPlaces& places, const Shard& shard);

    [[nodiscard]] bool IsHeld() const { return reason_.empty(); }
    /// Whether another is at work there: there is nothing wrong then.
    [[nodiscard]] bool IsTaken() const { return isTaken_; }
    /// Why it isn't held, in words.
    [[nodiscard]] const std::string& Reason() const { return reason_; }

private:
    CLockFile lock_;
    bool isTaken_ = false;
    std::string reason_;
};

}  // namespace tradebill
